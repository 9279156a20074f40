// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMetaType>
#include <QString>

namespace orrin {

/*! A server's word about its own state. A value. */
class StatusObject
{
public:
    enum Level : int { Ok = 0, Warning = 1, Error = 2 };

    StatusObject() = default;
    StatusObject(Level level, const QString &text) : m_level(level), m_text(text) {}

    Level level() const { return m_level; }
    const QString &text() const { return m_text; }

private:
    Level m_level = Ok;
    QString m_text;
};

} // namespace orrin

Q_DECLARE_METATYPE(orrin::StatusObject)
