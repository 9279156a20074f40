// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/session.h"

#include <contract/util/channeluid.h>

#include <functional>

namespace orrin {

class PtzfControl;

/*! What a PtzfControl holds. The session is looked up for each request, since a new login replaces it. */
class PtzfControlPrivate
{
public:
    PtzfControlPrivate(PtzfControl *q, ChannelUID uid, bool keepsMoving);

    using Handler = std::function<void(const PtzAnswer &)>;

    /*! \a done is called when the camera did it; a failure becomes the control's error. */
    void request(const PtzRequest &request, Handler done = {});
    /*! Whether the server gives its user the right to steer cameras. */
    bool isPermitted() const;

    PtzfControl *q;
    const ChannelUID uid;
    const bool keepsMoving;
    bool moving = false;
    bool focusing = false;
};

} // namespace orrin
