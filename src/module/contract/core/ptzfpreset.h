// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

namespace orrin {

/*! A stored position or tour of a camera, by the number that users know it by. A value. */
struct PtzfPreset
{
    unsigned char number = 0; //!< from 1
    QString name;

    friend bool operator==(const PtzfPreset &, const PtzfPreset &) = default;
};

} // namespace orrin

Q_DECLARE_METATYPE(orrin::PtzfPreset)
Q_DECLARE_METATYPE(QList<orrin::PtzfPreset>)
