// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/preferencegroupinterface.h>

#include <QSharedPointer>
#include <QString>

#include <memory>

namespace orrin {

class PreferencesPrivate;

/*! The preference groups of the application. Main thread; owned by the root object. */
class ORRINSDK_CORE_EXPORT Preferences
{
public:
    Preferences();
    ~Preferences();
    Preferences(const Preferences &) = delete;
    Preferences &operator=(const Preferences &) = delete;

    /*! Adds \a group; one of the same name that was added before stays in the list but is found no more. */
    void addPreferenceGroup(const QSharedPointer<PreferenceGroupInterface> &group);
    /*! The newest group of that name, or null. */
    QSharedPointer<PreferenceGroupInterface> preferenceGroup(const QString &name) const;
    QList<QSharedPointer<PreferenceGroupInterface>> preferenceGroups() const;

private:
    std::unique_ptr<PreferencesPrivate> d;
};

} // namespace orrin
