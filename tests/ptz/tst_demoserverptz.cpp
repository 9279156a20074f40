// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"

#include <contract/core/camera.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/ptzfcontrol.h>
#include <contract/core/server.h>

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

/*! A control over the network: the demo server's camera moves as it is told. */
class TestDemoServerPtz : public QObject
{
    Q_OBJECT

    DemoServerProcess m_server;
    std::unique_ptr<QTemporaryDir> m_folder;
    ConnectionManager *m_manager = nullptr;
    std::unique_ptr<PtzfControl> m_control;

    bool logIn(const QString &user, const QString &password)
    {
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        m_manager->connectToServer(user, password, CorvaneUrl(u"127.0.0.1:%1"_s.arg(m_server.port()), 8601), false);
        if (!QTest::qWaitFor([&] { return complete.size() > 0; }, 12000))
            return false;
        const Server *north = m_manager->server(1, 1);
        m_control = std::make_unique<PtzfControl>(ChannelUID(north->uniqueId(), 2), false);
        return true;
    }
    bool logIn() { return logIn(u"operator"_s, u"orrin-operator"_s); }

    double value(QLatin1StringView name)
    {
        const QRegularExpression pattern(u" %1=([-.0-9]+)"_s.arg(name));
        return pattern.match(m_server.command(u"ptz North 2"_s)).captured(1).toDouble();
    }
    bool isStill() { return m_server.command(u"ptz North 2"_s).endsWith("still"_L1); }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->path());
        QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
        OrrinSDK::initInstance(u"orrin-tests"_s, u"ptz"_s, nullptr, u"test.log"_s);
        m_manager = OrrinSDK::instance()->connectionManager();
    }

    void cleanup()
    {
        m_control.reset();
        m_manager->disconnectFromAll();
        OrrinSDK::shutdown();
        m_server.stop();
    }

    void commands_areAll()
    {
        QVERIFY(logIn());
        QCOMPARE(m_control->camera(), m_manager->server(1, 1)->channelById(2));
        QSignalSpy commands(m_control.get(), &PtzfControl::supportedCommands);
        m_control->getSupportedCommands();
        QVERIFY(commands.isEmpty());
        QTRY_COMPARE(commands.size(), 1);
        QCOMPARE(commands.first().first().value<QList<PtzfCommand>>().size(), 5);
    }

    void commands_areNone_whereNothingMoves()
    {
        QVERIFY(logIn());
        PtzfControl fixed(ChannelUID(m_manager->server(1, 1)->uniqueId(), 1), false);
        QSignalSpy commands(&fixed, &PtzfControl::supportedCommands);
        QSignalSpy error(&fixed, &PtzfControl::error);
        fixed.getSupportedCommands();
        QTRY_COMPARE(commands.size(), 1);
        QVERIFY(commands.first().first().value<QList<PtzfCommand>>().isEmpty());
        fixed.panTiltZoom(5, 0, 0);
        QTRY_COMPARE(error.size(), 1);
        QCOMPARE(error.first().first().value<PtzfError>().errorId(), int(PtzfError::NotSupported));
    }

    void camera_movesWhileTold_longerThanItsTimeout_andStops()
    {
        QVERIFY(logIn());
        m_control->panTiltZoom(3000, -3000, 0);
        // Three seconds: the time-out is two.
        QElapsedTimer time;
        time.start();
        QTRY_VERIFY_WITH_TIMEOUT(time.elapsed() > 3000, 4000);
        QVERIFY(!isStill());
        QVERIFY(value("pan"_L1) > 0);
        // Up is negative for the user, positive for the device.
        QVERIFY(value("tilt"_L1) > 0);
        m_control->panTiltZoom(0, 0, 0);
        QTRY_VERIFY(isStill());
        QVERIFY(value("pan"_L1) < 0.5);
    }

    void drag_endsWhereItIsReleased()
    {
        QVERIFY(logIn());
        for (int i = 1; i <= 60; ++i) {
            m_control->panTiltZoom(i * 300, 0, 0);
            QTest::qWait(16);
        }
        m_control->panTiltZoom(0, 0, 0);
        QTRY_VERIFY(isStill());
        QVERIFY(value("pan"_L1) > 0.05);
    }

    void camera_stopsByItself_whenTheConnectionBreaks_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("no answers") << u"http silent on North"_s;
        QTest::newRow("no listener") << u"listener stop North"_s;
    }
    void camera_stopsByItself_whenTheConnectionBreaks()
    {
        QFETCH(QString, command);
        QVERIFY(logIn());
        m_control->panTiltZoom(4000, 0, 0);
        QTRY_VERIFY(!isStill());
        QCOMPARE(m_server.command(command), u"ok"_s);
        QTRY_VERIFY_WITH_TIMEOUT(isStill(), 4000);
        const double pan = value("pan"_L1);
        QVERIFY(pan < 0.5);
        // The release comes to nothing, and harms nothing.
        m_control->panTiltZoom(0, 0, 0);
        QTest::qWait(300);
        QCOMPARE(value("pan"_L1), pan);
    }

    void camera_stops_whenItsControlEnds()
    {
        QVERIFY(logIn());
        m_control->panTiltZoom(4000, 0, 0);
        QTRY_VERIFY(!isStill());
        m_control.reset();
        QTRY_VERIFY_WITH_TIMEOUT(isStill(), 1500);
    }

    void camera_goesOn_whenItsControlWasToLeaveIt()
    {
        QVERIFY(logIn());
        {
            PtzfControl control(ChannelUID(m_manager->server(1, 1)->uniqueId(), 2), true);
            control.panTiltZoom(1000, 0, 0);
            QTRY_VERIFY(!isStill());
        }
        QTest::qWait(2500);
        QVERIFY(!isStill());
        m_control->panTiltZoom(1, 0, 0);
        m_control->panTiltZoom(0, 0, 0);
        QTRY_VERIFY(isStill());
    }

    void presets_toursAndFocus()
    {
        QVERIFY(logIn());
        QSignalSpy error(m_control.get(), &PtzfControl::error);
        QSignalSpy presets(m_control.get(), &PtzfControl::presets);
        m_control->setPreset(9, u"Mast"_s);
        m_control->getPresets();
        QTRY_COMPARE(presets.size(), 1);
        QCOMPARE(presets.first().first().value<QList<PtzfPreset>>().size(), 4);
        m_control->goToPreset(2);
        QTRY_VERIFY_WITH_TIMEOUT(value("pan"_L1) == 0.8 && isStill(), 8000);
        m_control->startTour(1);
        QTRY_VERIFY(!isStill());
        m_control->stopCurrentTour();
        QTRY_VERIFY(isStill());
        m_control->focus(PtzfControl::FullSpeed);
        QTRY_VERIFY(value("focus"_L1) > 0.6);
        m_control->focus(0);
        QTRY_VERIFY(isStill());
        QVERIFY(value("focus"_L1) < 1.0);
        QVERIFY(error.isEmpty());
        m_control->goToPreset(200);
        QTRY_COMPARE(error.size(), 1);
        QCOMPARE(error.first().first().value<PtzfError>().errorId(), int(PtzfError::NoSuchPreset));
    }

    void user_withoutTheRight_isRefused()
    {
        QVERIFY(logIn(u"guest"_s, u"orrin-guest"_s));
        QSignalSpy commands(m_control.get(), &PtzfControl::supportedCommands);
        QSignalSpy error(m_control.get(), &PtzfControl::error);
        m_control->getSupportedCommands();
        QTRY_COMPARE(commands.size(), 1);
        QVERIFY(commands.first().first().value<QList<PtzfCommand>>().isEmpty());
        m_control->panTiltZoom(5000, 0, 0);
        QTRY_COMPARE(error.size(), 1);
        QCOMPARE(error.first().first().value<PtzfError>().errorId(), int(PtzfError::NotPermitted));
        QVERIFY(isStill());
        QCOMPARE(value("pan"_L1), 0.0);
    }
};

QTEST_GUILESS_MAIN(TestDemoServerPtz)
#include "tst_demoserverptz.moc"
