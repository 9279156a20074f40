// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>

#include <QMetaType>
#include <QString>

namespace orrin {

/*! The address of a server: a host and a port.

    A value; safe to copy across threads. */
class ORRINSDK_UTIL_EXPORT CorvaneUrl
{
public:
    /*! No host, port 0. */
    CorvaneUrl() = default;

    /*! Parses \a hostAndPort: a host name, an IPv4 address, or an IPv6 address in brackets, with or without a colon
        and a port. An IPv6 address without brackets is taken whole as the host. Blanks around it are dropped; a port that is
        missing, no number or outside 1 to 65535 becomes \a defaultPort. What cannot be a host (blanks, control
        characters, a slash, an `@`, more than 253 characters) gives an empty host: ask isValid(). */
    CorvaneUrl(const QString &hostAndPort, int defaultPort);

    /*! The host alone, without brackets. */
    const QString &host() const { return m_host; }
    int port() const { return m_port; }
    bool isValid() const { return !m_host.isEmpty(); }

    /*! Host, colon and port; an IPv6 host stands in brackets. Empty when there is no host. */
    QString hostAndPort() const;

    friend bool operator==(const CorvaneUrl &, const CorvaneUrl &) = default;

private:
    QString m_host;
    int m_port = 0;
};

} // namespace orrin

Q_DECLARE_METATYPE(orrin::CorvaneUrl)
