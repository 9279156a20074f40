// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/logclient.h"
#include "module/orrinsdkqmlglobal.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlServerPrivate;

/*! A view of a server, named by its ids. Reading is what finds the server: each getter looks it up again, and the first read that
    finds one emits the change signals of everything that depends on it. While the server is absent the fallbacks are read.
    Main thread. */
class ORRINSDKQML_EXPORT QmlServer : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Server)

    /*! -1 is unset. */
    Q_PROPERTY(int serverGroupId READ serverGroupId WRITE setServerGroupId NOTIFY serverGroupIdChanged FINAL)
    /*! -1 is unset. */
    Q_PROPERTY(int serverId READ serverId WRITE setServerId NOTIFY serverIdChanged FINAL)
    /*! The low 32 bits of the server's uid, or -1. Its change is not announced. */
    Q_PROPERTY(int uniqueId READ uniqueId NOTIFY uniqueIdChanged FINAL)
    Q_PROPERTY(QString name READ name NOTIFY nameChanged FINAL)
    Q_PROPERTY(QString ip READ ip NOTIFY ipChanged FINAL)
    Q_PROPERTY(QString host READ host NOTIFY hostChanged FINAL)
    Q_PROPERTY(int cameraCount READ cameraCount NOTIFY cameraCountChanged FINAL)
    Q_PROPERTY(QString version READ version NOTIFY versionChanged FINAL)
    Q_PROPERTY(uint majorVersion READ majorVersion NOTIFY majorVersionChanged FINAL)
    Q_PROPERTY(uint minorVersion READ minorVersion NOTIFY minorVersionChanged FINAL)
    Q_PROPERTY(uint buildVersion READ buildVersion NOTIFY buildVersionChanged FINAL)
    /*! The user who is logged in there, 0 when nobody is. */
    Q_PROPERTY(int userId READ userId NOTIFY userIdChanged FINAL)
    Q_PROPERTY(QString userName READ userName NOTIFY userNameChanged FINAL)
    /*! "admin", "install" or "user"; empty when nobody is logged in. */
    Q_PROPERTY(QString userLevel READ userLevel NOTIFY userLevelChanged FINAL)

public:
    explicit QmlServer(QObject *parent = nullptr);
    ~QmlServer() override;

    int serverGroupId() const;
    void setServerGroupId(int id);
    int serverId() const;
    void setServerId(int id);

    int uniqueId() const;
    QString name() const;
    QString ip() const;
    QString host() const;
    int cameraCount() const;
    QString version() const;
    uint majorVersion() const;
    uint minorVersion() const;
    uint buildVersion() const;
    int userId() const;
    QString userName() const;
    QString userLevel() const;

Q_SIGNALS:
    void serverGroupIdChanged();
    void serverIdChanged();
    void uniqueIdChanged();
    void nameChanged();
    void ipChanged();
    void hostChanged();
    void cameraCountChanged();
    void versionChanged();
    void majorVersionChanged();
    void minorVersionChanged();
    void buildVersionChanged();
    void userIdChanged();
    void userNameChanged();
    void userLevelChanged();

private:
    Q_DISABLE_COPY_MOVE(QmlServer)

    QmlServerPrivate *d_func() const { return d_ptr.get(); }

    std::unique_ptr<QmlServerPrivate> d_ptr;
    LogClient m_log;
};

} // namespace orrin
