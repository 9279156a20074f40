// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace orrin::discovery {

/*! One device of an answer, as it describes itself. A value. */
struct ProbeMatch
{
    QString uuid;          //!< never empty
    QString name;          //!< from its scopes, may be empty
    QString hardware;      //!< from its scopes, may be empty
    QStringList scopes;
    QStringList addresses; //!< URLs of its device service, unchecked
};

/*! The answer to a ProbeMessage. A value; safe on any thread.

    It comes from anybody by UDP. What is too large, broken or no answer is refused; lists and texts are cut. Devices that are no ONVIF
    devices, such as printers, which answer whatever they are asked for, are left out. */
struct ORRINSDK_CORE_EXPORT ProbeAnswer
{
    static constexpr qsizetype DatagramLimit = 32 * 1024; //!< bytes, as SOAP over UDP allows
    static constexpr qsizetype MatchLimit = 64;
    static constexpr qsizetype ScopeLimit = 64;
    static constexpr qsizetype ScopeLength = 256;
    static constexpr qsizetype AddressLimit = 16;
    static constexpr qsizetype AddressLength = 512;
    static constexpr qsizetype TextLength = 128; //!< characters of names and identities

    /*! Reads \a datagram; nothing when it is no answer. */
    static std::optional<ProbeAnswer> read(const QByteArray &datagram);

    QString relatesTo; //!< the id of the question, in the form of ProbeMessage::normalisedId()
    QList<ProbeMatch> matches;
};

} // namespace orrin::discovery
