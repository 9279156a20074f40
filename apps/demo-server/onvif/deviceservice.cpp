// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/deviceservice.h"

#include "onvif/namespaces.h"
#include "site/scopes.h"

#include <QDateTime>
#include <QHostAddress>
#include <QTimeZone>

#include <algorithm>
#include <array>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

void writeDateTime(SoapWriter &writer, QLatin1StringView name, const QDateTime &time)
{
    writer.start(ns::Schema, name);
    writer.start(ns::Schema, "Time"_L1);
    writer.element(ns::Schema, "Hour"_L1, qint64(time.time().hour()));
    writer.element(ns::Schema, "Minute"_L1, qint64(time.time().minute()));
    writer.element(ns::Schema, "Second"_L1, qint64(time.time().second()));
    writer.end();
    writer.start(ns::Schema, "Date"_L1);
    writer.element(ns::Schema, "Year"_L1, qint64(time.date().year()));
    writer.element(ns::Schema, "Month"_L1, qint64(time.date().month()));
    writer.element(ns::Schema, "Day"_L1, qint64(time.date().day()));
    writer.end();
    writer.end();
}

QString onvifLevel(UserLevel level)
{
    switch (level) {
    case UserLevel::Administrator:
    case UserLevel::Installer:
        return u"Administrator"_s;
    case UserLevel::Operator:
        return u"Operator"_s;
    case UserLevel::User:
        break;
    }
    return u"User"_s;
}

} // namespace

DeviceService::DeviceService(const OnvifContext &context, ServiceList services)
    : OnvifService(context, ns::Device, u"/onvif/device_service"_s, 2, 60), m_services(std::move(services))
{
    const auto addPlain = [this](const QString &name, Access access,
                                 void (DeviceService::*write)(SoapWriter &) const) {
        add(name, access, [this, write](const OnvifCall &, SoapWriter &writer) -> std::optional<SoapFault> {
            (this->*write)(writer);
            return std::nullopt;
        });
    };
    addPlain(u"GetSystemDateAndTime"_s, Access::Anyone, &DeviceService::writeSystemDateAndTime);
    addPlain(u"GetDeviceInformation"_s, Access::Users, &DeviceService::writeDeviceInformation);
    addPlain(u"GetScopes"_s, Access::Users, &DeviceService::writeScopes);
    addPlain(u"GetHostname"_s, Access::Anyone, &DeviceService::writeHostname);
    addPlain(u"GetNetworkInterfaces"_s, Access::Users, &DeviceService::writeNetworkInterfaces);
    addPlain(u"GetNetworkProtocols"_s, Access::Users, &DeviceService::writeNetworkProtocols);
    addPlain(u"GetUsers"_s, Access::Administrators, &DeviceService::writeUsers);
    add(u"GetServices"_s, Access::Anyone,
        [this](const OnvifCall &call, SoapWriter &writer) -> std::optional<SoapFault> {
            writeServices(call, writer);
            return std::nullopt;
        });
    add(u"GetServiceCapabilities"_s, Access::Anyone,
        [this](const OnvifCall &, SoapWriter &writer) -> std::optional<SoapFault> {
            writer.start(ns::Device, "GetServiceCapabilitiesResponse"_L1);
            writeCapabilities(writer);
            writer.end();
            return std::nullopt;
        });
    add(u"GetCapabilities"_s, Access::Anyone,
        [this](const OnvifCall &call, SoapWriter &writer) { return writeLegacyCapabilities(call, writer); });
}

void DeviceService::writeCapabilities(SoapWriter &writer) const
{
    writer.start(ns::Device, "Capabilities"_L1);
    writer.empty(ns::Device, "Network"_L1, {{"NTP"_L1, u"0"_s}});
    writer.empty(ns::Device, "Security"_L1,
                 {{"TLS1.2"_L1, u"true"_s},
                  {"UsernameToken"_L1, u"true"_s},
                  {"HttpDigest"_L1, u"true"_s},
                  {"DefaultAccessPolicy"_L1, u"true"_s}});
    writer.empty(ns::Device, "System"_L1,
                 {{"DiscoveryResolve"_L1, u"false"_s}, {"DiscoveryBye"_L1, u"true"_s}});
    writer.end();
}

