// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSslConfiguration>
#include <QString>

#include <optional>

namespace orrin::demo {

/*! A recorder's TLS key (ECDSA P-256) with its self-signed certificate for localhost and 127.0.0.1. A plain
 * value. */
class TlsIdentity
{
public:
    /*! Makes a new key and certificate with the common name \a name; nothing, and \a error says why, when
     * that fails. */
    static std::optional<TlsIdentity> generate(const QString &name, QString *error);

    /*!
        The identity kept in \a folder under \a name; a new one is made and stored (the key readable by its
       owner only) when there is none or when \a renew is set. Without a folder it lives in memory alone.
    */
    static std::optional<TlsIdentity> loadOrGenerate(const QString &folder, const QString &name, bool renew,
                                                     QString *error);

    QByteArray certificatePem() const { return m_certificatePem; }
    QByteArray keyPem() const { return m_keyPem; }

    /*! SHA-256 over the DER form of the public key (SubjectPublicKeyInfo). */
    QByteArray publicKeySha256() const;

    /*! The configuration of a TLS server with this identity, TLS 1.2 or newer. */
    QSslConfiguration serverConfiguration() const;

private:
    QByteArray m_certificatePem;
    QByteArray m_keyPem;
};

} // namespace orrin::demo
