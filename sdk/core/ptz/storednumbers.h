// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ptz/ptzservice.h"

#include <contract/core/export.h>
#include <contract/core/ptzfpreset.h>

#include <map>

namespace orrin {

/*! The presets or tours of a camera by the numbers, 1 to 255, that users know them by. A value.

    A device has tokens and names, no numbers. The number is that of a name made by defaultName(), else the token's where that is one,
    else the lowest that is free, in the device's order. Where two claim a number, the first has it. */
class ORRINSDK_CORE_EXPORT StoredNumbers
{
public:
    static constexpr int Highest = 255;

    /*! \a word is "Preset" or "Tour", as defaultName() has it. */
    StoredNumbers(const QList<ptzservice::Stored> &list, const QString &word);

    /*! The token of that number; empty when there is none. */
    QString token(int number) const;
    QList<PtzfPreset> presets() const;

    /*! "Preset 7": the name of what is stored under a number without a name of its own. Not translated, since it is read back. */
    static QString defaultName(const QString &word, int number);

private:
    std::map<int, ptzservice::Stored> m_byNumber;
};

} // namespace orrin
