// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/digestauth.h"

#include <QCryptographicHash>
#include <QMessageAuthenticationCode>
#include <QRandomGenerator>
#include <QtEndian>

namespace orrin::demo {

namespace {

constexpr qsizetype MaximumHeader = 8 * 1024;
constexpr qsizetype MaximumNonces = 4096;
constexpr qsizetype NonceContent = 16;
constexpr quint32 CountWindow = 64;

QByteArray randomBytes(qsizetype count)
{
    QByteArray bytes(count, Qt::Uninitialized);
    QRandomGenerator::system()->generate(bytes.begin(), bytes.end());
    return bytes;
}

QByteArray hexHash(QCryptographicHash::Algorithm algorithm, const QByteArray &data)
{
    return QCryptographicHash::hash(data, algorithm).toHex();
}

bool equalInConstantTime(const QByteArray &a, const QByteArray &b)
{
    if (a.size() != b.size())
        return false;
    int difference = 0;
    for (qsizetype i = 0; i < a.size(); ++i)
        difference |= a.at(i) ^ b.at(i);
    return difference == 0;
}

} // namespace

DigestAuth::DigestAuth(const QString &realm) : m_realm(realm.toUtf8()), m_secret(randomBytes(32)) {}

qint64 DigestAuth::nowMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

QHash<QByteArray, QByteArray> DigestAuth::parse(const QByteArray &header)
{
    if (header.size() > MaximumHeader || header.left(7).toLower() != "digest ")
        return {};
    QHash<QByteArray, QByteArray> parameters;
    qsizetype at = 7;
    const auto skip = [&header, &at](const char *characters) {
        while (at < header.size() && QByteArrayView(characters).contains(header.at(at)))
            ++at;
    };
    while (at < header.size()) {
        skip(" \t,");
        const qsizetype equals = header.indexOf('=', at);
        if (equals < 0)
            break;
        const QByteArray name = header.sliced(at, equals - at).trimmed().toLower();
        at = equals + 1;
        skip(" \t");
        QByteArray value;
        if (at < header.size() && header.at(at) == '"') {
            for (++at; at < header.size() && header.at(at) != '"'; ++at) {
                if (header.at(at) == '\\' && at + 1 < header.size())
                    ++at;
                value += header.at(at);
            }
            if (at >= header.size())
                return {};
            ++at;
        } else {
            const qsizetype end = header.indexOf(',', at);
            value = header.sliced(at, (end < 0 ? header.size() : end) - at).trimmed();
            at = end < 0 ? header.size() : end;
        }
        parameters.insert(name, value);
    }
    return parameters;
}

QString DigestAuth::claimedUser(const HttpRequest &request)
{
    return QString::fromUtf8(parse(request.authorization).value("username"));
}

DigestAuth::Result DigestAuth::check(const HttpRequest &request, const Accounts &accounts)
{
    const auto given = parse(request.authorization);
    if (given.isEmpty())
        return {request.authorization.isEmpty() ? Outcome::NoCredentials : Outcome::Wrong, {}};
    const QByteArray name = given.value("username");
    const QByteArray nonce = given.value("nonce");
    const Result wrong{Outcome::Wrong, QString::fromUtf8(name)};
    const QByteArray algorithmName = given.value("algorithm", "MD5").toUpper();
    if (algorithmName != "MD5" && algorithmName != "SHA-256")
        return wrong;
    const auto algorithm = algorithmName == "MD5" ? QCryptographicHash::Md5 : QCryptographicHash::Sha256;
    bool validCount = false;
    const quint32 count = given.value("nc").toUInt(&validCount, 16);
    if (given.value("realm") != m_realm || given.value("qop") != "auth" ||
        given.value("uri") != request.target || !validCount || count == 0 || given.value("nc").size() != 8 ||
        given.value("cnonce").isEmpty())
        return wrong;
    qint64 ageMs = 0;
    if (!isOurs(nonce, &ageMs))
        return {Outcome::Stale, wrong.user};
    const std::optional<User> user = accounts.user(wrong.user);
    const QByteArray password = user ? user->password.toUtf8() : m_secret;
    const QByteArray ha1 = hexHash(algorithm, name + ':' + m_realm + ':' + password);
    const QByteArray ha2 = hexHash(algorithm, request.method + ':' + request.target);
    const QByteArray expected = hexHash(algorithm, ha1 + ':' + nonce + ':' + given.value("nc") + ':' +
                                                       given.value("cnonce") + ":auth:" + ha2);
    if (!equalInConstantTime(expected, given.value("response").toLower()) || !user)
        return wrong;
    using namespace std::chrono;
    if (ageMs > duration_cast<milliseconds>(NonceAge).count() || !takeCount(nonce, count))
        return {Outcome::Stale, wrong.user};
    return {Outcome::Accepted, wrong.user};
}

QList<QByteArray> DigestAuth::challenges(bool stale)
{
    QList<QByteArray> values;
    const QByteArray nonce = newNonce();
    for (const char *algorithm : {"SHA-256", "MD5"}) {
        values.append("Digest realm=\"" + m_realm + "\", nonce=\"" + nonce +
                      "\", qop=\"auth\", algorithm=" + algorithm + (stale ? ", stale=true" : ""));
    }
    return values;
}

QByteArray DigestAuth::newNonce() const
{
    QByteArray content(8, Qt::Uninitialized);
    qToBigEndian<qint64>(nowMs(), content.data());
    content += randomBytes(NonceContent - content.size());
    return (content + seal(content)).toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
}

QByteArray DigestAuth::seal(const QByteArray &content) const
{
    return QMessageAuthenticationCode::hash(content, m_secret, QCryptographicHash::Sha256).left(16);
}

bool DigestAuth::isOurs(const QByteArray &nonce, qint64 *ageMs) const
{
    const QByteArray bytes =
        QByteArray::fromBase64(nonce, QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
    if (bytes.size() != NonceContent + 16 ||
        !equalInConstantTime(seal(bytes.left(NonceContent)), bytes.sliced(NonceContent)))
        return false;
    *ageMs = nowMs() - qFromBigEndian<qint64>(bytes.constData());
    return *ageMs >= 0;
}

bool DigestAuth::takeCount(const QByteArray &nonce, quint32 count)
{
    const qint64 now = nowMs();
    auto entry = m_counts.find(nonce);
    if (entry == m_counts.end()) {
        if (m_counts.size() >= MaximumNonces)
            m_counts.removeIf([now](const auto &old) { return old->expiresMs < now; });
        // Full of young nonces: the client is asked to come again with a new one rather than let replays
        // through.
        if (m_counts.size() >= MaximumNonces)
            return false;
        using namespace std::chrono;
        entry = m_counts.insert(nonce, Counts{0, 0, now + duration_cast<milliseconds>(NonceAge).count()});
    }
    if (count > entry->highest) {
        const quint32 shift = count - entry->highest;
        entry->seen = shift >= CountWindow ? 0 : entry->seen << shift;
        entry->seen |= 1;
        entry->highest = count;
        return true;
    }
    // Requests on several connections may overtake each other by a little.
    const quint32 behind = entry->highest - count;
    if (behind >= CountWindow || (entry->seen >> behind) & 1)
        return false;
    entry->seen |= quint64(1) << behind;
    return true;
}

} // namespace orrin::demo
