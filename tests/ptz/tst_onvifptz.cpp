// SPDX-License-Identifier: GPL-3.0-or-later
#include "sessionfixture.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Kind = PtzRequest::Kind;

QByteArray attribute(const QByteArray &body, const char *element, const char *name)
{
    const QRegularExpression pattern(
        u"<[^>]*%1[^>]* %2=\"([^\"]*)\""_s.arg(QLatin1StringView(element), QLatin1StringView(name)));
    return pattern.match(QString::fromUtf8(body)).captured(1).toUtf8();
}

QByteArray text(const QByteArray &body, const char *element)
{
    const QRegularExpression pattern(u"<(?:[^:> ]+:)?%1[^>]*>([^<]*)<"_s.arg(QLatin1StringView(element)));
    return pattern.match(QString::fromUtf8(body)).captured(1).toUtf8();
}

/*! A camera with PTZ and imaging on top of the fake device; keeps all that it was told. */
class FakePtzDevice : public FakeOnvifDevice
{
public:
    FakePtzDevice()
    {
        hasMedia2 = false;
        intercept = [this](const FakeRequest &request) { return answerPtz(request); };
    }

    /*! Operations of the PTZ and imaging services, with their bodies, in order. */
    QList<std::pair<QByteArray, QByteArray>> calls;
    QByteArray nodes = node("-1", "1");
    QByteArray timeouts = "<tt:Min>PT0.5S</tt:Min><tt:Max>PT10S</tt:Max>";
    QByteArray presets = "<z:Preset token=\"1\"><tt:Name>Gate</tt:Name></z:Preset>"
                         "<z:Preset token=\"p9\"><tt:Name>Preset 9</tt:Name></z:Preset>";
    QByteArray tours = "<z:PresetTour token=\"t1\"><tt:Status><tt:State>Idle</tt:State></tt:Status></z:PresetTour>";
    QByteArray faultOf;   //!< this operation is refused …
    QByteArray faultCode; //!< … with this subcode
    QByteArray silentOn;  //!< this operation gets no answer, so many times
    int silences = 0;

    static QByteArray node(const QByteArray &low, const QByteArray &high)
    {
        const QByteArray range = "<tt:Min>" + low + "</tt:Min><tt:Max>" + high + "</tt:Max>";
        return "<z:PTZNode token=\"other\"/><z:PTZNode token=\"n\"><tt:SupportedPTZSpaces>"
               "<tt:ContinuousPanTiltVelocitySpace><tt:URI>urn:pt</tt:URI><tt:XRange>" +
               range + "</tt:XRange><tt:YRange>" + range +
               "</tt:YRange></tt:ContinuousPanTiltVelocitySpace><tt:ContinuousZoomVelocitySpace><tt:URI>urn:z</tt:URI>"
               "<tt:XRange>" +
               range +
               "</tt:XRange></tt:ContinuousZoomVelocitySpace></tt:SupportedPTZSpaces>"
               "<tt:MaximumNumberOfPresets>10</tt:MaximumNumberOfPresets><tt:Extension><tt:SupportedPresetTour>"
               "<tt:MaximumNumberOfPresetTours>2</tt:MaximumNumberOfPresetTours></tt:SupportedPresetTour></tt:Extension>"
               "</z:PTZNode>";
    }

    QList<QByteArray> names() const
    {
        QList<QByteArray> names;
        for (const auto &call : calls)
            names.append(call.first);
        return names;
    }
    int count(const QByteArray &name) const { return int(names().count(name)); }
    /*! The body of the newest call of that name. */
    QByteArray last(const QByteArray &name) const
    {
        for (auto call = calls.crbegin(); call != calls.crend(); ++call) {
            if (call->first == name)
                return call->second;
        }
        return {};
    }

private:
    static QByteArray wrap(const QByteArray &body)
    {
        return FakeOnvifDevice::envelope("<z:Response xmlns:z=\"http://www.onvif.org/ver20/ptz/wsdl\">" + body +
                                         "</z:Response>");
    }

