// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

namespace orrin::rtsp {

/*! Answers the challenges of a server: digest by RFC 7616 with SHA-256 or MD5, with qop "auth" or without. "Basic" is answered only where
    it is allowed, which is over TLS. Keeps the password in memory; gives it to nobody. */
class ORRINSDK_CORE_EXPORT DigestAuthenticator
{
public:
    void setCredentials(const QString &user, const QString &password, bool allowBasic);

    /*! Takes the values of the WWW-Authenticate headers of a 401. False when none of them can be answered. */
    bool challenge(const QList<QByteArray> &challenges);

    /*! The value of the Authorization header; empty before a challenge. */
    QByteArray authorization(QByteArrayView method, QByteArrayView uri);

    /*! For tests: a fixed client nonce instead of a random one. */
    void setClientNonce(const QByteArray &nonce) { m_clientNonce = nonce; }

private:
    enum class Scheme { None, Basic, DigestMd5, DigestSha256 };
    struct Challenge
    {
        Scheme scheme = Scheme::None;
        QByteArray realm;
        QByteArray nonce;
        QByteArray opaque;
        bool qopAuth = false;
        bool namesAlgorithm = false;
    };

    Challenge parse(QByteArrayView text) const;
    QByteArray hash(const QByteArray &text) const;

    QByteArray m_user;
    QByteArray m_password;
    bool m_allowBasic = false;
    Challenge m_challenge;
    unsigned m_nonceCount = 0;
    QByteArray m_clientNonce;
};

} // namespace orrin::rtsp
