// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QObject>
#include <QSslConfiguration>

QT_BEGIN_NAMESPACE
class QNetworkAccessManager;
class QNetworkReply;
QT_END_NAMESPACE

namespace orrin {

/*! The public key that a device showed when the session began, and that each later connection of the session
    must show.

    Certificates of recorders are self-signed as a rule, so that who signed one says nothing; the key does.
    Main thread. */
class DeviceTrust : public QObject
{
    Q_OBJECT
public:
    explicit DeviceTrust(QObject *parent = nullptr);

    /*! \a derKey is the key seen: DER, SubjectPublicKeyInfo; empty for a device without TLS. */
    void setKey(const QByteArray &derKey) { m_key = derKey; }
    const QByteArray &key() const { return m_key; }
    bool isTls() const { return !m_key.isEmpty(); }

    /*! The configuration for each HTTPS request of the session. */
    QSslConfiguration sslConfiguration() const;

    /*! Makes \a manager end each connection on which another key is shown, before a byte of a request leaves,
        and follow no redirect. hasChangedKey() tells such a reply. */
    void guard(QNetworkAccessManager *manager);

    static bool hasChangedKey(const QNetworkReply *reply);

private:
    QByteArray m_key;
};

} // namespace orrin
