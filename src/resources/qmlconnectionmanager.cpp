// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlconnectionmanager.h"

#include "resources/qmlconnectionmanager_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/publickeychecker.h>

#include <QDebug>

#include <array>

namespace orrin {

QmlConnectionManagerPrivate::QmlConnectionManagerPrivate(QmlConnectionManager *q)
    : q_ptr(q), url(QString(), DefaultPort)
{
}

void QmlConnectionManagerPrivate::listenTo(ConnectionManager *manager)
{
    // Each login listens anew and nothing is taken back: the handlers may run several times for one signal,
    // which changes nothing but the number of errorChanged().
    connect(manager, &ConnectionManager::loginError, this, [this](const LoginError &error) {
        loginError = error;
        if (q_ptr)
            Q_EMIT q_ptr->errorChanged();
        setStatus(QmlConnectionManager::Error);
    });
    connect(manager, &ConnectionManager::userConnectionTimedOut, this,
            [this] { setStatus(QmlConnectionManager::Error); });
    connect(manager, &ConnectionManager::serverConnected, this,
            [this] { setStatus(QmlConnectionManager::Connected); });
    connect(manager, &ConnectionManager::allServersDisconnected, this,
            [this] { setStatus(QmlConnectionManager::Disconnected); });
}

void QmlConnectionManagerPrivate::setStatus(QmlConnectionManager::Status newStatus)
{
    if (status == newStatus)
        return;
    status = newStatus;
    if (q_ptr)
        Q_EMIT q_ptr->statusChanged();
}

QmlConnectionManager::QmlConnectionManager(QObject *parent)
    : QObject(parent), d_ptr(std::make_unique<QmlConnectionManagerPrivate>(this))
{
}

QmlConnectionManager::~QmlConnectionManager() = default;

QmlConnectionManager::Status QmlConnectionManager::status() const
{
    return d_func()->status;
}

QmlConnectionManager::ErrorType QmlConnectionManager::error() const
{
    return static_cast<ErrorType>(d_func()->loginError.errorId());
}

QString QmlConnectionManager::hostAndPort() const
{
    return d_func()->url.hostAndPort();
}

void QmlConnectionManager::setHostAndPort(const QString &hostAndPort)
{
    if (this->hostAndPort() == hostAndPort)
        return;
    d_func()->url = CorvaneUrl(hostAndPort, QmlConnectionManagerPrivate::DefaultPort);
    Q_EMIT hostAndPortChanged();
}

QString QmlConnectionManager::username() const
{
    return d_func()->username;
}

void QmlConnectionManager::setUsername(const QString &username)
{
    if (d_func()->username == username)
        return;
    d_func()->username = username;
    Q_EMIT usernameChanged();
}

QString QmlConnectionManager::password() const
{
    return d_func()->password;
}

void QmlConnectionManager::setPassword(const QString &password)
{
    if (d_func()->password == password)
        return;
    d_func()->password = password;
    Q_EMIT passwordChanged();
}

void QmlConnectionManager::connectServers(bool asGroup)
{
    QmlConnectionManagerPrivate *d = d_func();
    if (d->url.host().isEmpty() || d->username.isEmpty() || d->password.isEmpty())
        return;
    const QPointer<OrrinSDK> sdk = OrrinSDK::instance();
    if (!sdk)
        return;

    ConnectionManager *manager = sdk->connectionManager();
    d->listenTo(manager);
    manager->connectToServer(d->username, d->password, d->url, asGroup);
    d->setStatus(Connecting);
}

void QmlConnectionManager::disconnectServers()
{
    if (const QPointer<OrrinSDK> sdk = OrrinSDK::instance())
        sdk->connectionManager()->disconnectFromAll();
}

void QmlConnectionManager::overwritePublicKey() const
{
    if (d_func()->loginError.errorId() != PUBLIC_KEY_CHANGED) {
        qDebug() << "attempt to overwrite failed, last error ID is not PUBLIC_KEY_CHANGED";
        return;
    }
    LoginData loginData = d_func()->loginError.loginData;
    PublicKeyChecker::setDerKey(loginData.targetAndPort(), loginData.negotiationData().derKey());
}

QString QmlConnectionManager::statusString() const
{
    static const std::array<QString, 5> texts = {QStringLiteral("Invalid"), QStringLiteral("Disconnected"),
                                                 QStringLiteral("Error"), QStringLiteral("Connecting"),
                                                 QStringLiteral("Connected")};
    return texts[static_cast<std::size_t>(status())];
}

QString QmlConnectionManager::errorString() const
{
    return d_func()->loginError.toString();
}

} // namespace orrin
