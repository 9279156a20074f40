// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/logclient.h"
#include "module/orrinsdkqmlglobal.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlTrackPrivate;

/*! A view of a recorded track, named by its ids. Reading is what finds the track: each getter looks it up again, and the first read
    that finds one emits the change signals of everything that depends on it. While the track is absent the fallbacks are read.
    Main thread. */
class ORRINSDKQML_EXPORT QmlTrack : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Track)

    /*! -1 is unset. */
    Q_PROPERTY(int serverGroupId READ serverGroupId WRITE setServerGroupId NOTIFY serverGroupIdChanged FINAL)
    /*! -1 is unset. */
    Q_PROPERTY(int serverId READ serverId WRITE setServerId NOTIFY serverIdChanged FINAL)
    /*! -1 is unset. */
    Q_PROPERTY(int channelId READ channelId WRITE setChannelId NOTIFY channelIdChanged FINAL)
    /*! 1 at the start: with the other three ids set, the first recorded track is shown. */
    Q_PROPERTY(int trackId READ trackId WRITE setTrackId NOTIFY trackIdChanged FINAL)
    Q_PROPERTY(QString name READ name NOTIFY nameChanged FINAL)
    Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY isEnabledChanged FINAL)
    /*! What the track records, as an English text that is not translated; empty while the track is absent. */
    Q_PROPERTY(QString type READ type NOTIFY typeChanged FINAL)

public:
    explicit QmlTrack(QObject *parent = nullptr);
    ~QmlTrack() override;

    int serverGroupId() const;
    void setServerGroupId(int id);
    int serverId() const;
    void setServerId(int id);
    int channelId() const;
    void setChannelId(int id);
    int trackId() const;
    void setTrackId(int id);

    QString name() const;
    bool isEnabled() const;
    QString type() const;

public Q_SLOTS:
    /*! Announces name, isEnabled and type, changed or not. */
    void update();

Q_SIGNALS:
    void serverGroupIdChanged();
    void serverIdChanged();
    void channelIdChanged();
    void trackIdChanged();
    void nameChanged();
    void isEnabledChanged();
    void typeChanged();

private:
    Q_DISABLE_COPY_MOVE(QmlTrack)

    QmlTrackPrivate *d_func() const { return d_ptr.get(); }

    std::unique_ptr<QmlTrackPrivate> d_ptr;
    LogClient m_log;
};

} // namespace orrin