    std::optional<FakeAnswer> answerPtz(const FakeRequest &request)
    {
        const QByteArray operation = firstOperation(request.body);
        if (operation == "GetServices" && request.headers.contains("authorization"))
            return services();
        if (operation == "GetProfiles" && request.headers.contains("authorization"))
            return profiles();
        if (request.target != "/onvif/ptz" && request.target != "/onvif/imaging")
            return std::nullopt;
        if (!request.headers.contains("authorization"))
            return std::nullopt;
        calls.append({operation, request.body});
        if (operation == silentOn && silences > 0) {
            --silences;
            // It breaks off in the middle of an answer, which nobody sends again by himself.
            return FakeAnswer{200, "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n<", {}, true};
        }
        if (operation == faultOf) {
            return FakeAnswer{400,
                              FakeOnvifDevice::envelope("<e:Fault><e:Code><e:Value>e:Sender</e:Value><e:Subcode><e:Value>ter:" +
                                                        faultCode +
                                                        "</e:Value></e:Subcode></e:Code><e:Reason><e:Text>not today</e:Text>"
                                                        "</e:Reason></e:Fault>"),
                              {}};
        }
        return FakeAnswer{200, wrap(content(operation)), {}};
    }

    QByteArray content(const QByteArray &operation) const
    {
        if (operation == "GetNodes")
            return nodes;
        if (operation == "GetConfigurationOptions")
            return "<z:PTZConfigurationOptions><tt:PTZTimeout>" + timeouts + "</tt:PTZTimeout></z:PTZConfigurationOptions>";
        if (operation == "GetPresets")
            return presets;
        if (operation == "GetPresetTours")
            return tours;
        if (operation == "GetMoveOptions")
            return "<z:MoveOptions><tt:Continuous><tt:Speed><tt:Min>-5</tt:Min><tt:Max>5</tt:Max></tt:Speed></tt:Continuous>"
                   "</z:MoveOptions>";
        return {};
    }

    static QByteArray firstOperation(const QByteArray &body)
    {
        static const QRegularExpression pattern(u"Body[^>]*><(?:[^: >]+:)?([A-Za-z]+)"_s);
        return pattern.match(QString::fromUtf8(body)).captured(1).toUtf8();
    }

    FakeAnswer services() const
    {
        const auto service = [](const QByteArray &name, const QByteArray &path) {
            return "<d:Service><d:Namespace>http://www.onvif.org/" + name + "/wsdl</d:Namespace><d:XAddr>http://10.9.9.9" + path +
                   "</d:XAddr></d:Service>";
        };
        return {200,
                FakeOnvifDevice::envelope("<d:GetServicesResponse>" + service("ver10/media", "/onvif/media") +
                                          (hasPtzService ? service("ver20/ptz", "/onvif/ptz") : QByteArray()) +
                                          (hasImaging ? service("ver20/imaging", "/onvif/imaging") : QByteArray()) +
                                          "</d:GetServicesResponse>"),
                {}};
    }

    static FakeAnswer profiles()
    {
        const auto profile = [](const QByteArray &token, const QByteArray &ptz) {
            return "<m:Profiles token=\"" + token +
                   "\"><tt:VideoSourceConfiguration token=\"c\"><tt:Name>A</tt:Name><tt:SourceToken>s1</tt:SourceToken>"
                   "</tt:VideoSourceConfiguration><tt:VideoEncoderConfiguration token=\"e\"><tt:Resolution><tt:Width>640"
                   "</tt:Width><tt:Height>480</tt:Height></tt:Resolution></tt:VideoEncoderConfiguration>" +
                   ptz + "</m:Profiles>";
        };
        return {200,
                FakeOnvifDevice::envelope("<m:GetProfilesResponse>" + profile("plain", "") +
                                          profile("moving", "<tt:PTZConfiguration token=\"pc\"><tt:NodeToken>n</tt:NodeToken>"
                                                            "</tt:PTZConfiguration>") +
                                          "</m:GetProfilesResponse>"),
                {}};
    }

public:
    bool hasPtzService = true;
    bool hasImaging = true;
};

} // namespace

/*! Requests to a camera over the network: what goes out, in which order, and what comes back. */
class TestOnvifPtz : public QObject
{
    Q_OBJECT

    std::unique_ptr<FakePtzDevice> m_device;
    std::unique_ptr<SessionFixture> m_fixture;
    QList<PtzAnswer> m_answers;

    Session &session() const { return *m_fixture->session; }

    void ask(const PtzRequest &request)
    {
        session().requestPtz(1, request, this, [this](const PtzAnswer &answer) { m_answers.append(answer); });
    }
    void ask(Kind kind, int number = 0, const QString &name = {})
    {
        PtzRequest request{kind};
        request.number = number;
        request.name = name;
        ask(request);
    }
    void move(int pan, int tilt = 0, int zoom = 0) { ask({Kind::Move, pan, tilt, zoom}); }

