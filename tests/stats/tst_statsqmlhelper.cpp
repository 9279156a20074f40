// SPDX-License-Identifier: GPL-3.0-or-later
#include <support/statsqmlhelper.h>

#include <QDateTime>
#include <QTest>

#include <cmath>
#include <limits>

using namespace orrin;
using namespace Qt::StringLiterals;

class tst_StatsQmlHelper : public QObject
{
    Q_OBJECT

private:
    using Function = QString (*)(double);

    static void addBands(const char *table, Function function, const QList<std::pair<int, const char *>> &bands)
    {
        for (const auto &[top, word] : bands) {
            const auto row = [&](const char *where, double value) {
                QTest::addRow("%s %s %s", table, word, where) << function << value << QString::fromLatin1(word);
            };
            row("middle", top - 0.5);
            row("top", top);
            row("just above its lower end", std::nextafter(double(top - 1), double(top)));
        }
    }

private Q_SLOTS:
    void value_isTurnedIntoItsWord_data()
    {
        QTest::addColumn<Function>("function");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("word");
        const Function system = &StatsQmlHelper::valueToSystemStatusText;
        const Function disk = &StatsQmlHelper::valueToDiskStatusText;
        const Function camera = &StatsQmlHelper::valueToCameraStatusText;
        addBands("system", system,
                 {{2, "Restart"}, {3, "Not recording"}, {4, "Recording"}, {5, "Fault"}, {6, "Warning"}, {7, "Standby"}, {8, "Standby2"}});
        addBands("disk", disk,
                 {{1, "Good"}, {2, "Read-only"}, {3, "Rebuilding"}, {4, "Missing"}, {6, "Failed"}, {7, "Foreign"}, {8, "Degraded"},
                  {9, "Formatted"}, {10, "Not formatted"}});
        addBands("camera", camera,
                 {{1, "None"}, {2, "Recording"}, {3, "Bad"}, {4, "Not Permitted"}, {6, "Video Loss"}, {7, "Initializing"},
                  {8, "Unauthorized"}, {9, "Not connected"}, {10, "Stream fail"}, {11, "Awaiting restart"}, {12, "Check log"},
                  {13, "Net problem"}, {14, "Configuring"}, {15, "Connecting"}, {16, "Connected/Starting"}, {17, "No Stream"}});

        const double infinite = std::numeric_limits<double>::infinity();
        const double nothing = std::numeric_limits<double>::quiet_NaN();
        const auto edge = [](const char *name, Function function, double value, const char *word) {
            QTest::newRow(name) << function << value << QString::fromLatin1(word);
        };
        edge("system 0", system, 0, "Restart");
        edge("system 1", system, 1, "Restart");
        edge("system below 0", system, -0.001, "Unknown");
        edge("system other code", system, 8.5, "Unknown");
        edge("system just above", system, std::nextafter(8.0, 9.0), "Unknown");
        edge("disk 0", disk, 0, "Good");
        edge("disk gap", disk, 4.5, "Missing");
        edge("disk gap top", disk, 5, "Missing");
        edge("disk below 0", disk, -1, "Unknown");
        edge("disk other letter", disk, 10.5, "Unknown");
        edge("camera 0", camera, 0, "None");
        edge("camera gap", camera, 4.5, "Not Permitted");
        edge("camera below 0", camera, -1, "Unknown");
        edge("camera other code", camera, 17.5, "Unknown");
        for (const auto &[name, function] : {std::pair("system", system), std::pair("disk", disk), std::pair("camera", camera)}) {
            QTest::addRow("%s infinite", name) << function << infinite << u"Unknown"_s;
            QTest::addRow("%s minus infinite", name) << function << -infinite << u"Unknown"_s;
            QTest::addRow("%s not a number", name) << function << nothing << u"Unknown"_s;
        }
    }

    void value_isTurnedIntoItsWord()
    {
        QFETCH(const Function, function);
        QFETCH(const double, value);
        QTEST(function(value), "word");
    }

    void dateTimeString_isLocalText()
    {
        const qint64 moment = QDateTime(QDate(2026, 3, 2), QTime(9, 22, 7)).toMSecsSinceEpoch();
        QCOMPARE(StatsQmlHelper::dateTimeString(moment), u"Mon Mar 2 09:22:07 2026"_s);
        QCOMPARE(StatsQmlHelper::dateTimeString(0), QDateTime::fromMSecsSinceEpoch(0).toString(Qt::TextDate));
        QVERIFY(!StatsQmlHelper::dateTimeString(std::numeric_limits<qint64>::max()).contains(u"1970"_s));
    }
};

QTEST_GUILESS_MAIN(tst_StatsQmlHelper)
#include "tst_statsqmlhelper.moc"
