// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/devicetrust.h"

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QVariant>

namespace orrin {

namespace {

constexpr const char *KeyChangedProperty = "orrinKeyChanged";

} // namespace

DeviceTrust::DeviceTrust(QObject *parent) : QObject(parent) {}

QSslConfiguration DeviceTrust::sslConfiguration() const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    return configuration;
}

void DeviceTrust::guard(QNetworkAccessManager *manager)
{
    manager->setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
    manager->setProxy(QNetworkProxy::NoProxy);
    connect(manager, &QNetworkAccessManager::encrypted, this, [this](QNetworkReply *reply) {
        // The network thread waits in this signal: nothing has been sent yet.
        if (reply->sslConfiguration().peerCertificate().publicKey().toDer() == m_key)
            return;
        reply->setProperty(KeyChangedProperty, true);
        reply->abort();
    });
}

bool DeviceTrust::hasChangedKey(const QNetworkReply *reply)
{
    return reply->property(KeyChangedProperty).toBool();
}

} // namespace orrin
