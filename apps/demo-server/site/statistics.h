// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/httpreply.h"
#include "http/httprequest.h"
#include "site/figure.h"
#include "site/site.h"

#include <QJsonObject>
#include <QList>

#include <optional>

namespace orrin::demo {

/*! The statistics of a recorder: functions of time, from a year ago until now, with one sample every ten seconds. Nothing is stored, so every moment can be
    asked for and is the same each time. */
class Statistics
{
public:
    static constexpr qint64 IntervalMs = 10000;
    static constexpr qint64 KeptMs = 366LL * 24 * 3600 * 1000;
    /*! Values of one page. */
    static constexpr qsizetype PageValues = 40000;

    /*! Those that \a user may read: nothing of cameras that are not permitted. */
    Statistics(const RecorderInfo &recorder, const User &user);

    const QList<Figure> &figures() const { return m_figures; }

    /*! The bodies of the two answers, at the time \a nowMs. */
    QJsonObject contents(qint64 nowMs) const;
    QJsonObject page(qint64 fromMs, qint64 toMs, qint64 stepMs, qint64 nowMs) const;

    /*! Answers GET statistics and GET statistics/headings; \a path is the part after "statistics". */
    static void answer(const RecorderInfo &recorder, const User &user, const QString &path, const HttpRequest &request, HttpReply reply);

private:
    void addSystem();
    void addNetwork();
    void addDisks();
    void addCamera(const Camera &camera);
    void addSensors();

    const quint64 m_seed;
    QList<Figure> m_figures;
};

} // namespace orrin::demo
