// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/deviceservice.h"
#include "core/session/onvif/digestauthenticator.h"
#include "core/session/onvif/mediaservice.h"
#include "core/session/onvif/posixtimezone.h"
#include "core/session/onvif/reconnecttimer.h"
#include "core/session/onvif/siteextensionreader.h"
#include "core/session/onvif/soapanswer.h"
#include "core/session/onvif/xmlelement.h"

#include <contract/core/serverprofile.h>

#include <QCryptographicHash>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

QByteArray md5(const QByteArray &text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex();
}

QByteArray part(const QByteArray &header, const char *name)
{
    const QRegularExpression pattern(u"[ ,]%1=\"?([^\",]+)"_s.arg(QString::fromLatin1(name)));
    return pattern.match(QString::fromUtf8(header)).captured(1).toUtf8();
}

XmlElement xml(const QByteArray &text)
{
    return XmlElement::parse(text).value_or(XmlElement());
}

} // namespace

class TestOnvifReaders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void xml_isATree()
    {
        const XmlElement root =
            xml("<a:r xmlns:a=\"urn:a\" k=\"v\"><a:x>1</a:x><x> 2 </x><y><z>q:n</z></y></a:r>");
        QCOMPARE(root.name, u"r"_s);
        QCOMPARE(root.namespaceUri, u"urn:a"_s);
        QCOMPARE(root.attribute(u"k"), u"v"_s);
        QCOMPARE(root.all(u"x").size(), std::size_t(2));
        QCOMPARE(root.all(u"x").back()->value(), u"2"_s);
        QCOMPARE(root.at({u"y", u"z"}).value(), u"q:n"_s);
        QVERIFY(root.at({u"y", u"no", u"z"}).isNull());
    }

    void xml_isRefused_whenItCouldHurt_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("open") << QByteArray("<a><b></b>");
        QTest::newRow("crossed") << QByteArray("<a><b></a></b>");
        QTest::newRow("deep") << QByteArray("<a>").repeated(65) + QByteArray("</a>").repeated(65);
        QTest::newRow("many") << "<a>" + QByteArray("<b/>").repeated(100001) + "</a>";
        QTest::newRow("document type") << QByteArray("<!DOCTYPE a><a/>");
        QTest::newRow("entity") << QByteArray("<a>&x;</a>");
    }

    void xml_isRefused_whenItCouldHurt()
    {
        QFETCH(QByteArray, text);
        QVERIFY(!XmlElement::parse(text));
    }

    void xml_isRead_atItsLimits()
    {
        QVERIFY(XmlElement::parse(QByteArray("<a>").repeated(64) + QByteArray("</a>").repeated(64)));
    }

    void fault_tellsSubcodesAndRefusal()
    {
        TransportResult transport;
        transport.status = 400;
        transport.body =
            "<e:Envelope xmlns:e=\"http://www.w3.org/2003/05/soap-envelope\"><e:Body><e:Fault><e:Code>"
            "<e:Value>e:Sender</e:Value><e:Subcode><e:Value "
            "xmlns:t=\"urn:t\">t:NotAuthorized</e:Value><e:Subcode>"
            "<e:Value xmlns:z=\"urn:orrin:site:1\">z:AccountLocked</e:Value></e:Subcode></e:Subcode></e:Code>"
            "<e:Reason><e:Text>no</e:Text></e:Reason><e:Detail><z:Seconds xmlns:z=\"urn:orrin:site:1\">-5"
            "</z:Seconds></e:Detail></e:Fault></e:Body></e:Envelope>";
        const SoapAnswer answer = SoapAnswer::read(transport);
        QCOMPARE(answer.kind, SoapAnswer::Kind::Fault);
        QCOMPARE(answer.subcodes.size(), 2);
        QVERIFY(answer.refusal);
        QCOMPARE(answer.refusal->reason, Refusal::Reason::AccountLocked);
        QCOMPARE(answer.refusal->seconds, 0);
        QVERIFY(!answer.isNotAuthorised());
        transport.body.replace("urn:orrin:site:1", "urn:another");
        QVERIFY(!SoapAnswer::read(transport).refusal);
        QVERIFY(SoapAnswer::read(transport).isNotAuthorised());
    }

    void olderFault_isReadToo()
    {
        TransportResult transport;
        transport.status = 500;
        transport.body =
            "<s:Envelope xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\"><s:Body><s:Fault><faultcode "
            "xmlns:w=\"urn:w\">w:FailedAuthentication</faultcode><faultstring>no</faultstring></s:Fault></"
            "s:Body>"
            "</s:Envelope>";
        const SoapAnswer answer = SoapAnswer::read(transport);
        QVERIFY(answer.isNotAuthorised());
        QCOMPARE(answer.reason, u"no"_s);
    }

    void digest_answersTheChallenge()
    {
        DigestAuthenticator digest;
        const Credentials credentials{u"Mu\"fasa"_s, u"Circle"_s};
        QVERIFY(digest.setChallenge({"Basic realm=\"x\", Digest realm=\"a, b\", nonce=\"n1\", "
                                     "qop=\"auth-int, auth\", opaque=\"o\""}));
        const QByteArray header = digest.authorization("POST", "/p?q=1", credentials);
        QVERIFY(header.startsWith("Digest username=\"Mu\\\"fasa\", realm=\"a, b\""));
        QCOMPARE(part(header, "nc"), QByteArray("00000001"));
        const QByteArray expected =
            md5(md5("Mu\"fasa:a, b:Circle") + ":n1:00000001:" + part(header, "cnonce") +
                ":auth:" + md5("POST:/p?q=1"));
        QCOMPARE(part(header, "response"), expected);
        QCOMPARE(part(digest.authorization("POST", "/", credentials), "nc"), QByteArray("00000002"));
        QVERIFY(!header.contains("Circle"));
    }

    void digest_prefersTheStrongerHash()
    {
        DigestAuthenticator digest;
        QVERIFY(digest.setChallenge(
            {"Digest realm=\"r\", nonce=\"n\", algorithm=MD5, qop=\"auth\"",
             "Digest realm=\"r\", nonce=\"n\", algorithm=SHA-256, qop=\"auth\", stale=TRUE"}));
        QVERIFY(digest.isStale());
        const QByteArray header = digest.authorization("GET", "/", {u"u"_s, u"p"_s});
        QCOMPARE(part(header, "algorithm"), QByteArray("SHA-256"));
        QCOMPARE(part(header, "response").size(), 64);
    }

    void digest_refusesOtherChallenges_data()
    {
        QTest::addColumn<QByteArray>("header");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("basic") << QByteArray("Basic realm=\"x\"");
        QTest::newRow("no nonce") << QByteArray("Digest realm=\"x\"");
        QTest::newRow("unknown hash") << QByteArray("Digest realm=\"x\", nonce=\"n\", algorithm=ROT13");
        QTest::newRow("body only") << QByteArray("Digest realm=\"x\", nonce=\"n\", qop=\"auth-int\"");
        QTest::newRow("parameter first") << QByteArray("realm=\"x\", nonce=\"n\"");
        QTest::newRow("unfinished") << QByteArray("Digest nonce=\"");
        QTest::newRow("long") << "Digest nonce=\"" + QByteArray(9000, 'n') + '"';
    }

    void digest_refusesOtherChallenges()
    {
        QFETCH(QByteArray, header);
        DigestAuthenticator digest;
        QVERIFY(!digest.setChallenge({header}));
        QVERIFY(!digest.hasChallenge());
    }

    void zone_isReadFromTheDevice_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("winter");
        QTest::addColumn<int>("summer");
        QTest::newRow("name") << u"Europe/Berlin"_s << 3600 << 7200;
        QTest::newRow("rules") << u"CET-1CEST,M3.5.0,M10.5.0/3"_s << 3600 << 7200;
        QTest::newRow("fixed") << u"CST-8"_s << 8 * 3600 << 8 * 3600;
        QTest::newRow("half hour") << u"<+0530>-5:30"_s << 19800 << 19800;
        QTest::newRow("west") << u"XYZ+3:00:00"_s << -3 * 3600 << -3 * 3600;
        QTest::newRow("nothing") << QString() << 0 << 0;
        QTest::newRow("nonsense") << u"../../etc/passwd"_s << 0 << 0;
        QTest::newRow("far") << u"ABC-99"_s << 0 << 0;
        QTest::newRow("long") << QString(500, u'A') << 0 << 0;
    }

    void zone_isReadFromTheDevice()
    {
        QFETCH(QString, text);
        const QTimeZone zone = timeZoneFromDevice(text);
        QVERIFY(zone.isValid());
        QTEST(zone.offsetFromUtc(QDateTime(QDate(2025, 1, 15), QTime(12, 0), QTimeZone::utc())), "winter");
        QTEST(zone.offsetFromUtc(QDateTime(QDate(2025, 7, 15), QTime(12, 0), QTimeZone::utc())), "summer");
    }

    void clock_isRefused_whenItIsNoTime()
    {
        QVERIFY(!deviceservice::readClock(xml("<a/>")));
        QVERIFY(!deviceservice::readClock(
            xml("<a><SystemDateAndTime><UTCDateTime><Time><Hour>25</Hour><Minute>0</Minute>"
                "<Second>0</Second></Time><Date><Year>2025</Year><Month>1</Month><Day>1</Day>"
                "</Date></UTCDateTime></SystemDateAndTime></a>")));
    }

    void services_keepOnlyPaths()
    {
        const auto services = deviceservice::readServices(
            xml("<a><Service><Namespace>http://www.onvif.org/ver10/media/wsdl</Namespace><XAddr>http://"
                "evil.invalid/m?x=1</XAddr>"
                "</Service><Service><Namespace>urn:orrin:site:1</Namespace><XAddr></XAddr></Service></a>"));
        QCOMPARE(services.media, u"/m"_s);
        QCOMPARE(services.media2, QString());
        QCOMPARE(services.site, u"/orrin/v1/"_s);
    }

    void sources_haveHighAndLow()
    {
        const auto profile = [](const QString &token, const QString &source, int width, int height) {
            mediaservice::Profile profile;
            profile.token = token;
            profile.sourceToken = source;
            profile.width = width;
            profile.height = height;
            return profile;
        };
        const auto sources =
            mediaservice::sourcesOf({profile(u"m"_s, u"b"_s, 640, 480), profile(u"x"_s, u"a"_s, 10, 10),
                                     profile(u"h"_s, u"b"_s, 1920, 1080), profile(u"l"_s, u"b"_s, 320, 240)});
        QCOMPARE(sources.size(), 2);
        QCOMPARE(sources.at(0).token, u"b"_s);
        QCOMPARE(sources.at(0).highProfile, u"h"_s);
        QCOMPARE(sources.at(0).lowProfile, u"l"_s);
        QCOMPARE(sources.at(1).lowProfile, u"x"_s);
    }

    void streamUri_isMadeReachable_data()
    {
        QTest::addColumn<QByteArray>("uri");
        QTest::addColumn<QUrl>("expected");
        QTest::newRow("unspecified") << QByteArray("rtsp://0.0.0.0:554/a")
                                     << QUrl(u"rtsp://public.example:554/a"_s);
        QTest::newRow("private") << QByteArray("rtsp://192.168.1.5/a?b=c&amp;d=e")
                                 << QUrl(u"rtsp://public.example/a?b=c&d=e"_s);
        QTest::newRow("loopback") << QByteArray("rtsps://[::1]:322/a")
                                  << QUrl(u"rtsps://public.example:322/a"_s);
        QTest::newRow("other host") << QByteArray("rtsp://camera.example/a")
                                    << QUrl(u"rtsp://camera.example/a"_s);
        QTest::newRow("with password")
            << QByteArray("rtsp://u:p@camera.example/a") << QUrl(u"rtsp://camera.example/a"_s);
        QTest::newRow("other scheme") << QByteArray("file:///etc/passwd") << QUrl();
        QTest::newRow("empty") << QByteArray() << QUrl();
    }

    void streamUri_isMadeReachable()
    {
        QFETCH(QByteArray, uri);
        QTEST(mediaservice::readStreamUri(xml("<a><Uri>" + uri + "</Uri></a>"), u"public.example"_s),
              "expected");
    }

    void changes_areBounded()
    {
        const auto read = [](const QByteArray &body) {
            return SiteExtensionReader::readChanges(SiteExtensionReader::parse(body).value_or(QJsonObject()));
        };
        QCOMPARE(read(R"({"revision":7,"changed":["site"],"notices":["restart"]})").revision, 7);
        QVERIFY(read(R"({"changed":["configuration"]})").changed);
        QVERIFY(!read("{}").changed);
        QCOMPARE(read(R"({"revision":1e300})").revision, 0);
        QCOMPARE(read(R"({"revision":-1})").revision, 0);
        QCOMPARE(read("{\"notices\":[" + QByteArray("1,").repeated(999) + "1]}").notices.size(), 64);
    }

    void siteLists_areBounded()
    {
        QByteArray cameras;
        for (int id = 1; id <= 5000; ++id)
            cameras += (id > 1 ? "," : "") + QByteArray("{\"id\":") + QByteArray::number(id) + "}";
        const auto site =
            SiteExtensionReader::readSite(*SiteExtensionReader::parse("{\"cameras\":[" + cameras + "]}"));
        QCOMPARE(site.cameras->size(), SiteExtensionReader::CameraLimit);
        QCOMPARE(site.cameras->first().channel.sortId, 1);
    }

    void version_isReadInParts()
    {
        const ServerProfile four(u"4.2.1.1873"_s);
        QCOMPARE(four.majorVersion(), 4ull);
        QCOMPARE(four.minorVersion(), 2ull);
        QCOMPARE(four.buildVersion(), 1873ull);
        QCOMPARE(ServerProfile(u"2.5.17"_s).buildVersion(), 17ull);
        QCOMPARE(ServerProfile(u"7"_s).minorVersion(), 0ull);
        QCOMPARE(ServerProfile(u"V1.x"_s).majorVersion(), 0ull);
        QCOMPARE(ServerProfile(u"99999999999999999999999.1"_s).minorVersion(), 1ull);
    }

    void reconnect_waitsLongerEachTime()
    {
        using std::chrono::milliseconds;
        ReconnectTimer timer(milliseconds(1000), milliseconds(60000));
        milliseconds expected(1000);
        for (int i = 0; i < 10; ++i) {
            timer.scheduleNext();
            QVERIFY(timer.wait() >= expected * 4 / 5);
            QVERIFY(timer.wait() <= std::min(expected * 6 / 5, milliseconds(60000)));
            expected = std::min(expected * 2, milliseconds(60000));
        }
        timer.reset();
        QVERIFY(!timer.isWaiting());
        timer.scheduleNext();
        QVERIFY(timer.wait() <= milliseconds(1200));
        timer.scheduleLongest();
        QVERIFY(timer.wait() >= milliseconds(48000));
        ReconnectTimer quick(milliseconds(5), milliseconds(10));
        QSignalSpy due(&quick, &ReconnectTimer::due);
        quick.scheduleNext();
        QTRY_COMPARE(due.size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestOnvifReaders)
#include "tst_onvifreaders.moc"
