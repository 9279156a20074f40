// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/ptzfcommand.h>
#include <contract/core/ptzferror.h>
#include <contract/core/ptzfpreset.h>

#include <QList>
#include <QString>

namespace orrin {

/*! One thing that a session asks of a camera that can be steered. A value. */
struct PtzRequest
{
    enum class Kind {
        Capabilities,
        Move,  //!< pan, tilt and zoom
        Focus, //!< focus
        Presets,
        GoToPreset, //!< number
        SetPreset,  //!< number, name
        RemovePreset,
        StartTour,
        StopTour,
    };

    Kind kind = Kind::Capabilities;
    /*! Speeds as PtzfControl has them; all 0 stops. */
    int pan = 0;
    int tilt = 0;
    int zoom = 0;
    int focus = 0;
    int number = 0;
    QString name = {};

    bool isStill() const { return pan == 0 && tilt == 0 && zoom == 0; }

    friend bool operator==(const PtzRequest &, const PtzRequest &) = default;
};

/*! What became of it. A value. */
struct PtzAnswer
{
    PtzfError error = {};
    QList<PtzfCommand> commands = {}; //!< of Capabilities
    QList<PtzfPreset> presets = {};   //!< of Presets, by number
};

} // namespace orrin
