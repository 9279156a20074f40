// SPDX-License-Identifier: GPL-3.0-or-later
#include "discovery/discoveryservice.h"

#include "discovery/discoverynames.h"

#include <QNetworkDatagram>
#include <QNetworkProxy>

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr int DatagramsAtOnce = 64;
constexpr int AnswersInSecond = 100;
constexpr qsizetype MaximumInterfaces = 16;

/*! The first IPv4 address of \a interface, null without one. */
QHostAddress addressOf(const QNetworkInterface &interface)
{
    const QList<QNetworkAddressEntry> entries = interface.addressEntries();
    for (const QNetworkAddressEntry &entry : entries) {
        if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol)
            return entry.ip();
    }
    return {};
}

bool hasAddress(const QNetworkInterface &interface, const QHostAddress &address)
{
    const QList<QNetworkAddressEntry> entries = interface.addressEntries();
    return std::ranges::any_of(entries, [&address](const QNetworkAddressEntry &entry) { return entry.ip() == address; });
}

} // namespace

DiscoveryService::DiscoveryService(const DiscoverySettings &settings, Devices devices)
    : m_settings(settings), m_devices(std::move(devices))
{
    for (QUdpSocket *socket : {&m_unicast, &m_group}) {
        socket->setProxy(QNetworkProxy::NoProxy);
        connect(socket, &QUdpSocket::readyRead, this, [this, socket] { readSome(*socket); });
    }
}

DiscoveryService::~DiscoveryService()
{
    if (port() == 0)
        return;
    const QList<DiscoverableDevice> devices = m_devices();
    for (const DiscoverableDevice &device : devices)
        sendBye(device);
}

bool DiscoveryService::start(QString *error)
{
    if (m_settings.address.protocol() != QAbstractSocket::IPv4Protocol) {
        *error = u"WS-Discovery needs an IPv4 address"_s;
        return false;
    }
    // Other programs of this machine listen on the standard port too.
    constexpr auto Shared = QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint;
    if (!m_unicast.bind(m_settings.address, m_settings.port, Shared)) {
        *error = u"WS-Discovery port %1: %2"_s.arg(QString::number(m_settings.port), m_unicast.errorString());
        return false;
    }
    if (m_group.bind(QHostAddress(discovery::Group), port(), Shared))
        joinGroup();
    const QList<DiscoverableDevice> devices = m_devices();
    for (const DiscoverableDevice &device : devices)
        sendHello(device);
    return true;
}

void DiscoveryService::joinGroup()
{
    const bool everywhere = m_settings.address == QHostAddress(QHostAddress::AnyIPv4);
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &interface : interfaces) {
        if (m_interfaces.size() >= MaximumInterfaces || !interface.flags().testFlag(QNetworkInterface::IsUp) ||
            addressOf(interface).isNull())
            continue;
        // The whole of 127.0.0.0/8 belongs to the loopback interface, which lists its first address alone.
        const bool own = m_settings.address.isLoopback() ? interface.flags().testFlag(QNetworkInterface::IsLoopBack)
                                                         : hasAddress(interface, m_settings.address);
        if ((everywhere || own) && m_group.joinMulticastGroup(QHostAddress(discovery::Group), interface))
            m_interfaces.append(interface);
    }
}

void DiscoveryService::readSome(QUdpSocket &socket)
{
    for (int left = DatagramsAtOnce; socket.hasPendingDatagrams(); --left) {
        if (left == 0) {
            QMetaObject::invokeMethod(this, [this, &socket] { readSome(socket); }, Qt::QueuedConnection);
            return;
        }
        const QNetworkDatagram question = socket.receiveDatagram(ProbeRequest::DatagramLimit + 1);
        if (!question.isValid() || question.senderPort() <= 0)
            continue;
        // The system hands over what other programs have joined the group for as well.
        const bool elsewhere = &socket == &m_group && std::ranges::none_of(m_interfaces, [&question](const QNetworkInterface &interface) {
            return interface.index() == int(question.interfaceIndex());
        });
        if (elsewhere)
            continue;
        if (const std::optional<ProbeRequest> request = ProbeRequest::parse(question.data()); request && mayAnswer())
            answer(*request, question);
    }
}

bool DiscoveryService::mayAnswer()
{
    if (!m_second.isValid() || m_second.hasExpired(1000)) {
        m_second.start();
        m_answeredInSecond = 0;
    }
    return ++m_answeredInSecond <= AnswersInSecond;
}

void DiscoveryService::answer(const ProbeRequest &request, const QNetworkDatagram &question)
{
    const QString host = hostFor(question);
    if (host.isEmpty())
        return;
    // Each recorder answers for itself, as devices of their own do.
    const QList<DiscoverableDevice> devices = m_devices();
    for (const DiscoverableDevice &device : devices) {
        if (device.httpsPort != 0 && request.matches(device.scopes))
            m_unicast.writeDatagram(m_messages.probeMatch(device, request.messageId, host), question.senderAddress(),
                                    quint16(question.senderPort()));
    }
}

QString DiscoveryService::hostFor(const QNetworkDatagram &question) const
{
    if (m_settings.address != QHostAddress(QHostAddress::AnyIPv4))
        return m_settings.address.toString();
    const QHostAddress asked = question.destinationAddress();
    if (!asked.isNull() && !asked.isMulticast() && !asked.isBroadcast())
        return asked.toString();
    return addressOf(QNetworkInterface::interfaceFromIndex(int(question.interfaceIndex()))).toString();
}

void DiscoveryService::sendHello(const DiscoverableDevice &device)
{
    if (device.httpsPort == 0)
        return;
    const bool everywhere = m_settings.address == QHostAddress(QHostAddress::AnyIPv4);
    for (const QNetworkInterface &interface : std::as_const(m_interfaces)) {
        m_unicast.setMulticastInterface(interface);
        const QHostAddress host = everywhere ? addressOf(interface) : m_settings.address;
        m_unicast.writeDatagram(m_messages.hello(device, host.toString()), QHostAddress(discovery::Group), port());
    }
}

void DiscoveryService::sendBye(const DiscoverableDevice &device)
{
    for (const QNetworkInterface &interface : std::as_const(m_interfaces)) {
        m_unicast.setMulticastInterface(interface);
        m_unicast.writeDatagram(m_messages.bye(device), QHostAddress(discovery::Group), port());
    }
}

} // namespace orrin::demo
