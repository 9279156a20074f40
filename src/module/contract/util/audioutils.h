// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>
#include <contract/util/image.h>

namespace orrin {

/*! Turns coded sound into samples. */
class ORRINSDK_UTIL_EXPORT AudioUtils
{
public:
    /*! G.711 sound (ITU-T G.711; kinds 3 and 4) as 16-bit samples, with the same time, rate and channels. Sound that is ready
        to use comes back as it is; anything else gives a null image. Safe from any thread. */
    static Image decode(const Image &image);
};

} // namespace orrin
