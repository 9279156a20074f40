// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/errorinterface.h>
#include <contract/core/logindata.h>

#include <QCoreApplication>
#include <QMetaType>

#include <cmath>
#include <cstdint>

namespace orrin {

/*! Why a login failed. A value, filled by the core; the texts are the module's.

    The class stands whole in this header, since module and core both make objects of it. */
class Q_DECL_EXPORT LoginError : public ErrorInterface
{
public:
    enum Code : std::int32_t {
        Successful = 0,
        TooManyOpenConnections = 1,
        BadLogin = 2,
        LoginNotPermitted = 3,
        ConnectionFailed = 4,
        ServerNotAvailable = 5,
        FailedToSetupConnection = 6,
        PasswordRequiredForEncryptedArchive = 7,
        UnknownError = 8,
        NoSuchFileOrDirectory = 9,
        FileIsNotRecognizedArchive = 10,
        PublicKeyChanged = 11,
        AccountLocked = 12,
        AddressNotPermitted = 13,
    };

    QString toString() const override
    {
        switch (error) {
        case Successful: return tr("No error");
        case TooManyOpenConnections:
            return withServer(QT_TRANSLATE_NOOP("orrin::LoginError",
                                                "Too many open connections. Server: %1, port: %2"));
        case BadLogin:
            return withServer(QT_TRANSLATE_NOOP("orrin::LoginError",
                                                "Invalid username or password. Server: %1, port: %2"));
        case LoginNotPermitted:
            return withServer(QT_TRANSLATE_NOOP("orrin::LoginError",
                                                "Login not permitted at this time. Server: %1, port: %2"));
        case ConnectionFailed:
            return withServer(QT_TRANSLATE_NOOP("orrin::LoginError",
                                                "Failed to connect to the server. Server: %1, port: %2"));
        case ServerNotAvailable:
            return withServer(QT_TRANSLATE_NOOP("orrin::LoginError",
                                                "Server is not available. Server: %1, port: %2"));
        case FailedToSetupConnection:
            return withServer(QT_TRANSLATE_NOOP("orrin::LoginError",
                                                "Failed to set up connection. Server: %1, port: %2"));
        case PasswordRequiredForEncryptedArchive:
            return tr("Password required for encrypted archive %1.").arg(server);
        case NoSuchFileOrDirectory: return tr("No such file or directory.");
        case FileIsNotRecognizedArchive: return tr("File is not a recognized archive.");
        case PublicKeyChanged:
            return withServer(QT_TRANSLATE_NOOP("orrin::LoginError",
                                                "Server's public key has changed. Server: %1, port: %2"));
        case AccountLocked: return lockedText();
        case AddressNotPermitted:
            return withServer(QT_TRANSLATE_NOOP("orrin::LoginError",
                                                "Login not permitted from this address. Server: %1, port: %2"));
        default: return withServer(QT_TRANSLATE_NOOP("orrin::LoginError", "Unknown error. Server: %1, port: %2"));
        }
    }

    int errorId() const override { return error; }

    void reset() override
    {
        error = Successful;
        retryPossible = 1;
        server.clear();
        port = 0;
    }

    bool hasError() const override { return error != Successful; }

    std::int32_t error = Successful;
    QString server; //!< the host
    QString detail; //!< what the core learnt, for the log; not translated
    std::uint16_t port = 0;
    std::uint8_t retryPossible = 1;
    std::uint32_t request = 0; //!< the number that connectToServer() returned
    LoginData loginData;
    std::uint8_t asGroup = 0;
    std::int32_t lockoutSeconds = 0; //!< the remaining lock time of AccountLocked

private:
    static QString tr(const char *text) { return QCoreApplication::translate("orrin::LoginError", text); }
    QString withServer(const char *text) const { return tr(text).arg(server, QString::number(port)); }

    QString lockedText() const
    {
        const auto text = [this](const char *source, int count) {
            return tr(source).arg(QString::number(count), server, QString::number(port));
        };
        if (lockoutSeconds <= 60)
            return text(QT_TRANSLATE_NOOP("orrin::LoginError",
                                          "Your account is locked for %1 seconds. Server: %2, port: %3"), lockoutSeconds);
        int minutes = static_cast<int>(static_cast<float>(lockoutSeconds) / 60.0f);
        // The rounding to hundredths finds a whole number and leaves it; the step belongs to the computation.
        minutes = static_cast<int>(std::floor(static_cast<float>(minutes) * 100.0f) / 100.0f);
        return minutes == 1 ? text(QT_TRANSLATE_NOOP("orrin::LoginError",
                                                     "Your account is locked for %1 minute. Server: %2, port: %3"), minutes)
                            : text(QT_TRANSLATE_NOOP("orrin::LoginError",
                                                     "Your account is locked for %1 minutes. Server: %2, port: %3"), minutes);
    }
};

} // namespace orrin

Q_DECLARE_METATYPE(orrin::LoginError)
