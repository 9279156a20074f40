// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/digestauthenticator.h"

#include "core/stream/rtsp/parameterlist.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

#include <utility>

namespace orrin::rtsp {

namespace {

QByteArray quoted(QByteArray value)
{
    value.replace('\\', "\\\\");
    value.replace('"', "\\\"");
    return '"' + value + '"';
}

} // namespace

void DigestAuthenticator::setCredentials(const QString &user, const QString &password, bool allowBasic)
{
    m_user = user.toUtf8();
    m_password = password.toUtf8();
    m_allowBasic = allowBasic;
    m_challenge = {};
}

bool DigestAuthenticator::challenge(const QList<QByteArray> &challenges)
{
    Challenge best;
    for (const QByteArray &text : challenges) {
        const Challenge candidate = parse(text);
        if (candidate.scheme > best.scheme)
            best = candidate;
    }
    if (best.scheme == Scheme::None || m_user.isEmpty())
        return false;
    m_challenge = best;
    m_nonceCount = 0;
    return true;
}

DigestAuthenticator::Challenge DigestAuthenticator::parse(QByteArrayView text) const
{
    text = text.trimmed();
    const qsizetype space = text.indexOf(' ');
    const QByteArray scheme = (space < 0 ? text : text.first(space)).toByteArray().toLower();
    Challenge challenge;
    if (scheme == "basic") {
        challenge.scheme = m_allowBasic ? Scheme::Basic : Scheme::None;
        return challenge;
    }
    if (scheme != "digest" || space < 0)
        return challenge;
    const ParameterList parameters(text.sliced(space + 1), ',');
    challenge.realm = parameters.value("realm");
    challenge.nonce = parameters.value("nonce");
    challenge.opaque = parameters.value("opaque");
    const QByteArray algorithm = parameters.value("algorithm").toLower();
    challenge.namesAlgorithm = !algorithm.isEmpty();
    const QByteArray qop = parameters.value("qop").toLower();
    for (const QByteArray &option : qop.split(','))
        challenge.qopAuth |= option.trimmed() == "auth";
    const bool answerable = !challenge.nonce.isEmpty() && (qop.isEmpty() || challenge.qopAuth);
    if (answerable && (algorithm.isEmpty() || algorithm == "md5"))
        challenge.scheme = Scheme::DigestMd5;
    else if (answerable && algorithm == "sha-256")
        challenge.scheme = Scheme::DigestSha256;
    return challenge;
}

QByteArray DigestAuthenticator::hash(const QByteArray &text) const
{
    const bool sha = m_challenge.scheme == Scheme::DigestSha256;
    return QCryptographicHash::hash(text, sha ? QCryptographicHash::Sha256 : QCryptographicHash::Md5).toHex();
}

QByteArray DigestAuthenticator::authorization(QByteArrayView method, QByteArrayView uri)
{
    if (m_challenge.scheme == Scheme::None)
        return {};
    if (m_challenge.scheme == Scheme::Basic)
        return "Basic " + (m_user + ':' + m_password).toBase64();

    const QByteArray secret = hash(m_user + ':' + m_challenge.realm + ':' + m_password);
    const QByteArray request = hash(method.toByteArray() + ':' + uri.toByteArray());
    QByteArray value = "Digest username=" + quoted(m_user) + ", realm=" + quoted(m_challenge.realm)
        + ", nonce=" + quoted(m_challenge.nonce) + ", uri=" + quoted(uri.toByteArray());
    QByteArray response;
    if (m_challenge.qopAuth) {
        if (m_clientNonce.isEmpty())
            m_clientNonce = QByteArray::number(QRandomGenerator::system()->generate64(), 16);
        const QByteArray count = QByteArray::number(++m_nonceCount, 16).rightJustified(8, '0');
        response = hash(secret + ':' + m_challenge.nonce + ':' + count + ':' + m_clientNonce + ":auth:" + request);
        value += ", qop=auth, nc=" + count + ", cnonce=" + quoted(m_clientNonce);
    } else {
        response = hash(secret + ':' + m_challenge.nonce + ':' + request);
    }
    value += ", response=" + quoted(response);
    if (m_challenge.namesAlgorithm)
        value += m_challenge.scheme == Scheme::DigestSha256 ? ", algorithm=SHA-256" : ", algorithm=MD5";
    if (!m_challenge.opaque.isEmpty())
        value += ", opaque=" + quoted(m_challenge.opaque);
    return value;
}

} // namespace orrin::rtsp
