// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin::demo {

/*!
    The RTSP library's sending thread pulls a stream's next packet under the stream's lock, once it was told
   that there is one. A seek may have flushed that packet away in between. The library's pull then waits for
   another, with the lock held that all other work on the stream needs, so that no request of the session is
   answered any more. Therefore this program brings its own gst_app_sink_pull_sample(), which gives nothing
   where there is nothing; the sending thread is prepared for that.

   True when it is the one that the RTSP library calls.
*/
bool samplePullNeverWaits();

} // namespace orrin::demo
