// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <utility>

namespace orrin {

/*! The per-user INI file of an application: flat keys, no groups. One object per access; any thread.

    A write replaces the file as a whole or leaves the old one: it goes to a temporary file first, under a lock that keeps
    other processes out, and keys of others in the file stay. Failures are silent, except for what write() returns. */
class SettingsFile
{
public:
    SettingsFile(const QString &organisation, const QString &application);

    /*! The stored values of \a names. A key that is missing or unreadable has no entry, and neither has the last key of a file
        that was cut short within its line. */
    QHash<QString, QVariant> read(const QStringList &names) const;

    /*! Stores \a values beside what is in the file; false when that failed. Waits while another process writes: as a rule for
        milliseconds, for half a minute when that process hangs. */
    bool write(const QList<std::pair<QString, QVariant>> &values) const;

private:
    QString m_organisation;
    QString m_application;
};

} // namespace orrin
