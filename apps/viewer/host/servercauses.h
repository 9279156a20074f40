// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {
class QmlEventCauseModel;
}

/*! What events of one server there are, for the form of an event rule, and where the server of an event stands. Main thread. */
class ServerCauses : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /*! The server's uid as text, as events name it; while it names no server there are no causes. */
    Q_PROPERTY(QString serverUid READ serverUid WRITE setServerUid NOTIFY serverUidChanged FINAL)
    /*! The causes, an EventCauseModel that begins with an empty text for any cause. They arrive by and by. */
    Q_PROPERTY(QAbstractItemModel *model READ model NOTIFY modelChanged FINAL)

public:
    explicit ServerCauses(QObject *parent = nullptr);
    ~ServerCauses() override;

    QString serverUid() const { return m_serverUid; }
    void setServerUid(const QString &uid);
    QAbstractItemModel *model() const;

    /*! The `serverGroupId` and `serverId` of the server of that uid; empty when it is not logged in. */
    Q_INVOKABLE QVariantMap address(const QString &serverUid) const;
    /*! The servers that are logged in, each with its `uid` as text and its `name`. */
    Q_INVOKABLE QVariantList servers() const;

Q_SIGNALS:
    void serverUidChanged();
    void modelChanged();
    /*! A server came. */
    void serversChanged();

private:
    QString m_serverUid;
    std::unique_ptr<orrin::QmlEventCauseModel> m_model;
};
