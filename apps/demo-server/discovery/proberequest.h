// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

#include <optional>

namespace orrin::demo {

/*! The question of a client that looks for devices. A plain value. */
struct ProbeRequest
{
    static constexpr qsizetype DatagramLimit = 32 * 1024; //!< bytes

    QString messageId;
    QList<QPair<QString, QString>> types; //!< namespace and name; all must be met
    QStringList scopes;                   //!< all must be met
    QString matchBy;                      //!< how scopes are compared; empty: by the segments of their paths

    /*! Reads \a datagram; nothing when it is no Probe. */
    static std::optional<ProbeRequest> parse(const QByteArray &datagram);

    /*! Whether a device of the kinds that ONVIF names, with \a deviceScopes, is among those looked for. */
    bool matches(const QStringList &deviceScopes) const;
};

} // namespace orrin::demo
