// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/xmlelement.h"

#include <contract/core/export.h>

#include <QList>
#include <QString>

#include <chrono>
#include <optional>

/*! Reading the answers of a device's PTZ and imaging services. Plain functions over parsed XML. */
namespace orrin::ptzservice {

/*! Speeds that a device takes on one axis; the lower end is the full speed backwards. */
struct Range
{
    double low = -1.0;
    double high = 1.0;

    /*! \a speed of PtzfControl in this range: its full speed is the end of the range, and 0 is 0. */
    ORRINSDK_CORE_EXPORT double speed(int speed) const;
};

/*! A space of velocities. */
struct Space
{
    QString uri;
    Range x;
    Range y; //!< of pan and tilt alone
};

/*! What moves: a node of the PTZ service. */
struct Node
{
    QString token;
    std::optional<Space> panTilt; //!< continuous; nothing when it can't turn
    std::optional<Space> zoom;
    int maximumPresets = 0;
    int maximumTours = 0;
};

struct TimeoutRange
{
    std::chrono::milliseconds shortest{0};
    std::chrono::milliseconds longest{std::chrono::hours(1)};
};

/*! A preset or a preset tour of the device. */
struct Stored
{
    QString token;
    QString name;
    bool running = false; //!< of tours
};

/*! More than this of a list is not read. */
inline constexpr qsizetype ListLimit = 1024;

/*! Answer of GetNodes: the node with this token, or the first one when \a token is empty or unknown. */
ORRINSDK_CORE_EXPORT std::optional<Node> readNode(const XmlElement &answer, const QString &token);
/*! Answer of GetConfigurationOptions; what it does not tell is left at its widest. */
ORRINSDK_CORE_EXPORT TimeoutRange readTimeouts(const XmlElement &answer);
/*! Answer of GetPresets. */
ORRINSDK_CORE_EXPORT QList<Stored> readPresets(const XmlElement &answer);
/*! Answer of GetPresetTours. */
ORRINSDK_CORE_EXPORT QList<Stored> readTours(const XmlElement &answer);
/*! Answer of the imaging service's GetMoveOptions: speeds of continuous focus; nothing without. */
ORRINSDK_CORE_EXPORT std::optional<Range> readFocus(const XmlElement &answer);

/*! A duration as XML schema writes it, without years, months and days; nothing when it is another. */
ORRINSDK_CORE_EXPORT std::optional<std::chrono::milliseconds> readDuration(const QString &text);
ORRINSDK_CORE_EXPORT QString writeDuration(std::chrono::milliseconds time);

} // namespace orrin::ptzservice
