// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"
#include "httpprobe.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QTest>
#include <QXmlStreamReader>

using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray Device = "http://www.onvif.org/ver10/device/wsdl";
const QByteArray Media = "http://www.onvif.org/ver10/media/wsdl";
const QByteArray Media2 = "http://www.onvif.org/ver20/media/wsdl";

QByteArray operation(const QByteArray &name, const QByteArray &ns, const QByteArray &content = {})
{
    return "<x:" + name + " xmlns:x=\"" + ns + "\">" + content + "</x:" + name + '>';
}

QByteArray wsse(const QByteArray &user, const QByteArray &password, const QDateTime &created,
                const QByteArray &nonce)
{
    const QByteArray time = created.toUTC().toString(Qt::ISODateWithMs).toLatin1();
    const QByteArray digest =
        QCryptographicHash::hash(nonce + time + password, QCryptographicHash::Sha1).toBase64();
    return "<w:Security "
           "xmlns:w=\"http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-secext-1.0.xsd\" "
           "xmlns:u=\"http://docs.oasis-open.org/wss/2004/01/"
           "oasis-200401-wss-wssecurity-utility-1.0.xsd\"><w:UsernameToken><w:Username>" +
           user +
           "</w:Username><w:Password "
           "Type=\"http://docs.oasis-open.org/wss/2004/01/"
           "oasis-200401-wss-username-token-profile-1.0#PasswordDigest\">" +
           digest + "</w:Password><w:Nonce>" + nonce.toBase64() + "</w:Nonce><u:Created>" + time +
           "</u:Created></w:UsernameToken></w:Security>";
}

/*! The texts of all elements with this local name. */
QStringList texts(const QByteArray &document, QLatin1StringView name)
{
    QStringList result;
    QXmlStreamReader xml(document);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == name)
            result.append(xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed());
    }
    return xml.hasError() ? QStringList{u"not well formed"_s} : result;
}

qsizetype count(const QByteArray &document, QLatin1StringView name)
{
    qsizetype found = 0;
    QXmlStreamReader xml(document);
    while (!xml.atEnd())
        found += xml.readNext() == QXmlStreamReader::StartElement && xml.name() == name;
    return xml.hasError() ? -1 : found;
}

} // namespace

class TestOnvif : public QObject
{
    Q_OBJECT

private:
    DemoServerProcess m_server;

    QUrl device(int recorder = 1) const { return m_server.url(u"/onvif/device_service"_s, recorder); }
    QUrl media2(int recorder = 1) const { return m_server.url(u"/onvif/media2_service"_s, recorder); }
    QUrl media(int recorder = 1) const { return m_server.url(u"/onvif/media_service"_s, recorder); }

private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void getSystemDateAndTime_needsNoLogin()
    {
        HttpProbe probe;
        const auto answer = probe.soap(device(), operation("GetSystemDateAndTime", Device));
        QCOMPARE(answer.status, 200);
        QVERIFY(answer.contentType.startsWith("application/soap+xml"));
        QCOMPARE(texts(answer.body, "TZ"_L1), QStringList{u"CET-1CEST,M3.5.0,M10.5.0/3"_s});
        const QDateTime now = QDateTime::currentDateTimeUtc();
        QCOMPARE(texts(answer.body, "Year"_L1).value(0).toInt(), now.date().year());
        const int seconds = texts(answer.body, "Hour"_L1).value(0).toInt() * 3600 +
                            texts(answer.body, "Minute"_L1).value(0).toInt() * 60 +
                            texts(answer.body, "Second"_L1).value(0).toInt();
        const int difference = qAbs(QTime(0, 0).secsTo(now.time()) - seconds);
        QVERIFY(difference < 10 || difference > 86390);
    }

    void anythingElse_asksForALogin()
    {
        HttpProbe probe;
        for (const QByteArray name : {"GetDeviceInformation", "GetUsers", "NoSuchThing"}) {
            const auto answer = probe.soap(device(), operation(name, Device));
            QCOMPARE(answer.status, 401);
            QCOMPARE(answer.challenges.size(), 2);
            QVERIFY(answer.challenges.at(0).contains("SHA-256"));
            QVERIFY(answer.contains("ter:NotAuthorized"));
        }
        const auto empty = probe.send("POST", device(), {}, "application/soap+xml");
        QCOMPARE(empty.status, 401);
    }

