// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/streamworker.h"

#include <contract/codecs/videoframe.h>
#include <contract/core/mask.h>

#include <QThread>

#include <utility>

namespace orrin {

namespace {

constexpr std::uint8_t KeyFrameFlag = 0x10;

long long delayOf(rtp::CaptureTime captured, qint64 clockOffsetMs)
{
    using namespace std::chrono;
    const auto now = duration_cast<nanoseconds>(system_clock::now().time_since_epoch()) + milliseconds(clockOffsetMs);
    return duration_cast<milliseconds>(now - captured).count();
}

} // namespace

StreamWorker::StreamWorker(std::shared_ptr<OutputGate> gate, quint16 streamId, const StreamTiming &timing)
    : m_gate(std::move(gate))
    , m_streamId(streamId)
    , m_timing(timing)
{
}

StreamWorker::~StreamWorker()
{
    Q_ASSERT(thread() == QThread::currentThread());
}

void StreamWorker::open(const StreamOrder &order)
{
    Q_ASSERT(thread() == QThread::currentThread());
    m_mask = order.endpoint.privacyMask;
    retire(m_next);
    if (m_current.source && m_current.source->endpoint().url == order.endpoint.url) {
        // The camera has one stream for both qualities.
        m_current.order = order.number;
        if (m_current.started)
            Q_EMIT started(order.number);
        return;
    }
    StreamSourceListener &listener = *this;
    m_next = {std::make_unique<StreamSource>(listener, m_timing), order.number, false};
    m_next.source->setHeld(m_held);
    m_next.source->open(order.endpoint);
}

void StreamWorker::close()
{
    retire(m_next);
    retire(m_current);
    m_held = false;
    setBusy(false);
}

void StreamWorker::setHeld(bool held)
{
    m_held = held;
    for (Entry *entry : {&m_current, &m_next}) {
        if (entry->source)
            entry->source->setHeld(held);
    }
}

void StreamWorker::setPrivacyMask(const QByteArray &mask)
{
    m_mask = mask;
}

void StreamWorker::setBusy(bool busy)
{
    if (std::exchange(m_busy, busy) != busy)
        m_gate->setBusy(busy);
}

void StreamWorker::reportError(const PlaybackError &error)
{
    m_gate->setError(error, 0);
}

void StreamWorker::pictureReady(StreamSource &source, SourcePicture picture)
{
    if (m_next.source.get() == &source) {
        retire(m_current);
        m_current = std::exchange(m_next, {});
    }
    if (m_current.source.get() != &source)
        return;
    show(source, picture);
    if (!std::exchange(m_current.started, true)) {
        setBusy(false);
        Q_EMIT started(m_current.order);
    }
}

void StreamWorker::show(StreamSource &source, SourcePicture &picture)
{
    const MediaEndpoint &endpoint = source.endpoint();
    Image &image = picture.image;
    image.setTime(rtp::toTime300(picture.time));
    image.setTimeZone(endpoint.timeZone);
    image.setFlags(picture.key ? KeyFrameFlag : 0);
    image.setExtension(ImageHeaderExtension::Codec, source.codecName());
    if (!m_mask.isEmpty()) {
        image.setExtension(ImageHeaderExtension::PrivacyMask, m_mask);
        m_maskShown = true;
    } else if (m_maskShown) {
        // Receivers keep the last mask that they saw: one that was removed has to be said.
        static const QByteArray NoMask = Mask::encode({}).toUtf8();
        image.setExtension(ImageHeaderExtension::PrivacyMask, NoMask);
    }
    m_gate->setVideoFrame(VideoFrame(image, ++m_frameId, m_streamId));
    m_gate->setDelay(delayOf(picture.time, endpoint.clockOffsetMs));
}

void StreamWorker::sourceFailed(StreamSource &source, const PlaybackError &error)
{
    if (m_next.source.get() == &source) {
        const quint32 order = m_next.order;
        retire(m_next);
        if (!m_current.source)
            setBusy(true);
        Q_EMIT failed(order, error, m_current.source != nullptr);
    } else if (m_current.source.get() == &source) {
        const quint32 order = m_current.order;
        retire(m_current);
        setBusy(true);
        // With a second one on its way nothing needs to be tried again.
        if (!m_next.source)
            Q_EMIT failed(order, error, false);
    }
}

void StreamWorker::retire(Entry &entry)
{
    if (!entry.source)
        return;
    entry.source->close();
    m_retired.push_back(std::move(entry.source));
    entry = {};
    QMetaObject::invokeMethod(this, [this] { m_retired.clear(); }, Qt::QueuedConnection);
}

} // namespace orrin
