// SPDX-License-Identifier: GPL-3.0-or-later
#include "signalorder.h"
#include "testsite.h"

#include "core/session/sessionlookup.h"
#include "scriptedsession.h"
#include "support/qmlptzfcontroller.h"

#include <contract/core/server.h>

#include <QMetaProperty>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

using Kind = PtzRequest::Kind;
using test::ScriptedSession;

constexpr quint64 Uid = 7;
constexpr int CameraId = 5;

SiteDescription describeSite()
{
    SiteDescription site = describeServer(Uid, 2);
    ChannelDescription camera = describeCamera(CameraId);
    camera.ptzf = 1;
    ChannelDescription other = describeCamera(6);
    other.ptzf = 1;
    ChannelDescription microphone = describeCamera(8);
    microphone.kind = ChannelDescription::Kind::Audio;
    site.channels = {camera, other, microphone};
    return site;
}

PtzRequest move(int pan, int tilt, int zoom)
{
    return {Kind::Move, pan, tilt, zoom};
}

PtzRequest numbered(Kind kind, int number)
{
    PtzRequest request{kind};
    request.number = number;
    return request;
}

const QStringList signalOrder = {u"serverGroupIdChanged"_s, u"serverIdChanged"_s,     u"channelIdChanged"_s,
                                 u"streamIdChanged"_s,      u"presetChanged"_s,       u"panChanged"_s,
                                 u"panRangeChanged"_s,      u"tiltChanged"_s,         u"tiltRangeChanged"_s,
                                 u"zoomChanged"_s,          u"zoomRangeChanged"_s,    u"ptzfAvailableChanged"_s,
                                 u"errorChanged"_s};

} // namespace

/*! The controller before a session that writes down what is asked of its cameras. */
class TestQmlPtzfcontroller : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestSite> m_site;
    std::unique_ptr<QmlPtzfcontroller> m_controller;

    ScriptedSession *session() const { return static_cast<ScriptedSession *>(sessionForServer(Uid)); }

    /*! What was asked since the last time. */
    QList<PtzRequest> sent(int channel = CameraId) const
    {
        QList<PtzRequest> requests;
        const auto calls = session()->takePtzCalls();
        for (const ScriptedSession::PtzCall &call : calls) {
            if (call.channelId == channel)
                requests.append(call.request);
            else
                qWarning("asked of channel %d", call.channelId);
        }
        return requests;
    }

    void address(int channel = CameraId) const
    {
        m_controller->setServerGroupId(1);
        m_controller->setServerId(2);
        m_controller->setChannelId(channel);
    }

    /*! The answer to the newest question of the controller. */
    bool answer(const QList<PtzfCommand> &commands) const
    {
        PtzAnswer answer;
        answer.commands = commands;
        const bool asked = session()->answerPtz(Kind::Capabilities, answer);
        QCoreApplication::processEvents();
        return asked;
    }