    void digest_isAccepted_andWrongPasswordsAreNot()
    {
        HttpProbe guest(u"guest"_s, u"orrin-guest"_s);
        const auto answer = guest.soap(device(), operation("GetDeviceInformation", Device));
        QCOMPARE(answer.status, 200);
        QCOMPARE(texts(answer.body, "FirmwareVersion"_L1), QStringList{u"4.2.1.1873"_s});
        QCOMPARE(answer.publicKeySha256, m_server.recorders().constFirst().publicKeySha256);
        HttpProbe wrong(u"guest"_s, u"orrin-admin"_s);
        QCOMPARE(wrong.soap(device(), operation("GetDeviceInformation", Device)).status, 401);
    }

    void usernameToken_isAcceptedOnce_withinFiveMinutes()
    {
        HttpProbe probe;
        const QDateTime now = QDateTime::currentDateTimeUtc();
        const auto status = [&](const QByteArray &header) {
            return probe.soap(device(), operation("GetDeviceInformation", Device), header).status;
        };
        const QByteArray token = wsse("guest", "orrin-guest", now, "nonce-1");
        QCOMPARE(status(token), 200);
        QCOMPARE(status(token), 401);
        QCOMPARE(status(wsse("guest", "orrin-guest", now, "nonce-2")), 200);
        QCOMPARE(status(wsse("guest", "orrin-guest", now.addSecs(-280), "nonce-3")), 200);
        QCOMPARE(status(wsse("guest", "orrin-guest", now.addSecs(-320), "nonce-4")), 401);
        QCOMPARE(status(wsse("guest", "orrin-guest", now.addSecs(320), "nonce-5")), 401);
        QCOMPARE(status(wsse("guest", "wrong", now, "nonce-6")), 401);
        QCOMPARE(status(wsse("nobody", "", now, "nonce-7")), 401);
        QCOMPARE(status(wsse("guest", "orrin-guest", now, QByteArray(65, 'n'))), 401);
    }

    void usernameToken_followsTheDevicesClock()
    {
        DemoServerProcess server;
        QVERIFY(server.start({u"--clock-offset"_s, u"3600"_s}));
        HttpProbe probe;
        const QDateTime now = QDateTime::currentDateTimeUtc();
        const QUrl url = server.url(u"/onvif/device_service"_s);
        const QByteArray body = operation("GetDeviceInformation", Device);
        QCOMPARE(probe.soap(url, body, wsse("guest", "orrin-guest", now, "a")).status, 401);
        QCOMPARE(probe.soap(url, body, wsse("guest", "orrin-guest", now.addSecs(3600), "b")).status, 200);
        const auto clock = probe.soap(url, operation("GetSystemDateAndTime", Device));
        QCOMPARE(texts(clock.body, "Hour"_L1).value(0).toInt(), now.addSecs(3600).time().hour());
    }

    void getServices_listsWhatThereIs()
    {
        HttpProbe probe;
        const auto answer = probe.soap(
            device(), operation("GetServices", Device, "<x:IncludeCapability>true</x:IncludeCapability>"));
        QCOMPARE(answer.status, 200);
        const QStringList namespaces = texts(answer.body, "Namespace"_L1);
        const QStringList addresses = texts(answer.body, "XAddr"_L1);
        QCOMPARE(addresses.size(), namespaces.size());
        const auto addressOf = [&](const QString &ns) { return QUrl(addresses.value(namespaces.indexOf(ns))); };
        QCOMPARE(addressOf(QString::fromLatin1(Device)), device());
        QCOMPARE(addressOf(QString::fromLatin1(Media)), media());
        QCOMPARE(addressOf(QString::fromLatin1(Media2)), media2());
        QCOMPARE(addressOf(u"http://www.onvif.org/ver10/events/wsdl"_s), m_server.url(u"/onvif/event_service"_s));
        QCOMPARE(addressOf(u"urn:orrin:site:1"_s), m_server.url(u"/orrin/v1/"_s));
        // One around and one in it for each service but the site extension.
        QCOMPARE(count(answer.body, "Capabilities"_L1), 2 * (namespaces.size() - 1));
        const auto old =
            probe.soap(device(), operation("GetCapabilities", Device, "<x:Category>All</x:Category>"));
        QVERIFY(texts(old.body, "XAddr"_L1).contains(media().toString()));
        const auto none =
            probe.soap(device(), operation("GetCapabilities", Device, "<x:Category>Analytics</x:Category>"));
        QCOMPARE(none.status, 500);
        QVERIFY(none.contains("ter:NoSuchService"));
    }

