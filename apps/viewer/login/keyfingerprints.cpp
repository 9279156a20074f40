// SPDX-License-Identifier: GPL-3.0-or-later
#include "login/keyfingerprints.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/loginerror.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/publickeychecker.h>

#include <QCryptographicHash>
#include <QStringList>

using namespace Qt::StringLiterals;

KeyFingerprints::KeyFingerprints(QObject *parent) : QObject(parent)
{
    const orrin::OrrinSDK *sdk = orrin::OrrinSDK::instance();
    if (!sdk)
        return;
    connect(sdk->connectionManager(), &orrin::ConnectionManager::loginError, this, [this](const orrin::LoginError &error) {
        if (error.errorId() != orrin::LoginError::PublicKeyChanged)
            return;
        m_trusted = fingerprint(orrin::PublicKeyChecker::derKey(u"%1:%2"_s.arg(error.server).arg(error.port)));
        m_shown = fingerprint(error.loginData.negotiationData().derKey());
        Q_EMIT changed();
    });
}

QString KeyFingerprints::fingerprint(const QByteArray &derKey)
{
    if (derKey.isEmpty())
        return {};
    const QString digits = QString::fromLatin1(QCryptographicHash::hash(derKey, QCryptographicHash::Sha256).toHex(':').toUpper());
    constexpr qsizetype LineLength = 24;
    QStringList lines;
    for (qsizetype at = 0; at < digits.size(); at += LineLength)
        lines.append(digits.mid(at, LineLength - 1));
    return lines.join(u'\n');
}
