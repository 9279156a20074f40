// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/digestauthenticator.h"

#include <QCryptographicHash>
#include <QHash>
#include <QRandomGenerator>

#include <vector>

namespace orrin {

namespace {

constexpr qsizetype LongestHeader = 8192;

struct Challenge
{
    QByteArray scheme;
    QHash<QByteArray, QByteArray> parameters;
};

bool isTokenCharacter(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
           QByteArrayView("!#$%&'*+-.^_`|~").contains(c);
}

/*! Cuts the value of a WWW-Authenticate header, which may hold several challenges, into its parts. */
class ChallengeReader
{
public:
    explicit ChallengeReader(const QByteArray &text) : m_text(text) {}

    std::vector<Challenge> read()
    {
        std::vector<Challenge> challenges;
        while (skipTo(), m_at < m_text.size()) {
            const QByteArray token = readToken();
            if (token.isEmpty())
                return challenges;
            skipBlanks();
            if (m_at < m_text.size() && m_text.at(m_at) == '=' && !challenges.empty()) {
                ++m_at;
                skipBlanks();
                challenges.back().parameters.insert(token.toLower(), readValue());
            } else {
                challenges.push_back({token.toLower(), {}});
            }
        }
        return challenges;
    }

private:
    void skipBlanks()
    {
        while (m_at < m_text.size() && (m_text.at(m_at) == ' ' || m_text.at(m_at) == '\t'))
            ++m_at;
    }
    void skipTo()
    {
        while (m_at < m_text.size() && QByteArrayView(" \t,\r\n").contains(m_text.at(m_at)))
            ++m_at;
    }
    QByteArray readToken()
    {
        const qsizetype start = m_at;
        while (m_at < m_text.size() && isTokenCharacter(m_text.at(m_at)))
            ++m_at;
        return m_text.mid(start, m_at - start);
    }
    QByteArray readValue()
    {
        if (m_at >= m_text.size() || m_text.at(m_at) != '"')
            return readToken();
        QByteArray value;
        for (++m_at; m_at < m_text.size() && m_text.at(m_at) != '"'; ++m_at) {
            if (m_text.at(m_at) == '\\' && m_at + 1 < m_text.size())
                ++m_at;
            value += m_text.at(m_at);
        }
        ++m_at;
        return value;
    }

    const QByteArray m_text;
    qsizetype m_at = 0;
};

QByteArray quoted(const QByteArray &text)
{
    QByteArray escaped = text;
    // A line end in a name would begin another header.
    escaped.replace('\r', "").replace('\n', "");
    escaped.replace('\\', "\\\\").replace('"', "\\\"");
    return '"' + escaped + '"';
}

} // namespace

bool DigestAuthenticator::setChallenge(const QList<QByteArray> &headers)
{
    const Challenge *best = nullptr;
    int bestRank = -1;
    std::vector<Challenge> challenges;
    for (const QByteArray &header : headers) {
        if (header.size() > LongestHeader)
            continue;
        for (Challenge &challenge : ChallengeReader(header).read())
            challenges.push_back(std::move(challenge));
    }
    static const QList<QByteArray> Names = {"md5", "md5-sess", "sha-256", "sha-256-sess"};
    for (const Challenge &challenge : challenges) {
        const QByteArray name = challenge.parameters.value("algorithm", "md5").toLower();
        const int rank = static_cast<int>(Names.indexOf(name));
        const bool qopFits =
            !challenge.parameters.contains("qop") ||
            challenge.parameters.value("qop").toLower().replace(' ', "").split(',').contains("auth");
        if (challenge.scheme != "digest" || challenge.parameters.value("nonce").isEmpty() || rank < 0 ||
            !qopFits)
            continue;
        if (rank > bestRank) {
            best = &challenge;
            bestRank = rank;
        }
    }
    if (!best)
        return false;
    m_algorithm = static_cast<Algorithm>(bestRank);
    m_algorithmName = best->parameters.value("algorithm");
    m_realm = best->parameters.value("realm");
    m_nonce = best->parameters.value("nonce");
    m_opaque = best->parameters.value("opaque");
    m_qopAuth = best->parameters.contains("qop");
    m_stale = best->parameters.value("stale").toLower() == "true";
    m_count = 0;
    return true;
}

QByteArray DigestAuthenticator::hash(const QByteArray &text) const
{
    const bool sha = m_algorithm == Algorithm::Sha256 || m_algorithm == Algorithm::Sha256Session;
    return QCryptographicHash::hash(text, sha ? QCryptographicHash::Sha256 : QCryptographicHash::Md5).toHex();
}

QByteArray DigestAuthenticator::authorization(const QByteArray &method, const QByteArray &uri,
                                              const Credentials &credentials)
{
    const QByteArray user = credentials.user.toUtf8();
    const QByteArray count = QByteArray::number(++m_count, 16).rightJustified(8, '0');
    const QByteArray clientNonce = QByteArray::number(QRandomGenerator::system()->generate64(), 16);
    QByteArray secret = hash(user + ':' + m_realm + ':' + credentials.password.toUtf8());
    if (m_algorithm == Algorithm::Md5Session || m_algorithm == Algorithm::Sha256Session)
        secret = hash(secret + ':' + m_nonce + ':' + clientNonce);
    const QByteArray request = hash(method + ':' + uri);
    const QByteArray response =
        m_qopAuth ? hash(secret + ':' + m_nonce + ':' + count + ':' + clientNonce + ":auth:" + request)
                  : hash(secret + ':' + m_nonce + ':' + request);

    QByteArray value = "Digest username=" + quoted(user) + ", realm=" + quoted(m_realm) +
                       ", nonce=" + quoted(m_nonce) + ", uri=" + quoted(uri) + ", response=\"" + response +
                       '"';
    if (!m_algorithmName.isEmpty())
        value += ", algorithm=" + m_algorithmName;
    if (!m_opaque.isEmpty())
        value += ", opaque=" + quoted(m_opaque);
    if (m_qopAuth)
        value += ", qop=auth, nc=" + count + ", cnonce=\"" + clientNonce + '"';
    return value;
}

} // namespace orrin
