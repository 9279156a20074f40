// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QStringList>

namespace orrin::demo {

/*! What changed on a recorder, by revision. GUI thread. */
class ChangeLog : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    qint64 revision() const { return m_revision; }

    /*! Notes that \a topic ("site", "configuration") has to be read again. */
    void addChange(const QString &topic);

    /*! Notes a notice ("restart", "reboot", "shutdown", "userTimedOut"). The newest 64 are kept. */
    void addNotice(const QString &notice);

    QStringList changesAfter(qint64 revision) const;
    QStringList noticesAfter(qint64 revision) const;

Q_SIGNALS:
    void advanced();

private:
    struct Notice
    {
        qint64 revision;
        QString name;
    };

    qint64 m_revision = 1;
    QHash<QString, qint64> m_topics{{QStringLiteral("site"), 1}, {QStringLiteral("configuration"), 1}};
    QList<Notice> m_notices;
};

} // namespace orrin::demo
