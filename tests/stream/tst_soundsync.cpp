// SPDX-License-Identifier: GPL-3.0-or-later
// The sound of the demo server's cameras through the whole SDK, on a device that plays at the pace of the clock: what is heard while a picture is
// shown belongs to the same moment, by the time stamps of both.
#include "../gui/fakeaudiodevice.h"
#include "../gui/recordingrenderer.h"
#include "demoserverprocess.h"

#include "gui/audiooutput.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/channel.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/splinkedfactory.h>
#include <contract/gui/display.h>
#include <contract/gui/guispmfactory.h>

#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

constexpr Time300 Second = 300;
constexpr Time300 Minute = 60 * Second;
constexpr int WaitMs = 15'000;
constexpr double LimitMs = 80;

class OneDisplay : public DisplayFactory
{
public:
    void setDisplayDecorator(const QSharedPointer<DisplayDecorator> &) override {}
    std::shared_ptr<DisplayInterface> createDisplay(ChannelUID, QSharedPointer<PlaybackState>, WidgetType, DisplayType,
                                                    const QString &, const QString &, const QRectF &, const ZoomInfo &) override
    {
        auto display = std::make_shared<orrin::Display>();
        renderer = QSharedPointer<RecordingRenderer>::create();
        display->setRenderer(renderer);
        return display;
    }
    WidgetType type() const override { return WidgetType::QuickItem; }
    DisplayType displayType() const override { return DisplayType::Video; }

    QSharedPointer<RecordingRenderer> renderer;
};

/*! Sound goes to a player of the test's own. */
class SoundFactory : public GuiSPMFactory
{
public:
    explicit SoundFactory(std::shared_ptr<AudioPlayer> player)
        : GuiSPMFactory(QSharedPointer<OneDisplay>::create()), m_player(std::move(player))
    {
    }
    QList<QSharedPointer<SPAbstractOutput>> createOutputs() override { return {QSharedPointer<AudioOutput>::create(m_player)}; }

private:
    std::shared_ptr<AudioPlayer> m_player;
};

} // namespace

class TestSoundSync : public QObject
{
    Q_OBJECT

private:
    test::DemoServerProcess m_server;
    QTemporaryDir m_folder;
    ConnectionManager *m_manager = nullptr;
    FakeAudio m_audio;
    std::shared_ptr<AudioPlayer> m_player;
    QSharedPointer<OneDisplay> m_display;
    std::unique_ptr<SPLinkedFactory> m_factory;
    QSharedPointer<AbstractStreamProcessor> m_stream;
    QList<double> m_differences; // heard minus shown, in milliseconds, at each picture

    Channel *channel(int id) const
    {
        for (Server *server : m_manager->servers()) {
            if (server->name() == u"North"_s)
                return server->channelById(id);
        }
        return nullptr;
    }

    void open(int id, bool withVideo = true)
    {
        m_audio = {};
        m_differences.clear();
        m_player = std::make_shared<AudioPlayer>(fakeDevices(m_audio));
        m_display = QSharedPointer<OneDisplay>::create();
        const QSharedPointer<SPMFactory> video(withVideo ? new GuiSPMFactory(m_display) : nullptr);
        const QSharedPointer<SPMFactory> audio(new SoundFactory(m_player));
        m_factory = std::make_unique<SPLinkedFactory>(video, audio, nullptr, nullptr);
        Channel *found = channel(id);
        QVERIFY(found);
        m_stream = m_factory->createProcessor(found->uid(), -1);
        QVERIFY(m_stream);
        if (withVideo) {
            m_display->renderer->onFrame = [this] {
                if (const auto heard = m_player->heardTime())
                    m_differences.append(double(*heard - m_display->renderer->frames.last().imageRef().time()) / 0.3);
            };
        }
        m_stream->start();
        m_stream->inputControl()->setStreamPreference(3);
    }

    Time300 shown() const
    {
        const auto &frames = m_display->renderer->frames;
        return frames.isEmpty() ? 0 : frames.last().imageRef().time();
    }

    bool isSilent() const { return !m_player->heardTime(); }

    /*! Four fifths of what was measured lie within the limit: single outliers are the machine's. */
    void verifySync()
    {
        QVERIFY(m_differences.size() >= 20);
        std::sort(m_differences.begin(), m_differences.end());
        const double low = m_differences.at(m_differences.size() / 10);
        const double high = m_differences.at(m_differences.size() * 9 / 10);
        qInfo("heard minus shown: %.0f to %.0f ms, in the middle %.0f", low, high,
              m_differences.at(m_differences.size() / 2));
        QVERIFY2(low >= -LimitMs && high <= LimitMs, qPrintable(u"%1 to %2"_s.arg(low).arg(high)));
    }

