// SPDX-License-Identifier: GPL-3.0-or-later
// A user of the demo server who may not see what was recorded.
#include "demoserverprocess.h"
#include "onedisplay.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/channel.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/playbackerror.h>
#include <contract/core/server.h>
#include <contract/core/splinkedfactory.h>

#include <QDateTime>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace orrin;
using namespace Qt::StringLiterals;

class TestReplayRight : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
        OrrinSDK::initInstance(u"orrin-tests"_s, u"replay-right"_s, nullptr, m_folder.filePath(u"test.log"_s));
        ConnectionManager *manager = OrrinSDK::instance()->connectionManager();
        QSignalSpy complete(manager, &ConnectionManager::initialConnectionComplete);
        manager->connectToServer(u"guest"_s, u"orrin-guest"_s, CorvaneUrl(u"127.0.0.1:%1"_s.arg(m_server.port()), 8601), true);
        QVERIFY(complete.wait(12'000));
    }
    void cleanupTestCase() { OrrinSDK::shutdown(); }

    void jump_isRefused_andLiveGoesOn()
    {
        const auto servers = OrrinSDK::instance()->connectionManager()->servers();
        const auto north = std::ranges::find_if(servers, [](Server *server) { return server->name() == u"North"_s; });
        QVERIFY(north != servers.end());
        Channel *channel = (*north)->channelById(1);
        QVERIFY(channel);
        const auto display = QSharedPointer<OneDisplay>::create();
        SPLinkedFactory factory(QSharedPointer<SPMFactory>(new GuiSPMFactory(display)), nullptr, nullptr, nullptr);
        auto stream = factory.createProcessor(channel->uid(), -1);
        QVERIFY(stream);
        stream->start();
        RecordingRenderer &renderer = *display->renderer;
        QTRY_VERIFY_WITH_TIMEOUT(renderer.frames.size() >= 2, 15'000);
        stream->inputControl()->jump(QDateTime::currentMSecsSinceEpoch() * 3 / 10 - 3600 * 300, 1);
        QTRY_COMPARE_WITH_TIMEOUT(renderer.errors, QList<int>{PlaybackError::NotPermitted}, 15'000);
        stream->inputControl()->live(0);
        const qsizetype frames = renderer.frames.size();
        QTRY_VERIFY_WITH_TIMEOUT(renderer.frames.size() >= frames + 2, 15'000);
        QCOMPARE(stream->playbackState()->mode(), PlayMode::Live);
        QCOMPARE(renderer.errors.size(), 1);
        // None of what came was recorded an hour ago.
        for (const VideoFrame &frame : std::as_const(renderer.frames))
            QVERIFY(QDateTime::currentMSecsSinceEpoch() - frame.imageRef().time() * 10 / 3 < 600'000);
    }

private:
    test::DemoServerProcess m_server;
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(TestReplayRight)
#include "tst_replayright.moc"
