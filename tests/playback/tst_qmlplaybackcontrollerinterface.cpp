// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakestreamprovider.h"
#include "scriptedsite.h"

#include "video/qmlplaybackcontrollerinterface.h"

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

#include <limits>
#include <memory>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

constexpr int CameraId = 3;
constexpr quint16 Stream = 7;
constexpr int PlayBack = 16;
constexpr int WithoutPlayBack = 17;

// 0xFFFF0000, and the play position "from here", as decimals.
const QString playCall = u"play(-4, 4294901760)"_s;

} // namespace

class tst_QmlPlaybackControllerInterface : public QObject
{
    Q_OBJECT

private:
    using Controller = QmlPlaybackControllerInterface;

    struct Emissions
    {
        explicit Emissions(Controller &controller)
        {
            connect(&controller, &Controller::speedChanged, &context, [this] { names.append(u"speed"_s); });
            connect(&controller, &Controller::stateChanged, &context, [this] { names.append(u"state"_s); });
        }
        QStringList take() { return std::exchange(names, {}); }

        QStringList names;
        QObject context;
    };

    void bind(Controller &controller)
    {
        controller.setServerGroupId(site->serverGroupId());
        controller.setServerId(site->serverId());
        controller.setChannelId(CameraId);
        controller.setStreamId({Stream});
    }

    std::unique_ptr<Controller> boundController()
    {
        auto controller = std::make_unique<Controller>(provider.get(), nullptr);
        bind(*controller);
        return controller;
    }

    /*! A controller whose speed was set, with nothing noted of it. */
    std::unique_ptr<Controller> controllerAt(double speed)
    {
        auto controller = boundController();
        controller->setSpeed(speed);
        control()->take();
        return controller;
    }

    RecordingInputControl *control() { return processor->control.get(); }

