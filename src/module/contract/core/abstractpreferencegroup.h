// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/preferencegroupinterface.h>

#include <QObject>

#include <memory>

namespace orrin {

class AbstractPreferenceGroupPrivate;

/*! A group that keeps its values in an INI file beside the application's settings. */
class ORRINSDK_CORE_EXPORT AbstractPreferenceGroup : public QObject, public PreferenceGroupInterface
{
    Q_OBJECT
public:
    ~AbstractPreferenceGroup() override;

    QString name() const override;
    void load() override;
    bool save() override;
    void restoreDefaults(const QString &group) override;
    QSharedPointer<PreferenceItem> item(const QString &group, const QString &name) const override;
    QList<QSharedPointer<PreferenceItem>> itemList(const QString &group) const override;

protected:
    explicit AbstractPreferenceGroup(const QString &name);
    /*! Adds an item under \a key with its default; for constructors of derived classes, which then call load(). */
    void addItem(const QString &key, const QVariant &defaultValue);

private:
    std::unique_ptr<AbstractPreferenceGroupPrivate> d;
};

} // namespace orrin
