// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/discovery/devicefinder_p.h"

#include "core/discovery/discoverynames.h"
#include "core/discovery/probeanswer.h"
#include "core/discovery/probemessage.h"

#include <contract/util/corvaneurl.h>

#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QNetworkProxy>
#include <QPointer>

#include <algorithm>
#include <array>

namespace orrin {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using discovery::ProbeAnswer;
using discovery::ProbeMessage;

namespace {

constexpr std::size_t SocketLimit = 32;
constexpr qsizetype SenderLimit = 1024;
constexpr qsizetype SenderByteLimit = 512 * 1024;
constexpr qsizetype ByteLimit = 16 * 1024 * 1024;
constexpr int DatagramsAtOnce = 64;
// The pauses after each round of questions.
constexpr std::array ProbePauses{300ms, 600ms, 1200ms};

} // namespace

DeviceFinderPrivate::DeviceFinderPrivate(DeviceFinder *finder) : q(finder)
{
    for (QTimer *timer : {&m_durationTimer, &m_probeTimer, &m_readTimer})
        timer->setSingleShot(true);
    QObject::connect(&m_durationTimer, &QTimer::timeout, q, [this] { finish(); });
    QObject::connect(&m_probeTimer, &QTimer::timeout, q, [this] { sendProbes(); });
    QObject::connect(&m_readTimer, &QTimer::timeout, q, [this] { readSome(); });
}

void DeviceFinderPrivate::start(std::chrono::milliseconds duration)
{
    stop();
    ++m_search;
    searching = true;
    error = DeviceFinder::Error::NoError;
    m_subnets = discovery::ownSubnets();
    if (multicast)
        addMulticastTargets();
    addProbeTargets();
    m_durationTimer.start(std::clamp<std::chrono::milliseconds>(duration, 100ms, 60s));
    sendProbes();
}

void DeviceFinderPrivate::stop()
{
    searching = false;
    for (QTimer *timer : {&m_durationTimer, &m_probeTimer, &m_readTimer})
        timer->stop();
    m_targets.clear();
    m_sockets.clear();
    m_questions.clear();
    m_round = 0;
    m_senders.clear();
    m_bytes = 0;
    m_uuids.clear();
    m_addresses.clear();
    m_nextSocket = 0;
}

void DeviceFinderPrivate::finish()
{
    stop();
    Q_EMIT q->finished();
}

void DeviceFinderPrivate::addMulticastTargets()
{
    const QHostAddress group(discovery::Group);
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &interface : interfaces) {
        const QNetworkInterface::InterfaceFlags flags = interface.flags();
        // The loopback interface has multicast on most systems without saying so.
        if (!flags.testFlag(QNetworkInterface::IsUp) || !flags.testFlag(QNetworkInterface::IsRunning) ||
            !(flags & (QNetworkInterface::CanMulticast | QNetworkInterface::IsLoopBack)))
            continue;
        const QList<QNetworkAddressEntry> entries = interface.addressEntries();
        const auto entry = std::ranges::find_if(entries, [](const QNetworkAddressEntry &candidate) {
            return candidate.ip().protocol() == QAbstractSocket::IPv4Protocol;
        });
        if (entry == entries.cend())
            continue;
        if (QUdpSocket *socket = openSocket(entry->ip())) {
            socket->setMulticastInterface(interface);
            m_targets.push_back({socket, group, discovery::Port});
        }
    }
}

void DeviceFinderPrivate::addProbeTargets()
{
    QUdpSocket *loopbackSocket = nullptr;
    QUdpSocket *socket = nullptr;
    for (const QString &text : std::as_const(probeAddresses)) {
        const CorvaneUrl url(text, discovery::Port);
        const QHostAddress address(url.host());
        if (address.protocol() != QAbstractSocket::IPv4Protocol || address.isMulticast())
            continue;
        // Nobody else can reach a socket at the loopback address.
        QUdpSocket *&chosen = address.isLoopback() ? loopbackSocket : socket;
        if (!chosen)
            chosen = openSocket(address.isLoopback() ? QHostAddress(QHostAddress::LocalHost) : QHostAddress(QHostAddress::AnyIPv4));
        if (chosen)
            m_targets.push_back({chosen, address, quint16(url.port())});
    }
}

QUdpSocket *DeviceFinderPrivate::openSocket(const QHostAddress &address)
{
    if (m_sockets.size() >= SocketLimit)
        return nullptr;
    auto socket = std::make_unique<QUdpSocket>();
    socket->setProxy(QNetworkProxy::NoProxy);
    if (!socket->bind(address, 0))
        return nullptr;
    QObject::connect(socket.get(), &QUdpSocket::readyRead, q, [this] {
        if (!m_readTimer.isActive())
            m_readTimer.start(0);
    });
    m_sockets.push_back(std::move(socket));
    return m_sockets.back().get();
}

