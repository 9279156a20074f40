// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/preferences.h>

#include <QHash>
#include <QList>

namespace orrin {

class PreferencesPrivate
{
public:
    QList<QSharedPointer<PreferenceGroupInterface>> groups;
    QHash<QString, QSharedPointer<PreferenceGroupInterface>> newest;
};

Preferences::Preferences() : d(std::make_unique<PreferencesPrivate>()) {}

Preferences::~Preferences() = default;

void Preferences::addPreferenceGroup(const QSharedPointer<PreferenceGroupInterface> &group)
{
    if (!group)
        return;
    d->groups.append(group);
    d->newest.insert(group->name(), group);
}

QSharedPointer<PreferenceGroupInterface> Preferences::preferenceGroup(const QString &name) const
{
    return d->newest.value(name);
}

QList<QSharedPointer<PreferenceGroupInterface>> Preferences::preferenceGroups() const
{
    return d->groups;
}

} // namespace orrin
