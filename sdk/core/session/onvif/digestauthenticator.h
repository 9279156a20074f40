// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/credentials.h"

#include <contract/core/export.h>

#include <QByteArray>
#include <QList>

namespace orrin {

/*! HTTP digest access authentication (RFC 7616: MD5 and SHA-256, qop "auth" or none) for one service.

    It answers digest challenges only. A challenge for anything weaker is left unanswered, so that no password
    leaves in the clear, whatever a device or somebody in between asks for. Not thread-safe. */
class ORRINSDK_CORE_EXPORT DigestAuthenticator
{
public:
    /*! Takes the best challenge of \a headers, the values of WWW-Authenticate; false, with nothing changed,
     * when none is usable. */
    bool setChallenge(const QList<QByteArray> &headers);
    bool hasChallenge() const { return !m_nonce.isEmpty(); }
    /*! The last challenge said that only the nonce is too old. */
    bool isStale() const { return m_stale; }

    /*! The value of Authorization for a request; each call counts the nonce on. */
    QByteArray authorization(const QByteArray &method, const QByteArray &uri, const Credentials &credentials);

private:
    enum class Algorithm { Md5, Md5Session, Sha256, Sha256Session };

    QByteArray hash(const QByteArray &text) const;

    Algorithm m_algorithm = Algorithm::Md5;
    QByteArray m_algorithmName;
    QByteArray m_realm;
    QByteArray m_nonce;
    QByteArray m_opaque;
    bool m_qopAuth = false;
    bool m_stale = false;
    quint32 m_count = 0;
};

} // namespace orrin
