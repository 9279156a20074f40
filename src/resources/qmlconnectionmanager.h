// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlConnectionManagerPrivate;

/*! The login object of QML: holds a host, a user name and a password, starts a connection through the core and follows its
    outcome. Owns no session; several objects may stand side by side. Main thread.

    Failures show in status() and error(), never as an exception. */
class ORRINSDKQML_EXPORT QmlConnectionManager : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ConnectionManager)

    /*! Where the login stands. */
    Q_PROPERTY(Status status READ status NOTIFY statusChanged FINAL)
    /*! The code of the last failed login; a later success leaves it as it is. */
    Q_PROPERTY(ErrorType error READ error NOTIFY errorChanged FINAL)
    /*! The server; a text without a port takes port 8601. Reads back with host, colon and port. */
    Q_PROPERTY(QString hostAndPort READ hostAndPort WRITE setHostAndPort NOTIFY hostAndPortChanged FINAL)
    Q_PROPERTY(QString username READ username WRITE setUsername NOTIFY usernameChanged FINAL)
    Q_PROPERTY(QString password READ password WRITE setPassword NOTIFY passwordChanged FINAL)

public:
    enum Status { Invalid, Disconnected, Error, Connecting, Connected };
    Q_ENUM(Status)

    /*! The codes of LoginError that have a name; 12 (account locked) and 13 (address not permitted) come as bare numbers. */
    enum ErrorType {
        SUCCESSFUL = 0,
        TOO_MANY_OPEN_CONNECTIONS = 1,
        BAD_LOGIN = 2,
        LOGIN_NOT_PERMITTED = 3,
        CONNECTION_FAILED = 4,
        SERVER_NOT_AVAILABLE = 5,
        FAILED_TO_SETUP_CONNECTION = 6,
        PASSWORD_REQUIRED_FOR_ENCRYPTED_ARCHIVE = 7,
        UNKNOWN_ERROR = 8,
        NO_SUCH_FILE_OR_DIRECTORY = 9,
        FILE_IS_NOT_RECOGNIZED_ARCHIVE = 10,
        PUBLIC_KEY_CHANGED = 11,
    };
    Q_ENUM(ErrorType)

    explicit QmlConnectionManager(QObject *parent = nullptr);
    ~QmlConnectionManager() override;

    Status status() const;
    ErrorType error() const;
    QString hostAndPort() const;
    void setHostAndPort(const QString &hostAndPort);
    QString username() const;
    void setUsername(const QString &username);
    QString password() const;
    void setPassword(const QString &password);

    /*! Starts a login; \a asGroup asks for the whole server group of that server. With an empty host, user name or password
        nothing happens. The outcome comes by the event loop in status() and error(). */
    Q_INVOKABLE void connectServers(bool asGroup = false);
    /*! Ends all sessions of the core; status() becomes Disconnected when that is done. */
    Q_INVOKABLE void disconnectServers();
    /*! After PUBLIC_KEY_CHANGED: records the key that the server offered as the trusted one. Call connectServers() again
        afterwards. After any other error nothing is recorded. */
    Q_INVOKABLE void overwritePublicKey() const;
    /*! The status as an English word, not translated. */
    Q_INVOKABLE QString statusString() const;
    /*! The text of the last failed login, for the user. */
    Q_INVOKABLE QString errorString() const;

Q_SIGNALS:
    void hostAndPortChanged();
    void usernameChanged();
    void passwordChanged();
    void statusChanged();
    void errorChanged();

private:
    Q_DISABLE_COPY_MOVE(QmlConnectionManager)

    QmlConnectionManagerPrivate *d_func() const { return d_ptr.get(); }
    friend class QmlConnectionManagerPrivate;

    std::unique_ptr<QmlConnectionManagerPrivate> d_ptr;
};

} // namespace orrin