    void getServices_leavesTheExtensionOut_whenPlain()
    {
        DemoServerProcess server;
        QVERIFY(server.start({u"--plain-onvif"_s}));
        HttpProbe probe(u"admin"_s, u"orrin-admin"_s);
        const auto answer =
            probe.soap(server.url(u"/onvif/device_service"_s), operation("GetServices", Device));
        QCOMPARE(answer.status, 200);
        QVERIFY(!answer.contains("<tds:Namespace>urn:orrin:site:1"));
        QCOMPARE(probe.get(server.url(u"/orrin/v1/site"_s)).status, 404);
    }

    void getUsers_isForAdministrators()
    {
        HttpProbe admin(u"admin"_s, u"orrin-admin"_s);
        const auto answer = admin.soap(device(), operation("GetUsers", Device));
        QCOMPARE(texts(answer.body, "Username"_L1), QStringList({u"admin"_s, u"operator"_s, u"guest"_s}));
        QCOMPARE(texts(answer.body, "UserLevel"_L1),
                 QStringList({u"Administrator"_s, u"Operator"_s, u"User"_s}));
        QVERIFY(!answer.contains("orrin-"));
        HttpProbe user(u"operator"_s, u"orrin-operator"_s);
        const auto refused = user.soap(device(), operation("GetUsers", Device));
        QCOMPARE(refused.status, 403);
        QVERIFY(refused.contains("ter:NotAuthorized"));
    }

