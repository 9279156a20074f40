// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QSortFilterProxyModel>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace orrin {

/*! Filters and orders a list of statistics headings. Main thread.

    Headings of the recorder come first, then its network, disks, cameras, tracks and sensors, then all others; those of one kind in alphabetical order
    without regard to case. */
class ORRINSDKQML_EXPORT StatsHeadingsModelProxy : public QSortFilterProxyModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(HeadingsModelProxy)

    /*! What a heading must contain, without regard to case; empty for all. A change is not announced. */
    Q_PROPERTY(QString matchString READ matchString WRITE setMatchString NOTIFY matchStringChanged FINAL)

public:
    explicit StatsHeadingsModelProxy(QObject *parent = nullptr);
    ~StatsHeadingsModelProxy() override;

    QString matchString() const { return m_matchString; }
    void setMatchString(const QString &text);

Q_SIGNALS:
    /*! Never emitted: nothing outside follows the text. */
    void matchStringChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    Q_DISABLE_COPY_MOVE(StatsHeadingsModelProxy)

    QString m_matchString;
};

} // namespace orrin
