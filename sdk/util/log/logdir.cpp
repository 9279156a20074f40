// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/log/logdir_p.h"

#include <contract/util/logdir.h>

#include <QCoreApplication>
#include <QDir>
#include <QMutex>
#include <QStandardPaths>

namespace orrin {

namespace {

struct Names
{
    QMutex mutex;
    QString organisation;
    QString application;
};

Names &names()
{
    static Names instance;
    return instance;
}

// A name becomes one folder, whatever characters it holds.
QString asFolder(const QString &name)
{
    QString folder = name;
    folder.replace(u'/', u'_').replace(u'\\', u'_');
    return folder == QLatin1StringView("..") || folder == QLatin1StringView(".") ? QString() : folder;
}

} // namespace

void setLogDirNames(const QString &organisation, const QString &application)
{
    const QMutexLocker locker(&names().mutex);
    names().organisation = organisation;
    names().application = application;
}

QString logDir()
{
    QString organisation;
    QString application;
    {
        const QMutexLocker locker(&names().mutex);
        organisation = names().organisation;
        application = names().application;
    }
    if (organisation.isEmpty())
        organisation = QCoreApplication::organizationName();
    if (application.isEmpty())
        application = QCoreApplication::applicationName();
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericStateLocation);
    if (base.isEmpty())
        return {};
    const QString path = QDir::cleanPath(base + u'/' + asFolder(organisation) + u'/' + asFolder(application) +
                                         QLatin1StringView("/log"));
    return QDir().mkpath(path) ? path : QString();
}

} // namespace orrin
