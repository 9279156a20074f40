// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace orrin {

/*! Turns the numbers that a chart plots for states back into words. Without state; safe on any thread.

    A word stands for the numbers above n and up to n + 1, and also for a gap in the numbering right above it. The first word of a table begins at 0;
    below 0 and above the top of the table everything is "Unknown". */
class ORRINSDKQML_EXPORT StatsQmlHelper : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(StatsHelper)

public:
    explicit StatsQmlHelper(QObject *parent = nullptr);
    ~StatsQmlHelper() override;

    Q_INVOKABLE static QString valueToSystemStatusText(double val);
    Q_INVOKABLE static QString valueToDiskStatusText(double val);
    Q_INVOKABLE static QString valueToCameraStatusText(double val);
    /*! The moment, in milliseconds since 1970 UTC, as text in local time. */
    Q_INVOKABLE static QString dateTimeString(qlonglong epoch_ms);
};

} // namespace orrin
