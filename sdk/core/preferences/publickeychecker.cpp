// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/publickeychecker.h>

#include "core/preferences/settingspath.h"

#include <QSettings>

namespace orrin {

namespace {

QString keysFile()
{
    return settingsFilePath(QStringLiteral("keys"));
}

// Host names do not care for case; the slash would make a group of the key.
QString entryFor(const QString &targetAndPort)
{
    return QStringLiteral("keys/") + targetAndPort.toLower().replace(u'/', u'_');
}

} // namespace

void PublicKeyChecker::setDerKey(const QString &targetAndPort, const QByteArray &derKey)
{
    if (targetAndPort.isEmpty() || derKey.isEmpty())
        return;
    QSettings settings(keysFile(), QSettings::IniFormat);
    settings.setValue(entryFor(targetAndPort), QString::fromLatin1(derKey.toBase64()));
    settings.sync();
}

QByteArray PublicKeyChecker::derKey(const QString &targetAndPort)
{
    const QSettings settings(keysFile(), QSettings::IniFormat);
    const auto decoded =
        QByteArray::fromBase64Encoding(settings.value(entryFor(targetAndPort)).toString().toLatin1(),
                                       QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? *decoded : QByteArray();
}

void PublicKeyChecker::removeDerKey(const QString &targetAndPort)
{
    QSettings settings(keysFile(), QSettings::IniFormat);
    settings.remove(entryFor(targetAndPort));
    settings.sync();
}

} // namespace orrin