private Q_SLOTS:
    void init()
    {
        m_site = std::make_unique<TestSite>();
        QVERIFY(m_site->login(describeSite()));
        m_controller = std::make_unique<QmlPtzfcontroller>();
    }

    void cleanup()
    {
        m_controller.reset();
        m_site.reset();
    }

    void property_hasItsTypeDefaultAndSignal_data()
    {
        QTest::addColumn<QVariant>("standard");
        QTest::addColumn<bool>("writable");
        for (const char *id : {"serverGroupId", "serverId", "channelId"})
            QTest::newRow(id) << QVariant(-1) << true;
        QTest::newRow("streamId") << QVariant::fromValue(RequestId()) << true;
        for (const char *speed : {"pan", "tilt", "zoom", "preset"})
            QTest::newRow(speed) << QVariant(0) << true;
        for (const char *range : {"panRange", "tiltRange", "zoomRange"})
            QTest::newRow(range) << QVariant(32767) << true;
        QTest::newRow("ptzfAvailable") << QVariant(false) << false;
        QTest::newRow("error") << QVariant(QString()) << true;
    }
    void property_hasItsTypeDefaultAndSignal()
    {
        QFETCH(QVariant, standard);
        QFETCH(bool, writable);
        const QByteArray name = QTest::currentDataTag();
        const QMetaObject &meta = QmlPtzfcontroller::staticMetaObject;
        const QMetaProperty property = meta.property(meta.indexOfProperty(name.constData()));
        QCOMPARE(property.metaType(), standard.metaType());
        QCOMPARE(property.read(m_controller.get()), standard);
        QCOMPARE(property.isWritable(), writable);
        QCOMPARE(property.notifySignal().name(), name + "Changed");
    }

    void signals_standInTheirOrder()
    {
        QCOMPARE(SignalOrder::declaredBy(QmlPtzfcontroller::staticMetaObject), signalOrder);
    }

    void setter_storesAndNotifiesOnce_whenTheValueIsNew_data()
    {
        QTest::addColumn<QVariant>("value");
        for (const char *name : {"serverGroupId", "serverId", "channelId", "pan", "panRange", "tilt", "tiltRange",
                                 "zoom", "zoomRange", "preset"})
            QTest::newRow(name) << QVariant(9);
        QTest::newRow("streamId") << QVariant::fromValue(RequestId{3});
        QTest::newRow("error") << QVariant(u"broken"_s);
    }
    void setter_storesAndNotifiesOnce_whenTheValueIsNew()
    {
        QFETCH(QVariant, value);
        const char *name = QTest::currentDataTag();
        SignalOrder order(m_controller.get());
        QVERIFY(m_controller->setProperty(name, value));
        QCOMPARE(m_controller->property(name), value);
        QCOMPARE(order.take(), QStringList{QLatin1StringView(name) + u"Changed"_s});
        QVERIFY(m_controller->setProperty(name, value));
        QCOMPARE(order.take(), QStringList());
        // No camera has that address.
        QVERIFY(session()->takePtzCalls().isEmpty());
    }

    void address_makesOneControl_whenItIsComplete()
    {
        m_controller->setServerGroupId(1);
        m_controller->setServerId(2);
        QVERIFY(session()->takePtzCalls().isEmpty());
        m_controller->setChannelId(CameraId);
        QCOMPARE(sent(), (QList<PtzRequest>{{Kind::Capabilities}, move(0, 0, 0)}));
    }

    void address_isQuiet_whenItLeadsNowhere_data()
    {
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("server");
        QTest::addColumn<int>("channel");
        QTest::newRow("no group") << 9 << 2 << CameraId;
        QTest::newRow("no server") << 1 << 9 << CameraId;
        QTest::newRow("no channel") << 1 << 2 << 9;
        QTest::newRow("no camera") << 1 << 2 << 8;
    }
    void address_isQuiet_whenItLeadsNowhere()
    {
        QFETCH(int, group);
        QFETCH(int, server);
        QFETCH(int, channel);
        m_controller->setServerGroupId(group);
        m_controller->setServerId(server);
        m_controller->setChannelId(channel);
        m_controller->setPan(5);
        m_controller->goToPreset(3);
        m_controller->goToTour(3);
        m_controller->startTour(3);
        m_controller->stopTour();
        m_controller->requestCapabilities();
        QCoreApplication::processEvents();
        QVERIFY(session()->takePtzCalls().isEmpty());
        QCOMPARE(m_controller->error(), QString());
        QVERIFY(!m_controller->ptzfAvailable());
    }

    void controller_isQuiet_whenThereIsNoRootObject()
    {
        m_site.reset();
        address();
        m_controller->setPan(5);
        m_controller->requestCapabilities();
        QCOMPARE(m_controller->pan(), 5);
        m_controller.reset();
    }

    void camera_isFound_whenItComesLater()
    {
        address(77);
        m_controller->setPan(100);
        SiteDescription site = describeSite();
        site.channels.append(describeCamera(77));
        m_site->describe(site);
        QVERIFY(session()->takePtzCalls().isEmpty());
        m_controller->setTilt(200);
        QCOMPARE(sent(77), (QList<PtzRequest>{{Kind::Capabilities}, move(100, 200, 0)}));
    }

    void speed_isStoredSignalledAndNotSent_whenTheIdsAreUnset()
    {
        SignalOrder order(m_controller.get());
        m_controller->setPan(16384);
        QCOMPARE(m_controller->pan(), 16384);
        QCOMPARE(order.take(), QStringList{u"panChanged"_s});
        QVERIFY(session()->takePtzCalls().isEmpty());
    }

    void speed_isScaledTowardZero_data()
    {
        QTest::addColumn<int>("speed");
        QTest::addColumn<int>("range");
        QTest::addColumn<int>("expected");
        QTest::newRow("full range") << 16384 << 32767 << 16384;
        QTest::newRow("half of a hundred") << 50 << 100 << 16383;
        QTest::newRow("one of a hundred, backwards") << -1 << 100 << -327;
        QTest::newRow("end") << 100 << 100 << 32767;
        QTest::newRow("beyond the end") << 200 << 100 << 65534;
        QTest::newRow("beyond the other end") << -200 << 100 << -65534;
        QTest::newRow("negative range") << 50 << -100 << -16383;
    }
    void speed_isScaledTowardZero()
    {
        QFETCH(int, speed);
        QFETCH(int, range);
        QFETCH(int, expected);
        address();
        m_controller->setPanRange(range);
        m_controller->setTiltRange(range);
        m_controller->setZoomRange(range);
        sent();
        m_controller->setPan(speed);
        QCOMPARE(sent(), QList{move(expected, 0, 0)});
        m_controller->setTilt(speed);
        QCOMPARE(sent(), QList{move(expected, expected, 0)});
        m_controller->setZoom(speed);
        QCOMPARE(sent(), QList{move(expected, expected, expected)});
    }

    void speed_isDefined_whenTheRangeIsZero()
    {
        address();
        m_controller->setPanRange(0);
        sent();
        m_controller->setPan(1);
        QCOMPARE(sent(), QList{move(std::numeric_limits<int>::max(), 0, 0)});
        m_controller->setPan(-1);
        QCOMPARE(sent(), QList{move(std::numeric_limits<int>::min(), 0, 0)});
        m_controller->setPan(0);
        QCOMPARE(sent(), QList{move(0, 0, 0)});
    }

    void ranges_andPreset_sendNothing()
    {
        address();
        m_controller->setPan(10);
        sent();
        m_controller->setPanRange(10);
        m_controller->setTiltRange(10);
        m_controller->setZoomRange(10);
        m_controller->setPreset(4);
        m_controller->setError(u"x"_s);
        QVERIFY(sent().isEmpty());
        m_controller->setTilt(10);
        QCOMPARE(sent(), QList{move(32767, 32767, 0)});
    }

    void speeds_areSentBeforeTheirSignal()
    {
        address();
        sent();
        QList<PtzRequest> seen;
        connect(m_controller.get(), &QmlPtzfcontroller::panChanged, this, [&] { seen = sent(); });
        m_controller->setPan(7);
        QCOMPARE(seen, QList{move(7, 0, 0)});
    }

    void address_sendsTheSpeedsToTheNewCameraAndStopsTheOld()
    {
        address();
        m_controller->setPan(10);
        sent();
        m_controller->setChannelId(6);
        QList<PtzRequest> toOld;
        QList<PtzRequest> toNew;
        const auto calls = session()->takePtzCalls();
        for (const ScriptedSession::PtzCall &call : calls)
            (call.channelId == CameraId ? toOld : toNew).append(call.request);
        QCOMPARE(toOld, QList{move(0, 0, 0)});
        QCOMPARE(toNew, (QList<PtzRequest>{{Kind::Capabilities}, move(10, 0, 0)}));
    }

    void streamId_makesTheControlAnew()
    {
        address();
        sent();
        m_controller->setStreamId(RequestId{4});
        QCOMPARE(sent(), (QList<PtzRequest>{{Kind::Capabilities}, move(0, 0, 0)}));
        m_controller->setStreamId(RequestId{4});
        QVERIFY(sent().isEmpty());
    }

    void setPanTiltZoom_sendsOnceAndSignalsWhatDiffers()
    {
        address();
        m_controller->setTilt(2);
        sent();
        SignalOrder order(m_controller.get());
        m_controller->setPanTiltZoom(1, 2, 3);
        QCOMPARE(sent(), QList{move(1, 2, 3)});
        QCOMPARE(order.take(), (QStringList{u"panChanged"_s, u"zoomChanged"_s}));
        m_controller->setPanTiltZoom(4, 5, 6);
        QCOMPARE(order.take(), (QStringList{u"panChanged"_s, u"tiltChanged"_s, u"zoomChanged"_s}));
        QCOMPARE(sent(), QList{move(4, 5, 6)});
        m_controller->setPanTiltZoom(4, 5, 6);
        QCOMPARE(order.take(), QStringList());
        QVERIFY(sent().isEmpty());
    }

    void setPanTiltZoom_sendsNothing_whenAllAreZeroAlready()
    {
        address();
        sent();
        m_controller->setPanTiltZoom(0, 0, 0);
        QVERIFY(sent().isEmpty());
    }

    void setPanTiltZoom_stops_whenAHandlerDeletesTheController()
    {
        address();
        auto *controller = m_controller.get();
        connect(controller, &QmlPtzfcontroller::panChanged, this, [this] { m_controller.reset(); });
        controller->setPanTiltZoom(1, 2, 3);
        QVERIFY(!m_controller);
    }

    void goToPreset_stopsInSilenceAndGoes()
    {
        address();
        m_controller->setPanTiltZoom(1, 2, 3);
        sent();
        SignalOrder order(m_controller.get());
        m_controller->goToPreset(3);
        QCOMPARE(sent(), (QList{move(0, 0, 0), numbered(Kind::GoToPreset, 3)}));
        QCOMPARE(m_controller->pan(), 0);
        QCOMPARE(m_controller->tilt(), 0);
        QCOMPARE(m_controller->zoom(), 0);
        QCOMPARE(order.take(), QStringList());
    }

    void goToPreset_takesTheProperty_whenTheNumberIsZero()
    {
        address();
        m_controller->setPreset(7);
        sent();
        m_controller->goToPreset();
        QCOMPARE(sent(), (QList{move(0, 0, 0), numbered(Kind::GoToPreset, 7)}));
        m_controller->goToPreset(0);
        QCOMPARE(sent(), (QList{move(0, 0, 0), numbered(Kind::GoToPreset, 7)}));
    }

    void goToPreset_cutsTheNumberToEightBits()
    {
        address();
        sent();
        m_controller->goToPreset(256 + 9);
        QCOMPARE(sent().last(), numbered(Kind::GoToPreset, 9));
        m_controller->goToPreset(256);
        QCOMPARE(sent().last(), numbered(Kind::GoToPreset, 0));
    }

    void preset_isCutToEightBits()
    {
        SignalOrder order(m_controller.get());
        m_controller->setPreset(256 + 9);
        QCOMPARE(m_controller->preset(), 9);
        QCOMPARE(order.take(), QStringList{u"presetChanged"_s});
        m_controller->setPreset(512 + 9);
        QCOMPARE(order.take(), QStringList());
    }

    void tours_startAndStop()
    {
        address();
        m_controller->setPan(9);
        sent();
        SignalOrder order(m_controller.get());
        m_controller->goToTour(256 + 2);
        QCOMPARE(sent(), (QList{move(0, 0, 0), numbered(Kind::StartTour, 2)}));
        QCOMPARE(m_controller->pan(), 0);
        m_controller->startTour(3);
        QCOMPARE(sent(), (QList{move(0, 0, 0), numbered(Kind::StartTour, 3)}));
        m_controller->stopTour();
        QCOMPARE(sent(), (QList<PtzRequest>{move(0, 0, 0), {Kind::StopTour}}));
        QCOMPARE(order.take(), QStringList());
    }

    void answer_makesPtzfAvailable_whenItNamesAnything_data()
    {
        QTest::addColumn<QList<PtzfCommand>>("commands");
        QTest::newRow("all") << QList{PtzfCommand::PanTilt, PtzfCommand::Zoom, PtzfCommand::Focus};
        QTest::newRow("focus alone") << QList{PtzfCommand::Focus};
    }
    void answer_makesPtzfAvailable_whenItNamesAnything()
    {
        QFETCH(QList<PtzfCommand>, commands);
        address();
        SignalOrder order(m_controller.get());
        QVERIFY(answer(commands));
        QVERIFY(m_controller->ptzfAvailable());
        QCOMPARE(order.take(), QStringList{u"ptzfAvailableChanged"_s});
    }

    void answer_changesNothing_whenItIsTheStoredOne()
    {
        address();
        SignalOrder order(m_controller.get());
        // As empty as what is stored.
        QVERIFY(answer({}));
        QVERIFY(!m_controller->ptzfAvailable());
        QCOMPARE(order.take(), QStringList());
        QVERIFY(QMetaObject::invokeMethod(m_controller.get(), "capabilitiesReceived",
                                          QList{PtzfCommand::PanTilt}));
        QCOMPARE(order.take(), QStringList{u"ptzfAvailableChanged"_s});
        QVERIFY(QMetaObject::invokeMethod(m_controller.get(), "capabilitiesReceived",
                                          QList{PtzfCommand::PanTilt}));
        QVERIFY(QMetaObject::invokeMethod(m_controller.get(), "capabilitiesReceived",
                                          QList{PtzfCommand::Zoom}));
        QCOMPARE(order.take(), QStringList());
        QVERIFY(m_controller->ptzfAvailable());
        QVERIFY(QMetaObject::invokeMethod(m_controller.get(), "capabilitiesReceived", QList<PtzfCommand>()));
        QCOMPARE(order.take(), QStringList{u"ptzfAvailableChanged"_s});
        QVERIFY(!m_controller->ptzfAvailable());
    }

    void requestCapabilities_hidesTheControlsUntilTheAnswer()
    {
        address();
        QVERIFY(answer({PtzfCommand::PanTilt}));
        sent();
        SignalOrder order(m_controller.get());
        m_controller->requestCapabilities();
        QVERIFY(!m_controller->ptzfAvailable());
        QCOMPARE(order.take(), QStringList{u"ptzfAvailableChanged"_s});
        QCOMPARE(sent(), QList<PtzRequest>{{Kind::Capabilities}});
        QVERIFY(answer({PtzfCommand::PanTilt}));
        QVERIFY(m_controller->ptzfAvailable());
        QCOMPARE(order.take(), QStringList{u"ptzfAvailableChanged"_s});
    }

    void requestCapabilities_isQuiet_whenNothingWasAvailable()
    {
        address();
        sent();
        SignalOrder order(m_controller.get());
        m_controller->requestCapabilities();
        QCOMPARE(order.take(), QStringList());
        QCOMPARE(sent(), QList<PtzRequest>{{Kind::Capabilities}});
    }

    void requestCapabilities_makesTheControl_andSendsNoSpeeds()
    {
        address(77);
        SiteDescription site = describeSite();
        site.channels.append(describeCamera(77));
        m_site->describe(site);
        m_controller->requestCapabilities();
        // One question by the making, one by the request.
        QCOMPARE(sent(77), (QList<PtzRequest>{{Kind::Capabilities}, {Kind::Capabilities}}));
    }

    void requestCapabilities_survives_whenAHandlerTakesTheCameraAway()
    {
        address();
        QVERIFY(answer({PtzfCommand::PanTilt}));
        connect(m_controller.get(), &QmlPtzfcontroller::ptzfAvailableChanged, m_controller.get(),
                [this] { m_controller->setChannelId(99); });
        m_controller->requestCapabilities();
        QCOMPARE(m_controller->channelId(), 99);
    }

    void ptzfAvailable_stays_whenTheControlGoes()
    {
        address();
        QVERIFY(answer({PtzfCommand::PanTilt}));
        m_controller->setChannelId(99);
        QVERIFY(m_controller->ptzfAvailable());
    }

    void error_isTheTextOfTheFailure_eachTime()
    {
        address();
        SignalOrder order(m_controller.get());
        const PtzAnswer refused{PtzfError(PtzfError::NotPermitted), {}, {}};
        m_controller->goToPreset(1);
        QVERIFY(session()->answerPtz(Kind::GoToPreset, refused));
        QTRY_COMPARE(m_controller->error(), PtzfError(PtzfError::NotPermitted).toString());
        QVERIFY(!m_controller->error().isEmpty());
        QCOMPARE(order.take(), QStringList{u"errorChanged"_s});
        // The same again is signalled again.
        m_controller->goToPreset(1);
        QVERIFY(session()->answerPtz(Kind::GoToPreset, refused));
        QCoreApplication::processEvents();
        QCOMPARE(order.take(), QStringList{u"errorChanged"_s});
        // A success leaves it.
        m_controller->goToPreset(1);
        QVERIFY(session()->answerPtz(Kind::GoToPreset, {}));
        QCoreApplication::processEvents();
        QVERIFY(!m_controller->error().isEmpty());
        QCOMPARE(order.take(), QStringList());
        m_controller->setError({});
        QCOMPARE(order.take(), QStringList{u"errorChanged"_s});
    }

    void error_ofADroppedControl_isNotHeard()
    {
        address();
        m_controller->goToPreset(1);
        QVERIFY(session()->answerPtz(Kind::GoToPreset, {PtzfError(PtzfError::Refused), {}, {}}));
        m_controller->setChannelId(6);
        QCoreApplication::processEvents();
        QCOMPARE(m_controller->error(), QString());
    }

    void control_isMadeAnew_whenTheCameraEnds()
    {
        address();
        m_controller->setPan(3);
        sent();
        SiteDescription without = describeSite();
        without.channels.removeFirst();
        m_site->describe(without);
        TestSite::deleteLeft();
        m_site->describe(describeSite());
        QVERIFY(sent().isEmpty());
        QCoreApplication::processEvents();
        // The control that goes stops what it moved; the new one asks and moves.
        QCOMPARE(sent(), (QList<PtzRequest>{move(0, 0, 0), {Kind::Capabilities}, move(3, 0, 0)}));
        m_controller->setPan(4);
        QCOMPARE(sent(), QList{move(4, 0, 0)});
    }

    void controller_isDeletedBeforeAndAfterTheCamera()
    {
        address();
        m_controller.reset();
        m_controller = std::make_unique<QmlPtzfcontroller>();
        address();
        SiteDescription without = describeSite();
        without.channels.removeFirst();
        m_site->describe(without);
        TestSite::deleteLeft();
        m_controller.reset();
        QCoreApplication::processEvents();
    }

    void controller_stopsTheCamera_whenItEndsInTheMiddleOfAMove()
    {
        address();
        m_controller->setPan(3);
        sent();
        m_controller.reset();
        QCOMPARE(sent(), QList{move(0, 0, 0)});
    }

    void commands_failByText_whenTheSessionIsGone()
    {
        address();
        m_site->timeOutUser(Uid);
        TestSite::deleteLeft();
        m_controller->setPan(5);
        QTRY_COMPARE(m_controller->error(), PtzfError(PtzfError::NotConnected).toString());
    }

    void user_withoutTheRight_hasNoControls()
    {
        SiteDescription site = describeSite();
        site.user.permissions = {SSPermission::PlayBack};
        m_site->describe(site);
        address();
        QVERIFY(!sent().contains({Kind::Capabilities}));
        QCoreApplication::processEvents();
        QVERIFY(!m_controller->ptzfAvailable());
    }

    void element_isUsableFromQml()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData(R"(import QtQml
            import orrinsdkqml 254.0
            PtzfController {
                serverGroupId: 1; serverId: 2; channelId: 5; preset: 7
                Component.onCompleted: { setPanTiltZoom(1, 2, 3); goToPreset(); goToPreset(4); goToTour(2); startTour(3); stopTour() }
            })",
                          {});
        const std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        QCOMPARE(object->metaObject()->className(), "orrin::QmlPtzfcontroller");
        const QList<PtzRequest> requests = sent();
        const QList<PtzRequest> expected{move(1, 2, 3),
                                         move(0, 0, 0),
                                         numbered(Kind::GoToPreset, 7),
                                         move(0, 0, 0),
                                         numbered(Kind::GoToPreset, 4),
                                         move(0, 0, 0),
                                         numbered(Kind::StartTour, 2),
                                         move(0, 0, 0),
                                         numbered(Kind::StartTour, 3),
                                         move(0, 0, 0),
                                         {Kind::StopTour}};
        QCOMPARE(requests.last(expected.size()), expected);
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlPtzfcontroller)
#include "tst_qmlptzfcontroller.moc"
