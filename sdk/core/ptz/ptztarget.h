// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace orrin {

/*! By which names a device knows one of its cameras when it is steered. A value. */
struct PtzTarget
{
    QString profile;       //!< a media profile, with a PTZ configuration if there is such a one
    QString configuration; //!< the PTZ configuration; empty where no profile told it
    QString node;          //!< likewise
    QString source;        //!< the video source, for focus

    friend bool operator==(const PtzTarget &, const PtzTarget &) = default;
};

} // namespace orrin
