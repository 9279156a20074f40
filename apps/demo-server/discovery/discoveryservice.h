// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "discovery/discoverymessages.h"
#include "discovery/proberequest.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QList>
#include <QNetworkInterface>
#include <QObject>
#include <QUdpSocket>

#include <functional>

namespace orrin::demo {

/*! Where the site is announced. A plain value. */
struct DiscoverySettings
{
    QHostAddress address; //!< the address that the recorders listen on; AnyIPv4 is all networks
    quint16 port = 3702;  //!< 0 is any free port
};

/*!
    Answers clients that look for recorders by WS-Discovery, and says when recorders come and go. IPv4. GUI thread.

    Clients are heard at the address of the recorders and, by multicast, on the interface of that address: on the loopback interface alone
    unless the server listens elsewhere. At most 100 questions a second are answered.
*/
class DiscoveryService : public QObject
{
    Q_OBJECT

public:
    using Devices = std::function<QList<DiscoverableDevice>()>;

    /*! \a devices gives those that are there at the moment, and lives as long as the service. */
    DiscoveryService(const DiscoverySettings &settings, Devices devices);
    /*! Takes leave for the devices that are there. */
    ~DiscoveryService() override;

    /*! Opens the port and announces all devices. False, with \a error set, when the port is taken by a program that does not share
        it or the address is no IPv4 address. Without multicast on the machine it answers direct questions alone. */
    bool start(QString *error);

    /*! 0 before start(). */
    quint16 port() const { return m_unicast.localPort(); }

    void sendHello(const DiscoverableDevice &device);
    void sendBye(const DiscoverableDevice &device);

private:
    void joinGroup();
    void readSome(QUdpSocket &socket);
    void answer(const ProbeRequest &request, const QNetworkDatagram &question);
    bool mayAnswer();
    QString hostFor(const QNetworkDatagram &question) const;

    const DiscoverySettings m_settings;
    const Devices m_devices;
    DiscoveryMessages m_messages;
    QUdpSocket m_unicast; // direct questions, and all that is sent
    QUdpSocket m_group;   // questions to everybody
    QList<QNetworkInterface> m_interfaces; // those where the group was joined
    QElapsedTimer m_second;
    int m_answeredInSecond = 0;
};

} // namespace orrin::demo
