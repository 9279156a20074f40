// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <contract/core/statsmodel.h>
#include <contract/core/statstype.h>

#include <QDateTime>
#include <QSortFilterProxyModel>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class StatsModelProxyPrivate;

/*! Makes a table of statistics ready for a chart: states become numbers, and the range of the axis is worked out for the
    statistic on show. Main thread. Inert until it has a StatsModel; a model of another class counts as none. */
class ORRINSDKQML_EXPORT StatsModelProxy : public QSortFilterProxyModel
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ModelProxy)

    /*! The span of the samples; invalid without a model. */
    Q_PROPERTY(QDateTime from READ from NOTIFY fromChanged FINAL)
    Q_PROPERTY(QDateTime to READ to NOTIFY toChanged FINAL)
    /*! The range of the axis. */
    Q_PROPERTY(double lowerBound READ lowerBound NOTIFY lowerBoundChanged FINAL)
    Q_PROPERTY(double upperBound READ upperBound NOTIFY upperBoundChanged FINAL)
    Q_PROPERTY(QString statDescription READ statDescription NOTIFY statDescriptionChanged FINAL)
    Q_PROPERTY(QString statUnits READ statUnits NOTIFY statUnitsChanged FINAL)
    /*! That of the model; 0 without one. */
    Q_PROPERTY(orrin::StatsModel::Status status READ status NOTIFY statusChanged FINAL)

public:
    explicit StatsModelProxy(QObject *parent = nullptr);
    ~StatsModelProxy() override;

    QDateTime from() const;
    QDateTime to() const;
    double lowerBound() const;
    double upperBound() const;
    QString statDescription() const;
    QString statUnits() const;
    StatsModel::Status status() const;

    /*! The lowest and the highest value of the statistic on show; 0 and 100 while they are not known. */
    double getMinValue() const;
    double getMaxValue() const;

    /*! The column of \a heading; 2 without a model. */
    Q_INVOKABLE int columnForHeading(QString heading) const;
    /*! Puts the statistic \a heading on show: its texts, and the range of the axis from its samples. Nothing without a model. */
    Q_INVOKABLE void updateRangeInfo(QString heading);
    Q_INVOKABLE orrin::StatsType statsType() const;
    Q_INVOKABLE static QString getStatusDescription(orrin::StatsModel::Status status);

    /*! Connections to an earlier model stay. */
    void setSourceModel(QAbstractItemModel *source) override;
    /*! Columns 0 and 1 as the source has them; of all others a double, whatever the role. */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    void fromChanged(QDateTime from);
    void toChanged(QDateTime to);
    void lowerBoundChanged(double lower);
    void upperBoundChanged(double upper);
    void statDescriptionChanged(QString description);
    void statUnitsChanged(QString description);
    void statusChanged(orrin::StatsModel::Status status);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private Q_SLOTS:
    void handleModelFromChanged(QDateTime from);
    void handleModelToChanged(QDateTime to);

private:
    Q_DISABLE_COPY_MOVE(StatsModelProxy)
    friend class StatsModelProxyPrivate;

    std::unique_ptr<StatsModelProxyPrivate> d;
};

} // namespace orrin
