// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/gui/export.h>

namespace orrin {

/*! How loud all streams of sound of this process are. Safe from any thread; takes effect at once. */
class ORRINSDK_GUI_EXPORT AudioSettings
{
public:
    /*! 0 is silent, 1 as loud as the stream is; other values are cut to that. 1 at first. */
    static void setVolume(double volume);
    static double volume();

    static void setMuted(bool muted);
    static bool isMuted();
};

} // namespace orrin
