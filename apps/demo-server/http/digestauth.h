// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/httprequest.h"
#include "site/accounts.h"

#include <QHash>

#include <chrono>

namespace orrin::demo {

/*!
    HTTP digest authentication by RFC 7616, with SHA-256 and MD5 and qop=auth. A nonce is valid for five
   minutes; it proves by a keyed hash that this server made it, and each of its counts is accepted once. GUI
   thread.
*/
class DigestAuth
{
public:
    enum class Outcome { NoCredentials, Wrong, Stale, Accepted };

    struct Result
    {
        Outcome outcome = Outcome::NoCredentials;
        QString user; //!< the name given, also where the password was wrong
    };

    static constexpr std::chrono::minutes NonceAge{5};

    explicit DigestAuth(const QString &realm);

    /*! Checks the request's Authorization header against the users. Nothing is counted or reported anywhere.
     */
    Result check(const HttpRequest &request, const Accounts &accounts);

    /*! The name in the Authorization header, with nothing proved; empty without a digest. */
    static QString claimedUser(const HttpRequest &request);

    /*! The values of the WWW-Authenticate headers of a 401, one for each algorithm, the better first. */
    QList<QByteArray> challenges(bool stale);

    /*! The parameters of a header "Digest name=value, …"; empty when it is something else or malformed. */
    static QHash<QByteArray, QByteArray> parse(const QByteArray &header);

private:
    struct Counts
    {
        quint32 highest = 0;
        quint64 seen = 0; //!< bit i: highest - i was used
        qint64 expiresMs = 0;
    };

    QByteArray newNonce() const;
    QByteArray seal(const QByteArray &content) const;
    bool isOurs(const QByteArray &nonce, qint64 *ageMs) const;
    bool takeCount(const QByteArray &nonce, quint32 count);
    static qint64 nowMs();

    QByteArray m_realm;
    QByteArray m_secret;
    QHash<QByteArray, Counts> m_counts;
};

} // namespace orrin::demo
