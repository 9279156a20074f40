// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/logclient.h"
#include "module/orrinsdkqmlglobal.h"

#include <contract/util/channeluid.h>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlChannelPrivate;

/*! A view of a channel, named by its ids. Reading is what finds the channel: each getter looks it up again, and the first read that
    finds one emits the change signals of everything that depends on it, while it is being read. While the channel is absent the
    fallbacks are read. What the channel offers is shown here, not what the user may use: that is in the channel model.
    Main thread. */
class ORRINSDKQML_EXPORT QmlChannel : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Channel)

    /*! -1 is unset. */
    Q_PROPERTY(int serverGroupId READ serverGroupId WRITE setServerGroupId NOTIFY serverGroupIdChanged FINAL)
    /*! -1 is unset. */
    Q_PROPERTY(int serverId READ serverId WRITE setServerId NOTIFY serverIdChanged FINAL)
    /*! -1 is unset. */
    Q_PROPERTY(int channelId READ channelId WRITE setChannelId NOTIFY channelIdChanged FINAL)
    /*! The number that users see beside the name, or -1. Fixed for the life of a channel, so its change is not announced. */
    Q_PROPERTY(int sortId READ sortId NOTIFY sortIdChanged FINAL)
    /*! A number for display, serverGroupId * 1000000 + serverId * 1000 + sortId, or -1. To be looked up, never to be decoded. */
    Q_PROPERTY(int channelUniqueId READ channelUniqueId NOTIFY channelUniqueIdChanged FINAL)
    Q_PROPERTY(QString name READ name NOTIFY nameChanged FINAL)
    Q_PROPERTY(QString serverName READ serverName NOTIFY serverNameChanged FINAL)
    Q_PROPERTY(bool isValid READ isValid NOTIFY isValidChanged FINAL)
    Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY isEnabledChanged FINAL)
    /*! Neither audio nor data nor talk-back. Announced by isAudioChanged(), which always comes with isCameraChanged(). */
    Q_PROPERTY(bool isCamera READ isCamera NOTIFY isAudioChanged FINAL)
    Q_PROPERTY(bool isAudio READ isAudio NOTIFY isAudioChanged FINAL)
    Q_PROPERTY(bool isTalkback READ isTalkback NOTIFY isTalkbackChanged FINAL)
    Q_PROPERTY(bool isData READ isData NOTIFY isDataChanged FINAL)
    /*! The camera can pan, tilt, zoom or focus; the user's right to it is not asked. */
    Q_PROPERTY(bool hasPtzf READ hasPtzf NOTIFY hasPtzfChanged FINAL)
    Q_PROPERTY(int trackCount READ trackCount NOTIFY trackCountChanged FINAL)

public:
    explicit QmlChannel(QObject *parent = nullptr);
    ~QmlChannel() override;

    int serverGroupId() const;
    void setServerGroupId(int id);
    int serverId() const;
    void setServerId(int id);
    int channelId() const;
    void setChannelId(int id);

    int sortId() const;
    int channelUniqueId() const;
    QString name() const;
    QString serverName() const;
    bool isValid() const;
    bool isEnabled() const;
    bool isCamera() const;
    bool isAudio() const;
    bool isTalkback() const;
    bool isData() const;
    bool hasPtzf() const;
    int trackCount() const;

    /*! What the core takes to address the channel; the null value while it is absent. */
    ChannelUID channelUid() const;

Q_SIGNALS:
    void serverGroupIdChanged();
    void serverIdChanged();
    void channelIdChanged();
    void sortIdChanged();
    void channelUniqueIdChanged();
    void nameChanged();
    void serverNameChanged();
    void isValidChanged();
    void isEnabledChanged();
    void isCameraChanged();
    void isAudioChanged();
    void isTalkbackChanged();
    void isDataChanged();
    void hasPtzfChanged();
    void trackCountChanged();

private:
    Q_DISABLE_COPY_MOVE(QmlChannel)

    QmlChannelPrivate *d_func() const { return d_ptr.get(); }

    std::unique_ptr<QmlChannelPrivate> d_ptr;
    LogClient m_log;
};

} // namespace orrin
