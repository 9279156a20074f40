// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <support/statsmodelproxy.h>

#include <contract/core/irangeinfo.h>

#include <QString>
#include <QStringList>

#include <memory>

/*! Reads one statistic of a model as a person would: times, and values in words with their unit. The model outlives it. Main thread. */
class StatisticsTable
{
public:
    StatisticsTable(orrin::StatsModel *model, const QString &heading);

    /*! The heading's long name, with its unit in parentheses. */
    QString title() const;
    int rowCount() const;
    qint64 timeMs(int row) const;
    /*! As a number in the C locale, or the word for a state. */
    QString plainText(int row) const;
    /*! In the user's locale, with the unit. */
    QString text(int row) const;
    /*! The row whose time is nearest; -1 without rows. */
    int nearestRow(qint64 timeMs) const;

    /*! The columns of several statistics as CSV (RFC 4180), times in UTC. Texts that a spreadsheet would take for a formula are marked as text. */
    static QByteArray csv(orrin::StatsModel *model, const QStringList &headings);

private:
    bool isState() const;

    orrin::StatsModel *m_model;
    std::unique_ptr<orrin::StatsModelProxy> m_proxy;
    std::unique_ptr<orrin::IRangeInfo> m_info;
    int m_column = 0;
};
