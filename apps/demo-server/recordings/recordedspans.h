// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/httpreply.h"
#include "http/httprequest.h"
#include "site/site.h"

namespace orrin::demo::recordedspans {

/*! How many spans one answer holds at most. */
inline constexpr qsizetype Limit = 1000;

/*! Answers the request of the site extension for the recorded spans of a track. */
void answer(const RecorderInfo &recorder, const User &user, qint64 nowMs, const HttpRequest &request,
            HttpReply reply);

} // namespace orrin::demo::recordedspans
