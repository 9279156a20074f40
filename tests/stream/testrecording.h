// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

#include <contract/util/image.h>

#include <memory>
#include <optional>

namespace orrin {

/*! A recording as a function of time: a frame at each multiple of the interval, with its moment drawn in its pixels, encoded once. Key frames
    begin each group, which lie on multiples of the group's length. */
class TestRecording
{
public:
    struct Span
    {
        qint64 beginMs = 0; //!< begins and ends with a group
        qint64 endMs = 0;
    };
    struct Frame
    {
        qint64 ms = 0;
        bool key = false;
        QByteArray data;
    };

    static constexpr int Width = 320;
    static constexpr int Height = 240;

    explicit TestRecording(int intervalMs = 100, int framesInGroup = 10);
    ~TestRecording();

    qint64 intervalMs() const { return m_intervalMs; }
    qint64 groupMs() const { return m_intervalMs * m_framesInGroup; }

    QList<Span> spans;
    qint64 beginMs() const { return spans.isEmpty() ? 0 : spans.first().beginMs; }
    qint64 endMs() const { return spans.isEmpty() ? 0 : spans.last().endMs; }
    const Span *spanAt(qint64 ms) const;

    /*! The frame that was the newest at \a ms; in a gap the first one behind it; nothing behind the end. */
    std::optional<qint64> frameAt(qint64 ms) const;
    /*! The frames before and behind the one at \a ms. */
    std::optional<qint64> frameBefore(qint64 ms) const;
    std::optional<qint64> frameAfter(qint64 ms) const;

    enum class Part { Whole, KeyFrame };

    /*! The group that begins at \a ms, or at least its key frame. */
    const QList<Frame> &group(qint64 ms, Part part = Part::Whole);
    /*! Encodes all groups of that time now, for what is measured later. */
    void prepare(qint64 fromMs, qint64 toMs, Part part = Part::Whole);

    /*! The moment drawn in the pixels; nothing when there is none. */
    static std::optional<qint64> readTime(const Image &image);

private:
    const int m_intervalMs;
    const int m_framesInGroup;
};

} // namespace orrin
