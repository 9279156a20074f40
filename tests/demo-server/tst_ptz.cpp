// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"
#include "httpprobe.h"

#include <QRegularExpression>
#include <QTest>

using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray Ptz = "http://www.onvif.org/ver20/ptz/wsdl";
const QByteArray Imaging = "http://www.onvif.org/ver20/imaging/wsdl";
const QByteArray Profile = "<x:ProfileToken>P_2_main</x:ProfileToken>";

QByteArray operation(const QByteArray &name, const QByteArray &content, const QByteArray &ns = Ptz)
{
    return "<x:" + name + " xmlns:x=\"" + ns + "\" xmlns:t=\"http://www.onvif.org/ver10/schema\">" + content + "</x:" +
           name + '>';
}

QByteArray velocity(double pan, double tilt, double zoom)
{
    return "<x:Velocity><t:PanTilt x=\"" + QByteArray::number(pan) + "\" y=\"" + QByteArray::number(tilt) +
           "\"/><t:Zoom x=\"" + QByteArray::number(zoom) + "\"/></x:Velocity>";
}

} // namespace

/*! The PTZ and imaging services over the network. */
class TestPtz : public QObject
{
    Q_OBJECT

    DemoServerProcess m_server;
    HttpProbe m_operator{u"operator"_s, u"orrin-operator"_s};

    HttpProbe::Answer call(const QByteArray &name, const QByteArray &content = Profile)
    {
        return m_operator.soap(m_server.url(u"/onvif/ptz_service"_s), operation(name, content));
    }
    HttpProbe::Answer imaging(const QByteArray &name, const QByteArray &content = {})
    {
        return m_operator.soap(m_server.url(u"/onvif/imaging_service"_s),
                               operation(name, "<x:VideoSourceToken>VS_2</x:VideoSourceToken>" + content, Imaging));
    }

