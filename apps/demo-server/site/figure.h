// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonValue>
#include <QString>

#include <functional>
#include <optional>
#include <utility>

namespace orrin::demo {

/*! Something out of the ordinary that befalls a figure now and then: at most one in each period, at a place and of a length that follow from the seed. */
struct Incidents
{
    quint64 seed = 0;
    qint64 periodMs = 0; //!< 0: there are none
    double probability = 0;
    qint64 longestMs = 0; //!< less than the period

    struct Moment
    {
        qint64 beginMs = 0;
        qint64 endMs = 0;
        quint64 kind = 0; //!< any number, the same for the whole incident
    };
    /*! That of the period at \a number, counted from 1970. */
    std::optional<Moment> ofPeriod(qint64 number) const;
    /*! The one that is under way. */
    std::optional<Moment> at(qint64 timeMs) const;
};

/*! One statistic as a function of time. */
struct Figure
{
    using Function = std::function<double(qint64 timeMs, const std::optional<Incidents::Moment> &incident)>;

    QString heading;
    Function value;
    Incidents incidents;
    bool isLetter = false; //!< values are letters' code points

    double at(qint64 timeMs) const { return value(timeMs, incidents.at(timeMs)); }
    /*! The lowest and highest value of the samples from \a beginMs on, before \a endMs: those of a few moments spread over the time, and of every incident. Letters are
        compared by how bad they are. */
    std::pair<double, double> extremes(qint64 beginMs, qint64 endMs, qint64 intervalMs) const;
    QJsonValue json(double value) const;
};

/*! A number from 0 to 1 that is the same for the same seed and number. */
double noise(quint64 seed, qint64 number);
/*! The same as a curve: a new height every \a periodMs, smooth between. */
double wave(quint64 seed, qint64 timeMs, qint64 periodMs);

} // namespace orrin::demo
