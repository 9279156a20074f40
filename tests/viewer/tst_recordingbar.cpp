// SPDX-License-Identifier: GPL-3.0-or-later
#include "timeline/recordingbar.h"

#include <QImage>
#include <QPainter>
#include <QTest>

using orrin::RecordedSpan;
using orrin::RecordedSpans;

class TestRecordingBar : public QObject
{
    Q_OBJECT

private:
    /*! The colours of the strip's middle line: true where it is filled. */
    static QList<bool> filled(RecordingBar &bar)
    {
        QImage image(int(bar.width()), int(bar.height()), QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        bar.paint(&painter);
        painter.end();
        QList<bool> line;
        for (int x = 0; x < image.width(); ++x)
            line.append(image.pixelColor(x, image.height() / 2) == QColor(Qt::white));
        return line;
    }

    static qsizetype count(const QList<bool> &line) { return line.count(true); }

    void show(QList<RecordedSpan> spans)
    {
        m_source = QSharedPointer<RecordedSpans>::create();
        m_source->setSpans(std::move(spans));
        m_times.setSource(m_source);
    }

    RecordedTimes m_times;
    QSharedPointer<RecordedSpans> m_source;

private Q_SLOTS:
    void spans_areFilledAndGapsAreNot()
    {
        RecordingBar bar;
        bar.setSize({100, 10});
        bar.setFrom(0);
        bar.setTo(100'000);
        bar.setTimes(&m_times);
        show({{10'000, 30'000}, {60'000, 70'000}});
        const QList<bool> line = filled(bar);
        for (int x = 0; x < 100; ++x)
            QCOMPARE(line.at(x), (x >= 10 && x < 30) || (x >= 60 && x < 70));
    }

    void spansThatReachBeyondTheEdges_areCut()
    {
        RecordingBar bar;
        bar.setSize({100, 10});
        bar.setFrom(50'000);
        bar.setTo(150'000);
        bar.setTimes(&m_times);
        show({{0, 60'000}, {140'000, 900'000}});
        const QList<bool> line = filled(bar);
        QCOMPARE(count(line), 20);
        QVERIFY(line.first() && line.last());
    }

    void secondOfAMonth_isAPixel()
    {
        RecordingBar bar;
        bar.setSize({1000, 10});
        bar.setFrom(0);
        bar.setTo(31 * qint64(86'400'000));
        bar.setTimes(&m_times);
        show({{1'000'000'000, 1'000'001'000}});
        QCOMPARE(count(filled(bar)), 1);
    }

    void nothing_isDrawn_withoutARangeOrTimes()
    {
        RecordingBar bar;
        bar.setSize({100, 10});
        QCOMPARE(count(filled(bar)), 0);
        show({{0, 1000}});
        bar.setTimes(&m_times);
        bar.setFrom(10);
        bar.setTo(5);
        QCOMPARE(count(filled(bar)), 0);
    }

    void times_tellWhatIsRecorded()
    {
        show({{1000, 2000}, {3000, 4000}});
        QVERIFY(m_times.isKnown());
        QCOMPARE(m_times.beginning(), 1000);
        QCOMPARE(m_times.end(), 4000);
        QVERIFY(!m_times.isRecorded(999));
        QVERIFY(m_times.isRecorded(1000));
        QVERIFY(m_times.isRecorded(1999));
        QVERIFY(!m_times.isRecorded(2000));
        QVERIFY(m_times.isRecorded(3500));
        QVERIFY(!m_times.isRecorded(4000));
        m_times.setSource({});
        QVERIFY(!m_times.isKnown());
        QCOMPARE(m_times.beginning(), 0);
    }
};

QTEST_MAIN(TestRecordingBar)
#include "tst_recordingbar.moc"
