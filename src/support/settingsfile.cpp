// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/settingsfile.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QFile>
#include <QLockFile>
#include <QSettings>
#include <QThread>

#include <algorithm>
#include <chrono>

namespace orrin {

namespace {

using namespace std::chrono_literals;

/*! The key of a last line that lacks its line feed, else empty. */
QString unfinishedKey(const QString &fileName)
{
    // A line of more bytes than this hides its key, and its value is then taken as it is.
    constexpr qint64 tailSize = 1024 * 1024;

    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly) || file.isSequential())
        return {};
    file.seek(std::max<qint64>(0, file.size() - tailSize));
    const QByteArray tail = file.read(tailSize);
    if (tail.isEmpty() || tail.endsWith('\n'))
        return {};
    const QByteArray line = tail.mid(tail.lastIndexOf('\n') + 1);
    const qsizetype end = line.indexOf('=');
    return end < 0 ? QString() : QString::fromLatin1(line.first(end)).trimmed();
}

/*! Waits until no other process writes the file.

    QSettings waits for the same lock, but in steps that grow to seconds, and half a minute for a lock that was left behind
    empty. A lock that lasts longer than this wait is left to it. */
void awaitTurn(const QString &fileName)
{
    QLockFile lock(fileName + QStringLiteral(".lock"));
    lock.setStaleLockTime(2s);
    const QDeadlineTimer deadline(5s);
    while (!lock.tryLock(0ms) && lock.error() == QLockFile::LockFailedError && !deadline.hasExpired())
        QThread::sleep(5ms);
}

} // namespace

SettingsFile::SettingsFile(const QString &organisation, const QString &application)
    : m_organisation(organisation)
    , m_application(application)
{
}

QHash<QString, QVariant> SettingsFile::read(const QStringList &names) const
{
    const QSettings settings(QSettings::IniFormat, QSettings::UserScope, m_organisation, m_application);
    QHash<QString, QVariant> values;
    values.reserve(names.size());
    for (const QString &name : names) {
        const QVariant value = settings.value(name);
        if (value.isValid())
            values.insert(name, value);
    }
    if (names.isEmpty())
        return values;

    // A write adds its keys sorted and ends its last line. A file that holds the first of them and stops within a later line
    // was cut there, and what stands on that line may be a part of the real value. A short file typed by hand is taken as it
    // is, with or without its last line feed.
    const QString mark = *std::min_element(names.begin(), names.end());
    const QString unfinished = unfinishedKey(settings.fileName());
    if (unfinished != mark && values.contains(mark))
        values.remove(unfinished);
    return values;
}

bool SettingsFile::write(const QList<std::pair<QString, QVariant>> &values) const
{
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, m_organisation, m_application);
    for (const auto &[name, value] : values)
        settings.setValue(name, value);
    awaitTurn(settings.fileName());
    settings.sync();
    return settings.status() != QSettings::AccessError;
}

} // namespace orrin
