// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/audioplayer.h"

#include <QMediaDevices>
#include <QThread>

#include <memory>
#include <vector>

namespace orrin {

/*! The one thread on which all sound of the process is played: made with the first player, ended with the application. Main thread. */
class AudioThread : public QObject
{
    Q_OBJECT
public:
    static AudioThread &instance();
    ~AudioThread() override;

    /*! A player for the platform's default output. Deleted on its own thread when the last pointer goes; null when the application ends. */
    std::shared_ptr<AudioPlayer> createPlayer();

private:
    AudioThread();
    void shutDown();

    QThread m_thread;
    std::unique_ptr<QMediaDevices> m_devices;
    std::vector<std::weak_ptr<AudioPlayer>> m_players;
    bool m_over = false;
};

} // namespace orrin
