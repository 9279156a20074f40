// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/corvaneurl.h>

#include <QByteArray>
#include <QObject>
#include <QSslSocket>
#include <QString>
#include <QTimer>

#include <chrono>

namespace orrin {

/*! Finds out whether something listens at an address, whether it speaks TLS, and which public key it shows.
    Main thread.

    Nothing but the TLS greeting is sent. One probe, one use; start() ends in finished(), by the event loop,
    but not before the caller's deadline: something that cannot be reached may take as long as the system
    tries. */
class ORRINSDK_CORE_EXPORT TlsProbe : public QObject
{
    Q_OBJECT
public:
    enum class Outcome {
        Encrypted,   //!< key() and address() are known
        NoTls,       //!< connected, but the peer answered no TLS greeting, or nothing within the time for it
        UnknownHost, //!< the name has no address
        Refused,     //!< nobody listens there
        Unreachable,
    };

    explicit TlsProbe(QObject *parent = nullptr);
    ~TlsProbe() override;

    /*! How long a connected peer may take for the greeting. */
    void setHandshakeTime(std::chrono::milliseconds time) { m_handshakeTime = time; }

    void start(const CorvaneUrl &url);

    bool isConnected() const { return m_connected; }
    const QByteArray &key() const { return m_key; }
    /*! The peer's numeric address. */
    const QString &address() const { return m_address; }
    /*! What the network said, for the log. */
    const QString &detail() const { return m_detail; }

Q_SIGNALS:
    void finished(orrin::TlsProbe::Outcome outcome);

private:
    void onConnected();
    void onEncrypted();
    void onError(QAbstractSocket::SocketError error);
    void finish(Outcome outcome);

    QSslSocket m_socket;
    QTimer m_handshakeTimer;
    std::chrono::milliseconds m_handshakeTime{4000};
    QByteArray m_key;
    QString m_address;
    QString m_detail;
    bool m_connected = false;
    bool m_finished = false;
};

} // namespace orrin
