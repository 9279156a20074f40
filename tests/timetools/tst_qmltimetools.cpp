// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/qmltimetools.h"

#include <contract/core/corvanetime.h>

#include <QDateTime>
#include <QMetaMethod>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QTest>
#include <QTimeZone>

#include <limits>
#include <utility>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

const QTimeZone &utc()
{
    static const QTimeZone zone = QTimeZone::utc();
    return zone;
}

const QTimeZone &berlin()
{
    static const QTimeZone zone("Europe/Berlin");
    return zone;
}

QVariant variant(const QTimeZone &zone)
{
    return QVariant::fromValue(zone);
}

qint64 ms(const QDateTime &moment)
{
    return moment.toMSecsSinceEpoch();
}

QDateTime utcMoment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return {QDate(year, month, day), QTime(hour, minute, second), utc()};
}

QDate todayIn(const QTimeZone &zone)
{
    return QDateTime::currentDateTime(zone).date();
}

/*! Two zones that have different dates at this moment, the earlier date first: 26 hours lie between them. */
std::pair<QTimeZone, QTimeZone> zonesOfTwoDays()
{
    return {QTimeZone(-12 * 3600), QTimeZone(14 * 3600)};
}

} // namespace

class tst_QmlTimeTools : public QObject
{
    Q_OBJECT

private:
    /*! What \a check says when no midnight passed while it ran; it compares with the clock. Zones differ by quarters of an hour. */
    template <class Check>
    static bool withinAQuarter(Check check)
    {
        const auto quarter = [] { return QDateTime::currentSecsSinceEpoch() / 900; };
        bool result = false;
        for (int attempt = 0; attempt < 3; ++attempt) {
            const qint64 before = quarter();
            result = check();
            if (quarter() == before)
                break;
        }
        return result;
    }

    QmlTimeTools tools;

private Q_SLOTS:
    void initTestCase() { QVERIFY(berlin().isValid()); }
    void cleanup() { CorvaneTime::setPreferredTimezone({}); }

    void methods_areInvokable()
    {
        const QMetaObject &meta = QmlTimeTools::staticMetaObject;
        QList<QByteArray> signatures;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            signatures.append(meta.method(i).methodSignature());
        QCOMPARE(signatures, QList<QByteArray>({"dateNow()", "timeNow()", "getTimeFromEpoch(qlonglong,QVariant)",
                                                "dateUnavailable(qlonglong,QDate,QVariant)",
                                                "getYearFromEpoch(qlonglong,QVariant)",
                                                "getMonthFromEpoch(qlonglong,QVariant)",
                                                "datesEqual(QDate,QDate,QVariant)"}));
    }

    void preferredTimezone_isTheSystems_untilOneIsChosen()
    {
        QCOMPARE(CorvaneTime::preferredTimezone(), QTimeZone::systemTimeZone());
        CorvaneTime::setPreferredTimezone(berlin());
        QCOMPARE(CorvaneTime::preferredTimezone(), berlin());
        CorvaneTime::setPreferredTimezone(QTimeZone());
        QCOMPARE(CorvaneTime::preferredTimezone(), QTimeZone::systemTimeZone());
        QVERIFY(CorvaneTime::preferredTimezone().isValid());
    }

    void now_isInThePreferredZone()
    {
        const auto [earlier, later] = zonesOfTwoDays();
        for (const QTimeZone &zone : {earlier, later, berlin()}) {
            CorvaneTime::setPreferredTimezone(zone);
            const QDateTime before = QDateTime::currentDateTimeUtc();
            const QDateTime now(tools.dateNow(), tools.timeNow(), zone);
            const QDateTime after = QDateTime::currentDateTimeUtc();
            QVERIFY2(before <= now && now <= after, qPrintable(now.toString(Qt::ISODateWithMs)));
        }
        CorvaneTime::setPreferredTimezone(earlier);
        const QDate first = tools.dateNow();
        CorvaneTime::setPreferredTimezone(later);
        QVERIFY(first < tools.dateNow());
    }

