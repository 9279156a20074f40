// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/discovery/deviceaddress.h"

#include <contract/core/devicefinder.h>

#include <QHash>
#include <QHostAddress>
#include <QSet>
#include <QTimer>
#include <QUdpSocket>

#include <memory>
#include <vector>

namespace orrin {

namespace discovery {
struct ProbeMatch;
}

/*! The sockets of one search, and what they brought. Sockets are read in portions from the event loop, never inside their own signals, so
    that a flood of answers leaves time for everything else and sockets can go at any moment. */
class DeviceFinderPrivate
{
public:
    explicit DeviceFinderPrivate(DeviceFinder *finder);

    void start(std::chrono::milliseconds duration);
    void stop();

    QStringList probeAddresses;
    bool multicast = true;
    bool searching = false;
    DeviceFinder::Error error = DeviceFinder::Error::NoError;

private:
    struct Target
    {
        QUdpSocket *socket = nullptr;
        QHostAddress address;
        quint16 port = 0;
    };
    /*! What one address has used up. */
    struct Sender
    {
        qsizetype bytes = 0;
        int devices = 0;
    };

    void addMulticastTargets();
    void addProbeTargets();
    QUdpSocket *openSocket(const QHostAddress &address);
    void sendProbes();
    void finish();
    void readSome();
    QList<FoundDevice> devicesOf(const QByteArray &datagram, const QHostAddress &sender);
    bool admit(const QHostAddress &sender, qsizetype bytes);
    void addDevice(const discovery::ProbeMatch &match, const QHostAddress &sender, QList<FoundDevice> &devices);

    DeviceFinder *const q;
    quint64 m_search = 0; // counts the searches
    std::vector<std::unique_ptr<QUdpSocket>> m_sockets;
    std::vector<Target> m_targets;
    QList<discovery::Subnet> m_subnets;
    QSet<QString> m_questions;
    int m_round = 0;
    QHash<QHostAddress, Sender> m_senders;
    qsizetype m_bytes = 0;
    QSet<QString> m_uuids;
    QSet<QString> m_addresses;
    std::size_t m_nextSocket = 0;
    QTimer m_durationTimer;
    QTimer m_probeTimer;
    QTimer m_readTimer;
};

} // namespace orrin
