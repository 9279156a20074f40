// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QHostAddress>
#include <QList>
#include <QPair>
#include <QStringList>

namespace orrin::discovery {

/*! A network that this machine is part of: its address and the length of its prefix, as QHostAddress::isInSubnet() takes it. */
using Subnet = QPair<QHostAddress, int>;

/*! The networks of all interfaces that are up. Main thread. */
ORRINSDK_CORE_EXPORT QList<Subnet> ownSubnets();

/*! The best of the \a urls that a device gave for itself, as "host:port"; empty when none can be used.

    What is nearest goes first: the IPv4 address that the answer came from (\a sender) or one in a network of this machine (\a subnets), another
    IPv4 address, a host name, an IPv6 address; of those equally near, HTTPS before HTTP, then the sender's address, then the order given. Left out are other schemes,
    URLs with a user name, addresses of no single host, link-local ones elsewhere than in a network of this machine, and, unless the
    sender is this machine, loopback addresses. Any thread. */
ORRINSDK_CORE_EXPORT QString bestAddress(const QStringList &urls, const QHostAddress &sender, const QList<Subnet> &subnets);

} // namespace orrin::discovery
