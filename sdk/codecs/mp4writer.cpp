// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/mp4writer.h"

#include <QDateTime>
#include <QFile>

#include <algorithm>
#include <array>
#include <vector>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/error.h>
}

namespace orrin {

namespace {

constexpr AVRational Milliseconds{1, 1000};

AVCodecID codecId(VideoCodec codec)
{
    switch (codec) {
    case VideoCodec::H264:
        return AV_CODEC_ID_H264;
    case VideoCodec::H265:
        return AV_CODEC_ID_HEVC;
    case VideoCodec::Mjpeg:
        return AV_CODEC_ID_MJPEG;
    case VideoCodec::Unknown:
        break;
    }
    return AV_CODEC_ID_NONE;
}

/*! Whether a unit with this first byte is a parameter set, which the file keeps in its header. */
bool isParameterSet(VideoCodec codec, std::uint8_t header)
{
    if (codec == VideoCodec::H264) {
        const int type = header & 0x1f;
        return type == 7 || type == 8;
    }
    const int type = (header >> 1) & 0x3f;
    return codec == VideoCodec::H265 && type >= 32 && type <= 34;
}

/*! The parameter sets of a picture, each with its start code. */
std::vector<std::uint8_t> parameterSets(VideoCodec codec, std::span<const std::uint8_t> picture)
{
    std::vector<std::uint8_t> sets;
    const auto startAt = [&picture](std::size_t from) {
        for (std::size_t i = from; i + 3 < picture.size(); ++i) {
            if (picture[i] == 0 && picture[i + 1] == 0 && picture[i + 2] == 1)
                return i;
        }
        return picture.size();
    };
    for (std::size_t start = startAt(0); start < picture.size();) {
        const std::size_t next = startAt(start + 3);
        if (isParameterSet(codec, picture[start + 3])) {
            sets.push_back(0);
            sets.insert(sets.end(), picture.begin() + std::ptrdiff_t(start), picture.begin() + std::ptrdiff_t(next));
            // The next start code may have a zero in front, which is not part of this unit.
            while (sets.size() > 4 && sets.back() == 0)
                sets.pop_back();
        }
        start = next;
    }
    return sets;
}

} // namespace

struct Mp4Writer::Data
{
    AVFormatContext *format = nullptr;
    AVStream *stream = nullptr;
    VideoCodec codec = VideoCodec::Unknown;
    bool headerWritten = false;
    qint64 lastTime = -1;
    qint64 lastDuration = 40;
    QString error;

    bool check(int result)
    {
        if (result >= 0)
            return true;
        std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
        av_strerror(result, text.data(), text.size());
        error = QString::fromLocal8Bit(text.data());
        return false;
    }

    void close()
    {
        if (!format)
            return;
        avio_closep(&format->pb);
        avformat_free_context(format);
        format = nullptr;
        stream = nullptr;
        headerWritten = false;
    }

    bool writeHeader(std::span<const std::uint8_t> first)
    {
        const std::vector<std::uint8_t> sets =
            codec == VideoCodec::Mjpeg ? std::vector<std::uint8_t>() : parameterSets(codec, first);
        if (codec != VideoCodec::Mjpeg && sets.empty())
            return check(AVERROR_INVALIDDATA);
        if (!sets.empty()) {
            auto *memory = static_cast<std::uint8_t *>(av_mallocz(sets.size() + AV_INPUT_BUFFER_PADDING_SIZE));
            if (!memory)
                return check(AVERROR(ENOMEM));
            std::copy(sets.begin(), sets.end(), memory);
            stream->codecpar->extradata = memory;
            stream->codecpar->extradata_size = int(sets.size());
        }
        headerWritten = check(avformat_write_header(format, nullptr));
        return headerWritten;
    }
};

Mp4Writer::Mp4Writer() : d(std::make_unique<Data>()) {}

Mp4Writer::~Mp4Writer()
{
    d->close();
}

bool Mp4Writer::open(const QString &fileName, VideoCodec codec, int width, int height, qint64 createdMs)
{
    d->close();
    *d = Data();
    d->codec = codec;
    const QByteArray path = QFile::encodeName(fileName);
    if (codecId(codec) == AV_CODEC_ID_NONE || width < 1 || height < 1)
        return d->check(AVERROR(EINVAL));
    if (!d->check(avformat_alloc_output_context2(&d->format, nullptr, "mp4", path.constData())))
        return false;
    d->stream = avformat_new_stream(d->format, nullptr);
    if (!d->stream) {
        d->close();
        return d->check(AVERROR(ENOMEM));
    }
    d->stream->time_base = Milliseconds;
    d->stream->codecpar->codec_type = AVMEDIA_TYPE_VIDEO;
    d->stream->codecpar->codec_id = codecId(codec);
    d->stream->codecpar->width = width;
    d->stream->codecpar->height = height;
    const QByteArray created = QDateTime::fromMSecsSinceEpoch(createdMs, QTimeZone::utc()).toString(Qt::ISODateWithMs).toUtf8();
    av_dict_set(&d->format->metadata, "creation_time", created.constData(), 0);
    if (!d->check(avio_open(&d->format->pb, path.constData(), AVIO_FLAG_WRITE))) {
        d->close();
        return false;
    }
    return true;
}

bool Mp4Writer::isOpen() const
{
    return d->format != nullptr;
}

bool Mp4Writer::write(std::span<const std::uint8_t> picture, qint64 timeMs, bool key)
{
    if (!d->format || picture.empty())
        return d->check(AVERROR(EINVAL));
    if (!d->headerWritten && !d->writeHeader(picture))
        return false;
    const qint64 time = std::max(timeMs, d->lastTime + 1);
    if (d->lastTime >= 0)
        d->lastDuration = time - d->lastTime;
    d->lastTime = time;
    AVPacket *packet = av_packet_alloc();
    if (!packet)
        return d->check(AVERROR(ENOMEM));
    // Lent for the call: the writer copies what it keeps.
    packet->data = const_cast<std::uint8_t *>(picture.data());
    packet->size = int(picture.size());
    packet->stream_index = 0;
    packet->pts = packet->dts = av_rescale_q(time, Milliseconds, d->stream->time_base);
    packet->duration = av_rescale_q(d->lastDuration, Milliseconds, d->stream->time_base);
    if (key)
        packet->flags |= AV_PKT_FLAG_KEY;
    const bool written = d->check(av_write_frame(d->format, packet));
    av_packet_free(&packet);
    // A full disk shows here first.
    return written && d->check(d->format->pb->error);
}

bool Mp4Writer::finish()
{
    if (!d->format || !d->headerWritten) {
        d->close();
        return d->check(AVERROR_INVALIDDATA);
    }
    bool whole = d->check(av_write_trailer(d->format));
    avio_flush(d->format->pb);
    whole = whole && d->check(d->format->pb->error);
    const int closed = avio_closep(&d->format->pb);
    whole = whole && d->check(closed);
    d->close();
    return whole;
}

void Mp4Writer::abandon()
{
    d->close();
}

qint64 Mp4Writer::bytesWritten() const
{
    return d->format && d->format->pb ? avio_tell(d->format->pb) : 0;
}

QString Mp4Writer::errorText() const
{
    return d->error;
}

} // namespace orrin