    void getTimeFromEpoch_hasTheDate_whenItIsAnotherDay_data()
    {
        QTest::addColumn<qint64>("moment");
        QTest::addColumn<QTimeZone>("zone");
        QTest::addColumn<QString>("text");
        QTest::newRow("utc") << ms(utcMoment(2026, 3, 3, 12, 34, 56)) << utc() << u"Tue 3 Mar 2026 12:34:56"_s;
        QTest::newRow("winter") << ms(utcMoment(2026, 1, 9, 23, 30, 1)) << berlin() << u"Sat 10 Jan 2026 00:30:01"_s;
        QTest::newRow("before summer time") << ms(utcMoment(2025, 3, 30, 0, 59, 59)) << berlin()
                                            << u"Sun 30 Mar 2025 01:59:59"_s;
        QTest::newRow("summer time") << ms(utcMoment(2025, 3, 30, 1)) << berlin() << u"Sun 30 Mar 2025 03:00:00"_s;
        QTest::newRow("first 2:30") << ms(utcMoment(2025, 10, 26, 0, 30)) << berlin() << u"Sun 26 Oct 2025 02:30:00"_s;
        QTest::newRow("second 2:30") << ms(utcMoment(2025, 10, 26, 1, 30)) << berlin() << u"Sun 26 Oct 2025 02:30:00"_s;
        QTest::newRow("epoch") << qint64(0) << utc() << u"Thu 1 Jan 1970 00:00:00"_s;
        QTest::newRow("before the epoch") << qint64(-1) << utc() << u"Wed 31 Dec 1969 23:59:59"_s;
        QTest::newRow("after 2100") << ms(utcMoment(2101, 7, 4, 1, 2, 3)) << utc() << u"Mon 4 Jul 2101 01:02:03"_s;
    }

    void getTimeFromEpoch_hasTheDate_whenItIsAnotherDay()
    {
        QFETCH(qint64, moment);
        QFETCH(QTimeZone, zone);
        QFETCH(QString, text);
        QCOMPARE(tools.getTimeFromEpoch(moment, variant(zone)), text);
    }

    void getTimeFromEpoch_isTheTimeAlone_whenItIsToday()
    {
        for (const QTimeZone &zone : {utc(), berlin(), QTimeZone(14 * 3600)}) {
            QVERIFY(withinAQuarter([this, &zone] {
                const QDateTime noon(todayIn(zone), QTime(12, 34, 56), zone);
                const auto text = [this, &zone](const QDateTime &moment) {
                    return tools.getTimeFromEpoch(ms(moment), variant(zone));
                };
                return text(noon) == u"12:34:56"_s && text(noon.addDays(-1)).endsWith(u" 12:34:56"_s)
                    && text(noon.addDays(1)).endsWith(u" 12:34:56"_s);
            }));
        }
    }

    void getTimeFromEpoch_dependsOnTheZone()
    {
        // Half a day ago was today in every zone where it is past noon now, and yesterday in the others.
        QVERIFY(withinAQuarter([this] {
            const qint64 moment = QDateTime::currentMSecsSinceEpoch() - 12 * 3600 * 1000;
            int withDate = 0;
            int withoutDate = 0;
            for (int hours = -12; hours <= 14; ++hours) {
                const QTimeZone zone(hours * 3600);
                const QDateTime local = QDateTime::fromMSecsSinceEpoch(moment, zone);
                const bool today = local.date() == todayIn(zone);
                const QString text = local.toString(today ? u"hh:mm:ss"_s : u"ddd d MMM yyyy hh:mm:ss"_s);
                if (tools.getTimeFromEpoch(moment, variant(zone)) != text)
                    return false;
                ++(today ? withoutDate : withDate);
            }
            return withDate > 0 && withoutDate > 0;
        }));
    }

    void getTimeFromEpoch_ignoresThePreferredZone()
    {
        const auto [earlier, later] = zonesOfTwoDays();
        CorvaneTime::setPreferredTimezone(earlier);
        QVERIFY(withinAQuarter([this, zone = later] {
            const QDateTime noon(todayIn(zone), QTime(12, 0), zone);
            return tools.getTimeFromEpoch(ms(noon), variant(zone)) == u"12:00:00"_s;
        }));
    }

