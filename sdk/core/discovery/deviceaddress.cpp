// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/discovery/deviceaddress.h"

#include <contract/util/corvaneurl.h>

#include <QNetworkInterface>
#include <QUrl>

#include <algorithm>
#include <limits>

namespace orrin::discovery {

using namespace Qt::StringLiterals;

namespace {

enum Nearness : int { Reachable, OtherNetwork, HostName, Ipv6, Unusable };

bool isOwn(const QHostAddress &address, const QList<Subnet> &subnets)
{
    return std::ranges::any_of(subnets, [&address](const Subnet &subnet) { return address.isInSubnet(subnet); });
}

/*! Whether \a host can be a name. What ends like a number is an address that was written so that it looks like none. */
bool isName(const QString &host)
{
    const QStringView last = QStringView(host).sliced(host.lastIndexOf(u'.') + 1);
    return !last.isEmpty() && !last.front().isDigit();
}

Nearness nearness(const QString &host, const QHostAddress &address, const QHostAddress &sender, const QList<Subnet> &subnets)
{
    if (address.isNull())
        return isName(host) ? HostName : Unusable;
    if (address == QHostAddress(QHostAddress::AnyIPv4) || address == QHostAddress(QHostAddress::AnyIPv6) ||
        address.isMulticast() || address.isBroadcast() || (address.isLoopback() && !sender.isLoopback()))
        return Unusable;
    if (address.protocol() == QAbstractSocket::IPv6Protocol) {
        // A link-local IPv6 address says nothing without the interface, which the device cannot know; an IPv4 address in IPv6 clothes
        // only hides which one it is.
        bool isIpv4 = false;
        address.toIPv4Address(&isIpv4);
        return isIpv4 || address.isLinkLocal() ? Unusable : Ipv6;
    }
    if (address == sender || isOwn(address, subnets))
        return Reachable;
    return address.isLinkLocal() ? Unusable : OtherNetwork;
}

struct Candidate
{
    QString hostAndPort;
    int rank = std::numeric_limits<int>::max(); // lower is better
};

Candidate candidateOf(const QString &text, const QHostAddress &sender, const QList<Subnet> &subnets)
{
    const QUrl url(text, QUrl::StrictMode);
    const bool secure = url.scheme() == "https"_L1;
    if (!url.isValid() || (!secure && url.scheme() != "http"_L1) || !url.userInfo().isEmpty() || url.port(1) == 0)
        return {};
    // Encoded, so that no letter of another alphabet passes for a similar one.
    const QString host = url.host(QUrl::FullyEncoded);
    const CorvaneUrl server(host.contains(u':') ? u'[' + host + u']' : host, url.port(secure ? 443 : 80));
    if (!server.isValid())
        return {};
    const bool local = server.host().compare("localhost"_L1, Qt::CaseInsensitive) == 0;
    const QHostAddress address = local ? QHostAddress(QHostAddress::LocalHost) : QHostAddress(server.host());
    const Nearness near = nearness(server.host(), address, sender, subnets);
    if (near == Unusable)
        return {};
    return {server.hostAndPort(), 4 * near + (secure ? 0 : 2) + (address == sender ? 0 : 1)};
}

} // namespace

QList<Subnet> ownSubnets()
{
    QList<Subnet> subnets;
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &interface : interfaces) {
        if (!interface.flags().testFlag(QNetworkInterface::IsUp))
            continue;
        const QList<QNetworkAddressEntry> entries = interface.addressEntries();
        for (const QNetworkAddressEntry &entry : entries) {
            if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol && entry.prefixLength() > 0)
                subnets.append({entry.ip(), entry.prefixLength()});
        }
    }
    return subnets;
}

QString bestAddress(const QStringList &urls, const QHostAddress &sender, const QList<Subnet> &subnets)
{
    Candidate best;
    for (const QString &url : urls) {
        const Candidate candidate = candidateOf(url, sender, subnets);
        if (candidate.rank < best.rank)
            best = candidate;
    }
    return best.hostAndPort;
}

} // namespace orrin::discovery
