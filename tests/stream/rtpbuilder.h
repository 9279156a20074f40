// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/accessunit.h"
#include "core/stream/rtp/rtpreceiver.h"

#include <QByteArray>
#include <QtEndian>

#include <vector>

namespace orrin {

/*! Builds RTP packets for tests. */
struct RtpBuilder
{
    quint16 sequence = 1;
    quint32 timestamp = 1000;
    quint32 ssrc = 7;
    quint8 payloadType = 96;
    QByteArray extension; //!< profile, length and words, when not empty

    QByteArray packet(const QByteArray &payload, bool marker = false)
    {
        QByteArray bytes;
        bytes += char(extension.isEmpty() ? 0x80 : 0x90);
        bytes += char(payloadType | (marker ? 0x80 : 0));
        append(bytes, sequence++);
        append(bytes, timestamp);
        append(bytes, ssrc);
        return bytes + extension + payload;
    }

    template <typename Number>
    static void append(QByteArray &bytes, Number value)
    {
        const Number big = qToBigEndian(value);
        bytes += QByteArray(reinterpret_cast<const char *>(&big), sizeof big);
    }
};

/*! Keeps access units. */
struct UnitRecorder : rtp::AccessUnitSink
{
    void accessUnitReady(const rtp::AccessUnit &unit) override { units.push_back(unit); }
    QByteArray data(std::size_t i) const
    {
        return QByteArray(reinterpret_cast<const char *>(units.at(i).data.data()), qsizetype(units.at(i).data.size()));
    }
    std::vector<rtp::AccessUnit> units;
};

inline rtp::Bytes asBytes(const QByteArray &bytes)
{
    return {reinterpret_cast<const std::uint8_t *>(bytes.constData()), std::size_t(bytes.size())};
}

inline QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

} // namespace orrin
