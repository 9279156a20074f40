// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "site/accounts.h"

#include <memory>

typedef struct _GstRTSPAuth GstRTSPAuth;

namespace orrin::demo {

/*!
    Digest authentication of RTSP clients with the site's users. A login that is refused, and a camera that
   the user may not see, or a recording without the right to play back, are answered with status 403. The caller owns the reference.
*/
GstRTSPAuth *newRtspAuth(const RecorderInfo &recorder, std::shared_ptr<const Accounts> accounts);

} // namespace orrin::demo
