// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <limits>
#include <optional>

namespace orrin {

/*! Some samples of some statistics, by time. Plain values. */
struct StatsPage
{
    /*! Of a sample that is not there. */
    static constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();

    /*! The values of one statistic, one for each time; a letter is its code point. \a high is empty where it equals \a low. */
    struct Series
    {
        QString heading;
        QList<double> low;
        QList<double> high;
    };

    QList<qint64> times; //!< milliseconds since 1970 UTC, by the server's clock
    QList<Series> series;
    /*! Where the next page begins; nothing when this is the last. */
    std::optional<qint64> next;
};

/*! What a server's statistics consist of. */
struct StatsContents
{
    QStringList headings;
    qint64 intervalMs = 10000; //!< between two samples
    qint64 oldestMs = 0;       //!< the time of the first sample that is kept
};

/*! What is asked of a server. */
struct StatsQuery
{
    qint64 fromMs = 0;
    qint64 toMs = 0;   //!< inclusive
    qint64 stepMs = 0; //!< a slot; the server tells the lowest and the highest value of each
};

enum class StatsError {
    None,
    Unsupported,  //!< the server keeps no statistics
    NotPermitted, //!< not for this user
    Disconnected, //!< there is no connection to the server
    Failed,       //!< no answer, or one that cannot be read
};

} // namespace orrin
