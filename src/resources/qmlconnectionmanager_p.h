// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/qmlconnectionmanager.h"

#include <contract/core/loginerror.h>
#include <contract/util/corvaneurl.h>

#include <QPointer>

namespace orrin {

class ConnectionManager;

class QmlConnectionManagerPrivate : public QObject
{
public:
    static constexpr int DefaultPort = 8601;

    explicit QmlConnectionManagerPrivate(QmlConnectionManager *q);

    void listenTo(ConnectionManager *manager);
    void setStatus(QmlConnectionManager::Status newStatus);

    QPointer<QmlConnectionManager> q_ptr;
    CorvaneUrl url;
    QString username;
    QString password;
    LoginError loginError;
    QmlConnectionManager::Status status = QmlConnectionManager::Invalid;
};

} // namespace orrin
