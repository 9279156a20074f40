// SPDX-License-Identifier: GPL-3.0-or-later
#include "site/tlsidentity.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QSslCertificate>
#include <QSslKey>

#include <memory>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr long ValidSeconds = 10L * 365 * 24 * 3600;
constexpr qint64 MaximumFileSize = 64 * 1024;

template <auto Free> struct Deleter
{
    template <typename T> void operator()(T *object) const { Free(object); }
};
using KeyPointer = std::unique_ptr<EVP_PKEY, Deleter<EVP_PKEY_free>>;
using CertificatePointer = std::unique_ptr<X509, Deleter<X509_free>>;
using BioPointer = std::unique_ptr<BIO, Deleter<BIO_free_all>>;
using ExtensionPointer = std::unique_ptr<X509_EXTENSION, Deleter<X509_EXTENSION_free>>;

QByteArray content(BIO *bio)
{
    char *data = nullptr;
    const long size = BIO_get_mem_data(bio, &data);
    return QByteArray(data, qsizetype(size));
}

bool addExtension(X509 *certificate, int nid, const char *value)
{
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
    const ExtensionPointer extension(X509V3_EXT_conf_nid(nullptr, &context, nid, value));
    return extension && X509_add_ext(certificate, extension.get(), -1) == 1;
}

CertificatePointer selfSigned(EVP_PKEY *key, const QByteArray &name)
{
    CertificatePointer certificate(X509_new());
    std::uint64_t serial = 0;
    if (!certificate || RAND_bytes(reinterpret_cast<unsigned char *>(&serial), sizeof serial) != 1)
        return {};
    X509 *x509 = certificate.get();
    X509_NAME *subject = X509_get_subject_name(x509);
    const bool made =
        X509_set_version(x509, 2) == 1 &&
        ASN1_INTEGER_set_uint64(X509_get_serialNumber(x509), serial >> 1) == 1 &&
        X509_gmtime_adj(X509_getm_notBefore(x509), -24 * 3600) &&
        X509_gmtime_adj(X509_getm_notAfter(x509), ValidSeconds) && X509_set_pubkey(x509, key) == 1 &&
        X509_NAME_add_entry_by_txt(subject, "CN", MBSTRING_UTF8,
                                   reinterpret_cast<const unsigned char *>(name.constData()),
                                   int(name.size()), -1, 0) == 1 &&
        X509_set_issuer_name(x509, subject) == 1 &&
        addExtension(x509, NID_subject_alt_name, "DNS:localhost,IP:127.0.0.1,IP:::1") &&
        addExtension(x509, NID_basic_constraints, "critical,CA:FALSE") &&
        addExtension(x509, NID_ext_key_usage, "serverAuth") && X509_sign(x509, key, EVP_sha256()) > 0;
    return made ? std::move(certificate) : CertificatePointer();
}

QByteArray readSmallFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > MaximumFileSize)
        return {};
    return file.readAll();
}

bool writeFile(const QString &path, const QByteArray &data, QFileDevice::Permissions permissions,
               QString *error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.setPermissions(permissions) &&
        file.write(data) == data.size() && file.commit())
        return true;
    *error = u"cannot write %1: %2"_s.arg(path, file.errorString());
    return false;
}

} // namespace

std::optional<TlsIdentity> TlsIdentity::generate(const QString &name, QString *error)
{
    const KeyPointer key(EVP_EC_gen("P-256"));
    const CertificatePointer certificate = key ? selfSigned(key.get(), name.toUtf8()) : CertificatePointer();
    const BioPointer keyBio(BIO_new(BIO_s_mem()));
    const BioPointer certificateBio(BIO_new(BIO_s_mem()));
    if (!certificate || !keyBio || !certificateBio ||
        PEM_write_bio_PrivateKey(keyBio.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) != 1 ||
        PEM_write_bio_X509(certificateBio.get(), certificate.get()) != 1) {
        *error = u"cannot make a key and certificate"_s;
        return std::nullopt;
    }
    TlsIdentity identity;
    identity.m_certificatePem = content(certificateBio.get());
    identity.m_keyPem = content(keyBio.get());
    return identity;
}

std::optional<TlsIdentity> TlsIdentity::loadOrGenerate(const QString &folder, const QString &name, bool renew,
                                                       QString *error)
{
    if (folder.isEmpty())
        return generate(name, error);
    if (!QDir().mkpath(folder)) {
        *error = u"cannot make the folder %1"_s.arg(folder);
        return std::nullopt;
    }
    const QString base = QDir(folder).filePath(name.toLower());
    const QString keyPath = base + u"-key.pem"_s;
    const QString certificatePath = base + u"-certificate.pem"_s;
    if (!renew) {
        TlsIdentity stored;
        stored.m_certificatePem = readSmallFile(certificatePath);
        stored.m_keyPem = readSmallFile(keyPath);
        const QSslCertificate certificate(stored.m_certificatePem, QSsl::Pem);
        const QSslKey key(stored.m_keyPem, QSsl::Ec);
        if (!certificate.isNull() && !key.isNull())
            return stored;
    }
    std::optional<TlsIdentity> identity = generate(name, error);
    if (identity &&
        (!writeFile(keyPath, identity->m_keyPem, QFile::ReadOwner | QFile::WriteOwner, error) ||
         !writeFile(certificatePath, identity->m_certificatePem,
                    QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther, error)))
        return std::nullopt;
    return identity;
}

QByteArray TlsIdentity::publicKeySha256() const
{
    const QSslCertificate certificate(m_certificatePem, QSsl::Pem);
    return QCryptographicHash::hash(certificate.publicKey().toDer(), QCryptographicHash::Sha256);
}

QSslConfiguration TlsIdentity::serverConfiguration() const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(QSslCertificate(m_certificatePem, QSsl::Pem));
    configuration.setPrivateKey(QSslKey(m_keyPem, QSsl::Ec));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    configuration.setProtocol(QSsl::TlsV1_2OrLater);
    return configuration;
}

} // namespace orrin::demo
