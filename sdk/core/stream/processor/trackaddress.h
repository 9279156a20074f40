// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! How a track and a channel share the number that Connection::createTrackBounds() takes: the upper 8 bits are the track's id, the
    lower 24 the channel's. */
struct TrackAddress
{
    static constexpr unsigned TrackShift = 24;
    static constexpr unsigned ChannelMask = (1U << TrackShift) - 1;

    /*! The part of a track, to be or-ed with a channel id. */
    static constexpr unsigned base(unsigned trackId) { return trackId << TrackShift; }
    static constexpr int trackId(unsigned address) { return int(address >> TrackShift); }
    static constexpr int channelId(unsigned address) { return int(address & ChannelMask); }
};

} // namespace orrin