void DeviceService::writeSystemDateAndTime(SoapWriter &writer) const
{
    const QTimeZone zone(recorder().timeZone);
    const QDateTime utc = QDateTime::fromMSecsSinceEpoch(context().clock.nowMs(), QTimeZone::UTC);
    const QDateTime local = utc.toTimeZone(zone);
    writer.start(ns::Device, "GetSystemDateAndTimeResponse"_L1);
    writer.start(ns::Device, "SystemDateAndTime"_L1);
    writer.element(ns::Schema, "DateTimeType"_L1, u"Manual"_s);
    writer.element(ns::Schema, "DaylightSavings"_L1, zone.isDaylightTime(utc));
    writer.start(ns::Schema, "TimeZone"_L1);
    writer.element(ns::Schema, "TZ"_L1, recorder().posixTimeZone);
    writer.end();
    writeDateTime(writer, "UTCDateTime"_L1, utc);
    writeDateTime(writer, "LocalDateTime"_L1, local);
    writer.end();
    writer.end();
}

void DeviceService::writeDeviceInformation(SoapWriter &writer) const
{
    writer.start(ns::Device, "GetDeviceInformationResponse"_L1);
    writer.element(ns::Device, "Manufacturer"_L1, u"Orrin"_s);
    writer.element(ns::Device, "Model"_L1, u"Demo Recorder"_s);
    writer.element(ns::Device, "FirmwareVersion"_L1, recorder().version);
    writer.element(ns::Device, "SerialNumber"_L1, QString::number(recorder().uid));
    writer.element(ns::Device, "HardwareId"_L1, u"demo"_s);
    writer.end();
}

void DeviceService::writeServices(const OnvifCall &call, SoapWriter &writer) const
{
    const bool withCapabilities = call.operation.childText(u"IncludeCapability") == "true"_L1;
    writer.start(ns::Device, "GetServicesResponse"_L1);
    const auto writeService = [&writer](const QString &ns, const QString &address, int major, int minor,
                                        const auto &capabilities) {
        writer.start(ns::Device, "Service"_L1);
        writer.element(ns::Device, "Namespace"_L1, ns);
        writer.element(ns::Device, "XAddr"_L1, address);
        capabilities();
        writer.start(ns::Device, "Version"_L1);
        writer.element(ns::Schema, "Major"_L1, qint64(major));
        writer.element(ns::Schema, "Minor"_L1, qint64(minor));
        writer.end();
        writer.end();
    };
    const auto services = m_services();
    for (const OnvifService *service : services) {
        writeService(service->ns(), service->address(call.request), service->majorVersion(),
                     service->minorVersion(), [&] {
                         if (!withCapabilities)
                             return;
                         writer.start(ns::Device, "Capabilities"_L1);
                         service->writeCapabilities(writer);
                         writer.end();
                     });
    }
    if (context().siteExtension)
        writeService(ns::Site, u"https://%1/orrin/v1/"_s.arg(QString::fromLatin1(call.request.host)), 1, 0,
                     [] {});
    writer.end();
}

std::optional<SoapFault> DeviceService::writeLegacyCapabilities(const OnvifCall &call,
                                                                SoapWriter &writer) const
{
    const QString category =
        call.operation.child(u"Category") ? call.operation.childText(u"Category") : u"All"_s;
    const bool all = category == "All"_L1;
    static constexpr std::array Categories{"Device"_L1, "Events"_L1, "Imaging"_L1, "Media"_L1, "PTZ"_L1};
    if (!all && std::ranges::find(Categories, category) == Categories.end())
        return SoapFault{u"env:Receiver"_s,
                         {u"ter:ActionNotSupported"_s, u"ter:NoSuchService"_s},
                         u"There is no such service."_s,
                         500};
    writer.start(ns::Device, "GetCapabilitiesResponse"_L1);
    writer.start(ns::Device, "Capabilities"_L1);
    if (all || category == "Device"_L1) {
        writer.start(ns::Schema, "Device"_L1);
        writer.element(ns::Schema, "XAddr"_L1, address(call.request));
        writer.end();
    }
    const auto services = m_services();
    for (const OnvifService *service : services) {
        if (service->ns() != ns::Events || (!all && category != "Events"_L1))
            continue;
        writer.start(ns::Schema, "Events"_L1);
        writer.element(ns::Schema, "XAddr"_L1, service->address(call.request));
        writer.element(ns::Schema, "WSSubscriptionPolicySupport"_L1, false);
        writer.element(ns::Schema, "WSPullPointSupport"_L1, true);
        writer.element(ns::Schema, "WSPausableSubscriptionManagerInterfaceSupport"_L1, false);
        writer.end();
    }
    const auto writeAddressOf = [&](QLatin1StringView ns, QLatin1StringView name) {
        for (const OnvifService *service : services) {
            if (service->ns() != ns || (!all && category != name))
                continue;
            writer.start(ns::Schema, name);
            writer.element(ns::Schema, "XAddr"_L1, service->address(call.request));
            writer.end();
        }
    };
    writeAddressOf(ns::Imaging, "Imaging"_L1);
    for (const OnvifService *service : services) {
        if (service->ns() != ns::Media || (!all && category != "Media"_L1))
            continue;
        writer.start(ns::Schema, "Media"_L1);
        writer.element(ns::Schema, "XAddr"_L1, service->address(call.request));
        writer.start(ns::Schema, "StreamingCapabilities"_L1);
        writer.element(ns::Schema, "RTPMulticast"_L1, false);
        writer.element(ns::Schema, "RTP_TCP"_L1, false);
        writer.element(ns::Schema, "RTP_RTSP_TCP"_L1, true);
        writer.end();
        writer.end();
    }
    writeAddressOf(ns::Ptz, "PTZ"_L1);
    writer.end();
    writer.end();
    return std::nullopt;
}

