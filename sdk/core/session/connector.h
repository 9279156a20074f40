// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/session.h"

#include <contract/util/corvaneurl.h>

#include <memory>

namespace orrin {

/*! Makes sessions: the ONVIF one in the product, scripted ones in tests. Main thread. */
class ORRINSDK_CORE_EXPORT Connector
{
public:
    virtual ~Connector();

    /*! A session that is not open yet. \a request is the number that errors carry. */
    virtual std::unique_ptr<Session> createSession(const CorvaneUrl &url, const SharedCredentials &credentials, bool asGroup,
                                                   unsigned request) = 0;
};

} // namespace orrin
