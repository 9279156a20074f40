// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/time300.h>

#include <QtTypes>

#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

namespace orrin::replay {

/*! One coded frame of a recording. */
struct CodedFrame
{
    std::vector<std::uint8_t> data;
    Time300 time = 0;
    bool key = false;
    bool end = false;           //!< the last frame of a contiguous section
    bool discontinuity = false; //!< the sender left frames out before it
};

/*! A key frame and what is decoded by its help. */
struct Gop
{
    quint64 id = 0;
    std::vector<CodedFrame> frames;        //!< as the decoder takes them
    std::vector<std::uint32_t> order;      //!< indexes of frames by ascending time
    std::size_t bytes = 0;
    bool complete = false;                 //!< no frame is missing at its end

    Time300 keyTime() const { return frames.front().time; }
    Time300 lastTime() const { return frames[order.back()].time; }
};

/*! A frame of a GopBuffer; stays valid when the buffer lets its group go. */
struct FrameRef
{
    std::shared_ptr<const Gop> gop;
    int place = 0; //!< in the order of time

    explicit operator bool() const { return gop != nullptr; }
    const CodedFrame &frame() const { return gop->frames[gop->order[std::size_t(place)]]; }
    int index() const { return int(gop->order[std::size_t(place)]); }
    Time300 time() const { return frame().time; }
};

/*! The coded frames around the frame that a player shows: one stretch of a recording, without holes but those that the recording
    itself has. Grows at its end by append(), at its beginning by prepend(), and is cut off by the trim operations. One thread.

    What a server sends twice is kept once; frames whose key frame is not there are dropped. */
class ORRINSDK_CORE_EXPORT GopBuffer
{
public:
    void clear();
    bool isEmpty() const { return m_gops.empty(); }
    std::size_t bytes() const { return m_bytes; }

    /*! A frame behind the end, in the order of decoding. False when it is not new. */
    bool append(CodedFrame frame);
    /*! No frame follows for now: the last group is as complete as it gets. */
    void finishAppending();
    /*! What append() brings next begins with a key frame. */
    void restartAppending() { m_target.reset(); }

    /*! A frame of a stream that runs backward: groups come in descending order, each inside in ascending order. A group joins the buffer when
        the next one begins, or with finishPrepending(). */
    bool prepend(CodedFrame frame);
    void finishPrepending();
    void restartPrepending() { m_pending.reset(); }

    FrameRef first() const;
    FrameRef last() const;
    /*! The last frame at or before \a time. */
    FrameRef at(Time300 time) const;
    /*! The first frame behind \a time. */
    FrameRef after(Time300 time) const;
    /*! The last frame before \a time. */
    FrameRef before(Time300 time) const;
    FrameRef next(const FrameRef &frame) const { return after(frame.time()); }

    /*! Groups that begin behind \a time, and those that end before it. */
    int groupsAfter(Time300 time) const;
    int groupsBefore(Time300 time) const;
    /*! Frames behind and before \a time. */
    int framesAfter(Time300 time) const;
    int framesBefore(Time300 time) const;
    /*! The longest group that is complete, in time; 0 while there is none. */
    Time300 longestGroup() const;

    /*! Keeps at most \a groups whole groups before, or behind, the one that holds \a time. */
    void trimBefore(Time300 time, int groups);
    void trimAfter(Time300 time, int groups);

private:
    using GopPointer = std::shared_ptr<Gop>;

    GopPointer newGop(CodedFrame frame);
    void join(const GopPointer &gop, CodedFrame frame);
    /*! The index of the last group that begins at or before \a time; -1 without one. */
    int groupAt(Time300 time) const;

    std::deque<GopPointer> m_gops; // ascending
    GopPointer m_target;           // that append() adds to
    GopPointer m_pending;          // that prepend() adds to
    std::size_t m_bytes = 0;
    quint64 m_lastId = 0;
};

} // namespace orrin::replay