void DeviceService::writeScopes(SoapWriter &writer) const
{
    writer.start(ns::Device, "GetScopesResponse"_L1);
    const QStringList scopes = scopesOf(recorder());
    for (const QString &scope : scopes) {
        writer.start(ns::Device, "Scopes"_L1);
        writer.element(ns::Schema, "ScopeDef"_L1, u"Fixed"_s);
        writer.element(ns::Schema, "ScopeItem"_L1, scope);
        writer.end();
    }
    writer.end();
}

void DeviceService::writeHostname(SoapWriter &writer) const
{
    writer.start(ns::Device, "GetHostnameResponse"_L1);
    writer.start(ns::Device, "HostnameInformation"_L1);
    writer.element(ns::Schema, "FromDHCP"_L1, false);
    writer.element(ns::Schema, "Name"_L1, recorder().name.toLower());
    writer.end();
    writer.end();
}

void DeviceService::writeNetworkInterfaces(SoapWriter &writer) const
{
    const bool v6 = QHostAddress(context().address).protocol() == QAbstractSocket::IPv6Protocol;
    writer.start(ns::Device, "GetNetworkInterfacesResponse"_L1);
    writer.start(ns::Device, "NetworkInterfaces"_L1, {{"token"_L1, u"NI_1"_s}});
    writer.element(ns::Schema, "Enabled"_L1, true);
    writer.start(ns::Schema, "Info"_L1);
    writer.element(ns::Schema, "Name"_L1, u"demo0"_s);
    writer.element(ns::Schema, "HwAddress"_L1,
                   u"02:00:00:00:00:%1"_s.arg(recorder().id, 2, 16, QLatin1Char('0')));
    writer.end();
    writer.start(ns::Schema, v6 ? "IPv6"_L1 : "IPv4"_L1);
    writer.element(ns::Schema, "Enabled"_L1, true);
    writer.start(ns::Schema, "Config"_L1);
    if (v6)
        writer.element(ns::Schema, "DHCP"_L1, u"Off"_s);
    writer.start(ns::Schema, "Manual"_L1);
    writer.element(ns::Schema, "Address"_L1, context().address);
    writer.element(ns::Schema, "PrefixLength"_L1, qint64(v6 ? 128 : 8));
    writer.end();
    if (!v6)
        writer.element(ns::Schema, "DHCP"_L1, false);
    writer.end();
    writer.end();
    writer.end();
    writer.end();
}

void DeviceService::writeNetworkProtocols(SoapWriter &writer) const
{
    writer.start(ns::Device, "GetNetworkProtocolsResponse"_L1);
    for (const auto &[name, port] :
         {std::pair(u"HTTPS"_s, context().httpPort()), std::pair(u"RTSP"_s, context().rtspPort())}) {
        writer.start(ns::Device, "NetworkProtocols"_L1);
        writer.element(ns::Schema, "Name"_L1, name);
        writer.element(ns::Schema, "Enabled"_L1, true);
        writer.element(ns::Schema, "Port"_L1, qint64(port));
        writer.end();
    }
    writer.end();
}

void DeviceService::writeUsers(SoapWriter &writer) const
{
    writer.start(ns::Device, "GetUsersResponse"_L1);
    const auto users = context().accounts->users();
    for (const User &user : users) {
        writer.start(ns::Device, "User"_L1);
        writer.element(ns::Schema, "Username"_L1, user.name);
        writer.element(ns::Schema, "UserLevel"_L1, onvifLevel(user.level));
        writer.end();
    }
    writer.end();
}

} // namespace orrin::demo