    /*! Whether as many answers came, and the code of the last. */
    int lastCode(qsizetype answers)
    {
        if (!QTest::qWaitFor([&] { return m_answers.size() >= answers; }))
            return -1;
        return m_answers.last().error.errorId();
    }

private Q_SLOTS:
    void init()
    {
        m_device = std::make_unique<FakePtzDevice>();
        m_fixture = std::make_unique<SessionFixture>();
        m_fixture->times.pollInterval = 60000ms;
        m_fixture->times.ptzRenewal = 60000ms;
        m_fixture->times.ptzAnswer = 400ms;
        m_fixture->times.ptzStopAgain = 20ms;
        m_answers.clear();
        QVERIFY(m_device->start());
    }

    void cleanup()
    {
        m_fixture.reset();
        m_device.reset();
    }

    void capabilities_tellWhatTheDeviceHas()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        QCOMPARE(m_fixture->site().channels.first().ptzf, 1);
        ask(Kind::Capabilities);
        QVERIFY(m_answers.isEmpty());
        QCOMPARE(lastCode(1), 0);
        QCOMPARE(m_answers.last().commands,
                 (QList{PtzfCommand::PanTilt, PtzfCommand::Zoom, PtzfCommand::Focus, PtzfCommand::Presets,
                        PtzfCommand::Tours}));
        QCOMPARE(m_device->names(), (QList<QByteArray>{"GetNodes", "GetConfigurationOptions", "GetMoveOptions"}));
        QCOMPARE(text(m_device->last("GetConfigurationOptions"), "ConfigurationToken"), "pc");
        QCOMPARE(text(m_device->last("GetMoveOptions"), "VideoSourceToken"), "s1");
    }

    void capabilities_areWhatIsLeft_whenPartsAreMissing()
    {
        m_device->hasImaging = false;
        m_device->nodes = "<z:PTZNode token=\"n\"><tt:MaximumNumberOfPresets>4</tt:MaximumNumberOfPresets></z:PTZNode>";
        QVERIFY(m_fixture->logIn(*m_device));
        ask(Kind::Capabilities);
        QCOMPARE(lastCode(1), 0);
        QCOMPARE(m_answers.last().commands, QList{PtzfCommand::Presets});
        move(5);
        QCOMPARE(lastCode(2), PtzfError::NotSupported);
        PtzRequest focus{Kind::Focus};
        focus.focus = 100;
        ask(focus);
        QCOMPARE(lastCode(3), PtzfError::NotSupported);
    }

    void capabilities_areEmpty_whenThereIsNoService()
    {
        m_device->hasPtzService = false;
        QVERIFY(m_fixture->logIn(*m_device));
        ask(Kind::Capabilities);
        QCOMPARE(lastCode(1), 0);
        QVERIFY(m_answers.last().commands.isEmpty());
        move(5);
        QCOMPARE(lastCode(2), PtzfError::NotSupported);
        QVERIFY(m_device->calls.isEmpty());
    }

    void request_toAnUnknownChannel_isNotSupported()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        int code = -1;
        session().requestPtz(99, {Kind::Move, 5}, this, [&](const PtzAnswer &answer) { code = answer.error.errorId(); });
        QTRY_COMPARE(code, PtzfError::NotSupported);
    }

    void move_isScaledToTheSpaces()
    {
        m_device->nodes = FakePtzDevice::node("-2", "4");
        QVERIFY(m_fixture->logIn(*m_device));
        move(32767, 32767, -16384);
        QCOMPARE(lastCode(1), 0);
        const QByteArray body = m_device->last("ContinuousMove");
        QCOMPARE(text(body, "ProfileToken"), "moving");
        QCOMPARE(attribute(body, "PanTilt", "x").toDouble(), 4.0);
        // Down is negative for the device.
        QCOMPARE(attribute(body, "PanTilt", "y").toDouble(), -2.0);
        QCOMPARE(attribute(body, "PanTilt", "space"), "urn:pt");
        QVERIFY(qAbs(attribute(body, "Zoom", "x").toDouble() + 1.0) < 0.001);
        QCOMPARE(attribute(body, "Zoom", "space"), "urn:z");
        QCOMPARE(text(body, "Timeout"), "PT2S");
    }

    void timeout_keepsToTheDevicesRange()
    {
        m_device->timeouts = "<tt:Min>PT3S</tt:Min><tt:Max>PT10S</tt:Max>";
        QVERIFY(m_fixture->logIn(*m_device));
        move(5);
        QCOMPARE(lastCode(1), 0);
        QCOMPARE(text(m_device->last("ContinuousMove"), "Timeout"), "PT3S");
    }

    void stop_isSentAtOnce_andOnlyWhenSomethingMoves()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        move(0);
        QCOMPARE(lastCode(1), 0);
        QVERIFY(m_device->calls.isEmpty());
        move(5);
        move(0);
        QTRY_COMPARE(m_answers.size(), 3);
        QCOMPARE(m_device->names().last(), "Stop");
        QCOMPARE(text(m_device->last("Stop"), "PanTilt"), "true");
        QCOMPARE(text(m_device->last("Stop"), "Zoom"), "true");
        move(0);
        QCOMPARE(lastCode(4), 0);
        QCOMPARE(m_device->count("Stop"), 1);
    }

    void drag_neverQueues_andEndsInAStop()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        ask(Kind::Capabilities);
        QCOMPARE(lastCode(1), 0);
        // A second of a drag, without a turn of the event loop between.
        for (int i = 1; i <= 60; ++i)
            move(i * 100, -i, 0);
        move(0);
        QTRY_COMPARE(m_answers.size(), 62);
        // The first goes at once, the newest waits: the stop.
        QCOMPARE(m_device->count("ContinuousMove"), 1);
        QCOMPARE(m_device->count("Stop"), 1);
        QCOMPARE(m_device->names().last(), "Stop");
        for (const PtzAnswer &answer : std::as_const(m_answers))
            QVERIFY(!answer.error.hasError());
    }

    void newestSpeed_wins()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        for (int i = 1; i <= 20; ++i)
            move(i * 1000);
        QTRY_COMPARE(m_answers.size(), 20);
        QCOMPARE(m_device->count("ContinuousMove"), 2);
        QVERIFY(qAbs(attribute(m_device->last("ContinuousMove"), "PanTilt", "x").toDouble() - 20000.0 / 32767) < 0.001);
    }

    void order_holds_betweenMotionAndPresets()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        ask(Kind::Presets);
        move(5);
        move(0);
        ask(Kind::GoToPreset, 1);
        move(7);
        QTRY_COMPARE(m_answers.size(), 5);
        QList<QByteArray> names = m_device->names();
        names.removeIf([](const QByteArray &name) { return name.startsWith("Get"); });
        QCOMPARE(names, (QList<QByteArray>{"Stop", "GotoPreset", "ContinuousMove"}));
    }

    void queue_isBounded_andAStopIsAlwaysTaken()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        move(5);
        for (int i = 0; i < 40; ++i)
            ask(Kind::Presets);
        move(0);
        QTRY_COMPARE(m_answers.size(), 42);
        const auto busy = std::count_if(m_answers.begin(), m_answers.end(), [](const PtzAnswer &answer) {
            return answer.error.errorId() == PtzfError::Busy;
        });
        QCOMPARE(busy, 8);
        QVERIFY(m_device->count("Stop") == 1);
        // It went ahead of all the questions.
        QVERIFY(m_device->names().indexOf("Stop") < m_device->names().indexOf("GetPresets"));
    }

    void motion_isRenewed_untilItIsStopped()
    {
        m_fixture->times.ptzRenewal = 30ms;
        QVERIFY(m_fixture->logIn(*m_device));
        move(5);
        QTRY_VERIFY(m_device->count("ContinuousMove") >= 4);
        QCOMPARE(m_answers.size(), 1);
        move(0);
        QTRY_COMPARE(m_device->count("Stop"), 1);
        QTRY_COMPARE(m_answers.size(), 2);
        const int moves = m_device->count("ContinuousMove");
        QTest::qWait(150);
        QCOMPARE(m_device->count("ContinuousMove"), moves);
    }

    void motion_isNotRenewed_whenAPresetTakesTheCamera()
    {
        m_fixture->times.ptzRenewal = 30ms;
        QVERIFY(m_fixture->logIn(*m_device));
        move(5);
        QCOMPARE(lastCode(1), 0);
        ask(Kind::GoToPreset, 1);
        QCOMPARE(lastCode(2), 0);
        const int moves = m_device->count("ContinuousMove");
        QTest::qWait(150);
        QCOMPARE(m_device->count("ContinuousMove"), moves);
    }

    void stop_isRepeated_whenItGetsNoAnswer()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        move(5);
        QCOMPARE(lastCode(1), 0);
        m_device->silentOn = "Stop";
        m_device->silences = 2;
        move(0);
        QCOMPARE(lastCode(2), PtzfError::NoAnswer);
        QTRY_COMPARE(m_device->count("Stop"), 3);
        QTest::qWait(150);
        QCOMPARE(m_device->count("Stop"), 3);
        QCOMPARE(m_answers.size(), 2);
    }

    void stop_isGivenUp_afterAFewTries()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        move(5);
        QCOMPARE(lastCode(1), 0);
        m_device->silentOn = "Stop";
        m_device->silences = 1000;
        move(0);
        QTRY_COMPARE(m_device->count("Stop"), 5);
        QTest::qWait(600);
        QCOMPARE(m_device->count("Stop"), 5);
    }

    void failure_isTold_data()
    {
        QTest::addColumn<QByteArray>("operation");
        QTest::addColumn<QByteArray>("subcode");
        QTest::addColumn<int>("code");
        QTest::newRow("right") << QByteArray("ContinuousMove") << QByteArray("NotAuthorized") << int(PtzfError::NotPermitted);
        QTest::newRow("unknown action") << QByteArray("ContinuousMove") << QByteArray("ActionNotSupported")
                                        << int(PtzfError::NotSupported);
        QTest::newRow("speed") << QByteArray("ContinuousMove") << QByteArray("InvalidVelocity") << int(PtzfError::Refused);
        QTest::newRow("nodes") << QByteArray("GetNodes") << QByteArray("Busy") << int(PtzfError::Refused);
        // What the device takes as time-out is good to know, no more.
        QTest::newRow("options") << QByteArray("GetConfigurationOptions") << QByteArray("Busy") << int(PtzfError::NoError);
    }
    void failure_isTold()
    {
        QFETCH(QByteArray, operation);
        QFETCH(QByteArray, subcode);
        QFETCH(int, code);
        m_device->faultOf = operation;
        m_device->faultCode = subcode;
        QVERIFY(m_fixture->logIn(*m_device));
        move(5);
        QCOMPARE(lastCode(1), code);
        if (code == PtzfError::Refused)
            QVERIFY(m_answers.last().error.toString().endsWith(u"not today"_s));
    }

    void presets_areKnownByTheirNumbers()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        ask(Kind::Presets);
        QCOMPARE(lastCode(1), 0);
        QCOMPARE(m_answers.last().presets, (QList<PtzfPreset>{{1, u"Gate"_s}, {9, u"Preset 9"_s}}));
        ask(Kind::GoToPreset, 9);
        QCOMPARE(lastCode(2), 0);
        QCOMPARE(text(m_device->last("GotoPreset"), "PresetToken"), "p9");
        // The list is read once, and again for what is not on it.
        QCOMPARE(m_device->count("GetPresets"), 1);
        ask(Kind::GoToPreset, 5);
        QCOMPARE(lastCode(3), PtzfError::NoSuchPreset);
        QCOMPARE(m_device->count("GetPresets"), 2);
        QCOMPARE(m_device->count("GotoPreset"), 1);
    }

    void preset_thatIsGone_isLookedForOnce()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        ask(Kind::Presets);
        QCOMPARE(lastCode(1), 0);
        m_device->faultOf = "GotoPreset";
        m_device->faultCode = "NoToken";
        ask(Kind::GoToPreset, 1);
        QCOMPARE(lastCode(2), PtzfError::NoSuchPreset);
        QCOMPARE(m_device->count("GotoPreset"), 2);
        QCOMPARE(m_device->count("GetPresets"), 2);
    }

    void preset_isStoredOverAndAnew()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        ask(Kind::SetPreset, 9, u"Tower"_s);
        QCOMPARE(lastCode(1), 0);
        QCOMPARE(text(m_device->last("SetPreset"), "PresetToken"), "p9");
        QCOMPARE(text(m_device->last("SetPreset"), "PresetName"), "Tower");
        ask(Kind::SetPreset, 4);
        QCOMPARE(lastCode(2), 0);
        QVERIFY(!m_device->last("SetPreset").contains("PresetToken"));
        QCOMPARE(text(m_device->last("SetPreset"), "PresetName"), "Preset 4");
        ask(Kind::SetPreset, 0);
        QCOMPARE(lastCode(3), PtzfError::NoSuchPreset);
        ask(Kind::RemovePreset, 1);
        QCOMPARE(lastCode(4), 0);
        QCOMPARE(text(m_device->last("RemovePreset"), "PresetToken"), "1");
        ask(Kind::RemovePreset, 200);
        QCOMPARE(lastCode(5), PtzfError::NoSuchPreset);
    }

    void tour_startsAndStops()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        ask(Kind::StopTour);
        // None runs: nothing to stop.
        QCOMPARE(lastCode(1), 0);
        QCOMPARE(m_device->count("OperatePresetTour"), 0);
        ask(Kind::StartTour, 1);
        QCOMPARE(lastCode(2), 0);
        QCOMPARE(text(m_device->last("OperatePresetTour"), "PresetTourToken"), "t1");
        QCOMPARE(text(m_device->last("OperatePresetTour"), "Operation"), "Start");
        ask(Kind::StopTour);
        QCOMPARE(lastCode(3), 0);
        QCOMPARE(text(m_device->last("OperatePresetTour"), "Operation"), "Stop");
        ask(Kind::StartTour, 7);
        QCOMPARE(lastCode(4), PtzfError::NoSuchTour);
    }

    void tour_ofAnotherClient_isStopped()
    {
        m_device->tours.replace("Idle", "Touring");
        QVERIFY(m_fixture->logIn(*m_device));
        ask(Kind::StopTour);
        QCOMPARE(lastCode(1), 0);
        QCOMPARE(text(m_device->last("OperatePresetTour"), "Operation"), "Stop");
    }

    void focus_movesAndStops()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        PtzRequest focus{Kind::Focus};
        focus.focus = -32767;
        ask(focus);
        QCOMPARE(lastCode(1), 0);
        QCOMPARE(text(m_device->last("Move"), "Speed").toDouble(), -5.0);
        QCOMPARE(text(m_device->last("Move"), "VideoSourceToken"), "s1");
        focus.focus = 0;
        ask(focus);
        QCOMPARE(lastCode(2), 0);
        QCOMPARE(m_device->names().last(), "Stop");
        QCOMPARE(text(m_device->last("Stop"), "VideoSourceToken"), "s1");
    }

    void requests_areAnswered_whenTheConnectionIsLost()
    {
        m_fixture->times.pollInterval = 50ms;
        QVERIFY(m_fixture->logIn(*m_device));
        move(5);
        QCOMPARE(lastCode(1), 0);
        m_device->server.stop();
        QTRY_COMPARE(m_fixture->lost->size(), 1);
        move(0);
        QCOMPARE(lastCode(2), PtzfError::NotConnected);
        QVERIFY(m_device->start());
        QTRY_COMPARE(m_fixture->restored->size(), 1);
        m_device->calls.clear();
        move(6);
        QCOMPARE(lastCode(3), 0);
        QCOMPARE(m_device->names().last(), "ContinuousMove");
    }

    void requests_thatWait_areAnswered_whenTheConnectionIsLost()
    {
        m_fixture->times.pollInterval = 50ms;
        m_fixture->times.ptzAnswer = 20000ms;
        QVERIFY(m_fixture->logIn(*m_device));
        // From now on nothing is answered.
        m_device->server.setHandler([](const FakeRequest &) { return std::nullopt; });
        move(5);
        ask(Kind::Presets);
        QTRY_COMPARE(m_answers.size(), 2);
        for (const PtzAnswer &answer : std::as_const(m_answers))
            QVERIFY(answer.error.hasError());
    }

    void session_isSilent_afterItIsClosed()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        move(5);
        ask(Kind::Presets);
        session().close();
        move(6);
        QTest::qWait(100);
        QVERIFY(m_answers.isEmpty());
    }

    void callback_isNotMade_whenItsContextIsGone()
    {
        QVERIFY(m_fixture->logIn(*m_device));
        bool called = false;
        {
            QObject context;
            session().requestPtz(1, {Kind::Capabilities}, &context, [&](const PtzAnswer &) { called = true; });
        }
        ask(Kind::Capabilities);
        QCOMPARE(lastCode(1), 0);
        QVERIFY(!called);
    }
};

QTEST_GUILESS_MAIN(TestOnvifPtz)
#include "tst_onvifptz.moc"
