// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtsp/failure.h"

#include <QByteArray>
#include <QObject>
#include <QUrl>

#include <chrono>
#include <span>

class QSslSocket;
class QTimer;

namespace orrin::rtsp {

/*! The socket of an RTSP client, with TLS for rtsps. Lives on one stream thread; the signals come on it.

    For rtsps the key of the server is compared before a single byte is sent: with a trusted key any other ends in
    broken(UntrustedKey), without one every key will do, since trust is then the session's matter. */
class Connection : public QObject
{
    Q_OBJECT
public:
    explicit Connection(QObject *parent = nullptr);
    ~Connection() override;

    /*! Ends in established() or broken(), within \a timeout. */
    void open(const QUrl &url, const QByteArray &trustedKey, std::chrono::milliseconds timeout);

    /*! At most as many bytes as there are and \a place takes. */
    std::size_t read(std::span<char> place);
    bool hasBytes() const;
    void write(const QByteArray &bytes);
    bool isSecure() const { return m_secure; }

    /*! Ends the connection; what was written is still sent, for at most two seconds. No signal follows. */
    void close();

Q_SIGNALS:
    void established();
    void readable();
    void broken(const orrin::rtsp::Failure &failure);

private:
    void encrypted();
    void fail(Failure::Kind kind, const QString &detail);

    QSslSocket *m_socket = nullptr;
    QTimer *m_timer = nullptr;
    QByteArray m_trustedKey;
    bool m_secure = false;
};

} // namespace orrin::rtsp
