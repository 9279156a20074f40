// SPDX-License-Identifier: GPL-3.0-or-later
#include "clipreader.h"
#include "demoserverprocess.h"
#include "timestrip.h"

#include <contract/core/clipexport.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>

#include <QDateTime>
#include <QDir>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

/*! From the recorder to the file, against the demo server. */
class TestClipExport : public QObject
{
    Q_OBJECT

private:
    void logIn(const QString &user, const QString &password)
    {
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        m_manager->connectToServer(user, password, CorvaneUrl(u"127.0.0.1:%1"_s.arg(m_server.port()), 8601), false);
        QTRY_COMPARE_WITH_TIMEOUT(complete.size(), 1, 12000);
    }

    ClipExport::Request request(int channel, qint64 fromMs, qint64 toMs) const
    {
        ClipExport::Request request;
        request.channel = ChannelUID(m_manager->server(1, 1)->uniqueId(), channel);
        request.fromMs = fromMs;
        request.toMs = toMs;
        request.fileName = m_clips->filePath(u"clip.mp4"_s);
        return request;
    }

    /*! The reason of the failure; empty when it finished. */
    QString outcome(ClipExport &clip, const ClipExport::Request &request)
    {
        QSignalSpy finished(&clip, &ClipExport::finished);
        QSignalSpy failed(&clip, &ClipExport::failed);
        clip.start(request);
        if (!QTest::qWaitFor([&] { return finished.size() + failed.size() > 0; }, 20000))
            return u"no outcome"_s;
        return failed.isEmpty() ? QString() : failed.first().first().toString();
    }

    QStringList files() const { return QDir(m_clips->path()).entryList(QDir::Files | QDir::Hidden); }

