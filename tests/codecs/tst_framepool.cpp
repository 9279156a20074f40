// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/framepool.h"

#include <QTest>

#include <thread>

using namespace orrin;

class TestFramePool : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void acquire_laysPlanesOut_data();
    void acquire_laysPlanesOut();
    void acquire_reusesMemory_whenSizeIsTheSame();
    void acquire_failsWithNull_whenTooLargeOrEmpty();
    void release_keepsNoMoreThanTheBound();
    void buffers_outliveThePool();
    void buffers_goBack_fromOtherThreads();
};

void TestFramePool::acquire_laysPlanesOut_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("strideY");
    QTest::addColumn<int>("strideUV");
    QTest::newRow("even") << 640 << 360 << 640 << 320;
    QTest::newRow("rounded up") << 1366 << 768 << 1368 << 684;
    QTest::newRow("odd") << 641 << 361 << 644 << 320;
    QTest::newRow("tiny") << 2 << 2 << 4 << 4;
    QTest::newRow("one pixel") << 1 << 1 << 4 << 0;
}

void TestFramePool::acquire_laysPlanesOut()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, strideY);
    QFETCH(int, strideUV);
    FramePool pool;
    const auto buffer = pool.acquire(PlaneLayout(width, height));
    QVERIFY(buffer.owner);
    QCOMPARE(buffer.planes.strideY, strideY);
    QCOMPARE(buffer.planes.strideUV, strideUV);
    QCOMPARE(buffer.planes.u - buffer.planes.y, std::ptrdiff_t(strideY) * height);
    QCOMPARE(buffer.planes.v - buffer.planes.u, std::ptrdiff_t(strideUV) * (height / 2));
}

void TestFramePool::acquire_reusesMemory_whenSizeIsTheSame()
{
    FramePool pool;
    const PlaneLayout layout(64, 64);
    auto buffer = pool.acquire(layout);
    const std::uint8_t *memory = buffer.planes.y;
    buffer = {};
    QVERIFY(pool.freeBytes() > 0);
    const auto other = pool.acquire(PlaneLayout(32, 32));
    QVERIFY(other.planes.y != memory);
    buffer = pool.acquire(layout);
    QCOMPARE(buffer.planes.y, memory);
    QCOMPARE(pool.freeBytes(), 0U);
}

void TestFramePool::acquire_failsWithNull_whenTooLargeOrEmpty()
{
    FramePool pool;
    QVERIFY(!pool.acquire(PlaneLayout(0, 10)).owner);
    QVERIFY(!pool.acquire(PlaneLayout(10, -1)).owner);
    QVERIFY(!pool.acquire(PlaneLayout(16385, 2)).owner);
}

void TestFramePool::release_keepsNoMoreThanTheBound()
{
    const PlaneLayout layout(64, 64);
    FramePool pool(3 * layout.bytes());
    std::vector<FramePool::Buffer> buffers;
    for (int i = 0; i < 10; ++i)
        buffers.push_back(pool.acquire(layout));
    buffers.clear();
    QVERIFY(pool.freeBytes() > 0);
    QVERIFY(pool.freeBytes() <= 3 * layout.bytes());
}

void TestFramePool::buffers_outliveThePool()
{
    FramePool::Buffer buffer;
    {
        FramePool pool;
        buffer = pool.acquire(PlaneLayout(64, 64));
    }
    buffer.planes.y[0] = 1;
    QCOMPARE(buffer.planes.y[0], 1);
}

void TestFramePool::buffers_goBack_fromOtherThreads()
{
    FramePool pool;
    const PlaneLayout layout(64, 64);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&pool, &layout] {
            for (int i = 0; i < 200; ++i)
                pool.acquire(layout).planes.y[0] = 1;
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    QVERIFY(pool.freeBytes() <= 4 * (layout.bytes() + 64));
}

QTEST_APPLESS_MAIN(TestFramePool)
#include "tst_framepool.moc"
