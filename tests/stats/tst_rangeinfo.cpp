// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/headingfacts.h"

#include <contract/core/rangeinfofactory.h>

#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;

class tst_RangeInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void heading_hasItsTexts_data()
    {
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QString>("description");
        QTest::addColumn<QString>("units");
        QTest::addColumn<StatsType>("type");
        QTest::addColumn<bool>("fromZero");
        const auto row = [](const char *heading, const char *description, const char *units, StatsType type = StatsType::FLOAT,
                            bool fromZero = false) {
            QTest::newRow(heading) << QString::fromUtf8(heading) << QString::fromUtf8(description) << QString::fromUtf8(units) << type
                                   << fromZero;
        };
        row("Status", "Recorder status", "", StatsType::ENUM_SYSTEM_STATUS);
        row("UsedMB", "Storage in use", "MB");
        row("FreeMB", "Storage free", "MB");
        row("CPU%", "Processor load", "%", StatsType::FLOAT, true);
        row("cpu0%", "Processor 0: load", "%", StatsType::FLOAT, true);
        row("cpu12%", "Processor 12: load", "%", StatsType::FLOAT, true);
        row("ntp_ms", "Clock offset to the time server", "ms");
        row("stratum", "Stratum of the clock", "", StatsType::INTEGER);
        row("eth0_tx", "Network eth0: sent", "kbit/s", StatsType::FLOAT, true);
        row("eth0_rx", "Network eth0: received", "kbit/s", StatsType::FLOAT, true);
        row("eth0_err", "Network eth0: errors", "1/s", StatsType::FLOAT, true);
        row("eth0_drop", "Network eth0: packets dropped", "1/s", StatsType::FLOAT, true);
        row("Disk_1", "Disk 1: status", "", StatsType::ENUM_DISK_STATUS);
        row("Use%_sda", "Disk sda: space in use", "%", StatsType::FLOAT, true);
        row("Temp_1", "Disk 1: temperature", "°C");
        row("WriteRate_1", "Disk 1: data written", "MB/s", StatsType::FLOAT, true);
        row("C3", "Camera 3: status", "", StatsType::ENUM_CAMERA_STATUS);
        row("C3rx", "Camera 3: data received", "kbit/s", StatsType::FLOAT, true);
        row("C3rj", "Camera 3: pictures rejected", "1/s", StatsType::FLOAT, true);
        row("C3ij", "Camera 3: interval jitter", "ms");
        row("C3t1b", "Camera 3, track 1: data recorded", "kbit/s", StatsType::FLOAT, true);
        row("C3t1d", "Camera 3, track 1: pictures dropped", "1/s", StatsType::FLOAT, true);
        row("C12t10r", "Camera 12, track 10: pictures recorded", "1/s", StatsType::FLOAT, true);
        row("CPU/C", "Sensor CPU: temperature", "°C");
        row("12V/V", "Sensor 12V: voltage", "V");
        row("PSU1/W", "Sensor PSU1: power", "W");
        row("FAN2", "Fan FAN2: speed", "rpm");
        row("PSU1", "Power supply PSU1", "");
        row("View_C3_fps", "Camera 3, shown here: pictures", "1/s", StatsType::FLOAT, true);
        row("View_C3_kbps", "Camera 3, shown here: data received", "kbit/s", StatsType::FLOAT, true);
        row("View_C3_delay", "Camera 3, shown here: delay", "ms");
        row("View_C3_lost", "Camera 3, shown here: packets lost", "1/s", StatsType::FLOAT, true);
        row("View_C3_reconnects", "Camera 3, shown here: connections begun anew", "", StatsType::INTEGER);
        // What is not known is a plain number under its own name.
        row("", "", "");
        row("C", "C", "");
        row("C3xy", "C3xy", "");
        row("C3t1", "C3t1", "");
        row("C3t1x", "C3t1x", "");
        row("C99999999999", "C99999999999", "");
        row("View_C3t1_fps", "View_C3t1_fps", "");
        row("View_C3b", "View_C3b", "");
        row("%1 %2", "%1 %2", "");
        // A name is put in as it is.
        row("%1_tx", "Network %1: sent", "kbit/s", StatsType::FLOAT, true);
        row("Disk_", "Disk : status", "", StatsType::ENUM_DISK_STATUS);
    }

    void heading_hasItsTexts()
    {
        QFETCH(const QString, heading);
        QFETCH(const StatsType, type);
        QFETCH(const bool, fromZero);
        const auto info = RangeInfoFactory::create(heading);
        QVERIFY(info);
        QTEST(info->description(), "description");
        QTEST(info->units(), "units");
        QCOMPARE(info->statsType(), type);
        QCOMPARE(info->heading(), heading);
        QCOMPARE(info->lowerBoundStartsAtZero(), fromZero);
        QCOMPARE(info->lowerBoundKind() == IRangeInfo::Fixed, fromZero);
        QCOMPARE(info->upperBoundKind(), int(IRangeInfo::Computed));
        QVERIFY(info->decimals() >= 0 && info->decimals() <= 3);
    }

    void values_areKept()
    {
        const auto info = RangeInfoFactory::create(u"CPU%"_s);
        QVERIFY(!info->minimumValue());
        QVERIFY(!info->maximumValue());
        QCOMPARE(info->lowerBound(), 0.0);
        QCOMPARE(info->upperBound(), 100.0);
        info->setMinimumValue(-1);
        info->setMaximumValue(7);
        info->setLowerBound(-2);
        info->setUpperBound(8);
        QCOMPARE(info->minimumValue(), std::optional(-1.0));
        QCOMPARE(info->maximumValue(), std::optional(7.0));
        QCOMPARE(info->lowerBound(), -2.0);
        QCOMPARE(info->upperBound(), 8.0);
    }

    void measuredHeadings_areKnown()
    {
        const QStringList headings = measuredHeadings(7);
        QCOMPARE(headings.size(), 5);
        for (const QString &heading : headings)
            QVERIFY2(RangeInfoFactory::create(heading)->description().startsWith(u"Camera 7, shown here: "_s), qPrintable(heading));
    }
};

QTEST_GUILESS_MAIN(tst_RangeInfo)
#include "tst_rangeinfo.moc"
