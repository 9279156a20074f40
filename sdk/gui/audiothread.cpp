// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/audiothread.h"

#include "gui/qtaudiodevice.h"

#include <QCoreApplication>

#include <utility>

namespace orrin {

AudioThread &AudioThread::instance()
{
    static AudioThread thread;
    return thread;
}

AudioThread::AudioThread() : m_devices(std::make_unique<QMediaDevices>())
{
    m_thread.setObjectName(QStringLiteral("orrin-audio"));
    m_thread.start();
    // The platform's devices are to be let go while there is an application.
    qAddPostRoutine([] { AudioThread::instance().shutDown(); });
    connect(m_devices.get(), &QMediaDevices::audioOutputsChanged, this, [this] {
        for (const std::weak_ptr<AudioPlayer> &each : m_players) {
            if (const auto player = each.lock())
                QMetaObject::invokeMethod(player.get(), &AudioPlayer::deviceAppeared, Qt::QueuedConnection);
        }
    });
}

AudioThread::~AudioThread()
{
    shutDown();
}

void AudioThread::shutDown()
{
    if (std::exchange(m_over, true))
        return;
    m_devices.reset();
    // Players that are still there give their device back before its thread ends.
    for (const std::weak_ptr<AudioPlayer> &each : m_players) {
        if (const auto player = each.lock())
            QMetaObject::invokeMethod(player.get(), &AudioPlayer::close, Qt::BlockingQueuedConnection);
    }
    m_players.clear();
    m_thread.quit();
    m_thread.wait();
}

std::shared_ptr<AudioPlayer> AudioThread::createPlayer()
{
    if (m_over)
        return nullptr;
    std::erase_if(m_players, [](const std::weak_ptr<AudioPlayer> &each) { return each.expired(); });
    auto *player = new AudioPlayer([] { return std::make_unique<QtAudioDevice>(); });
    player->moveToThread(&m_thread);
    std::shared_ptr<AudioPlayer> shared(player, [](AudioPlayer *each) {
        // Without its thread the event loop cannot do it any more.
        if (each->thread()->isRunning())
            each->deleteLater();
        else
            delete each;
    });
    m_players.push_back(shared);
    return shared;
}

} // namespace orrin
