// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/mediacaps.h"

#include "camera/audioencoder.h"

#include <gst/gst.h>

namespace orrin::demo {

GstCaps *newVideoCaps(VideoCodec codec, const Profile &profile)
{
    const char *type = "image/jpeg";
    if (codec == VideoCodec::H264)
        type = "video/x-h264,stream-format=byte-stream,alignment=au";
    else if (codec == VideoCodec::H265)
        type = "video/x-h265,stream-format=byte-stream,alignment=au";
    GstCaps *caps = gst_caps_from_string(type);
    gst_caps_set_simple(caps, "width", G_TYPE_INT, profile.size.width(), "height", G_TYPE_INT,
                        profile.size.height(), "framerate", GST_TYPE_FRACTION, profile.rate, 1, nullptr);
    return caps;
}

const char *videoPayloader(VideoCodec codec)
{
    switch (codec) {
    case VideoCodec::H264:
        return "rtph264pay config-interval=-1 pt=96";
    case VideoCodec::H265:
        return "rtph265pay config-interval=-1 pt=96";
    case VideoCodec::Mjpeg:
        break;
    }
    return "rtpjpegpay pt=26";
}

GstCaps *newAudioCaps(AudioCodec codec, const QByteArray &config)
{
    const int rate = AudioEncoder::rate(codec);
    if (codec != AudioCodec::Aac)
        return gst_caps_new_simple(codec == AudioCodec::Mulaw ? "audio/x-mulaw" : "audio/x-alaw", "rate",
                                   G_TYPE_INT, rate, "channels", G_TYPE_INT, 1, nullptr);
    GstBuffer *data = gst_buffer_new_memdup(config.constData(), gsize(config.size()));
    GstCaps *caps = gst_caps_new_simple("audio/mpeg", "mpegversion", G_TYPE_INT, 4, "stream-format",
                                        G_TYPE_STRING, "raw", "rate", G_TYPE_INT, rate, "channels",
                                        G_TYPE_INT, 1, "codec_data", GST_TYPE_BUFFER, data, nullptr);
    gst_buffer_unref(data);
    return caps;
}

const char *audioPayloader(AudioCodec codec)
{
    switch (codec) {
    case AudioCodec::Mulaw:
        return "rtppcmupay pt=0";
    case AudioCodec::Alaw:
        return "rtppcmapay pt=8";
    case AudioCodec::Aac:
    case AudioCodec::None:
        break;
    }
    return "rtpmp4gpay pt=97";
}

} // namespace orrin::demo