    void smallDeviceOperations_answer_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("scopes") << QByteArray("GetScopes") << QByteArray("onvif://www.onvif.org/name/South");
        QTest::newRow("hostname") << QByteArray("GetHostname") << QByteArray("<tt:Name>south</tt:Name>");
        QTest::newRow("interfaces") << QByteArray("GetNetworkInterfaces")
                                    << QByteArray("<tt:Address>127.0.0.1</tt:Address>");
        QTest::newRow("protocols") << QByteArray("GetNetworkProtocols")
                                   << "<tt:Port>" + QByteArray::number(0);
        QTest::newRow("capabilities")
            << QByteArray("GetServiceCapabilities") << QByteArray("HttpDigest=\"true\"");
    }

    void smallDeviceOperations_answer()
    {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, expected);
        if (name == "GetNetworkProtocols")
            expected = "<tt:Port>" + QByteArray::number(m_server.rtspPort(2)) + "</tt:Port>";
        HttpProbe probe(u"guest"_s, u"orrin-guest"_s);
        const auto answer = probe.soap(device(2), operation(name, Device));
        QCOMPARE(answer.status, 200);
        QVERIFY2(answer.body.contains(expected), answer.body.constData());
    }

    void media2Profiles_giveTwoForEachCameraThatTheUserMaySee()
    {
        HttpProbe admin(u"admin"_s, u"orrin-admin"_s);
        const auto north = admin.soap(media2(), operation("GetProfiles", Media2, "<x:Type>All</x:Type>"));
        QCOMPARE(north.status, 200);
        QCOMPARE(count(north.body, "Profiles"_L1), 12);
        QCOMPARE(texts(north.body, "Encoding"_L1).count(u"H265"_s), 2);
        QVERIFY(texts(north.body, "Width"_L1).contains(u"1366"_s));
        const auto south =
            admin.soap(media2(2), operation("GetProfiles", Media2, "<x:Type>VideoEncoder</x:Type>"));
        QCOMPARE(count(south.body, "Profiles"_L1), 10);
        QCOMPARE(count(south.body, "VideoSource"_L1), 0);
        QCOMPARE(texts(south.body, "Encoding"_L1).count(u"JPEG"_s), 2);
        HttpProbe guest(u"guest"_s, u"orrin-guest"_s);
        const auto less = guest.soap(media2(2), operation("GetProfiles", Media2));
        QCOMPARE(count(less.body, "Profiles"_L1), 8);
        QCOMPARE(count(less.body, "Configurations"_L1), 0);
        const auto none =
            guest.soap(media2(2), operation("GetProfiles", Media2, "<x:Token>P_5_main</x:Token>"));
        QCOMPARE(none.status, 400);
        QVERIFY(none.contains("ter:NoProfile"));
    }

    void configurations_areThere()
    {
        HttpProbe probe(u"operator"_s, u"orrin-operator"_s);
        const auto sources = probe.soap(media2(), operation("GetVideoSourceConfigurations", Media2));
        QCOMPARE(texts(sources.body, "SourceToken"_L1).value(3), u"VS_4"_s);
        const auto encoders = probe.soap(media2(), operation("GetVideoEncoderConfigurations", Media2,
                                                             "<x:ProfileToken>P_1_sub</x:ProfileToken>"));
        QCOMPARE(texts(encoders.body, "Width"_L1), QStringList{u"640"_s});
        QCOMPARE(texts(encoders.body, "FrameRateLimit"_L1), QStringList{u"15"_s});
        const auto none = probe.soap(media2(), operation("GetVideoEncoderConfigurations", Media2,
                                                         "<x:ConfigurationToken>no</x:ConfigurationToken>"));
        QVERIFY(none.contains("ter:NoConfig"));
    }

    void masks_areGivenInTheSquareOfOnvif()
    {
        HttpProbe probe(u"operator"_s, u"orrin-operator"_s);
        const auto all = probe.soap(media2(), operation("GetMasks", Media2));
        QCOMPARE(count(all.body, "Masks"_L1), 1);
        QCOMPARE(count(all.body, "Point"_L1), 4);
        QVERIFY(all.contains("x=\"0.3600\" y=\"0.4000\""));
        const auto other = probe.soap(
            media2(), operation("GetMasks", Media2, "<x:ConfigurationToken>VSC_1</x:ConfigurationToken>"));
        QCOMPARE(other.status, 200);
        QCOMPARE(count(other.body, "Masks"_L1), 0);
        const auto options =
            probe.soap(media2(), operation("GetMaskOptions", Media2,
                                           "<x:ConfigurationToken>VSC_4</x:ConfigurationToken>"));
        QCOMPARE(texts(options.body, "MaxMasks"_L1), QStringList{u"1"_s});
    }

    void streamUri_leadsToTheRtspPort()
    {
        HttpProbe probe(u"guest"_s, u"orrin-guest"_s);
        const QByteArray request =
            "<x:Protocol>RtspUnicast</x:Protocol><x:ProfileToken>P_3_sub</x:ProfileToken>";
        const auto answer = probe.soap(media2(), operation("GetStreamUri", Media2, request));
        QCOMPARE(texts(answer.body, "Uri"_L1),
                 QStringList{u"rtsps://127.0.0.1:%1/camera/3/sub"_s.arg(m_server.rtspPort())});
        const auto old =
            probe.soap(media(), operation("GetStreamUri", Media, "<x:ProfileToken>P_3_sub</x:ProfileToken>"));
        QCOMPARE(texts(old.body, "Uri"_L1), texts(answer.body, "Uri"_L1));
        const auto multicast = probe.soap(media2(), operation("GetStreamUri", Media2,
                                                              "<x:Protocol>RtspMulticast</x:Protocol>"
                                                              "<x:ProfileToken>P_3_sub</x:ProfileToken>"));
        QVERIFY(multicast.contains("ter:InvalidStreamSetup"));
        const auto refused = probe.soap(media2(2), operation("GetStreamUri", Media2,
                                                             "<x:Protocol>RTSP</x:Protocol>"
                                                             "<x:ProfileToken>P_5_sub</x:ProfileToken>"));
        QVERIFY(refused.contains("ter:NoProfile"));
    }

    void media1_leavesOutWhatItCannotSay()
    {
        HttpProbe probe(u"admin"_s, u"orrin-admin"_s);
        const auto profiles = probe.soap(media(), operation("GetProfiles", Media));
        QCOMPARE(count(profiles.body, "Profiles"_L1), 10);
        QVERIFY(!profiles.contains("P_6_main"));
        const auto sources = probe.soap(media(), operation("GetVideoSources", Media));
        QCOMPARE(count(sources.body, "VideoSources"_L1), 6);
        QCOMPARE(
            probe.soap(media(), operation("GetProfile", Media, "<x:ProfileToken>P_2_main</x:ProfileToken>"))
                .status,
            200);
        QCOMPARE(
            probe.soap(media(), operation("GetProfile", Media, "<x:ProfileToken>P_6_main</x:ProfileToken>"))
                .status,
            400);
    }

    void badRequests_getFaults()
    {
        HttpProbe probe(u"admin"_s, u"orrin-admin"_s);
        const auto unknown = probe.soap(device(), operation("Explode", Device));
        QCOMPARE(unknown.status, 500);
        QVERIFY(unknown.contains("ter:ActionNotSupported"));
        QVERIFY(unknown.contains("env:Receiver"));
        const auto post = [&](const QByteArray &body) {
            return probe.send("POST", device(), body, "application/soap+xml");
        };
        QCOMPARE(post("<a><b></a>").status, 400);
        QCOMPARE(post("no xml at all").status, 400);
        QCOMPARE(post(QByteArray("\0\1\2", 3)).status, 400);
        const auto old =
            post("<s:Envelope xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\"><s:Body/></s:Envelope>");
        QCOMPARE(old.status, 400);
        QVERIFY(old.contains("env:VersionMismatch"));
        const auto bomb = post("<!DOCTYPE a [<!ENTITY b \"bbbb\">]><s:Envelope "
                               "xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\">"
                               "<s:Body><a>&b;</a></s:Body></s:Envelope>");
        QCOMPARE(bomb.status, 400);
        QVERIFY(bomb.contains("ter:WellFormed"));
        QByteArray deep = "<s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\"><s:Body>";
        QCOMPARE(post(deep + QByteArray("<a>").repeated(5000) + QByteArray("</a>").repeated(5000) +
                      "</s:Body></s:Envelope>")
                     .status,
                 400);
        QCOMPARE(probe.get(device()).status, 405);
        QCOMPARE(probe.get(m_server.url(u"/"_s)).status, 404);
    }

    void largeRequests_areRefused()
    {
        HttpProbe probe;
        const auto slightly =
            probe.send("POST", device(), QByteArray(1024 * 1024 + 1, 'x'), "application/soap+xml");
        QCOMPARE(slightly.status, 413);
        const auto huge =
            probe.send("POST", device(), QByteArray(64 * 1024 * 1024, 'x'), "application/soap+xml");
        QVERIFY2(huge.status == 413 || (huge.status == 0 && huge.error != QNetworkReply::NoError),
                 qPrintable(QString::number(huge.status)));
        QCOMPARE(probe.soap(device(), operation("GetSystemDateAndTime", Device)).status, 200);
    }

    void streamUri_isPlain_whenToldSo()
    {
        DemoServerProcess server;
        QVERIFY(server.start({u"--plain-rtsp"_s, u"--user"_s, u"inspector:a:b:installer"_s}));
        HttpProbe probe(u"inspector"_s, u"a:b"_s);
        const auto answer =
            probe.soap(server.url(u"/onvif/media2_service"_s),
                       operation("GetStreamUri", Media2,
                                 "<x:Protocol>RTSP</x:Protocol><x:ProfileToken>P_1_main</x:ProfileToken>"));
        QCOMPARE(texts(answer.body, "Uri"_L1),
                 QStringList{u"rtsp://127.0.0.1:%1/camera/1/main"_s.arg(server.rtspPort())});
    }
};

QTEST_GUILESS_MAIN(TestOnvif)
#include "tst_onvif.moc"
