// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "discovery/discoveryservice.h"
#include "options.h"
#include "recorder.h"
#include "rtsp/glibthread.h"

#include <QJsonObject>
#include <QObject>

#include <memory>
#include <vector>

namespace orrin::demo {

/*! The whole demo site in one process: all recorders, what they share. GUI thread; a QGuiApplication must
 * exist. */
class DemoServer : public QObject
{
    Q_OBJECT

public:
    explicit DemoServer(const Options &options);
    ~DemoServer() override;

    /*! Starts all recorders. False, with \a error set, when one cannot start. When nothing can be found by WS-Discovery there is a
     * warning and discoveryPort() is 0. */
    bool start(QString *error);

    /*! The recorder with this id or name (in any case), null without one. */
    Recorder *recorder(const QString &idOrName);
    const std::vector<std::unique_ptr<Recorder>> &recorders() const { return m_recorders; }

    Accounts &accounts() { return *m_accounts; }

    quint16 discoveryPort() const { return m_discovery ? m_discovery->port() : 0; }

    /*! What is printed when the server is ready: ports and keys of the recorders. */
    QJsonObject readyMessage() const;

private:
    void startDiscovery();
    static DiscoverableDevice discoverable(Recorder &recorder);

    const Options m_options;
    Site m_site;
    std::shared_ptr<Accounts> m_accounts;
    GlibThread m_thread;
    std::vector<std::unique_ptr<Recorder>> m_recorders;
    std::unique_ptr<DiscoveryService> m_discovery; // asks the recorders
};

} // namespace orrin::demo
