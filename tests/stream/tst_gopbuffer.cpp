// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/replay/gopbuffer.h"

#include <QTest>

using namespace orrin::replay;
using orrin::Time300;

namespace {

CodedFrame frame(Time300 time, bool key = false)
{
    CodedFrame frame;
    frame.data.assign(10, std::uint8_t(time));
    frame.time = time;
    frame.key = key;
    return frame;
}

/*! Groups of five frames, 10 apart, the first at \a from. */
void appendGroups(GopBuffer &buffer, Time300 from, int groups)
{
    for (int i = 0; i < groups * 5; ++i)
        buffer.append(frame(from + i * 10, i % 5 == 0));
}

Time300 timeOf(const FrameRef &frame)
{
    return frame ? frame.time() : -1;
}

} // namespace

class TestGopBuffer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void frames_areFoundByTheirTime();
    void frames_withoutAKeyFrame_areDropped();
    void append_takesWhatIsSentTwiceOnce();
    void append_isInOrderOfTime_whenTheDecoderIsNot();
    void prepend_joinsWholeGroupsOnly();
    void prepend_takesKeyFramesThatAscend_asOneGroup();
    void prepend_leavesOutWhatIsThere();
    void trim_keepsTheGroupsAround();
    void groups_areBounded();
    void references_outliveTheBuffer();
};

void TestGopBuffer::frames_areFoundByTheirTime()
{
    GopBuffer buffer;
    QCOMPARE(timeOf(buffer.at(5)), -1);
    QCOMPARE(timeOf(buffer.first()), -1);
    appendGroups(buffer, 1000, 3);
    QCOMPARE(timeOf(buffer.at(999)), -1);
    QCOMPARE(timeOf(buffer.at(1000)), 1000);
    QCOMPARE(timeOf(buffer.at(1049)), 1040);
    QCOMPARE(timeOf(buffer.at(1050)), 1050);
    QCOMPARE(timeOf(buffer.at(5000)), 1140);
    QCOMPARE(timeOf(buffer.after(0)), 1000);
    QCOMPARE(timeOf(buffer.after(1040)), 1050);
    QCOMPARE(timeOf(buffer.after(1041)), 1050);
    QCOMPARE(timeOf(buffer.after(1140)), -1);
    QCOMPARE(timeOf(buffer.before(1000)), -1);
    QCOMPARE(timeOf(buffer.before(1050)), 1040);
    QCOMPARE(buffer.groupsAfter(1045), 2);
    QCOMPARE(buffer.groupsBefore(1100), 2);
    QCOMPARE(buffer.framesAfter(1095), 5);
    QCOMPARE(buffer.framesBefore(1095), 10);
    QCOMPARE(buffer.longestGroup(), 40);
}

void TestGopBuffer::frames_withoutAKeyFrame_areDropped()
{
    GopBuffer buffer;
    QVERIFY(!buffer.append(frame(10)));
    QVERIFY(!buffer.prepend(frame(10)));
    buffer.finishPrepending();
    QVERIFY(buffer.isEmpty());
}

void TestGopBuffer::append_takesWhatIsSentTwiceOnce()
{
    GopBuffer buffer;
    appendGroups(buffer, 1000, 1);
    buffer.append(frame(1050, true));
    buffer.append(frame(1060));
    buffer.restartAppending();
    // From the key frame of the group that was under way.
    QVERIFY(!buffer.append(frame(1050, true)));
    QVERIFY(!buffer.append(frame(1060)));
    QVERIFY(buffer.append(frame(1070)));
    QVERIFY(buffer.append(frame(1100, true)));
    QCOMPARE(buffer.groupsBefore(1100), 2);
    QCOMPARE(buffer.framesAfter(1049), 4);
    QCOMPARE(buffer.bytes(), 90U);
    // From a group before: all known, until the new one.
    buffer.restartAppending();
    QVERIFY(!buffer.append(frame(1000, true)));
    QVERIFY(!buffer.append(frame(1005)));
    QVERIFY(!buffer.append(frame(1050, true)));
    QVERIFY(buffer.append(frame(1200, true)));
}

