// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/preferenceitem.h>

#include <QList>
#include <QSharedPointer>
#include <QString>

namespace orrin {

/*! A named set of options with its own storage. Main thread. */
class PreferenceGroupInterface
{
public:
    virtual ~PreferenceGroupInterface() = default;

    virtual QString name() const = 0;
    /*! Reads the stored values; what is missing or unreadable takes its default. */
    virtual void load() = 0;
    /*! Stores all values; false when that failed, the earlier file then stands. */
    virtual bool save() = 0;
    /*! Puts all items of \a group back to their defaults; an empty text means all groups. Nothing is stored. */
    virtual void restoreDefaults(const QString &group) = 0;
    /*! The item \a group or, when the group has parts, the item \a name of the part \a group; null when there is none. */
    virtual QSharedPointer<PreferenceItem> item(const QString &group, const QString &name) const = 0;
    virtual QList<QSharedPointer<PreferenceItem>> itemList(const QString &group) const = 0;
};

} // namespace orrin