    DemoServerProcess m_server;
    std::unique_ptr<QTemporaryDir> m_settings;
    std::unique_ptr<QTemporaryDir> m_clips;
    ConnectionManager *m_manager = nullptr;
    // An even second, where a group of pictures begins, some minutes back.
    const qint64 m_moment = (QDateTime::currentMSecsSinceEpoch() / 1000 - 600) / 60 * 60 * 1000 + 40'000;

private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void init()
    {
        m_settings = std::make_unique<QTemporaryDir>();
        m_clips = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings->path());
        OrrinSDK::initInstance(u"orrin-tests"_s, u"export"_s, nullptr, u"test.log"_s);
        m_manager = OrrinSDK::instance()->connectionManager();
    }

    void cleanup()
    {
        QSignalSpy disconnected(m_manager, &ConnectionManager::allServersDisconnected);
        m_manager->disconnectFromAll();
        QTRY_COMPARE(disconnected.size(), 1);
        // Sessions at the server end with the login.
        QTRY_VERIFY(m_server.command(u"clients"_s).contains(u"sessions=0"));
        OrrinSDK::shutdown();
    }

    void span_isInTheFile()
    {
        logIn(u"admin"_s, u"orrin-admin"_s);
        ClipExport clip;
        QSignalSpy progress(&clip, &ClipExport::progressChanged);
        const ClipExport::Request wanted = request(1, m_moment, m_moment + 6000);
        QCOMPARE(outcome(clip, wanted), QString());
        QVERIFY(!clip.isRunning());
        QCOMPARE(clip.progress(), 1.0);
        QVERIFY(progress.size() >= 2);
        QCOMPARE(files(), QStringList{u"clip.mp4"_s});

        const ClipContents contents = readClip(wanted.fileName);
        QVERIFY(contents.readable);
        QCOMPARE(contents.codec, QByteArray("h264"));
        QCOMPARE(contents.pictures.size(), 6 * 15);
        // Each picture shows the moment that it stands for.
        for (const ClipContents::Picture &picture : contents.pictures) {
            const auto *luma = reinterpret_cast<const std::uint8_t *>(picture.luma.constData());
            const auto strip = timestrip::read(luma, contents.width, contents.width, contents.height);
            QVERIFY(strip);
            QVERIFY2(std::abs(qint64(strip->timeMs) - m_moment - picture.timeMs) <= 34,
                     qPrintable(QString::number(qint64(strip->timeMs) - m_moment - picture.timeMs)));
        }
    }

    void nothing_isLeft_whenCancelled()
    {
        logIn(u"admin"_s, u"orrin-admin"_s);
        ClipExport clip;
        QSignalSpy finished(&clip, &ClipExport::finished);
        QSignalSpy failed(&clip, &ClipExport::failed);
        clip.start(request(1, m_moment - 3'600'000, m_moment));
        QTRY_VERIFY_WITH_TIMEOUT(clip.progress() > 0.0, 10000);
        QVERIFY(files().contains(u"clip.mp4.part"_s));
        clip.cancel();
        QVERIFY(!clip.isRunning());
        QTRY_COMPARE(files(), QStringList());
        QCOMPARE(finished.size() + failed.size(), 0);
        // The same object serves again.
        QCOMPARE(outcome(clip, request(1, m_moment, m_moment + 2000)), QString());
        QCOMPARE(files(), QStringList{u"clip.mp4"_s});
    }

    void nothing_isLeft_whenTheObjectEnds()
    {
        logIn(u"admin"_s, u"orrin-admin"_s);
        auto clip = std::make_unique<ClipExport>();
        clip->start(request(1, m_moment - 3'600'000, m_moment));
        QTRY_VERIFY_WITH_TIMEOUT(clip->progress() > 0.0, 10000);
        clip.reset();
        QTRY_COMPARE(files(), QStringList());
    }

    void export_fails_whereNothingIsRecorded()
    {
        logIn(u"admin"_s, u"orrin-admin"_s);
        ClipExport clip;
        QVERIFY(!outcome(clip, request(5, m_moment, m_moment + 5000)).isEmpty());
        QCOMPARE(files(), QStringList());
    }

    void export_fails_forAUserWhoMayNotPlayBack()
    {
        logIn(u"guest"_s, u"orrin-guest"_s);
        ClipExport clip;
        QVERIFY(!outcome(clip, request(1, m_moment, m_moment + 5000)).isEmpty());
        QCOMPARE(files(), QStringList());
    }

    void export_fails_withASpanOrFolderThatIsNone()
    {
        logIn(u"admin"_s, u"orrin-admin"_s);
        ClipExport clip;
        QVERIFY(!outcome(clip, request(1, m_moment, m_moment)).isEmpty());
        QVERIFY(!outcome(clip, request(1, m_moment, m_moment + ClipExport::LongestMs + 1)).isEmpty());
        ClipExport::Request nowhere = request(1, m_moment, m_moment + 1000);
        nowhere.fileName = m_clips->filePath(u"no/such/clip.mp4"_s);
        QVERIFY(!outcome(clip, nowhere).isEmpty());
        ClipExport::Request unknown = request(1, m_moment, m_moment + 1000);
        unknown.channel = ChannelUID(12345, 1);
        QVERIFY(!outcome(clip, unknown).isEmpty());
        QCOMPARE(files(), QStringList());
    }

    void fileOfThatName_isKeptUntilTheNewOneIsWhole()
    {
        logIn(u"admin"_s, u"orrin-admin"_s);
        const ClipExport::Request wanted = request(1, m_moment, m_moment + 2000);
        QFile old(wanted.fileName);
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("old");
        old.close();
        ClipExport clip;
        ClipExport::Request none = wanted;
        none.channel.channelId = 5;
        QVERIFY(!outcome(clip, none).isEmpty());
        QCOMPARE(QFileInfo(wanted.fileName).size(), 3);
        QCOMPARE(outcome(clip, wanted), QString());
        QVERIFY(readClip(wanted.fileName).readable);
    }
};

QTEST_GUILESS_MAIN(TestClipExport)
#include "tst_clipexport.moc"
