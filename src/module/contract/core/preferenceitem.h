// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QString>
#include <QVariant>

namespace orrin {

/*! One option of a preference group. Main thread. */
class ORRINSDK_CORE_EXPORT PreferenceItem
{
public:
    PreferenceItem(const QString &name, const QVariant &defaultValue)
        : m_name(name), m_default(defaultValue), m_value(defaultValue) {}

    QString name() const { return m_name; }
    QVariant defaultValue() const { return m_default; }
    QVariant value() const { return m_value; }
    void setValue(const QVariant &value) { m_value = value; }

private:
    QString m_name;
    QVariant m_default;
    QVariant m_value;
};

} // namespace orrin
