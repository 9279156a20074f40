// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace orrin::demo {

/*! A device as it is announced on the network. A plain value. */
struct DiscoverableDevice
{
    QString uuid; //!< without "urn:uuid:"
    QStringList scopes;
    quint16 httpsPort = 0; //!< 0: it is off the network at the moment
};

/*! Writes what a device says by WS-Discovery: one envelope a call, in UTF-8. One thread. */
class DiscoveryMessages
{
public:
    DiscoveryMessages();

    /*! The answer to the question \a messageId: the device can be reached at \a host, an IPv4 address. */
    QByteArray probeMatch(const DiscoverableDevice &device, const QString &messageId, const QString &host);
    /*! The device is there. */
    QByteArray hello(const DiscoverableDevice &device, const QString &host);
    /*! The device goes. */
    QByteArray bye(const DiscoverableDevice &device);

private:
    const qint64 m_instance; // grows from start to start
    quint32 m_messages = 0;
};

} // namespace orrin::demo