    QTemporaryDir home;
    std::unique_ptr<ScriptedSite> site;
    std::unique_ptr<FakeStreamProcessor> processor;
    std::unique_ptr<FakeStreamProvider> provider;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(home.isValid());
        qputenv("HOME", QFile::encodeName(home.path()));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
        QStandardPaths::setTestModeEnabled(true);
    }

    void init()
    {
        site = std::make_unique<ScriptedSite>();
        QVERIFY(site->logIn());
        site->setPermissions({PlayBack});
        processor = std::make_unique<FakeStreamProcessor>();
        provider = std::make_unique<FakeStreamProvider>();
        provider->processors.insert(
            {unsigned(site->serverGroupId()), unsigned(site->serverId()), unsigned(CameraId), Stream}, processor.get());
    }

    void cleanup()
    {
        provider.reset();
        processor.reset();
        site.reset();
    }

    void properties_haveDefaults_whenNew()
    {
        const Controller controller(provider.get(), this);
        QCOMPARE(controller.parent(), this);
        for (const char *name : {"serverGroupId", "serverId", "channelId", "year", "month", "day", "hour", "minute",
                                 "second", "millisecond"})
            QCOMPARE(controller.property(name).toInt(), -1);
        QCOMPARE(controller.streamId(), RequestId());
        QCOMPARE(controller.speed(), 1.0);
        QCOMPARE(controller.state(), Controller::Play);
        QCOMPARE(controller.playbackPermitted(), false);
        QVERIFY(provider->asked.isEmpty());
    }

    void metaObject_declaresTheProperties()
    {
        const QMetaObject &meta = Controller::staticMetaObject;
        QStringList names;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
            const QMetaProperty property = meta.property(i);
            const QString name = QString::fromLatin1(property.name());
            names.append(name);
            const bool readOnly = name == u"playbackPermitted"_s || name == u"state"_s;
            QCOMPARE(property.isWritable(), !readOnly);
            QCOMPARE(property.isConstant(), name == u"playbackPermitted"_s);
            if (!property.isConstant())
                QCOMPARE(QString::fromLatin1(property.notifySignal().name()), name + u"Changed"_s);
        }
        QCOMPARE(names, QStringList({u"playbackPermitted"_s, u"state"_s, u"speed"_s, u"year"_s, u"month"_s, u"day"_s,
                                     u"hour"_s, u"minute"_s, u"second"_s, u"millisecond"_s, u"serverGroupId"_s,
                                     u"serverId"_s, u"channelId"_s, u"streamId"_s}));
        const QMetaEnum state = QMetaEnum::fromType<Controller::State>();
        QCOMPARE(state.keyToValue("Rewind"), 0);
        QCOMPARE(state.keyToValue("Pause"), 1);
        QCOMPARE(state.keyToValue("Play"), 2);
        QCOMPARE(state.keyToValue("Forward"), 3);
        for (const char *signature :
             {"rewind()", "fastRewind()", "live()", "pause()", "play()", "stop()", "playWithSpeed(double)", "forward()",
              "fastForward()", "jumpToDateTime(QDateTime)", "jump(QDate,int,int,int,QVariant)",
              "scrubJump(qlonglong,QVariant)", "frameStepBack()", "frameStepForward()", "rewindSpeed(int)",
              "fastForwardSpeed(int)", "jumpToStart()", "jumpToEnd()", "setTrackId(uint)", "stateString()"})
            QVERIFY2(meta.indexOfMethod(signature) >= 0, signature);
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            QVERIFY(!meta.method(i).name().contains("SPModule"));
    }

    void dateAndTime_areStoredAndSignalled_andNotSent_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"year", "month", "day", "hour", "minute", "second", "millisecond"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void dateAndTime_areStoredAndSignalled_andNotSent()
    {
        QFETCH(QString, name);
        const QByteArray property = name.toLatin1();
        const auto controller = boundController();
        const QMetaObject *meta = controller->metaObject();
        QSignalSpy changed(controller.get(), meta->property(meta->indexOfProperty(property.constData())).notifySignal());
        QVERIFY(controller->setProperty(property.constData(), 12));
        QCOMPARE(controller->property(property.constData()).toInt(), 12);
        QCOMPARE(changed.count(), 1);
        QVERIFY(controller->setProperty(property.constData(), 12));
        QCOMPARE(changed.count(), 1);
        QVERIFY(controller->setProperty(property.constData(), -99));
        QCOMPARE(controller->property(property.constData()).toInt(), -99);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(control()->take(), QStringList());
        QVERIFY(provider->asked.isEmpty());
    }

    // The stream

    void processor_isLookedUpOnce_whileTheKeysStay()
    {
        const auto controller = boundController();
        controller->live();
        controller->live();
        const FakeStreamProvider::Keys keys{unsigned(site->serverGroupId()), 1u, unsigned(CameraId), Stream};
        QCOMPARE(provider->asked, QList<FakeStreamProvider::Keys>{keys});
        QCOMPARE(control()->take(), QStringList({u"live(0)"_s, u"live(0)"_s}));
    }

    void processor_isLookedUpAnew_whenAKeyChanges_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"serverGroupId", "serverId", "channelId", "streamId"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void processor_isLookedUpAnew_whenAKeyChanges()
    {
        QFETCH(QString, name);
        const QByteArray property = name.toLatin1();
        const auto controller = boundController();
        controller->live();
        QCOMPARE(provider->asked.size(), 1);
        control()->take();
        const QMetaObject *meta = controller->metaObject();
        QSignalSpy changed(controller.get(), meta->property(meta->indexOfProperty(property.constData())).notifySignal());

        QVERIFY(controller->setProperty(property.constData(), controller->property(property.constData())));
        QCOMPARE(changed.count(), 0);
        controller->live();
        QCOMPARE(provider->asked.size(), 1);
        control()->take();

        const QVariant other = property == "streamId" ? QVariant::fromValue(RequestId{99}) : QVariant(99);
        const QVariant before = controller->property(property.constData());
        QVERIFY(controller->setProperty(property.constData(), other));
        QCOMPARE(changed.count(), 1);
        controller->live();
        QCOMPARE(provider->asked.size(), 2);
        QCOMPARE(control()->take(), QStringList());

        QVERIFY(controller->setProperty(property.constData(), before));
        QCOMPARE(changed.count(), 2);
        controller->live();
        QCOMPARE(control()->take(), QStringList{u"live(0)"_s});
    }

    void processor_isLookedUpAnew_whenItIsGone()
    {
        const auto controller = boundController();
        controller->live();
        processor = std::make_unique<FakeStreamProcessor>();
        const FakeStreamProvider::Keys keys = provider->asked.first();
        provider->processors.insert(keys, processor.get());
        controller->live();
        QCOMPARE(provider->asked.size(), 2);
        QCOMPARE(control()->take(), QStringList{u"live(0)"_s});
    }

    void processor_isAskedAgain_whenThereWasNone()
    {
        const auto controller = boundController();
        auto processors = std::exchange(provider->processors, {});
        controller->live();
        provider->processors = processors;
        controller->live();
        QCOMPARE(provider->asked.size(), 2);
        QCOMPARE(control()->take(), QStringList{u"live(0)"_s});
    }

    void processor_isNotLookedUp_whenAnIdIsNegative_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"serverGroupId", "serverId", "channelId"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void processor_isNotLookedUp_whenAnIdIsNegative()
    {
        QFETCH(QString, name);
        const QByteArray property = name.toLatin1();
        const auto controller = boundController();
        controller->setProperty(property.constData(), -1);
        controller->live();
        QVERIFY(provider->asked.isEmpty());
        controller->setProperty(property.constData(), 0);
        controller->live();
        QCOMPARE(provider->asked.size(), 1);
    }

    // Permission

    void playbackPermitted_followsTheRight()
    {
        const auto controller = boundController();
        QVERIFY(controller->playbackPermitted());
        site->setPermissions({WithoutPlayBack});
        QVERIFY(!controller->playbackPermitted());
        site->setPermissions({PlayBack, WithoutPlayBack});
        QVERIFY(controller->playbackPermitted());
        controller->setServerId(2);
        QVERIFY(!controller->playbackPermitted());
        controller->setServerId(1);
        QVERIFY(controller->playbackPermitted());
        site->dropUser();
        QVERIFY(!controller->playbackPermitted());
    }

    void playbackPermitted_isFalse_whenThereIsNoRootObject()
    {
        const auto controller = boundController();
        site.reset();
        QVERIFY(!controller->playbackPermitted());
        controller->play();
        controller->jumpToStart();
        QCOMPARE(control()->take(), QStringList());
    }

    void withoutPermission_onlyHoldingAndLiveWork()
    {
        site->setPermissions({WithoutPlayBack});
        const auto controller = boundController();
        Emissions emissions(*controller);

        controller->setSpeed(2.0);
        controller->rewind();
        controller->fastRewind();
        controller->rewindSpeed(4);
        controller->fastForwardSpeed(4);
        controller->frameStepBack();
        controller->frameStepForward();
        controller->jumpToStart();
        controller->jumpToEnd();
        controller->setTrackId(2);
        controller->jumpToDateTime(QDateTime::fromMSecsSinceEpoch(1000, QTimeZone::utc()));
        controller->jump(QDate(2026, 1, 1), 1, 1, 1, QVariant::fromValue(QTimeZone::utc()));
        controller->scrubJump(1000, QVariant::fromValue(QTimeZone::utc()));
        QCOMPARE(controller->speed(), 1.0);
        QCOMPARE(emissions.take(), QStringList());
        QCOMPARE(control()->take(), QStringList());

        controller->pause();
        QCOMPARE(controller->speed(), 0.0);
        QCOMPARE(emissions.take(), QStringList({u"speed"_s, u"state"_s, u"state"_s}));
        QCOMPARE(control()->take(), QStringList{u"pause(0)"_s});

        controller->play();
        QCOMPARE(controller->speed(), 0.0);
        QCOMPARE(emissions.take(), QStringList{u"state"_s});
        controller->forward();
        QCOMPARE(emissions.take(), QStringList{u"state"_s});
        controller->playWithSpeed(0.5);
        QCOMPARE(emissions.take(), QStringList{u"state"_s});
        controller->fastForward();
        QCOMPARE(emissions.take(), QStringList({u"state"_s, u"state"_s}));
        QCOMPARE(controller->speed(), 0.0);
        QCOMPARE(control()->take(), QStringList());

        controller->live();
        QCOMPARE(controller->speed(), 1.0);
        QCOMPARE(emissions.take(), QStringList{u"state"_s});
        QCOMPARE(control()->take(), QStringList{u"live(0)"_s});
    }

    // Speed

    void setSpeed_tellsTheControl_data()
    {
        QTest::addColumn<double>("speed");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("hold") << 0.0 << QStringList{u"pause(0)"_s};
        QTest::newRow("least") << 0.001 << QStringList{u"setSpeed(0.001)"_s, playCall};
        QTest::newRow("slow") << 0.5 << QStringList{u"setSpeed(0.5)"_s, playCall};
        QTest::newRow("two") << 2.0 << QStringList{u"setSpeed(2)"_s, playCall};
        QTest::newRow("above two") << 2.5 << QStringList{u"fastForward(2)"_s};
        QTest::newRow("fast") << 64.99 << QStringList{u"fastForward(64)"_s};
        QTest::newRow("slowly back") << -0.5 << QStringList{u"rewind(0)"_s};
        QTest::newRow("back") << -1.0 << QStringList{u"rewind(1)"_s};
        QTest::newRow("fast back") << -3.9 << QStringList{u"rewind(3)"_s};
        QTest::newRow("huge") << 1e300 << QStringList{u"fastForward(2147483647)"_s};
        QTest::newRow("infinite back") << -std::numeric_limits<double>::infinity()
                                       << QStringList{u"rewind(2147483647)"_s};
    }

    void setSpeed_tellsTheControl()
    {
        QFETCH(double, speed);
        QFETCH(QStringList, calls);
        const auto controller = boundController();
        Emissions emissions(*controller);
        double speedInSignal = -1;
        QStringList callsInSignal;
        connect(controller.get(), &Controller::speedChanged, this, [&] {
            speedInSignal = controller->speed();
            callsInSignal = control()->take();
        });
        controller->setSpeed(speed);
        QCOMPARE(controller->speed(), speed);
        QCOMPARE(emissions.take(), QStringList({u"speed"_s, u"state"_s}));
        QCOMPARE(speedInSignal, speed);
        QCOMPARE(callsInSignal, calls);
        QCOMPARE(control()->take(), QStringList());
        controller->setSpeed(speed);
        QCOMPARE(emissions.take(), QStringList());
        QCOMPARE(control()->take(), QStringList());
    }

    void setSpeed_ignoresWhatIsNoNumber()
    {
        const auto controller = boundController();
        Emissions emissions(*controller);
        controller->setSpeed(std::numeric_limits<double>::quiet_NaN());
        controller->playWithSpeed(std::numeric_limits<double>::quiet_NaN());
        QCOMPARE(controller->speed(), 1.0);
        QCOMPARE(emissions.take(), QStringList());
        QCOMPARE(control()->take(), QStringList());
    }

    void setSpeed_isKept_whenThereIsNoStream()
    {
        provider->processors.clear();
        const auto controller = boundController();
        Emissions emissions(*controller);
        controller->setSpeed(4.0);
        QCOMPARE(controller->speed(), 4.0);
        QCOMPARE(emissions.take(), QStringList({u"speed"_s, u"state"_s}));
    }

    void commands_doNothing_whenTheStreamHasNoControl()
    {
        processor->control.reset();
        const auto controller = boundController();
        Emissions emissions(*controller);
        controller->live();
        controller->frameStepBack();
        controller->frameStepForward();
        controller->jumpToStart();
        controller->jumpToEnd();
        controller->setTrackId(2);
        controller->jumpToDateTime(QDateTime::currentDateTime());
        controller->enableSPModule(SPModuleType::Audio);
        controller->disableSPModule(SPModuleType::Audio);
        QCOMPARE(controller->speed(), 1.0);
        QCOMPARE(emissions.take(), QStringList());
    }

    void commands_setTheSpeed_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("to");
        QTest::addColumn<QStringList>("emissions");
        const QStringList alone{u"state"_s};
        const QStringList both{u"speed"_s, u"state"_s};
        QTest::newRow("pause") << QByteArray("pause") << 1.0 << 0.0 << both + alone;
        QTest::newRow("pause again") << QByteArray("pause") << 0.0 << 0.0 << alone;
        QTest::newRow("play") << QByteArray("play") << 0.0 << 1.0 << both + alone;
        QTest::newRow("play again") << QByteArray("play") << 1.0 << 1.0 << alone;
        QTest::newRow("forward") << QByteArray("forward") << 1.0 << 2.0 << both + alone;
        QTest::newRow("rewind") << QByteArray("rewind") << 1.0 << -2.0 << both;
        QTest::newRow("rewind again") << QByteArray("rewind") << -2.0 << -2.0 << QStringList();

        QTest::newRow("fastForward from pause") << QByteArray("fastForward") << 0.0 << 2.0 << both + alone + alone;
        QTest::newRow("fastForward from play") << QByteArray("fastForward") << 1.0 << 2.0 << both + alone;
        QTest::newRow("fastForward from slow") << QByteArray("fastForward") << 0.25 << 0.5 << both + alone;
        QTest::newRow("fastForward from 2") << QByteArray("fastForward") << 2.0 << 4.0 << both + alone;
        QTest::newRow("fastForward from rewind") << QByteArray("fastForward") << -8.0 << 2.0 << both + alone + alone;
        QTest::newRow("fastForward from 512") << QByteArray("fastForward") << 512.0 << 1024.0 << both + alone;
        QTest::newRow("fastForward from 1000") << QByteArray("fastForward") << 1000.0 << 2000.0 << both + alone;
        QTest::newRow("fastForward from 1024") << QByteArray("fastForward") << 1024.0 << 1024.0 << alone;
        QTest::newRow("fastForward from 1500") << QByteArray("fastForward") << 1500.0 << 1024.0 << both + alone;
        QTest::newRow("fastForward from -1024") << QByteArray("fastForward") << -1024.0 << 1024.0 << both + alone;

        QTest::newRow("fastRewind from pause") << QByteArray("fastRewind") << 0.0 << -2.0 << both;
        QTest::newRow("fastRewind from play") << QByteArray("fastRewind") << 1.0 << -2.0 << both;
        QTest::newRow("fastRewind from forward") << QByteArray("fastRewind") << 64.0 << -2.0 << both;
        QTest::newRow("fastRewind from -2") << QByteArray("fastRewind") << -2.0 << -4.0 << both;
        QTest::newRow("fastRewind from -512") << QByteArray("fastRewind") << -512.0 << -1024.0 << both;
        QTest::newRow("fastRewind from -1024") << QByteArray("fastRewind") << -1024.0 << -1024.0 << QStringList();
        QTest::newRow("fastRewind from -1500") << QByteArray("fastRewind") << -1500.0 << -1024.0 << both;
        QTest::newRow("fastRewind from 1024") << QByteArray("fastRewind") << 1024.0 << -1024.0 << both;
    }

    void commands_setTheSpeed()
    {
        QFETCH(QByteArray, method);
        QFETCH(double, from);
        QFETCH(double, to);
        QFETCH(QStringList, emissions);
        const auto controller = controllerAt(from);
        QCOMPARE(controller->speed(), from);
        Emissions seen(*controller);
        QVERIFY(QMetaObject::invokeMethod(controller.get(), method.constData()));
        QCOMPARE(controller->speed(), to);
        QCOMPARE(seen.take(), emissions);
        QCOMPARE(control()->take().isEmpty(), from == to);
    }

    void playWithSpeed_takesNormalSpeedsOnly_data()
    {
        QTest::addColumn<double>("speed");
        QTest::addColumn<bool>("taken");
        QTest::newRow("0.05") << 0.05 << false;
        QTest::newRow("0.1") << 0.1 << true;
        QTest::newRow("0.5") << 0.5 << true;
        QTest::newRow("2") << 2.0 << true;
        QTest::newRow("2.5") << 2.5 << false;
        QTest::newRow("0") << 0.0 << false;
        QTest::newRow("-1") << -1.0 << false;
    }

    void playWithSpeed_takesNormalSpeedsOnly()
    {
        QFETCH(double, speed);
        QFETCH(bool, taken);
        const auto controller = boundController();
        Emissions emissions(*controller);
        controller->playWithSpeed(speed);
        QCOMPARE(controller->speed(), taken ? speed : 1.0);
        QCOMPARE(emissions.take(), taken ? QStringList({u"speed"_s, u"state"_s, u"state"_s}) : QStringList());
        QCOMPARE(control()->take(),
                 taken ? QStringList({u"setSpeed(%1)"_s.arg(speed), playCall}) : QStringList());
    }

    void rewindSpeedAndFastForwardSpeed_setTheSpeed()
    {
        const auto controller = boundController();
        Emissions emissions(*controller);
        controller->rewindSpeed(8);
        QCOMPARE(controller->speed(), -8.0);
        QCOMPARE(emissions.take(), QStringList({u"speed"_s, u"state"_s}));
        QCOMPARE(control()->take(), QStringList{u"rewind(8)"_s});
        controller->fastForwardSpeed(16);
        QCOMPARE(controller->speed(), 16.0);
        QCOMPARE(emissions.take(), QStringList({u"speed"_s, u"state"_s}));
        QCOMPARE(control()->take(), QStringList{u"fastForward(16)"_s});
        controller->rewindSpeed(-4);
        QCOMPARE(controller->speed(), 4.0);
        controller->rewindSpeed(std::numeric_limits<int>::min());
        QCOMPARE(controller->speed(), 2147483648.0);
        controller->fastForwardSpeed(0);
        QCOMPARE(controller->speed(), 0.0);
    }

    void live_setsTheSpeedWithoutItsSignal()
    {
        const auto controller = controllerAt(-8.0);
        Emissions emissions(*controller);
        controller->live();
        QCOMPARE(controller->speed(), 1.0);
        QCOMPARE(emissions.take(), QStringList{u"state"_s});
        QCOMPARE(control()->take(), QStringList{u"live(0)"_s});
    }

    void live_doesNothing_whenThereIsNoStream()
    {
        const auto controller = controllerAt(4.0);
        controller->setStreamId({8});
        Emissions emissions(*controller);
        controller->live();
        QCOMPARE(controller->speed(), 4.0);
        QCOMPARE(emissions.take(), QStringList());
    }

    void stop_holdsAtTheStart()
    {
        const auto controller = boundController();
        Emissions emissions(*controller);
        controller->stop();
        QCOMPARE(controller->speed(), 0.0);
        QCOMPARE(control()->take(), QStringList({u"pause(0)"_s, u"jumpToStart()"_s}));
        QCOMPARE(emissions.take(), QStringList({u"speed"_s, u"state"_s, u"state"_s, u"state"_s}));
    }

    void stepsAndLimits_holdSilently_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QString>("call");
        QTest::newRow("back") << QByteArray("frameStepBack") << u"stepBack()"_s;
        QTest::newRow("forward") << QByteArray("frameStepForward") << u"stepForward()"_s;
        QTest::newRow("start") << QByteArray("jumpToStart") << u"jumpToStart()"_s;
        QTest::newRow("end") << QByteArray("jumpToEnd") << u"jumpToEnd()"_s;
    }

    void stepsAndLimits_holdSilently()
    {
        QFETCH(QByteArray, method);
        QFETCH(QString, call);
        const auto controller = controllerAt(4.0);
        Emissions emissions(*controller);
        QVERIFY(QMetaObject::invokeMethod(controller.get(), method.constData()));
        QCOMPARE(control()->take(), QStringList{call});
        QCOMPARE(controller->speed(), 0.0);
        QCOMPARE(controller->state(), Controller::Pause);
        QCOMPARE(emissions.take(), QStringList());
    }

    void setTrackId_choosesTheTrack()
    {
        const auto controller = boundController();
        controller->setTrackId(4);
        QCOMPARE(control()->take(), QStringList{u"trackId(4)"_s});
        QCOMPARE(control()->trackId(), 4u);
    }

    void modules_areSwitchedByTheControl()
    {
        site->setPermissions({});
        const auto controller = boundController();
        controller->enableSPModule(SPModuleType::Subtitles);
        controller->disableSPModule(SPModuleType::Audio);
        QCOMPARE(control()->take(), QStringList({u"enableModule(3)"_s, u"disableModule(1)"_s}));
    }

    void state_readsTheAmountOfTheSpeed_data()
    {
        QTest::addColumn<double>("speed");
        QTest::addColumn<Controller::State>("state");
        QTest::addColumn<QString>("text");
        QTest::newRow("0") << 0.0 << Controller::Pause << u"Pause"_s;
        QTest::newRow("0.1") << 0.1 << Controller::Play << u"Play"_s;
        QTest::newRow("1") << 1.0 << Controller::Play << u"Play"_s;
        QTest::newRow("1.1") << 1.1 << Controller::Forward << u"Forward"_s;
        QTest::newRow("64") << 64.0 << Controller::Forward << u"Forward"_s;
        QTest::newRow("-1") << -1.0 << Controller::Play << u"Play"_s;
        QTest::newRow("-2") << -2.0 << Controller::Forward << u"Forward"_s;
    }

    void state_readsTheAmountOfTheSpeed()
    {
        QFETCH(double, speed);
        QFETCH(Controller::State, state);
        QFETCH(QString, text);
        const auto controller = controllerAt(speed);
        QCOMPARE(controller->state(), state);
        QCOMPARE(controller->stateString(), text);
    }

    // Seeking

    void jumpToDateTime_seeks()
    {
        const auto controller = controllerAt(4.0);
        Emissions emissions(*controller);
        controller->jumpToDateTime(QDateTime(QDate(1970, 1, 1), QTime(0, 0, 10, 10), QTimeZone::utc()));
        QCOMPARE(control()->take(), QStringList{u"jump(3003, 1)"_s});
        QCOMPARE(controller->speed(), 4.0);
        QCOMPARE(emissions.take(), QStringList());
    }

    void jump_seeksInTheZone_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::addColumn<QTime>("time");
        QTest::addColumn<QVariant>("zone");
        QTest::addColumn<QDateTime>("expected");
        const QTimeZone berlin("Europe/Berlin");
        const QVariant zone = QVariant::fromValue(berlin);
        const auto utc = [](int month, int day, int hour, int minute) {
            return QDateTime(QDate(2026, month, day), QTime(hour, minute), QTimeZone::utc());
        };
        QTest::newRow("utc") << QDate(2026, 1, 15) << QTime(12, 30) << QVariant::fromValue(QTimeZone::utc())
                             << utc(1, 15, 12, 30);
        QTest::newRow("winter") << QDate(2026, 1, 15) << QTime(12, 30) << zone << utc(1, 15, 11, 30);
        QTest::newRow("summer") << QDate(2026, 7, 15) << QTime(12, 30) << zone << utc(7, 15, 10, 30);
        QTest::newRow("before the change to summer time")
            << QDate(2026, 3, 29) << QTime(1, 30) << zone << utc(3, 29, 0, 30);
        QTest::newRow("after the change to summer time")
            << QDate(2026, 3, 29) << QTime(3, 30) << zone << utc(3, 29, 1, 30);
        QTest::newRow("in the gap") << QDate(2026, 3, 29) << QTime(2, 30) << zone
                                    << QDateTime(QDate(2026, 3, 29), QTime(2, 30), berlin);
        QTest::newRow("before 1970") << QDate(1969, 12, 31) << QTime(23, 59) << QVariant::fromValue(QTimeZone::utc())
                                     << QDateTime(QDate(1969, 12, 31), QTime(23, 59), QTimeZone::utc());
        QTest::newRow("no zone") << QDate(2026, 1, 15) << QTime(12, 30) << QVariant(u"Europe/Berlin"_s) << QDateTime();
        QTest::newRow("invalid variant") << QDate(2026, 1, 15) << QTime(12, 30) << QVariant() << QDateTime();
        QTest::newRow("invalid date") << QDate() << QTime(12, 30) << zone << QDateTime();
    }

    void jump_seeksInTheZone()
    {
        QFETCH(QDate, date);
        QFETCH(QTime, time);
        QFETCH(QVariant, zone);
        QFETCH(QDateTime, expected);
        const auto controller = boundController();
        controller->jump(date, time.hour(), time.minute(), 5, zone);
        const long long count = expected.isValid() ? (expected.toMSecsSinceEpoch() + 5000) / 10 * 3 : 0;
        QCOMPARE(control()->take(), QStringList{u"jump(%1, 1)"_s.arg(count)});
        QCOMPARE(controller->speed(), 1.0);
    }

    void scrubJump_seeksWhileDragging()
    {
        const auto controller = controllerAt(4.0);
        Emissions emissions(*controller);
        const QVariant berlin = QVariant::fromValue(QTimeZone("Europe/Berlin"));
        controller->scrubJump(1'785'000'000'010, berlin);
        controller->scrubJump(1'785'000'000'010, QVariant::fromValue(QTimeZone::utc()));
        const QString call = u"scrub(535500000003, 4294901760)"_s;
        QCOMPARE(control()->take(), QStringList({call, call}));
        controller->scrubJump(-1000, berlin);
        QCOMPARE(control()->take(), QStringList{u"scrub(-300, 4294901760)"_s});
        controller->scrubJump(1'785'000'000'010, QVariant(5));
        QCOMPARE(control()->take(), QStringList{u"scrub(0, 4294901760)"_s});
        QCOMPARE(controller->speed(), 4.0);
        QCOMPARE(emissions.take(), QStringList());
    }

    void scrubJump_survivesTheEndsOfTime()
    {
        const auto controller = boundController();
        const QVariant utc = QVariant::fromValue(QTimeZone::utc());
        controller->scrubJump(std::numeric_limits<qlonglong>::max(), utc);
        controller->scrubJump(std::numeric_limits<qlonglong>::min(), utc);
        controller->live();
        QCOMPARE(control()->take().size(), 3);
    }
};

QTEST_GUILESS_MAIN(tst_QmlPlaybackControllerInterface)
#include "tst_qmlplaybackcontrollerinterface.moc"
