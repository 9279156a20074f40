// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/onvifconnection.h"

#include "core/stream/processor/trackaddress.h"

namespace orrin {

OnvifConnection::OnvifConnection(std::chrono::milliseconds renewal) : m_renewal(renewal), m_spans(2 * renewal) {}
OnvifConnection::~OnvifConnection() = default;

void OnvifConnection::setReader(RecordingReader *reader)
{
    m_reader = reader;
    m_spans.setReader(reader);
    for (Known &known : m_known)
        known.asked.invalidate();
}

QSharedPointer<RecordedSpans> OnvifConnection::createRecordedSpans(int channelId, int trackId)
{
    return m_spans.spans(channelId, trackId);
}

QSharedPointer<TrackBounds> OnvifConnection::createTrackBounds(unsigned trackAndChannel)
{
    Known &known = m_known[trackAndChannel];
    if (m_reader) {
        // The list that was read at the login holds bounds too.
        const auto place = m_reader->catalogue().place(TrackAddress::channelId(trackAndChannel),
                                                       TrackAddress::trackId(trackAndChannel), StreamQuality::High);
        if (place && place->toMs > place->fromMs)
            known.bounds = TrackBounds(place->fromMs * 3 / 10, place->toMs * 3 / 10);
        if (!known.asked.isValid() || known.asked.durationElapsed() > m_renewal)
            refresh(trackAndChannel);
    }
    return QSharedPointer<TrackBounds>::create(known.bounds);
}

void OnvifConnection::refresh(unsigned address)
{
    m_known[address].asked.start();
    m_reader->whenKnown([reader = m_reader, address] {
        if (reader && !reader->error())
            reader->refresh(TrackAddress::channelId(address), TrackAddress::trackId(address), StreamQuality::High, [](const auto &) {});
    });
}

} // namespace orrin
