// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/accessunit.h"
#include "core/stream/rtp/rtppacket.h"

#include <contract/core/export.h>

namespace orrin::rtp {

/*! Puts access units together from the packets of one stream, which come in the order of their sequence numbers.

    A unit ends with the packet that has the marker, or when a packet has another time. What is malformed or too large becomes a unit
    that is `damaged`; nothing else happens. One thread at a time. */
class ORRINSDK_CORE_EXPORT Depacketiser
{
public:
    explicit Depacketiser(AccessUnitSink &sink) : m_sink(sink) {}
    virtual ~Depacketiser();
    Depacketiser(const Depacketiser &) = delete;
    Depacketiser &operator=(const Depacketiser &) = delete;

    /*! \a lostBefore: packets are missing right before this one. */
    void push(const RtpPacket &packet, bool lostBefore);

    /*! Forgets the unit under way, as before a seek. */
    void reset();

protected:
    /*! Adds one payload to the unit; false when it is malformed or does not follow from the one before. */
    virtual bool append(Bytes payload) = 0;
    /*! A new unit begins. */
    virtual void begin() = 0;
    /*! Packets of the unit under way are missing. */
    virtual void interrupted() = 0;
    /*! The unit is over: sets `key`, and completes the data. Returns false when its beginning or end is not there. */
    virtual bool finish() = 0;

    AccessUnit &unit() { return m_unit; }
    /*! Adds bytes, up to AccessUnit::MaxBytes; false beyond. */
    bool put(Bytes bytes);

private:
    void startUnit(const RtpPacket &packet);
    void endUnit();
    void noteExtension(const ReplayExtension &extension);

    AccessUnitSink &m_sink;
    AccessUnit m_unit;
    bool m_open = false;
    bool m_oversized = false;
    bool m_lostCarry = false;
};

} // namespace orrin::rtp