    void results_areEmpty_whenTheZoneIsInvalid_data()
    {
        QTest::addColumn<QVariant>("zone");
        QTest::newRow("nothing") << QVariant();
        QTest::newRow("text") << QVariant(u"Europe/Berlin"_s);
        QTest::newRow("bytes") << QVariant(QByteArray("Europe/Berlin"));
        QTest::newRow("number") << QVariant(3600);
        QTest::newRow("default zone") << variant(QTimeZone());
        QTest::newRow("unknown zone") << variant(QTimeZone("No/Where"));
    }

    void results_areEmpty_whenTheZoneIsInvalid()
    {
        QFETCH(QVariant, zone);
        QCOMPARE(tools.getTimeFromEpoch(ms(utcMoment(2026, 3, 3)), zone), QString());
        QCOMPARE(tools.getYearFromEpoch(ms(utcMoment(2026, 3, 3)), zone), 0);
        QCOMPARE(tools.getMonthFromEpoch(ms(utcMoment(2026, 3, 3)), zone), 0);
        // Without a zone no day begins at all, so that all begin alike.
        QVERIFY(tools.datesEqual(QDate(2026, 1, 1), QDate(2026, 1, 2), zone));
        QVERIFY(!tools.dateUnavailable(0, QDate(2000, 1, 1), zone));
    }

    void results_surviveTheEndsOfTime()
    {
        for (const qlonglong moment : {std::numeric_limits<qlonglong>::min(), std::numeric_limits<qlonglong>::max()}) {
            for (const QTimeZone &zone : {utc(), berlin()}) {
                const QDateTime expected = QDateTime::fromMSecsSinceEpoch(moment, zone);
                QCOMPARE(tools.getYearFromEpoch(moment, variant(zone)), expected.date().year());
                QCOMPARE(tools.getMonthFromEpoch(moment, variant(zone)), expected.date().month());
                QCOMPARE(tools.getTimeFromEpoch(moment, variant(zone)),
                         expected.toString(u"ddd d MMM yyyy hh:mm:ss"_s));
                QCOMPARE(tools.dateUnavailable(moment, QDate(2020, 1, 1), variant(zone)),
                         expected.date() > QDate(2020, 1, 1));
            }
        }
    }

    void dateUnavailable_isTrue_beforeTheRecordingBegins()
    {
        // In Berlin the track begins on the 11th.
        const qint64 begin = ms(utcMoment(2026, 1, 10, 23, 30));
        const qint64 earlierBegin = ms(utcMoment(2020, 1, 10, 23, 30));
        QVERIFY(tools.dateUnavailable(begin, QDate(2026, 1, 10), variant(berlin())));
        QVERIFY(tools.dateUnavailable(earlierBegin, QDate(2020, 1, 10), variant(berlin())));
        QVERIFY(!tools.dateUnavailable(earlierBegin, QDate(2020, 1, 11), variant(berlin())));
        QVERIFY(!tools.dateUnavailable(earlierBegin, QDate(2020, 1, 10), variant(utc())));
        QVERIFY(tools.dateUnavailable(earlierBegin, QDate(2020, 1, 9), variant(utc())));
    }

    void dateUnavailable_isTrue_afterToday()
    {
        CorvaneTime::setPreferredTimezone(berlin());
        QVERIFY(withinAQuarter([this] {
            const QDate today = todayIn(berlin());
            return !tools.dateUnavailable(0, today, variant(berlin()))
                && !tools.dateUnavailable(0, today.addDays(-1), variant(berlin()))
                && tools.dateUnavailable(0, today.addDays(1), variant(berlin()));
        }));
    }

    void dateUnavailable_countsTodayInThePreferredZone()
    {
        const auto [earlier, later] = zonesOfTwoDays();
        CorvaneTime::setPreferredTimezone(earlier);
        QVERIFY(withinAQuarter([this, here = earlier, there = later] {
            return tools.dateUnavailable(0, todayIn(there), variant(there))
                && !tools.dateUnavailable(0, todayIn(here), variant(there));
        }));
        CorvaneTime::setPreferredTimezone(later);
        QVERIFY(withinAQuarter([this, here = later, there = earlier] {
            return !tools.dateUnavailable(0, todayIn(here), variant(there));
        }));
    }

