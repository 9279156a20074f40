// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/usernametoken.h"

#include "onvif/namespaces.h"

#include <QCryptographicHash>
#include <QDateTime>

namespace orrin::demo {

namespace {
constexpr qsizetype MaximumNonce = 64;
constexpr qsizetype MaximumUsedNonces = 20000;

qint64 windowMs()
{
    return std::chrono::milliseconds(UsernameToken::Window).count();
}

bool provesPassword(const XmlElement &token, const Accounts &accounts)
{
    const XmlElement *password = token.child(u"Password");
    const std::optional<User> user = accounts.user(token.childText(u"Username"));
    if (!password || !user || password->attributes.value(QStringLiteral("Type")) != ns::PasswordDigest)
        return false;
    const QByteArray nonce = QByteArray::fromBase64(token.childText(u"Nonce").toLatin1());
    if (nonce.isEmpty() || nonce.size() > MaximumNonce)
        return false;
    const QByteArray created = token.childText(u"Created").toUtf8();
    const QByteArray digest =
        QCryptographicHash::hash(nonce + created + user->password.toUtf8(), QCryptographicHash::Sha1);
    return digest == QByteArray::fromBase64(password->text.trimmed().toLatin1());
}

} // namespace

UsernameToken::Outcome UsernameToken::check(const XmlElement &token, const Accounts &accounts)
{
    if (!provesPassword(token, accounts))
        return Outcome::Wrong;
    const QDateTime created = QDateTime::fromString(token.childText(u"Created"), Qt::ISODateWithMs);
    const qint64 now = m_clock.nowMs();
    if (!created.isValid() || qAbs(created.toMSecsSinceEpoch() - now) > windowMs())
        return Outcome::Stale;
    // Only proven tokens get here, so the table grows by what users of the site send.
    m_usedUntilMs.removeIf([now](const auto &used) { return used.value() < now; });
    const QByteArray key = token.childText(u"Nonce").toLatin1();
    if (m_usedUntilMs.contains(key) || m_usedUntilMs.size() >= MaximumUsedNonces)
        return Outcome::Stale;
    m_usedUntilMs.insert(key, created.toMSecsSinceEpoch() + windowMs());
    return Outcome::Accepted;
}

} // namespace orrin::demo