void TestGopBuffer::append_isInOrderOfTime_whenTheDecoderIsNot()
{
    GopBuffer buffer;
    buffer.append(frame(0, true));
    for (const Time300 time : {30, 10, 20, 60, 40, 50})
        buffer.append(frame(time));
    QCOMPARE(timeOf(buffer.after(0)), 10);
    QCOMPARE(timeOf(buffer.at(35)), 30);
    QCOMPARE(buffer.at(30).index(), 1);
    QCOMPARE(buffer.at(10).index(), 2);
    QCOMPARE(timeOf(buffer.last()), 60);
}

void TestGopBuffer::prepend_joinsWholeGroupsOnly()
{
    GopBuffer buffer;
    appendGroups(buffer, 1000, 1);
    for (const Time300 key : {950, 900}) {
        buffer.prepend(frame(key, true));
        for (int i = 1; i < 5; ++i)
            buffer.prepend(frame(key + i * 10));
    }
    // The second one may not be over.
    QCOMPARE(timeOf(buffer.first()), 950);
    QCOMPARE(timeOf(buffer.before(1000)), 990);
    buffer.finishPrepending();
    QCOMPARE(timeOf(buffer.first()), 900);
    QVERIFY(buffer.first().gop->complete);
}

void TestGopBuffer::prepend_takesKeyFramesThatAscend_asOneGroup()
{
    GopBuffer buffer;
    appendGroups(buffer, 1000, 1);
    for (const Time300 group : {950, 900}) {
        for (int i = 0; i < 5; ++i)
            buffer.prepend(frame(group + i * 10, true));
    }
    buffer.finishPrepending();
    QCOMPARE(timeOf(buffer.first()), 900);
    for (Time300 time = 1040; time > 900; time -= 10)
        QCOMPARE(timeOf(buffer.before(time)), time - 10);
    // One that sends them one by one, backward, is understood as well.
    buffer.prepend(frame(890, true));
    buffer.prepend(frame(880, true));
    buffer.finishPrepending();
    QCOMPARE(timeOf(buffer.before(900)), 890);
    QCOMPARE(timeOf(buffer.before(890)), 880);
}

void TestGopBuffer::prepend_leavesOutWhatIsThere()
{
    GopBuffer buffer;
    appendGroups(buffer, 1000, 2);
    const std::size_t bytes = buffer.bytes();
    appendGroups(buffer, 1000, 1);
    buffer.prepend(frame(1000, true));
    buffer.prepend(frame(1010));
    buffer.finishPrepending();
    QCOMPARE(buffer.bytes(), bytes);
    QCOMPARE(buffer.framesAfter(0), 10);
}

void TestGopBuffer::trim_keepsTheGroupsAround()
{
    GopBuffer buffer;
    appendGroups(buffer, 1000, 10);
    buffer.trimBefore(1220, 1);
    QCOMPARE(timeOf(buffer.first()), 1150);
    buffer.trimAfter(1220, 2);
    QCOMPARE(timeOf(buffer.last()), 1340);
    QCOMPARE(buffer.bytes(), 4U * 5 * 10);
    // What follows has to begin with a key frame again.
    QVERIFY(!buffer.append(frame(1500)));
}

void TestGopBuffer::groups_areBounded()
{
    GopBuffer buffer;
    buffer.append(frame(0, true));
    for (Time300 i = 1; i < 10'000; ++i)
        buffer.append(frame(i));
    QVERIFY(buffer.framesAfter(-1) <= 4096);
    buffer.clear();
    CodedFrame large = frame(0, true);
    large.data.resize(40U << 20);
    buffer.append(large);
    for (Time300 i = 1; i < 5; ++i) {
        large.key = false;
        large.time = i;
        buffer.append(large);
    }
    QVERIFY(buffer.bytes() <= 100U << 20);
}

void TestGopBuffer::references_outliveTheBuffer()
{
    FrameRef kept;
    {
        GopBuffer buffer;
        appendGroups(buffer, 1000, 1);
        kept = buffer.at(1020);
        buffer.clear();
    }
    QCOMPARE(kept.time(), 1020);
    QCOMPARE(kept.frame().data.size(), 10U);
}

QTEST_GUILESS_MAIN(TestGopBuffer)
#include "tst_gopbuffer.moc"
