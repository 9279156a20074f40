// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakeonvifdevice.h"

#include <algorithm>
#include <QCryptographicHash>
#include <QRegularExpression>

namespace orrin::test {

namespace {

QByteArray firstMatch(const char *pattern, const QByteArray &text)
{
    return QRegularExpression(QString::fromLatin1(pattern))
        .match(QString::fromUtf8(text))
        .captured(1)
        .toUtf8();
}

QByteArray md5(const QByteArray &text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex();
}

QByteArray profile(const QByteArray &token, const QByteArray &source, int width, int height, bool newer)
{
    const QByteArray resolution = "<tt:Resolution><tt:Width>" + QByteArray::number(width) +
                                  "</tt:Width><tt:Height>" + QByteArray::number(height) +
                                  "</tt:Height></tt:Resolution>";
    const QByteArray video = " token=\"vsc-" + source + "\"><tt:Name>Camera " + source +
                             "</tt:Name><tt:SourceToken>" + source + "</tt:SourceToken>";
    if (newer) {
        return "<m:Profiles token=\"" + token + "\"><m:Name>x</m:Name><m:Configurations><m:VideoSource" +
               video + "</m:VideoSource><m:VideoEncoder token=\"e\"><tt:Encoding>H264</tt:Encoding>" +
               resolution + "</m:VideoEncoder></m:Configurations></m:Profiles>";
    }
    return "<m:Profiles token=\"" + token + "\"><tt:Name>x</tt:Name><tt:VideoSourceConfiguration" + video +
           "</tt:VideoSourceConfiguration><tt:VideoEncoderConfiguration token=\"e\">" + resolution +
           "</tt:VideoEncoderConfiguration><tt:PTZConfiguration token=\"p\"/></m:Profiles>";
}

} // namespace

FakeOnvifDevice::FakeOnvifDevice()
{
    server.setHandler([this](const FakeRequest &request) { return answer(request); });
}

QByteArray FakeOnvifDevice::envelope(const QByteArray &body)
{
    return "<?xml version=\"1.0\"?><e:Envelope xmlns:e=\"http://www.w3.org/2003/05/soap-envelope\""
           " xmlns:ter=\"http://www.onvif.org/ver10/error\" xmlns:tt=\"http://www.onvif.org/ver10/schema\""
           " xmlns:d=\"http://www.onvif.org/ver10/device/wsdl\" "
           "xmlns:m=\"http://www.onvif.org/ver20/media/wsdl\""
           " xmlns:x=\"urn:orrin:site:1\"><e:Body>" +
           body + "</e:Body></e:Envelope>";
}

FakeAnswer FakeOnvifDevice::fault(int status, const QByteArray &subcode, const QByteArray &inner,
                                  const QByteArray &detail) const
{
    const QByteArray below =
        inner.isEmpty() ? QByteArray() : "<e:Subcode><e:Value>x:" + inner + "</e:Value></e:Subcode>";
    return {status,
            envelope("<e:Fault><e:Code><e:Value>e:Sender</e:Value><e:Subcode><e:Value>ter:" + subcode +
                     "</e:Value>" + below +
                     "</e:Subcode></e:Code><e:Reason><e:Text>no</e:Text></e:Reason><e:Detail>" + detail +
                     "</e:Detail></e:Fault>"),
            {"Content-Type: application/soap+xml"}};
}

FakeAnswer FakeOnvifDevice::challenge() const
{
    switch (login) {
    case Login::UsernameToken:
        return fault(400, "NotAuthorized");
    case Login::BasicOnly:
        return {401, "<html>who?</html>", {"WWW-Authenticate: Basic realm=\"device\""}};
    case Login::Digest:
        break;
    }
    return {401,
            "<html>who?</html>",
            {"WWW-Authenticate: Basic realm=\"device\"",
             "WWW-Authenticate: Digest realm=\"device\", qop=\"auth\", nonce=\"abc123\", opaque=\"o\""}};
}

bool FakeOnvifDevice::hasCredentials(const FakeRequest &request) const
{
    return request.headers.contains("authorization") || request.body.contains("UsernameToken");
}

bool FakeOnvifDevice::isAuthorised(const FakeRequest &request) const
{
    switch (login) {
    case Login::Digest:
        return checkDigest(request);
    case Login::UsernameToken:
        return checkUsernameToken(request.body);
    case Login::BasicOnly:
        break;
    }
    return false;
}

bool FakeOnvifDevice::checkDigest(const FakeRequest &request) const
{
    const QByteArray header = request.headers.value("authorization");
    const QByteArray count = firstMatch("nc=([0-9a-f]{8})", header);
    const QByteArray clientNonce = firstMatch("cnonce=\"([^\"]+)\"", header);
    const QByteArray secret = md5(user + ":device:" + password);
    const QByteArray what = md5(request.method + ':' + request.target);
    return firstMatch("uri=\"([^\"]+)\"", header) == request.target &&
           firstMatch("username=\"([^\"]+)\"", header) == user &&
           firstMatch("response=\"([^\"]+)\"", header) ==
               md5(secret + ":abc123:" + count + ':' + clientNonce + ":auth:" + what);
}

bool FakeOnvifDevice::checkUsernameToken(const QByteArray &body) const
{
    const QByteArray nonce = QByteArray::fromBase64(firstMatch("Nonce[^>]*>([^<]+)<", body));
    const QByteArray created = firstMatch("Created[^>]*>([^<]+)<", body);
    const QByteArray digest = firstMatch("Password[^>]*#PasswordDigest[^>]*>([^<]+)<", body);
    const QDateTime time = QDateTime::fromString(QString::fromLatin1(created), Qt::ISODateWithMs);
    const bool isFresh = qAbs(time.secsTo(now())) <= 5;
    const QByteArray expected =
        QCryptographicHash::hash(nonce + created + password, QCryptographicHash::Sha1).toBase64();
    return isFresh && nonce.size() > 0 && nonce.size() <= 16 && digest == expected &&
           firstMatch("Username[^>]*>([^<]+)</[^>]*Username>", body) == user;
}

std::optional<FakeAnswer> FakeOnvifDevice::answer(const FakeRequest &request)
{
    if (intercept) {
        if (const auto answer = intercept(request))
            return answer;
    }
    const bool isSoap = request.target.startsWith("/onvif/");
    const QByteArray operation =
        isSoap ? firstMatch("Body[^>]*><(?:[^: >]+:)?([A-Za-z]+)", request.body) : QByteArray();
    operations.append(isSoap ? operation : request.method + ' ' + request.target.mid(10).split('?').first());
    if (operation == "GetSystemDateAndTime")
        return answerSoap(operation);
    if (hasCredentials(request)) {
        ++loginAttempts;
        if (!refusal.isEmpty())
            return fault(400, "NotAuthorized", refusal, "<x:Seconds>95</x:Seconds>");
    }
    if (!isAuthorised(request))
        return challenge();
    if (!isSoap)
        return answerSite(request);
    return answerSoap(operation);
}

std::optional<FakeAnswer> FakeOnvifDevice::answerSite(const FakeRequest &request)
{
    const QByteArray path = request.target.mid(QByteArray("/orrin/v1/").size());
    if (request.method == "POST" && path == "session") {
        if (!jsonRefusal.isEmpty())
            return FakeAnswer{403, jsonRefusal, {}};
        sessionKnown = true;
        return FakeAnswer{200, "{\"session\":\"s 1\",\"timeoutSeconds\":60}", {}};
    }
    if (request.method == "GET" && path == "site")
        return FakeAnswer{200, site, {}};
    if (request.method == "DELETE" && path == "session/s%201")
        return FakeAnswer{200, "{}", {}};
    if (request.method == "GET" && path.startsWith("changes?session=s%201&after=")) {
        if (!sessionKnown || forgottenPolls > 0) {
            forgottenPolls = std::max(0, forgottenPolls - 1);
            return FakeAnswer{404, "{}", {}};
        }
        if (changes.isEmpty())
            return std::nullopt;
        return FakeAnswer{200, std::exchange(changes, QByteArray()), {}};
    }
    return FakeAnswer{404, "", {}};
}

FakeAnswer FakeOnvifDevice::answerSoap(const QByteArray &operation)
{
    const auto ok = [](const QByteArray &body) { return FakeAnswer{200, envelope(body), {}}; };
    if (operation == "GetSystemDateAndTime") {
        const QDateTime time = now();
        return ok("<d:GetSystemDateAndTimeResponse><d:SystemDateAndTime><tt:TimeZone><tt:TZ>" + timeZone +
                  "</tt:TZ></tt:TimeZone><tt:UTCDateTime>" +
                  time.toString(QStringLiteral(
                                    "'<tt:Time><tt:Hour>'H'</tt:Hour><tt:Minute>'m'</tt:Minute><tt:Second>'s"
                                    "'</tt:Second></tt:Time><tt:Date><tt:Year>'yyyy'</tt:Year><tt:Month>'M"
                                    "'</tt:Month><tt:Day>'d'</tt:Day></tt:Date>'"))
                      .toLatin1() +
                  "</tt:UTCDateTime></d:SystemDateAndTime></d:GetSystemDateAndTimeResponse>");
    }
    if (operation == "GetDeviceInformation") {
        return ok(
            "<d:GetDeviceInformationResponse><d:Manufacturer>M</d:Manufacturer><d:Model>Model 7</d:Model>"
            "<d:FirmwareVersion>2.5.1</d:FirmwareVersion><d:SerialNumber>SN-1</d:SerialNumber>"
            "<d:HardwareId>HW-1</d:HardwareId></d:GetDeviceInformationResponse>");
    }
    const auto service = [](const QByteArray &name, const QByteArray &address) {
        return "<d:Service><d:Namespace>" + name + "</d:Namespace><d:XAddr>" + address +
               "</d:XAddr></d:Service>";
    };
    if (operation == "GetServices") {
        if (!hasGetServices)
            return fault(400, "ActionNotSupported");
        return ok("<d:GetServicesResponse>" +
                  (hasMedia2
                       ? service("http://www.onvif.org/ver20/media/wsdl", "http://10.9.9.9/onvif/media2")
                       : "") +
                  service("http://www.onvif.org/ver10/media/wsdl", "http://10.9.9.9/onvif/media") +
                  (hasExtension ? service("urn:orrin:site:1", "https://10.9.9.9/orrin/v1/") : "") +
                  "</d:GetServicesResponse>");
    }
    if (operation == "GetCapabilities") {
        return ok("<d:GetCapabilitiesResponse><d:Capabilities><tt:Media><tt:XAddr>http://10.9.9.9/onvif/"
                  "media</tt:XAddr>"
                  "</tt:Media></d:Capabilities></d:GetCapabilitiesResponse>");
    }
    if (operation == "GetUsers") {
        if (userLevel.isEmpty())
            return fault(400, "NotAuthorized");
        return ok("<d:GetUsersResponse><d:User><tt:Username>other</tt:Username><tt:UserLevel>Administrator</"
                  "tt:UserLevel>"
                  "</d:User><d:User><tt:Username>" +
                  user + "</tt:Username><tt:UserLevel>" + userLevel +
                  "</tt:UserLevel></d:User></d:GetUsersResponse>");
    }
    if (operation == "GetProfiles") {
        return ok("<m:GetProfilesResponse>" + profile("low", "1", 320, 180, hasMedia2) +
                  profile("high", "1", 1920, 1080, hasMedia2) + profile("only", "2", 640, 480, hasMedia2) +
                  "</m:GetProfilesResponse>");
    }
    if (operation == "GetMasks") {
        return ok(
            "<m:GetMasksResponse><m:Masks "
            "token=\"k\"><m:ConfigurationToken>vsc-1</m:ConfigurationToken><m:Polygon>"
            "<tt:Point x=\"-1\" y=\"1\"/><tt:Point x=\"0\" y=\"1\"/><tt:Point x=\"0\" y=\"0\"/></m:Polygon>"
            "<m:Type>Color</m:Type><m:Enabled>true</m:Enabled></m:Masks></m:GetMasksResponse>");
    }
    if (operation == "GetStreamUri") {
        if (refuseStream)
            return fault(400, "NotAuthorized");
        return ok("<m:GetStreamUriResponse>" +
                  (hasMedia2 ? "<m:Uri>" + streamUri + "</m:Uri>"
                             : "<m:MediaUri><tt:Uri>" + streamUri + "</tt:Uri></m:MediaUri>") +
                  "</m:GetStreamUriResponse>");
    }
    return fault(400, "ActionNotSupported");
}

} // namespace orrin::test
