// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/preferences/settingspath.h"

#include <contract/core/orrinsdk.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>

namespace orrin {

QString settingsFilePath(const QString &part)
{
    const OrrinSDK *sdk = OrrinSDK::instance();
    QString organisation = sdk ? sdk->localConfigOrganisationName() : QString();
    QString application = sdk ? sdk->localConfigApplicationName() : QString();
    if (organisation.isEmpty())
        organisation = QCoreApplication::organizationName();
    if (application.isEmpty())
        application = QCoreApplication::applicationName();
    const QSettings applicationSettings(QSettings::IniFormat, QSettings::UserScope, organisation,
                                        application);
    const QFileInfo file(applicationSettings.fileName());
    QString name = part.toLower();
    name.replace(u'/', u'-');
    return file.path() + u'/' + file.completeBaseName() + u'.' + name + QLatin1StringView(".ini");
}

} // namespace orrin
