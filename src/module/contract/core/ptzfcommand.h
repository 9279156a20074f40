// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QMetaType>

namespace orrin {

/*! What a camera can be told to do. */
enum class PtzfCommand : int {
    PanTilt = 1, //!< turn, at a speed
    Zoom = 2,    //!< zoom, at a speed
    Focus = 3,   //!< focus, at a speed
    Presets = 4, //!< go to stored positions, store and remove them
    Tours = 5,   //!< run stored tours
};

} // namespace orrin

Q_DECLARE_METATYPE(orrin::PtzfCommand)
Q_DECLARE_METATYPE(QList<orrin::PtzfCommand>)
