// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/devicelink.h"

#include "core/session/onvif/onvifnames.h"

#include <QCoreApplication>

namespace orrin {

void DeviceLinkDeleter::operator()(DeviceLink *link) const
{
    if (!QCoreApplication::instance()) {
        delete link;
        return;
    }
    link->setParent(QCoreApplication::instance());
    link->deleteLater();
}

DeviceLink::DeviceLink(const CorvaneUrl &url, const SharedCredentials &credentials, const QByteArray &derKey,
                       const QString &address)
    : url(url), credentials(credentials), address(address), soap(&trust, credentials)
{
    trust.setKey(derKey);
}

DeviceLink::~DeviceLink() = default;

QUrl DeviceLink::serviceUrl(const QString &path) const
{
    QUrl service;
    service.setScheme(trust.isTls() ? QStringLiteral("https") : QStringLiteral("http"));
    service.setHost(url.host());
    service.setPort(url.port());
    service.setPath(path);
    return service;
}

QUrl DeviceLink::deviceServiceUrl() const
{
    return serviceUrl(QStringLiteral("/onvif/device_service"));
}

SoapClient::Request DeviceLink::streamUriRequest(const QString &profile,
                                                 std::chrono::milliseconds timeout) const
{
    const bool newer = !services.media2.isEmpty();
    const QString &uri = newer ? onvif::Media2Namespace : onvif::MediaNamespace;
    SoapClient::Request request{serviceUrl(newer ? services.media2 : services.media), uri,
                                QStringLiteral("GetStreamUri")};
    request.timeout = timeout;
    if (newer) {
        request.arguments.append(
            SoapClient::argument(QStringLiteral("Protocol"), QStringLiteral("RTSP"), uri));
    } else {
        KDSoapValueList transport;
        transport.append(
            SoapClient::argument(QStringLiteral("Protocol"), QStringLiteral("RTSP"), onvif::SchemaNamespace));
        KDSoapValueList setup;
        setup.append(SoapClient::argument(QStringLiteral("Stream"), QStringLiteral("RTP-Unicast"),
                                          onvif::SchemaNamespace));
        setup.append(SoapClient::argument(QStringLiteral("Transport"), transport, onvif::SchemaNamespace));
        request.arguments.append(SoapClient::argument(QStringLiteral("StreamSetup"), setup, uri));
    }
    request.arguments.append(SoapClient::argument(QStringLiteral("ProfileToken"), profile, uri));
    return request;
}

void DeviceLink::setServices(const deviceservice::Services &found)
{
    services = found;
    if (services.site.isEmpty())
        return;
    const QString path = services.site.endsWith(u'/') ? services.site : services.site + u'/';
    site = std::make_unique<SiteExtensionClient>(serviceUrl(path), &trust, credentials);
}

void DeviceLink::end(DeviceLinkPtr link)
{
    if (!link || !link->site || link->sessionId.isEmpty() || !QCoreApplication::instance())
        return;
    constexpr std::chrono::milliseconds Patience{2000};
    const QString path =
        QStringLiteral("session/") + QString::fromLatin1(QUrl::toPercentEncoding(link->sessionId));
    DeviceLink *ending = link.release();
    // Goes with the application, should that end first.
    ending->setParent(QCoreApplication::instance());
    ending->site->remove(path, Patience, [ending](const SiteAnswer &) { ending->deleteLater(); });
}

} // namespace orrin