void DeviceFinderPrivate::sendProbes()
{
    // Each round has new ids: a device need not answer the same message twice.
    bool sent = false;
    for (const auto type : {ProbeMessage::Type::NetworkVideoTransmitter, ProbeMessage::Type::Device}) {
        const ProbeMessage probe(type);
        m_questions.insert(probe.id());
        for (const Target &target : m_targets)
            sent = target.socket->writeDatagram(probe.datagram(), target.address, target.port) > 0 || sent;
    }
    if (!sent && m_round == 0) {
        error = DeviceFinder::Error::NoNetwork;
        m_durationTimer.start(0ms);
        return;
    }
    if (std::size_t(m_round) < ProbePauses.size())
        m_probeTimer.start(ProbePauses[std::size_t(m_round)]);
    ++m_round;
}

void DeviceFinderPrivate::readSome()
{
    // One datagram of each socket in turn, so that a flood on one network hides nobody on another.
    QList<FoundDevice> devices;
    int left = DatagramsAtOnce;
    std::size_t idle = 0;
    while (left > 0 && idle < m_sockets.size()) {
        QUdpSocket &socket = *m_sockets[m_nextSocket];
        m_nextSocket = (m_nextSocket + 1) % m_sockets.size();
        if (!socket.hasPendingDatagrams()) {
            ++idle;
            continue;
        }
        idle = 0;
        --left;
        // One byte more than allowed tells an answer that is too large.
        const QNetworkDatagram datagram = socket.receiveDatagram(ProbeAnswer::DatagramLimit + 1);
        if (datagram.isValid())
            devices += devicesOf(datagram.data(), datagram.senderAddress());
    }
    if (left == 0)
        m_readTimer.start(0);

    const QPointer<DeviceFinder> guard(q);
    const quint64 search = m_search;
    for (const FoundDevice &device : std::as_const(devices)) {
        Q_EMIT q->found(device);
        if (!guard || !searching || m_search != search)
            return;
    }
}

QList<FoundDevice> DeviceFinderPrivate::devicesOf(const QByteArray &datagram, const QHostAddress &sender)
{
    if (m_uuids.size() >= DeviceFinder::DeviceLimit || !admit(sender, datagram.size()))
        return {};
    const std::optional<ProbeAnswer> answer = ProbeAnswer::read(datagram);
    if (!answer || !m_questions.contains(answer->relatesTo))
        return {};
    QList<FoundDevice> devices;
    for (const discovery::ProbeMatch &match : answer->matches)
        addDevice(match, sender, devices);
    return devices;
}

bool DeviceFinderPrivate::admit(const QHostAddress &sender, qsizetype bytes)
{
    if (m_bytes + bytes > ByteLimit || (!m_senders.contains(sender) && m_senders.size() >= SenderLimit))
        return false;
    Sender &account = m_senders[sender];
    if (account.bytes + bytes > SenderByteLimit)
        return false;
    account.bytes += bytes;
    m_bytes += bytes;
    return true;
}

void DeviceFinderPrivate::addDevice(const discovery::ProbeMatch &match, const QHostAddress &sender, QList<FoundDevice> &devices)
{
    Sender &account = m_senders[sender];
    if (m_uuids.size() >= DeviceFinder::DeviceLimit || account.devices >= DeviceFinder::SenderDeviceLimit || m_uuids.contains(match.uuid))
        return;
    const QString address = discovery::bestAddress(match.addresses, sender, m_subnets);
    // Some devices make up a new identity for each answer.
    if (address.isEmpty() || m_addresses.contains(address))
        return;
    m_uuids.insert(match.uuid);
    m_addresses.insert(address);
    ++account.devices;
    devices.append({match.name, address, match.hardware, match.scopes, match.uuid});
}

DeviceFinder::DeviceFinder(QObject *parent) : QObject(parent), d(std::make_unique<DeviceFinderPrivate>(this)) {}

DeviceFinder::~DeviceFinder() = default;

void DeviceFinder::setProbeAddresses(const QStringList &addresses)
{
    d->probeAddresses = addresses.first(std::min<qsizetype>(addresses.size(), ProbeAddressLimit));
}

QStringList DeviceFinder::probeAddresses() const
{
    return d->probeAddresses;
}

void DeviceFinder::setMulticastEnabled(bool enabled)
{
    d->multicast = enabled;
}

bool DeviceFinder::isMulticastEnabled() const
{
    return d->multicast;
}

void DeviceFinder::start(std::chrono::milliseconds duration)
{
    d->start(duration);
}

void DeviceFinder::stop()
{
    d->stop();
}

bool DeviceFinder::isSearching() const
{
    return d->searching;
}

DeviceFinder::Error DeviceFinder::error() const
{
    return d->error;
}

} // namespace orrin
