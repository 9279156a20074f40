// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/abstractpreferencegroup.h>

#include "core/preferences/settingspath.h"

#include <QHash>
#include <QSettings>

namespace orrin {

namespace {

/*! \a stored as the type of \a item's default, or the default when it cannot be that. */
QVariant valueOfType(const QVariant &stored, const QVariant &defaultValue)
{
    // Qt takes any text but a few for true.
    if (defaultValue.metaType().id() == QMetaType::Bool) {
        const QString text = stored.toString().toLower();
        if (text == QLatin1StringView("true") || text == QLatin1StringView("1"))
            return true;
        if (text == QLatin1StringView("false") || text == QLatin1StringView("0"))
            return false;
        return defaultValue;
    }
    QVariant value = stored;
    if (!defaultValue.isValid() || value.convert(defaultValue.metaType()))
        return value;
    return defaultValue;
}

} // namespace

class AbstractPreferenceGroupPrivate
{
public:
    QList<QSharedPointer<PreferenceItem>> itemsOf(const QString &group) const
    {
        if (group.isEmpty())
            return items;
        QList<QSharedPointer<PreferenceItem>> found;
        for (const QSharedPointer<PreferenceItem> &item : items) {
            if (item->name() == group || item->name().startsWith(group + u'/'))
                found.append(item);
        }
        return found;
    }

    QString name;
    QList<QSharedPointer<PreferenceItem>> items;
    QHash<QString, QSharedPointer<PreferenceItem>> byKey;
};

AbstractPreferenceGroup::AbstractPreferenceGroup(const QString &name)
    : d(std::make_unique<AbstractPreferenceGroupPrivate>())
{
    d->name = name;
}

AbstractPreferenceGroup::~AbstractPreferenceGroup() = default;

QString AbstractPreferenceGroup::name() const
{
    return d->name;
}

void AbstractPreferenceGroup::addItem(const QString &key, const QVariant &defaultValue)
{
    const auto item = QSharedPointer<PreferenceItem>::create(key, defaultValue);
    d->items.append(item);
    d->byKey.insert(key, item);
}

void AbstractPreferenceGroup::load()
{
    const QSettings settings(settingsFilePath(d->name), QSettings::IniFormat);
    for (const QSharedPointer<PreferenceItem> &item : std::as_const(d->items)) {
        item->setValue(settings.contains(item->name())
                           ? valueOfType(settings.value(item->name()), item->defaultValue())
                           : item->defaultValue());
    }
}

bool AbstractPreferenceGroup::save()
{
    QSettings settings(settingsFilePath(d->name), QSettings::IniFormat);
    settings.setAtomicSyncRequired(true);
    for (const QSharedPointer<PreferenceItem> &item : std::as_const(d->items))
        settings.setValue(item->name(), item->value());
    settings.sync();
    return settings.status() == QSettings::NoError;
}

void AbstractPreferenceGroup::restoreDefaults(const QString &group)
{
    const QList<QSharedPointer<PreferenceItem>> items = d->itemsOf(group);
    for (const QSharedPointer<PreferenceItem> &item : items)
        item->setValue(item->defaultValue());
}

QSharedPointer<PreferenceItem> AbstractPreferenceGroup::item(const QString &group, const QString &name) const
{
    return d->byKey.value(name.isEmpty() ? group : group + u'/' + name);
}

QList<QSharedPointer<PreferenceItem>> AbstractPreferenceGroup::itemList(const QString &group) const
{
    return d->itemsOf(group);
}

} // namespace orrin
