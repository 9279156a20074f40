// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakeaudiodevice.h"

#include "gui/audiooutput.h"
#include "gui/audioplayer.h"

#include <contract/codecs/videoframe.h>
#include <contract/gui/audiosettings.h>

#include <QTest>

#include <thread>

using namespace orrin;
using namespace std::chrono_literals;

namespace {

constexpr Time300 Start = 300 * 1'790'000'000LL;

/*! 20 ms at 8 kHz, each sample \a value; \a number counts from Start on. */
Image piece(int number, std::int16_t value = 1000)
{
    QByteArray samples;
    for (int i = 0; i < 160; ++i)
        samples.append(reinterpret_cast<const char *>(&value), sizeof value);
    Image image = Image::fromAudio(ImageKind::AudioPcm16, samples, 8000, 1);
    image.setTime(Start + number * 6);
    return image;
}

} // namespace

class TestAudioPlayer : public QObject
{
    Q_OBJECT

private:
    qint64 m_now = 5'000'000;
    FakeAudio m_audio;

private Q_SLOTS:
    void init()
    {
        m_audio = {};
        m_audio.nowMicroseconds = [this] { return m_now; };
        AudioSettings::setMuted(false);
        AudioSettings::setVolume(1.0);
    }

    void push_isHeard_afterTheDelay()
    {
        AudioPlayer player(fakeDevices(m_audio));
        for (int i = 0; i < 50; ++i) {
            player.push(piece(i));
            QCoreApplication::processEvents();
            QVERIFY(player.hasDevice());
            const auto heard = player.heardTime();
            QVERIFY(heard);
            // Each piece is heard Delay after it came, to within the resampler's few samples.
            const Time300 expected = Start + i * 6 - AudioPlayer::Delay.count() * 3 / 10;
            QVERIFY2(qAbs(*heard - expected) <= 2, qPrintable(QString::number(*heard - expected)));
            m_now += 20'000;
        }
        QCOMPARE(player.dropped(), 0);
        m_now += 200'000;
        QVERIFY(!player.heardTime());
        QCOMPARE(m_audio.opened, 1);
    }

