// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stats/statsgrid.h"
#include "core/stats/statsloader.h"
#include "core/stats/statspage.h"

#include <contract/core/export.h>
#include <contract/core/statsmodel.h>
#include <contract/core/statstype.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QStringListModel>
#include <QTimer>

#include <memory>

namespace orrin {

class Server;

/*! What a StatsModel holds and does. Main thread.

    The span is kept in slots by StatsGrid; two sources fill it: the loader with what the recorder tells, and the client's own measurements. A running span is moved by
    a timer, one slot at a time. */
class ORRINSDK_CORE_EXPORT StatsModelPrivate : public QObject
{
public:
    /*! Values of the whole table: a longer list of statistics gets fewer slots. */
    static constexpr qsizetype MaximumValues = 8 << 20;

    explicit StatsModelPrivate(StatsModel *q);
    ~StatsModelPrivate() override;

    void setServer(int groupId, int serverId);
    void setSpan(qint64 fromMs, qint64 toMs);
    void setRunningSpan(qint64 milliseconds);
    void refresh();

    /*! The statistics that there are, in place of all others. */
    void setHeadings(const QStringList &headings, qint64 intervalMs);
    /*! Adds the samples of \a page that lie in the span; statistics that are not known are added. */
    void applyPage(const StatsPage &page);
    /*! A running span ends at \a nowMs, by the server's clock. */
    void advance(qint64 nowMs);

    int rowsPerSlot() const { return grid.keepsExtremes() ? 2 : 1; }
    int rowCount() const { return static_cast<int>(grid.slotCount()) * rowsPerSlot() + (loneRowDoubled ? 1 : 0); }
    QVariant cell(int row, int column) const;
    qint64 rowTime(int row) const;
    std::pair<double, double> minMax(int column, qint64 fromMs, qint64 toMs) const;

    static qint64 stepFor(qint64 spanMs, qint64 intervalMs, int slotLimit);

    StatsModel *q;
    StatsGrid grid;
    QStringListModel headings;
    QHash<QString, int> columns;
    QList<StatsType> types;
    qint64 fromMs = 0;
    qint64 toMs = 0;
    qint64 runningMs = 0; // 0: the span is fixed
    StatsModel::Status status = StatsModel::Idle;
    int resolution = StatsModel::DefaultResolution;

private:
    void showLoneRowOnce();
    bool hasSpan() const { return toMs > fromMs; }
    qint64 now() const;
    int slotLimit() const;
    void attach();
    void detach();
    void startSpan(qint64 from, qint64 to);
    void load(qint64 from);
    void onContents(const StatsContents &contents);
    void onFailed(StatsError error);
    void onTick();
    void addMeasured(qint64 from, qint64 to);
    void addHeadings(const QStringList &added);
    qsizetype applyRun(const StatsPage &page, const QList<qsizetype> &order, qsizetype begin);
    void fill(const StatsPage &page, const QList<qsizetype> &samples, qsizetype firstSlot);
    Server *sdkServer() const;
    void updateStatus();

    QPointer<Server> server;
    int groupId = -1;
    int serverId = -1;
    quint64 serverUid = 0;
    StatsLoader loader;
    StatsError error = StatsError::None;
    qint64 intervalMs = 0; // of the recorder's samples; 0: it has none
    qint64 lastReadMs = 0; // of the newest sample that the recorder told
    bool loneRowDoubled = false; // a line needs two ends
    bool contentsKnown = false;
    bool fullyLoaded = false;
    QTimer tick;
};

} // namespace orrin