    static Time300 recordedMoment()
    {
        // Away from the gaps of the hour and of the week.
        const Time300 hour = 60 * Minute;
        Time300 moment = QDateTime::currentMSecsSinceEpoch() * 3 / 10 / hour * hour - 4 * hour;
        while ((moment / (24 * hour)) % 7 == 0)
            moment -= 12 * hour;
        return moment + 5 * Minute;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
        OrrinSDK::initInstance(u"orrin-tests"_s, u"sound"_s, nullptr, m_folder.filePath(u"test.log"_s));
        m_manager = OrrinSDK::instance()->connectionManager();
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        m_manager->connectToServer(u"admin"_s, u"orrin-admin"_s, CorvaneUrl(u"127.0.0.1:%1"_s.arg(m_server.port()), 8601), true);
        QVERIFY(complete.wait(12'000));
    }

    void cleanupTestCase() { OrrinSDK::shutdown(); }

    void cleanup()
    {
        m_stream.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_factory.reset();
        m_display.reset();
        m_player.reset();
    }

    void live_isInSync_data()
    {
        QTest::addColumn<int>("camera");
        QTest::newRow("mu-law") << 1;
        QTest::newRow("AAC") << 2;
        QTest::newRow("A-law") << 4;
    }

    void live_isInSync()
    {
        QFETCH(int, camera);
        open(camera);
        QTRY_VERIFY_WITH_TIMEOUT(!isSilent(), WaitMs);
        // The backlog of the beginning is cut back within a second or two.
        QTRY_VERIFY_WITH_TIMEOUT(m_differences.size() >= 30, WaitMs);
        m_differences.clear();
        QTRY_VERIFY_WITH_TIMEOUT(m_differences.size() >= 45, WaitMs);
        verifySync();
        if (QTest::currentTestFailed())
            return;
        m_stream->inputControl()->pause(0);
        QTRY_VERIFY_WITH_TIMEOUT(isSilent(), 1000);
        m_stream->inputControl()->live(0);
        QTRY_VERIFY_WITH_TIMEOUT(!isSilent(), WaitMs);
    }

    void recorded_isInSync_atTheRateOfOne_andSilentElsewhere_data() { live_isInSync_data(); }

    void recorded_isInSync_atTheRateOfOne_andSilentElsewhere()
    {
        QFETCH(int, camera);
        open(camera);
        SPInputControlInterface *control = m_stream->inputControl();
        const Time300 moment = recordedMoment();
        control->jump(moment, 1);
        QTRY_COMPARE_WITH_TIMEOUT(shown(), moment, WaitMs);
        control->pause(0);
        QTRY_VERIFY_WITH_TIMEOUT(isSilent(), 1000);
        control->setSpeed(1.0);
        control->play(SPInputControlInterface::FromHere, SPInputControlInterface::NoMark);
        QTRY_VERIFY_WITH_TIMEOUT(!isSilent(), WaitMs);
        QTRY_VERIFY_WITH_TIMEOUT(shown() > moment + 2 * Second, WaitMs);
        m_differences.clear();
        QTRY_VERIFY_WITH_TIMEOUT(m_differences.size() >= 45, WaitMs);
        verifySync();
        if (QTest::currentTestFailed())
            return;
        // Not at other rates, not backward, not while it stands.
        const auto isSilentIn = [this](const std::function<void()> &command) {
            command();
            const bool quiet = QTest::qWaitFor([this] { return isSilent(); }, 1000);
            const qsizetype before = m_audio.written.size();
            const bool again = QTest::qWaitFor([&] { return m_audio.written.size() != before; }, 700);
            return quiet && !again;
        };
        QVERIFY(isSilentIn([control] { control->fastForward(2); }));
        QVERIFY(isSilentIn([control] { control->rewind(2); }));
        QVERIFY(isSilentIn([control] { control->pause(0); }));
        QVERIFY(isSilentIn([control] { control->stepForward(); }));
        QVERIFY(isSilentIn([control, moment] { control->scrub(moment + 60 * Second, SPInputControlInterface::NoMark); }));
        control->play(SPInputControlInterface::FromHere, SPInputControlInterface::NoMark);
        QTRY_VERIFY_WITH_TIMEOUT(!isSilent(), WaitMs);
    }

    void module_canBeSwitchedOff()
    {
        open(1);
        QTRY_VERIFY_WITH_TIMEOUT(!isSilent(), WaitMs);
        m_stream->inputControl()->disableModule(SPModuleType::Audio);
        QTRY_VERIFY_WITH_TIMEOUT(isSilent(), 2000);
        const auto frames = m_display->renderer->frames.size();
        QTRY_VERIFY_WITH_TIMEOUT(m_display->renderer->frames.size() > frames + 5, WaitMs);
        QVERIFY(isSilent());
        m_stream->inputControl()->enableModule(SPModuleType::Audio);
        QTRY_VERIFY_WITH_TIMEOUT(!isSilent(), 2000);
    }

    void picture_goesOn_withoutADevice()
    {
        open(1);
        m_audio.present = false;
        QTRY_VERIFY_WITH_TIMEOUT(m_display->renderer->frames.size() > 20, WaitMs);
        QVERIFY(m_display->renderer->errors.isEmpty());
        m_audio.present = true;
        QTRY_VERIFY_WITH_TIMEOUT(!isSilent(), WaitMs);
        m_audio.lost();
        QTRY_VERIFY_WITH_TIMEOUT(isSilent(), 1000);
        const auto frames = m_display->renderer->frames.size();
        QTRY_VERIFY_WITH_TIMEOUT(m_display->renderer->frames.size() > frames + 5, WaitMs);
        QTRY_VERIFY_WITH_TIMEOUT(!isSilent(), WaitMs);
    }

    void sound_playsAlone()
    {
        open(4, false);
        QTRY_VERIFY_WITH_TIMEOUT(!isSilent(), WaitMs);
        const auto lateness = [this] {
            const auto heard = m_player->heardTime();
            return heard ? QDateTime::currentMSecsSinceEpoch() - *heard * 10 / 3 : -1;
        };
        QTRY_VERIFY_WITH_TIMEOUT(lateness() > 0 && lateness() < 400, 5000);
        const Time300 moment = recordedMoment();
        m_stream->inputControl()->jump(moment, 1);
        m_stream->inputControl()->play(moment, SPInputControlInterface::NoMark);
        QTRY_VERIFY_WITH_TIMEOUT(m_player->heardTime() && qAbs(*m_player->heardTime() - moment) < 5 * Second, WaitMs);
    }
};

QTEST_GUILESS_MAIN(TestSoundSync)
#include "tst_soundsync.moc"