    struct Where
    {
        double pan = -9;
        double tilt = -9;
        double zoom = -9;
        double focus = -9;
        bool moving = false;
    };
    Where where()
    {
        static const QRegularExpression pattern(
            u"^ok pan=([-.0-9]+) tilt=([-.0-9]+) zoom=([-.0-9]+) focus=([-.0-9]+) (moving|still)$"_s);
        const auto match = pattern.match(m_server.command(u"ptz North 2"_s));
        if (!match.hasMatch())
            return {};
        return {match.captured(1).toDouble(), match.captured(2).toDouble(), match.captured(3).toDouble(),
                match.captured(4).toDouble(), match.captured(5) == "moving"_L1};
    }

private Q_SLOTS:
    void init() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }
    void cleanup() { m_server.stop(); }

    void services_areListed()
    {
        const QByteArray device = "http://www.onvif.org/ver10/device/wsdl";
        const QUrl url = m_server.url(u"/onvif/device_service"_s);
        const auto services = m_operator.soap(
            url, operation("GetServices", "<x:IncludeCapability>true</x:IncludeCapability>", device));
        QVERIFY(services.contains("/onvif/ptz_service") && services.contains("/onvif/imaging_service"));
        for (const QByteArray category : {"All", "PTZ", "Imaging"}) {
            const auto capabilities = m_operator.soap(
                url, operation("GetCapabilities", "<x:Category>" + category + "</x:Category>", device));
            QCOMPARE(capabilities.status, 200);
            QCOMPARE(capabilities.contains("/onvif/ptz_service"), category != "Imaging");
            QCOMPARE(capabilities.contains("/onvif/imaging_service"), category != "PTZ");
            QCOMPARE(capabilities.contains("/onvif/media_service"), category == "All");
        }
    }

    void profiles_ofCamerasThatMove_haveAConfiguration()
    {
        const QByteArray media = "http://www.onvif.org/ver10/media/wsdl";
        const auto old =
            m_operator.soap(m_server.url(u"/onvif/media_service"_s), operation("GetProfiles", {}, media));
        QCOMPARE(old.body.count("PTZConfiguration "), 2);
        QVERIFY(old.contains("<tt:NodeToken>NODE_2</tt:NodeToken>"));
        const QByteArray media2 = "http://www.onvif.org/ver20/media/wsdl";
        const auto newer = m_operator.soap(m_server.url(u"/onvif/media2_service"_s),
                                           operation("GetProfiles", "<x:Type>PTZ</x:Type>", media2));
        // Two profiles of each of two cameras.
        QCOMPARE(newer.body.count("<tr2:PTZ "), 4);
        const auto without = m_operator.soap(m_server.url(u"/onvif/media2_service"_s),
                                             operation("GetProfiles", "<x:Type>VideoSource</x:Type>", media2));
        QCOMPARE(without.body.count("<tr2:PTZ "), 0);
    }

    void nodes_andConfigurations_areTold()
    {
        const auto nodes = call("GetNodes", {});
        QCOMPARE(nodes.status, 200);
        QCOMPARE(nodes.body.count("<tptz:PTZNode"), 2);
        QVERIFY(nodes.contains("ContinuousPanTiltVelocitySpace") && nodes.contains("MaximumNumberOfPresetTours"));
        QCOMPARE(call("GetNode", "<x:NodeToken>NODE_6</x:NodeToken>").body.count("<tptz:PTZNode"), 1);
        QCOMPARE(call("GetNode", "<x:NodeToken>NODE_1</x:NodeToken>").status, 400);
        QCOMPARE(call("GetConfigurations", {}).body.count("<tptz:PTZConfiguration "), 2);
        QCOMPARE(call("GetConfiguration", "<x:PTZConfigurationToken>PTZ_2</x:PTZConfigurationToken>").status, 200);
        QCOMPARE(call("GetConfiguration", "<x:PTZConfigurationToken>PTZ_1</x:PTZConfigurationToken>").status, 400);
        const auto options = call("GetConfigurationOptions", "<x:ConfigurationToken>PTZ_2</x:ConfigurationToken>");
        QVERIFY(options.contains("<tt:Max>PT60S</tt:Max>"));
        QCOMPARE(call("GetConfigurationOptions", "<x:ConfigurationToken>PTZ_9</x:ConfigurationToken>").status, 400);
        QCOMPARE(m_operator.soap(m_server.url(u"/onvif/ptz_service"_s), operation("GetServiceCapabilities", {})).status, 200);
    }

    void continuousMove_movesAndStops()
    {
        QCOMPARE(where().pan, 0.0);
        QCOMPARE(call("ContinuousMove", Profile + velocity(1, -1, 1) + "<x:Timeout>PT30S</x:Timeout>").status, 200);
        QTRY_VERIFY(where().pan > 0.1);
        QVERIFY(where().tilt < 0 && where().zoom > 0 && where().moving);
        QVERIFY(call("GetStatus").contains("MOVING"));
        QCOMPARE(call("Stop").status, 200);
        QTRY_VERIFY(!where().moving);
        const Where stopped = where();
        QVERIFY(stopped.pan < 1.0);
        QVERIFY(call("GetStatus").contains("IDLE"));
        QVERIFY(call("GetStatus").contains(QByteArray("x=\"" + QByteArray::number(stopped.pan, 'f', 3)).constData()));
        QTest::qWait(200);
        QCOMPARE(where().pan, stopped.pan);
    }

    void continuousMove_endsByItsTimeout()
    {
        QCOMPARE(call("ContinuousMove", Profile + velocity(0.5, 0, 0) + "<x:Timeout>PT0.5S</x:Timeout>").status, 200);
        QVERIFY(where().moving);
        QTRY_VERIFY(!where().moving);
        const double pan = where().pan;
        QVERIFY(pan > 0.05 && pan < 0.3);
    }

    void axes_thatAreLeftOut_goOn()
    {
        call("ContinuousMove", Profile + velocity(0.2, 0, 0.2));
        call("Stop", Profile + "<x:PanTilt>false</x:PanTilt><x:Zoom>true</x:Zoom>");
        QTest::qWait(400);
        const Where first = where();
        QTRY_VERIFY(where().pan > first.pan);
        QCOMPARE(where().zoom, first.zoom);
    }

    void moves_areRefused_whenTheyMakeNoSense_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("subcode");
        const QByteArray move = "ContinuousMove";
        QTest::newRow("no profile") << move << velocity(1, 0, 0) << QByteArray("ter:NoProfile");
        QTest::newRow("profile of a camera that stands")
            << move << "<x:ProfileToken>P_1_main</x:ProfileToken>" + velocity(1, 0, 0) << QByteArray("ter:NoPTZProfile");
        QTest::newRow("too fast") << move << Profile + velocity(1.5, 0, 0) << QByteArray("ter:InvalidVelocity");
        QTest::newRow("no speed") << move << Profile << QByteArray("ter:InvalidVelocity");
        QTest::newRow("no number") << move << Profile + "<x:Velocity><t:PanTilt x=\"nan\" y=\"0\"/></x:Velocity>"
                                   << QByteArray("ter:InvalidVelocity");
        QTest::newRow("time-out") << move << Profile + velocity(1, 0, 0) + "<x:Timeout>soon</x:Timeout>"
                                  << QByteArray("ter:TimeoutNotSupported");
        QTest::newRow("position") << QByteArray("AbsoluteMove")
                                  << Profile + "<x:Position><t:Zoom x=\"-1\"/></x:Position>"
                                  << QByteArray("ter:InvalidPosition");
        QTest::newRow("translation") << QByteArray("RelativeMove") << Profile << QByteArray("ter:InvalidTranslation");
        QTest::newRow("preset") << QByteArray("GotoPreset") << Profile + "<x:PresetToken>77</x:PresetToken>"
                                << QByteArray("ter:NoToken");
        QTest::newRow("preset to store over")
            << QByteArray("SetPreset") << Profile + "<x:PresetToken>77</x:PresetToken>" << QByteArray("ter:NoToken");
        QTest::newRow("preset to remove")
            << QByteArray("RemovePreset") << Profile + "<x:PresetToken>77</x:PresetToken>" << QByteArray("ter:NoToken");
        QTest::newRow("tour") << QByteArray("OperatePresetTour")
                              << Profile + "<x:PresetTourToken>77</x:PresetTourToken><x:Operation>Start</x:Operation>"
                              << QByteArray("ter:NoToken");
        QTest::newRow("tour operation") << QByteArray("OperatePresetTour")
                                        << Profile + "<x:PresetTourToken>1</x:PresetTourToken><x:Operation>Dance</x:Operation>"
                                        << QByteArray("ter:InvalidArgVal");
    }
    void moves_areRefused_whenTheyMakeNoSense()
    {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, content);
        QFETCH(QByteArray, subcode);
        const auto answer = call(name, content);
        QVERIFY(answer.status >= 400);
        QVERIFY2(answer.contains(subcode.constData()), answer.body.constData());
        QVERIFY(!where().moving);
    }

    void absoluteAndRelativeMoves_arrive()
    {
        QCOMPARE(call("AbsoluteMove", Profile + "<x:Position><t:PanTilt x=\"0.2\" y=\"0.1\"/><t:Zoom x=\"0.3\"/></x:Position>").status,
                 200);
        QTRY_VERIFY(!where().moving);
        QCOMPARE(where().pan, 0.2);
        QCOMPARE(where().tilt, 0.1);
        QCOMPARE(where().zoom, 0.3);
        QCOMPARE(call("RelativeMove", Profile + "<x:Translation><t:PanTilt x=\"-0.1\" y=\"0\"/></x:Translation>").status, 200);
        QTRY_VERIFY(!where().moving);
        QCOMPARE(where().pan, 0.1);
        QCOMPARE(where().tilt, 0.1);
        QCOMPARE(call("SetHomePosition").status, 200);
        call("AbsoluteMove", Profile + "<x:Position><t:PanTilt x=\"0\" y=\"0\"/></x:Position>");
        QTRY_VERIFY(!where().moving);
        QCOMPARE(call("GotoHomePosition").status, 200);
        QTRY_VERIFY(where().pan > 0 && !where().moving);
        QCOMPARE(where().pan, 0.1);
    }

    void presets_areStoredGoneToAndRemoved()
    {
        QCOMPARE(call("GetPresets").body.count("<tptz:Preset "), 3);
        QCOMPARE(call("GotoPreset", Profile + "<x:PresetToken>1</x:PresetToken>").status, 200);
        QTRY_VERIFY_WITH_TIMEOUT(where().pan < -0.5 && !where().moving, 10000);
        QCOMPARE(where().pan, -0.8);
        const auto stored = call("SetPreset", Profile + "<x:PresetName>Gate &amp; wall</x:PresetName>");
        QVERIFY(stored.contains("<tptz:PresetToken>4</tptz:PresetToken>"));
        QVERIFY(call("GetPresets").contains("Gate &amp; wall"));
        QVERIFY(call("SetPreset", Profile + "<x:PresetToken>2</x:PresetToken>").contains(">2</tptz:PresetToken>"));
        QCOMPARE(call("RemovePreset", Profile + "<x:PresetToken>4</x:PresetToken>").status, 200);
        QCOMPARE(call("GetPresets").body.count("<tptz:Preset "), 3);
    }

    void presets_haveAnEnd()
    {
        int status = 200;
        int stored = 3;
        while (status == 200 && stored < 300) {
            status = call("SetPreset").status;
            stored += status == 200;
        }
        QCOMPARE(stored, 255);
        QVERIFY(call("SetPreset").contains("ter:TooManyPresets"));
    }

    void tours_run()
    {
        QVERIFY(call("GetPresetTours").contains("Idle"));
        const auto operate = [this](const QByteArray &token, const QByteArray &what) {
            return call("OperatePresetTour", Profile + "<x:PresetTourToken>" + token + "</x:PresetTourToken><x:Operation>" +
                                                 what + "</x:Operation>");
        };
        QCOMPARE(operate("1", "Start").status, 200);
        QVERIFY(call("GetPresetTours").contains("Touring"));
        QVERIFY(where().moving);
        QCOMPARE(operate("1", "Stop").status, 200);
        QTRY_VERIFY(!where().moving);
        QVERIFY(!call("GetPresetTours").contains("Touring"));
        // Any other move ends it too.
        operate("1", "Start");
        call("ContinuousMove", Profile + velocity(0, 0, 0.1));
        QVERIFY(!call("GetPresetTours").contains("Touring"));

        QVERIFY(call("CreatePresetTour").contains(">2</tptz:PresetTourToken>"));
        QVERIFY(operate("2", "Start").contains("ter:ActivationFailed"));
        const QByteArray spot = "<t:TourSpot><t:PresetDetail><t:PresetToken>3</t:PresetToken></t:PresetDetail>"
                                "<t:StayTime>PT1S</t:StayTime></t:TourSpot>";
        QCOMPARE(call("ModifyPresetTour", Profile + "<x:PresetTour token=\"2\"><t:Name>Near</t:Name>" + spot + "</x:PresetTour>").status,
                 200);
        QVERIFY(call("GetPresetTour", Profile + "<x:PresetTourToken>2</x:PresetTourToken>").contains("Near"));
        QCOMPARE(operate("2", "Start").status, 200);
        QTRY_VERIFY_WITH_TIMEOUT(where().zoom > 0.5, 10000);
        QVERIFY(call("ModifyPresetTour", Profile + "<x:PresetTour token=\"2\">" + QByteArray(spot).replace(">3<", ">99<") +
                                             "</x:PresetTour>")
                    .contains("ter:InvalidPresetTour"));
        QCOMPARE(call("RemovePresetTour", Profile + "<x:PresetTourToken>2</x:PresetTourToken>").status, 200);
        QCOMPARE(call("GetPresetTour", Profile + "<x:PresetTourToken>2</x:PresetTourToken>").status, 400);
    }

    void focus_moves()
    {
        QVERIFY(imaging("GetMoveOptions").contains("Continuous"));
        QCOMPARE(where().focus, 0.5);
        QCOMPARE(imaging("Move", "<x:Focus><t:Continuous><t:Speed>1</t:Speed></t:Continuous></x:Focus>").status, 200);
        QTRY_VERIFY(where().focus > 0.6);
        QVERIFY(imaging("GetStatus").contains("FocusStatus20"));
        QCOMPARE(imaging("Stop").status, 200);
        QTRY_VERIFY(!where().moving);
        QCOMPARE(imaging("Move", "<x:Focus><t:Absolute><t:Position>0.25</t:Position></t:Absolute></x:Focus>").status, 200);
        QTRY_COMPARE(where().focus, 0.25);
        QCOMPARE(imaging("Move", "<x:Focus><t:Continuous><t:Speed>9</t:Speed></t:Continuous></x:Focus>").status, 400);
        QCOMPARE(imaging("Move").status, 400);
        QCOMPARE(imaging("GetImagingSettings").status, 200);
        const auto fixed = m_operator.soap(
            m_server.url(u"/onvif/imaging_service"_s),
            operation("GetMoveOptions", "<x:VideoSourceToken>VS_1</x:VideoSourceToken>", Imaging));
        QVERIFY(fixed.contains("ter:NoImagingForSource"));
        const auto none = m_operator.soap(
            m_server.url(u"/onvif/imaging_service"_s),
            operation("GetMoveOptions", "<x:VideoSourceToken>VS_99</x:VideoSourceToken>", Imaging));
        QVERIFY(none.contains("ter:NoSource"));
    }

    void user_withoutTheRight_mayLookAndNotMove()
    {
        HttpProbe guest(u"guest"_s, u"orrin-guest"_s);
        const QUrl url = m_server.url(u"/onvif/ptz_service"_s);
        QCOMPARE(guest.soap(url, operation("GetNodes", {})).status, 200);
        QCOMPARE(guest.soap(url, operation("GetPresets", Profile)).status, 200);
        for (const QByteArray name : {"ContinuousMove", "AbsoluteMove", "RelativeMove", "Stop", "GotoPreset", "SetPreset",
                                      "RemovePreset", "OperatePresetTour", "CreatePresetTour", "ModifyPresetTour",
                                      "RemovePresetTour", "GotoHomePosition", "SetHomePosition"}) {
            const auto answer = guest.soap(url, operation(name, Profile + velocity(1, 0, 0)));
            QCOMPARE(answer.status, 403);
            QVERIFY(answer.contains("ter:NotAuthorized"));
        }
        const auto focus = guest.soap(m_server.url(u"/onvif/imaging_service"_s),
                                      operation("Move", "<x:VideoSourceToken>VS_2</x:VideoSourceToken>", Imaging));
        QCOMPARE(focus.status, 403);
        QVERIFY(!where().moving);
        HttpProbe nobody;
        QCOMPARE(nobody.soap(url, operation("GetNodes", {})).status, 401);
    }

    void console_tellsOnlyOfCamerasThatMove()
    {
        QVERIFY(m_server.command(u"ptz North 1"_s).startsWith("error"_L1));
        QVERIFY(m_server.command(u"ptz West 2"_s).startsWith("error"_L1));
        QVERIFY(m_server.command(u"ptz South 3"_s).startsWith("ok"_L1));
    }
};

QTEST_GUILESS_MAIN(TestPtz)
#include "tst_ptz.moc"