    void push_leavesOut_whatComesTooEarly()
    {
        AudioPlayer player(fakeDevices(m_audio));
        for (int i = 0; i < 30; ++i)
            player.push(piece(i));
        QCoreApplication::processEvents();
        // The silence in front, and four pieces until the limit is passed.
        QVERIFY2(player.dropped() >= 24 && player.dropped() <= 27, qPrintable(QString::number(player.dropped())));
        QVERIFY(m_audio.written.size() <= m_audio.format.bytesOf(160'000));
    }

    void push_cutsABacklogBack_thatLasts()
    {
        AudioPlayer player(fakeDevices(m_audio));
        // Three pieces at once, then at the pace of the clock.
        for (int i = -3; i < 0; ++i)
            player.push(piece(i));
        QCoreApplication::processEvents();
        Time300 behind = 0;
        for (int i = 0; i < 40; ++i) {
            player.push(piece(i));
            QCoreApplication::processEvents();
            behind = Start + i * 6 - player.heardTime().value_or(0);
            m_now += 20'000;
        }
        QVERIFY2(qAbs(behind - AudioPlayer::Delay.count() * 3 / 10) <= 4, qPrintable(QString::number(behind)));
        QCOMPARE(player.dropped(), 0);
    }

    void sound_isConverted_toWhatTheDeviceTakes()
    {
        m_audio.format = {44100, 2};
        AudioPlayer player(fakeDevices(m_audio));
        for (int i = 0; i < 10; ++i) {
            player.push(piece(i));
            QCoreApplication::processEvents();
            m_now += 20'000;
        }
        const qint64 silence = m_audio.format.bytesOf(AudioPlayer::Delay.count() * 1000);
        const qint64 sound = m_audio.written.size() - silence;
        QVERIFY(qAbs(sound - m_audio.format.bytesOf(200'000)) < 400);
        const auto *samples = reinterpret_cast<const qint16 *>(m_audio.written.constData());
        const qsizetype middle = (silence + sound / 2) / 4;
        QVERIFY(qAbs(samples[2 * middle] - 1000) < 20);
        QCOMPARE(samples[2 * middle], samples[2 * middle + 1]);
        QCOMPARE(samples[0], 0);
    }

    void volume_andMute_takeEffectAtOnce()
    {
        AudioPlayer player(fakeDevices(m_audio));
        const auto volumeAfter = [&](int number) {
            m_now += 20'000;
            player.push(piece(number));
            QCoreApplication::processEvents();
            return m_audio.volume;
        };
        QCOMPARE(volumeAfter(0), 1.0);
        AudioSettings::setVolume(0.25);
        QCOMPARE(volumeAfter(1), 0.25);
        AudioSettings::setMuted(true);
        QCOMPARE(volumeAfter(2), 0.0);
        AudioSettings::setMuted(false);
        AudioSettings::setVolume(7);
        QCOMPARE(volumeAfter(3), 1.0);
    }

    void device_isLookedForAgain_whenItIsNotThere()
    {
        m_audio.present = false;
        AudioPlayer player(fakeDevices(m_audio));
        player.push(piece(0));
        QCoreApplication::processEvents();
        QVERIFY(!player.hasDevice());
        QCOMPARE(player.dropped(), 1);
        m_audio.present = true;
        // Not before its time, unless the platform tells of a new device.
        player.push(piece(1));
        QCoreApplication::processEvents();
        QVERIFY(!player.hasDevice());
        player.deviceAppeared();
        QVERIFY(player.hasDevice());
        player.push(piece(2));
        QCoreApplication::processEvents();
        QVERIFY(player.heardTime());
    }

    void device_isFoundByItself_whenNobodyTells()
    {
        m_audio.present = false;
        AudioPlayer player(fakeDevices(m_audio));
        player.push(piece(0));
        QCoreApplication::processEvents();
        m_audio.present = true;
        QTRY_VERIFY_WITH_TIMEOUT(player.hasDevice(), 5000);
    }

    void device_thatIsLost_comesBack()
    {
        AudioPlayer player(fakeDevices(m_audio));
        player.push(piece(0));
        QCoreApplication::processEvents();
        QVERIFY(player.hasDevice());
        m_audio.lost();
        QCoreApplication::processEvents();
        QVERIFY(!player.hasDevice());
        QVERIFY(!player.heardTime());
        player.push(piece(1));
        QCoreApplication::processEvents();
        QTRY_VERIFY_WITH_TIMEOUT(player.hasDevice(), 5000);
        player.push(piece(2));
        QCoreApplication::processEvents();
        QVERIFY(player.heardTime());
        QCOMPARE(m_audio.opened, 2);
    }

    void push_isBounded_andSafeFromAnyThread()
    {
        AudioPlayer player(fakeDevices(m_audio));
        std::thread other([&player] {
            for (int i = 0; i < 1000; ++i)
                player.push(piece(i));
        });
        other.join();
        QCoreApplication::processEvents();
        QVERIFY(player.dropped() <= AudioPlayer::MaxWaiting);
    }

    void push_leavesOtherKindsOut()
    {
        AudioPlayer player(fakeDevices(m_audio));
        player.push(Image());
        player.push(Image::fromAudio(ImageKind::AudioULaw, QByteArray(160, 'x'), 8000, 1));
        player.push(Image::fromAudio(ImageKind::AudioPcm16, QByteArray(160, 'x'), 0, 1));
        player.push(Image::fromAudio(ImageKind::AudioPcm16, QByteArray(160, 'x'), 8000, 9));
        QCoreApplication::processEvents();
        QCOMPARE(m_audio.opened, 0);
    }

    void output_playsSound_untilItIsClosed()
    {
        auto player = std::make_shared<AudioPlayer>(fakeDevices(m_audio));
        AudioOutput output(player);
        output.setVideoFrame(VideoFrame(piece(0)));
        // The expanding of G.711 is done on the way.
        Image coded = Image::fromAudio(ImageKind::AudioULaw, QByteArray(160, char(0x80)), 8000, 1);
        coded.setTime(Start + 6);
        output.setVideoFrame(VideoFrame(coded));
        output.setVideoFrame(VideoFrame());
        QCoreApplication::processEvents();
        QVERIFY(m_audio.written.size() > m_audio.format.bytesOf(60'000));
        output.close();
        const qsizetype before = m_audio.written.size();
        output.setVideoFrame(VideoFrame(piece(3)));
        QCoreApplication::processEvents();
        QCOMPARE(m_audio.written.size(), before);
    }
};

QTEST_GUILESS_MAIN(TestAudioPlayer)
#include "tst_audioplayer.moc"
