// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

namespace orrin {

/*! Writes down the names of all signals that an object's own class emits, in their order. */
class SignalRecorder : public QObject
{
    Q_OBJECT
public:
    explicit SignalRecorder(QObject *sender);

    const QStringList &names() const { return m_names; }
    void clear() { m_names.clear(); }

private Q_SLOTS:
    void record();

private:
    QStringList m_names;
};

} // namespace orrin
