// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QAbstractTableModel>
#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>
#include <utility>

namespace orrin {

class StatsModelPrivate;

/*! A server's statistics over a span of time: one row a sample, in the order of time, one column a statistic. Main thread.

    Column 0 is the time as QDateTime in UTC, column 1 the same as milliseconds since 1970 UTC, the statistics follow; each column is named by
    its heading. A cell holds a double, an int (the code of a recorder or camera state) or a one-letter text (the state of a disk). A sample that
    a statistic lacks shows the value before it, for 64 slots of time; then, and before the first value, 0, a state -1 or "?".

    Samples come from the recorder where it offers statistics, and for every recorder from what this client measures of the streams that it
    shows. They arrive by the event loop, page by page, oldest first, so rows are inserted while the status is already Ready.

    The number of rows is bounded whatever the span: time is divided into at most resolution() slots. A slot that is longer than
    the samples are apart shows as two rows, with the lowest and the highest value of the slot, so that peaks survive. A
    sample that is alone shows as two rows, half a slot long, since a line needs two ends. A running span moves on by
    itself: new rows come at the end, old ones go, and nothing is reset.

    The operations that read are virtual, so that a host can show samples of its own. */
class ORRINSDK_CORE_EXPORT StatsModel : public QAbstractTableModel
{
    Q_OBJECT
    Q_PROPERTY(QDateTime from READ getFrom NOTIFY fromChanged)
    Q_PROPERTY(QDateTime to READ getTo NOTIFY toChanged)
    Q_PROPERTY(Status status READ getStatus NOTIFY statusChanged)

public:
    enum Status : int {
        Idle = 0,         //!< nothing was asked for
        Loading = 1,      //!< nothing is there yet
        Ready = 2,        //!< there are samples; more may follow
        Empty = 3,        //!< there is no sample in the span
        Disconnected = 4, //!< the server is not connected
        NotPermitted = 5, //!< the user may not read the statistics
        Failed = 6,       //!< the server does not answer, or with nonsense; asked again by and by
    };
    Q_ENUM(Status)

    static constexpr int DefaultResolution = 2048;
    static constexpr int FirstStatistic = 2; //!< the column of the first heading

    explicit StatsModel(QObject *parent = nullptr);
    ~StatsModel() override;

    /*! The span of the samples; invalid before one is set. */
    virtual QDateTime getFrom() const;
    virtual QDateTime getTo() const;
    virtual Status getStatus() const;
    /*! \a status as text for the user. */
    static QString getStatusDescription(Status status);

    /*! The column of \a heading; that of the first statistic when there is no such heading. */
    virtual int columnForHeading(const QString &heading) const;
    /*! The lowest and the highest value of \a heading between two times, inclusive; without a time, from the first or to the last. The largest
        double and the smallest positive one, in this order, when there is no sample. */
    virtual std::pair<double, double> getMinMaxForHeading(const QString &heading, std::optional<QDateTime> from,
                                                          std::optional<QDateTime> to) const;

    /*! The headings as a list, by Qt::DisplayRole. Owned by this model. */
    QAbstractItemModel *headings() const;

    /*! The server whose statistics are shown; -1 and -1 for none. What was loaded is forgotten. */
    Q_INVOKABLE void setServer(int serverGroupId, int serverId);
    /*! A fixed span. Nothing changes when it is invalid or \a to is not after \a from. */
    Q_INVOKABLE void setSpan(const QDateTime &from, const QDateTime &to);
    /*! A span of that many milliseconds that ends now, by the server's clock, and moves on. Nothing changes when it is not above 0. */
    Q_INVOKABLE void setRunningSpan(qlonglong milliseconds);
    bool isRunning() const;
    /*! Asks for what is missing at once. */
    Q_INVOKABLE void refresh();

    /*! The slots that a span is divided into at most, 16 to 16384. Takes effect with the next span. */
    int resolution() const;
    void setResolution(int count);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    StatsModelPrivate *d_func() const { return d.get(); }

Q_SIGNALS:
    void fromChanged(const QDateTime &from);
    void toChanged(const QDateTime &to);
    void statusChanged(orrin::StatsModel::Status status);

private:
    friend class StatsModelPrivate;

    std::unique_ptr<StatsModelPrivate> d;
};

} // namespace orrin
