// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ptz/ptzservice.h"
#include "core/ptz/storednumbers.h"

#include <contract/core/ptzferror.h>

#include <QTest>

#include <set>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace orrin {

namespace {

XmlElement parse(const QByteArray &body)
{
    return XmlElement::parse("<a xmlns:tt=\"urn:t\">" + body + "</a>").value_or(XmlElement());
}

QByteArray space(const QByteArray &name, const QByteArray &uri, const QByteArray &low, const QByteArray &high)
{
    const QByteArray range = "<tt:Min>" + low + "</tt:Min><tt:Max>" + high + "</tt:Max>";
    return "<tt:" + name + "><tt:URI>" + uri + "</tt:URI><tt:XRange>" + range + "</tt:XRange><tt:YRange>" + range +
           "</tt:YRange></tt:" + name + ">";
}

QByteArray node(const QByteArray &token, const QByteArray &spaces, const QByteArray &rest = {})
{
    return "<PTZNode token=\"" + token + "\"><tt:SupportedPTZSpaces>" + spaces + "</tt:SupportedPTZSpaces>" + rest +
           "</PTZNode>";
}

} // namespace

/*! What a device says of its PTZ, read. */
class TestPtzService : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void node_isTheNamedOneOrTheFirst()
    {
        const XmlElement answer = parse(node("a", "") + node("b", ""));
        QCOMPARE(ptzservice::readNode(answer, u"b"_s)->token, u"b"_s);
        QCOMPARE(ptzservice::readNode(answer, QString())->token, u"a"_s);
        QCOMPARE(ptzservice::readNode(answer, u"z"_s)->token, u"a"_s);
        QVERIFY(!ptzservice::readNode(parse(""), u"a"_s));
    }

    void node_hasSpacesAndCounts()
    {
        const auto read = ptzservice::readNode(
            parse(node("a",
                       space("ContinuousPanTiltVelocitySpace", "urn:degrees", "-90", "90") +
                           space("ContinuousPanTiltVelocitySpace", "urn:x/VelocityGenericSpace", "-0.5", "1.0"),
                       "<tt:MaximumNumberOfPresets>20</tt:MaximumNumberOfPresets><tt:Extension><tt:SupportedPresetTour>"
                       "<tt:MaximumNumberOfPresetTours>3</tt:MaximumNumberOfPresetTours></tt:SupportedPresetTour>"
                       "</tt:Extension>")),
            {});
        QVERIFY(read && read->panTilt && !read->zoom);
        // The generic space is taken where there is one.
        QCOMPARE(read->panTilt->uri, u"urn:x/VelocityGenericSpace"_s);
        QCOMPARE(read->panTilt->x.low, -0.5);
        QCOMPARE(read->maximumPresets, 20);
        QCOMPARE(read->maximumTours, 3);
    }

    void space_isTheUsualOne_whenItsRangeIsUnusable_data()
    {
        QTest::addColumn<QByteArray>("low");
        QTest::addColumn<QByteArray>("high");
        QTest::newRow("empty") << QByteArray() << QByteArray();
        QTest::newRow("text") << QByteArray("a") << QByteArray("b");
        QTest::newRow("turned round") << QByteArray("1") << QByteArray("-1");
        QTest::newRow("no number") << QByteArray("nan") << QByteArray("inf");
        QTest::newRow("nothing forwards") << QByteArray("-1") << QByteArray("0");
    }
    void space_isTheUsualOne_whenItsRangeIsUnusable()
    {
        QFETCH(QByteArray, low);
        QFETCH(QByteArray, high);
        const auto read =
            ptzservice::readNode(parse(node("a", space("ContinuousZoomVelocitySpace", "u", low, high))), {});
        QVERIFY(read && read->zoom);
        QCOMPARE(read->zoom->x.low, -1.0);
        QCOMPARE(read->zoom->x.high, 1.0);
    }

    void counts_areBounded()
    {
        const auto read = ptzservice::readNode(
            parse(node("a", "", "<tt:MaximumNumberOfPresets>-5</tt:MaximumNumberOfPresets>")), {});
        QCOMPARE(read->maximumPresets, 0);
        const auto many = ptzservice::readNode(
            parse(node("a", "", "<tt:MaximumNumberOfPresets>2000000000</tt:MaximumNumberOfPresets>")), {});
        QCOMPARE(many->maximumPresets, int(ptzservice::ListLimit));
    }

    void speed_isScaledToTheSpace_data()
    {
        QTest::addColumn<double>("low");
        QTest::addColumn<double>("high");
        QTest::addColumn<int>("speed");
        QTest::addColumn<double>("expected");
        QTest::newRow("still") << -1.0 << 1.0 << 0 << 0.0;
        QTest::newRow("full") << -1.0 << 1.0 << 32767 << 1.0;
        QTest::newRow("full backwards") << -1.0 << 1.0 << -32767 << -1.0;
        QTest::newRow("beyond") << -1.0 << 1.0 << 65534 << 1.0;
        QTest::newRow("far beyond") << -1.0 << 1.0 << std::numeric_limits<int>::min() << -1.0;
        QTest::newRow("degrees") << -90.0 << 180.0 << 32767 << 180.0;
        QTest::newRow("degrees backwards") << -90.0 << 180.0 << -32767 << -90.0;
        QTest::newRow("no backwards") << 0.0 << 1.0 << -32767 << 0.0;
    }
    void speed_isScaledToTheSpace()
    {
        QFETCH(double, low);
        QFETCH(double, high);
        QFETCH(int, speed);
        QFETCH(double, expected);
        QCOMPARE(ptzservice::Range(low, high).speed(speed), expected);
    }

    void duration_isRead_data()
    {
        QTest::addColumn<qint64>("milliseconds"); // -1: none
        QTest::newRow("PT5S") << qint64(5000);
        QTest::newRow("PT0.25S") << qint64(250);
        QTest::newRow("PT1M30S") << qint64(90000);
        QTest::newRow("PT2H") << qint64(7200000);
        QTest::newRow(" PT1S ") << qint64(1000);
        QTest::newRow("P1D") << qint64(-1);
        QTest::newRow("5") << qint64(-1);
        QTest::newRow("") << qint64(-1);
        QTest::newRow("PT9999999999999S") << qint64(-1);
    }
    void duration_isRead()
    {
        QFETCH(qint64, milliseconds);
        const auto read = ptzservice::readDuration(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(read ? read->count() : -1, milliseconds);
    }

    void duration_isWrittenAsItIsRead()
    {
        for (const auto time : {2000ms, 100ms, 1500ms, 60000ms})
            QCOMPARE(ptzservice::readDuration(ptzservice::writeDuration(time)), std::optional(time));
        QCOMPARE(ptzservice::writeDuration(2000ms), u"PT2S"_s);
        QCOMPARE(ptzservice::writeDuration(1500ms), u"PT1.5S"_s);
    }

    void timeouts_areReadOrWide()
    {
        const auto read = ptzservice::readTimeouts(parse("<PTZConfigurationOptions><tt:PTZTimeout><tt:Min>PT3S</tt:Min>"
                                                         "<tt:Max>PT1M</tt:Max></tt:PTZTimeout></PTZConfigurationOptions>"));
        QCOMPARE(read.shortest, 3000ms);
        QCOMPARE(read.longest, 60000ms);
        const auto none = ptzservice::readTimeouts(parse(""));
        QCOMPARE(none.shortest, 0ms);
        QVERIFY(none.longest >= 60000ms);
        const auto turned = ptzservice::readTimeouts(parse("<PTZConfigurationOptions><tt:PTZTimeout><tt:Min>PT9S</tt:Min>"
                                                           "<tt:Max>PT1S</tt:Max></tt:PTZTimeout></PTZConfigurationOptions>"));
        QVERIFY(turned.shortest <= turned.longest);
    }

    void focus_isReadWhereItIsContinuous()
    {
        const auto read = ptzservice::readFocus(parse("<MoveOptions><tt:Continuous><tt:Speed><tt:Min>-7</tt:Min><tt:Max>7"
                                                      "</tt:Max></tt:Speed></tt:Continuous></MoveOptions>"));
        QVERIFY(read);
        QCOMPARE(read->high, 7.0);
        QVERIFY(!ptzservice::readFocus(parse("<MoveOptions><tt:Absolute/></MoveOptions>")));
    }

    void lists_areReadWithoutWhatHasNoToken()
    {
        const auto presets = ptzservice::readPresets(
            parse("<Preset token=\"1\"><tt:Name>Gate</tt:Name></Preset><Preset/><Preset token=\"2\"/>"));
        QCOMPARE(presets.size(), 2);
        QCOMPARE(presets.first().name, u"Gate"_s);
        const auto tours =
            ptzservice::readTours(parse("<PresetTour token=\"t\"><tt:Status><tt:State>Touring</tt:State></tt:Status>"
                                        "</PresetTour><PresetTour token=\"u\"/>"));
        QVERIFY(tours.first().running && !tours.last().running);
        QByteArray many;
        for (int i = 0; i < 1100; ++i)
            many += "<Preset token=\"x\"/>";
        QCOMPARE(ptzservice::readPresets(parse(many)).size(), ptzservice::ListLimit);
    }

    void numbers_comeFromNameThenTokenThenOrder()
    {
        const StoredNumbers numbers({{u"zz"_s, u"Gate"_s},
                                     {u"5"_s, u"Tower"_s},
                                     {u"tok"_s, u"Preset 2"_s},
                                     {u"5x"_s, u"Preset 0"_s},
                                     {u"2"_s, u"Second"_s}},
                                    u"Preset"_s);
        QCOMPARE(numbers.token(2), u"tok"_s);
        QCOMPARE(numbers.token(5), u"5"_s);
        QCOMPARE(numbers.token(1), u"zz"_s);
        QCOMPARE(numbers.token(3), u"5x"_s);
        QCOMPARE(numbers.token(4), u"2"_s);
        QCOMPARE(numbers.token(6), QString());
        QCOMPARE(numbers.token(0), QString());
        QCOMPARE(numbers.presets().size(), 5);
        QCOMPARE(numbers.presets().first(), (PtzfPreset{1, u"Gate"_s}));
    }

    void numbers_endAtTheHighest()
    {
        QList<ptzservice::Stored> list;
        for (int i = 0; i < 300; ++i)
            list.append({u"token%1"_s.arg(i), u"n"_s});
        const StoredNumbers numbers(list, u"Preset"_s);
        QCOMPARE(numbers.presets().size(), StoredNumbers::Highest);
        QCOMPARE(numbers.token(255), u"token254"_s);
        const StoredNumbers high({{u"256"_s, u""_s}}, u"Preset"_s);
        QCOMPARE(high.token(1), u"256"_s);
    }

    void numbers_readBackTheirDefaultName()
    {
        const StoredNumbers numbers({{u"a"_s, StoredNumbers::defaultName(u"Preset"_s, 77)}}, u"Preset"_s);
        QCOMPARE(numbers.token(77), u"a"_s);
    }

    void error_hasATextForEachCode()
    {
        std::set<QString> texts;
        for (int code = PtzfError::NoError; code <= PtzfError::Busy; ++code) {
            PtzfError error(code);
            QCOMPARE(error.hasError(), code != 0);
            QCOMPARE(error.errorId(), code);
            texts.insert(error.toString());
        }
        QCOMPARE(texts.size(), std::size_t(PtzfError::Busy + 1));
        QCOMPARE(PtzfError(99).toString(), u"Unknown error"_s);
        PtzfError error(PtzfError::Refused, u"over there"_s);
        QVERIFY(error.toString().endsWith(u": over there"_s));
        error.reset();
        QVERIFY(!error.hasError());
        QCOMPARE(error.toString(), u"No error"_s);
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestPtzService)
#include "tst_ptzservice.moc"
