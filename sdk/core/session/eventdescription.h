// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

namespace orrin {

/*! Something that happened at a server, as its session tells it. A plain value; texts have at most 256 characters. */
struct EventDescription
{
    enum class State {
        Momentary, //!< it happened
        Began,
        Ended
    };
    enum class Severity { Information, Warning, Alarm };

    QString cause;  //!< in words, the same for the beginning and the end
    QString ending; //!< the cause of the end, in words
    Severity severity = Severity::Information;
    State state = State::Momentary;
    QString source;     //!< what the device calls the camera, the input, the disk …
    int channelId = -1; //!< -1 when the source is no channel
    QDateTime time;     //!< UTC, by the device's clock; invalid when it told none
    QString text;       //!< all else that the device told, "name=value" by name
};

} // namespace orrin
