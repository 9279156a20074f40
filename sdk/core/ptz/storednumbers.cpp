// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ptz/storednumbers.h"

namespace orrin {

namespace {

/*! 0 when the text is no number of a preset. */
int numberIn(QStringView text)
{
    bool ok = false;
    const int number = text.toInt(&ok);
    return ok && number >= 1 && number <= StoredNumbers::Highest ? number : 0;
}

int numberOf(const ptzservice::Stored &stored, const QString &word)
{
    const QString prefix = word + u' ';
    if (stored.name.startsWith(prefix)) {
        if (const int number = numberIn(QStringView(stored.name).sliced(prefix.size())))
            return number;
    }
    return numberIn(stored.token);
}

} // namespace

StoredNumbers::StoredNumbers(const QList<ptzservice::Stored> &list, const QString &word)
{
    QList<ptzservice::Stored> others;
    for (const ptzservice::Stored &stored : list) {
        const int number = numberOf(stored, word);
        if (number == 0 || !m_byNumber.emplace(number, stored).second)
            others.append(stored);
    }
    int free = 1;
    for (const ptzservice::Stored &stored : std::as_const(others)) {
        while (free <= Highest && m_byNumber.contains(free))
            ++free;
        if (free > Highest)
            return;
        m_byNumber.emplace(free, stored);
    }
}

QString StoredNumbers::token(int number) const
{
    const auto found = m_byNumber.find(number);
    return found == m_byNumber.end() ? QString() : found->second.token;
}

QList<PtzfPreset> StoredNumbers::presets() const
{
    QList<PtzfPreset> list;
    for (const auto &[number, stored] : m_byNumber)
        list.append({static_cast<unsigned char>(number), stored.name});
    return list;
}

QString StoredNumbers::defaultName(const QString &word, int number)
{
    return word + u' ' + QString::number(number);
}

} // namespace orrin
