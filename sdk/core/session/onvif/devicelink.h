// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/deviceservice.h"
#include "core/session/onvif/devicetrust.h"
#include "core/session/onvif/siteassembler.h"
#include "core/session/onvif/siteextensionclient.h"
#include "core/session/onvif/soapclient.h"

#include <contract/util/corvaneurl.h>

#include <QObject>
#include <QUrl>

#include <memory>

namespace orrin {

class DeviceLink;

/*! Deletes by the event loop: a link may be dropped while one of its own clients calls back. */
struct DeviceLinkDeleter
{
    void operator()(DeviceLink *link) const;
};
using DeviceLinkPtr = std::unique_ptr<DeviceLink, DeviceLinkDeleter>;

/*! All that belongs to one standing login at one device: its address, its trust, its clients, and what was
    read. Made by the LoginSequence, then the session's; a new one is made for each reconnect. Main thread. */
class DeviceLink : public QObject
{
    Q_OBJECT
public:
    /*! \a derKey empty: without TLS. */
    DeviceLink(const CorvaneUrl &url, const SharedCredentials &credentials, const QByteArray &derKey,
               const QString &address);
    ~DeviceLink() override;

    /*! The address of a service at this host and port. */
    QUrl serviceUrl(const QString &path) const;
    QUrl deviceServiceUrl() const;

    /*! Asks for the address of the stream of \a profile, by the newer media service where there is one. */
    SoapClient::Request streamUriRequest(const QString &profile, std::chrono::milliseconds timeout) const;

    void setServices(const deviceservice::Services &found);
    bool hasExtension() const { return site != nullptr; }

    /*! Tells a server with the site extension that the session ends, and deletes the link once that is done,
     * two seconds later at most. */
    static void end(DeviceLinkPtr link);

    const CorvaneUrl url;
    const SharedCredentials credentials;
    const QString address;
    DeviceTrust trust;
    SoapClient soap;
    std::unique_ptr<SiteExtensionClient> site; //!< null without the extension
    deviceservice::Services services;
    deviceservice::Information information;
    QTimeZone clockZone = QTimeZone::utc();
    QString sessionId; //!< of the site extension; empty without
    AssembledSite assembled;
};

} // namespace orrin
