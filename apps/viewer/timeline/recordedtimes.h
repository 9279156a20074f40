// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/recordedspans.h>

#include <QObject>
#include <QSharedPointer>
#include <QtQml/qqmlregistration.h>

/*! When a channel's track was recorded, as far as its server has told. GUI thread. */
class RecordedTimes : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int serverGroupId MEMBER m_serverGroupId NOTIFY addressChanged FINAL)
    Q_PROPERTY(int serverId MEMBER m_serverId NOTIFY addressChanged FINAL)
    Q_PROPERTY(int channelId MEMBER m_channelId NOTIFY addressChanged FINAL)
    Q_PROPERTY(int trackId MEMBER m_trackId NOTIFY addressChanged FINAL)
    /*! The server has told; there may still be nothing recorded. */
    Q_PROPERTY(bool known READ isKnown NOTIFY changed FINAL)
    /*! Milliseconds since the epoch, 0 with nothing recorded. */
    Q_PROPERTY(qint64 beginning READ beginning NOTIFY changed FINAL)
    Q_PROPERTY(qint64 end READ end NOTIFY changed FINAL)

public:
    explicit RecordedTimes(QObject *parent = nullptr);

    bool isKnown() const;
    qint64 beginning() const;
    qint64 end() const;
    /*! Ascending, neither touching nor overlapping. */
    const QList<orrin::RecordedSpan> &spans() const;
    /*! Shows \a source instead of what the server of the address tells. */
    void setSource(const QSharedPointer<orrin::RecordedSpans> &source);

    /*! Whether something is recorded at \a time. */
    Q_INVOKABLE bool isRecorded(qint64 time) const;

Q_SIGNALS:
    void addressChanged();
    void changed();

private:
    void ask();

    int m_serverGroupId = -1;
    int m_serverId = -1;
    int m_channelId = -1;
    int m_trackId = 1;
    QSharedPointer<orrin::RecordedSpans> m_source;
};
