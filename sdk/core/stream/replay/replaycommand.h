// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/time300.h>

#include <QtTypes>

#include <optional>

namespace orrin::replay {

/*! What a ReplayPlayer is to do. A value. */
struct ReplayCommand
{
    enum class Place {
        At,        //!< the frame that was the newest at that moment; in a gap the first one behind it
        Beginning, //!< the first frame at or behind that moment
        End,       //!< the last frame before that moment
    };

    /*! Of the clock: frames are shown by it while it has the same run. */
    quint32 run = 0;
    /*! Where to go first; nothing: from where the stream is. */
    std::optional<Time300> target;
    Place place = Place::At;
    /*! Of many that wait only the newest is done. */
    bool scrub = false;
    /*! So many frames further, or back; the rate is 0 then. */
    int steps = 0;
    /*! 0 holds the frame. */
    double rate = 0.0;
    /*! Where the stream is, for a player that has shown nothing yet. */
    Time300 here = 0;
};

} // namespace orrin::replay
