// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QHash>
#include <QObject>
#include <QStringList>

namespace orrin {

/*! What is known of the causes of events, by server. Main thread. */
class ORRINSDK_CORE_EXPORT EventCauses : public QObject
{
    Q_OBJECT
public:
    /*! Causes that are remembered for one server. */
    static constexpr qsizetype Limit = 256;
    /*! Servers of which causes are remembered. */
    static constexpr qsizetype ServerLimit = 1024;

    /*! Those of that server, each once, in the order in which they came. */
    QStringList of(quint64 serverUid) const { return m_causes.value(serverUid); }
    void note(quint64 serverUid, const QString &cause);
    /*! As one change, for what a device told of itself. */
    void note(quint64 serverUid, const QStringList &causes);

Q_SIGNALS:
    /*! The server told what events it has. */
    void told(quint64 serverUid);

private:
    QHash<quint64, QStringList> m_causes;
};

} // namespace orrin