    // Midnight does not exist on that day there; the day is the same all the same.
    void dateUnavailable_standsADayWithoutMidnight()
    {
        const QTimeZone zone("America/Sao_Paulo");
        QVERIFY(zone.isValid());
        const QDate date(2018, 11, 4);
        QCOMPARE(QDateTime(date, QTime(0, 0), zone).date(), date);
        const qint64 begin = ms(QDateTime(date, QTime(12, 0), zone));
        QVERIFY(!tools.dateUnavailable(begin, date, variant(zone)));
        QVERIFY(tools.dateUnavailable(begin, date.addDays(-1), variant(zone)));
    }

    void dateUnavailable_isTrue_whenTheDateIsInvalid()
    {
        QVERIFY(tools.dateUnavailable(0, QDate(), variant(utc())));
    }

    void yearAndMonth_areThoseOfTheZone()
    {
        const qint64 moment = ms(utcMoment(2025, 12, 31, 23, 30));
        QCOMPARE(tools.getYearFromEpoch(moment, variant(utc())), 2025);
        QCOMPARE(tools.getMonthFromEpoch(moment, variant(utc())), 12);
        QCOMPARE(tools.getYearFromEpoch(moment, variant(berlin())), 2026);
        QCOMPARE(tools.getMonthFromEpoch(moment, variant(berlin())), 1);
        QCOMPARE(tools.getYearFromEpoch(-1, variant(utc())), 1969);
    }

    void datesEqual_comparesDays()
    {
        for (const QTimeZone &zone : {utc(), berlin(), QTimeZone("America/Sao_Paulo")}) {
            QVERIFY(tools.datesEqual(QDate(2018, 11, 4), QDate(2018, 11, 4), variant(zone)));
            QVERIFY(!tools.datesEqual(QDate(2018, 11, 4), QDate(2018, 11, 5), variant(zone)));
        }
        QVERIFY(tools.datesEqual(QDate(), QDate(), variant(utc())));
        QVERIFY(!tools.datesEqual(QDate(), QDate(2026, 1, 1), variant(utc())));
        // The day that was left out there when the date line moved begins with the next one.
        const QTimeZone apia("Pacific/Apia");
        QVERIFY(apia.isValid());
        QCOMPARE(tools.datesEqual(QDate(2011, 12, 30), QDate(2011, 12, 31), variant(apia)),
                 QDate(2011, 12, 30).startOfDay(apia) == QDate(2011, 12, 31).startOfDay(apia));
    }

    void tools_workFromQml()
    {
        QQmlEngine engine;
        engine.rootContext()->setContextProperty(u"timeTools"_s, &tools);
        engine.rootContext()->setContextProperty(u"zone"_s, variant(berlin()));
        const auto evaluate = [&engine](const QString &text) {
            QQmlExpression expression(engine.rootContext(), nullptr, text);
            bool undefined = false;
            const QVariant value = expression.evaluate(&undefined);
            return expression.hasError() ? QVariant(expression.error().toString()) : value;
        };
        QCOMPARE(evaluate(u"timeTools.getTimeFromEpoch(1735689600000, zone)"_s).toString(),
                 u"Wed 1 Jan 2025 01:00:00"_s);
        QCOMPARE(evaluate(u"timeTools.getYearFromEpoch(1735689599999, zone)"_s).toInt(), 2025);
        QCOMPARE(evaluate(u"timeTools.getTimeFromEpoch(1735689600000, 'Europe/Berlin')"_s).toString(), QString());
        QCOMPARE(evaluate(u"timeTools.getTimeFromEpoch(1735689600000, undefined)"_s).toString(), QString());
        QVERIFY(evaluate(u"timeTools.timeNow()"_s).isValid());
    }
};

QTEST_GUILESS_MAIN(tst_QmlTimeTools)
#include "tst_qmltimetools.moc"
