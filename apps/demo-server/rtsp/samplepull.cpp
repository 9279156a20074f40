// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/samplepull.h"

#include <gst/app/gstappsink.h>

#include <dlfcn.h>

// Default visibility puts it before the library's own in the order in which symbols are looked up.
extern "C" __attribute__((visibility("default"))) GstSample *gst_app_sink_pull_sample(GstAppSink *sink)
{
    return gst_app_sink_try_pull_sample(sink, 0);
}

namespace orrin::demo {

bool samplePullNeverWaits()
{
    return dlsym(RTLD_DEFAULT, "gst_app_sink_pull_sample") == reinterpret_cast<void *>(&gst_app_sink_pull_sample);
}

} // namespace orrin::demo
