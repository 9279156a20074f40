// SPDX-License-Identifier: GPL-3.0-or-later
#include "discovery/discoveryservice.h"

#include <QElapsedTimer>
#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QTest>
#include <QXmlStreamReader>

#include <memory>

using namespace orrin::demo;
using namespace Qt::StringLiterals;

namespace {

const QHostAddress Loopback(QHostAddress::LocalHost);
const QHostAddress Group(u"239.255.255.250"_s);
constexpr auto Shared = QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint;

QNetworkInterface loopbackInterface()
{
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &interface : interfaces) {
        if (interface.flags().testFlag(QNetworkInterface::IsLoopBack))
            return interface;
    }
    return {};
}

QByteArray question(const QByteArray &types, const QByteArray &scopes = {})
{
    return "<e:Envelope xmlns:e=\"http://www.w3.org/2003/05/soap-envelope\""
           " xmlns:w=\"http://schemas.xmlsoap.org/ws/2004/08/addressing\""
           " xmlns:d=\"http://schemas.xmlsoap.org/ws/2005/04/discovery\""
           " xmlns:dn=\"http://www.onvif.org/ver10/network/wsdl\" xmlns:tds=\"http://www.onvif.org/ver10/device/wsdl\""
           " xmlns:wsdp=\"http://schemas.xmlsoap.org/ws/2006/02/devprof\">"
           "<e:Header><w:MessageID>urn:uuid:question</w:MessageID></e:Header><e:Body><d:Probe>" +
           types + scopes + "</d:Probe></e:Body></e:Envelope>";
}

/*! The texts of the elements of a message by their local names, and the name of the element in the body as "body". */
QHash<QString, QString> textsOf(const QByteArray &message)
{
    QHash<QString, QString> texts;
    QXmlStreamReader xml(message);
    QString parent;
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            if (parent == "Body"_L1)
                texts.insert(u"body"_s, xml.name().toString());
            parent = xml.name().toString();
        } else if (token == QXmlStreamReader::Characters) {
            texts.insert(parent, xml.text().toString());
        }
    }
    return xml.hasError() ? QHash<QString, QString>() : texts;
}

} // namespace

class tst_DiscoveryService : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void question_isAnswered_byEachDevice();
    void question_isAnswered_whenItFits_data();
    void question_isAnswered_whenItFits();
    void noise_isNotAnswered_data();
    void noise_isNotAnswered();
    void questions_areAnsweredHundredTimesASecond_atMost();
    void question_toEverybody_isAnswered();
    void comingAndGoing_isAnnounced();
    void service_doesNotStart_atAnIPv6Address();
    void service_sharesItsPort();

private:
    std::unique_ptr<DiscoveryService> makeService(quint16 port = 0)
    {
        auto service = std::make_unique<DiscoveryService>(DiscoverySettings{Loopback, port}, [this] { return m_devices; });
        QString error;
        if (!service->start(&error))
            qWarning("%s", qPrintable(error));
        return service;
    }

    /*! The answers to \a datagram: those that came before the answer to a question that is known to be answered. */
    QList<QByteArray> ask(const QByteArray &datagram, int timeoutMs = 5000)
    {
        QUdpSocket client;
        QList<QByteArray> answers;
        if (!client.bind(Loopback, 0))
            return answers;
        client.writeDatagram(datagram, Loopback, m_service->port());
        QByteArray last = question({});
        last.replace("uuid:question", "uuid:last");
        client.writeDatagram(last, Loopback, m_service->port());
        const bool ended = QTest::qWaitFor([&client, &answers] {
            while (client.hasPendingDatagrams()) {
                answers.append(client.receiveDatagram().data());
                if (answers.constLast().contains("uuid:last"))
                    return true;
            }
            return false;
        }, timeoutMs);
        if (!ended)
            return {QByteArray("no end")};
        answers.removeIf([](const QByteArray &answer) { return answer.contains("uuid:last"); });
        return answers;
    }

    QList<DiscoverableDevice> m_devices;
    std::unique_ptr<DiscoveryService> m_service;
};

void tst_DiscoveryService::init()
{
    m_devices = {{u"uuid-north"_s, {u"onvif://www.onvif.org/name/North"_s, u"onvif://www.onvif.org/type/video_encoder"_s}, 8601},
                 {u"uuid-south"_s, {u"onvif://www.onvif.org/name/South"_s, u"onvif://www.onvif.org/type/video_encoder"_s}, 8602}};
    m_service = makeService();
    QVERIFY(m_service->port() != 0);
}

void tst_DiscoveryService::cleanup()
{
    m_service.reset();
}

void tst_DiscoveryService::question_isAnswered_byEachDevice()
{
    const QList<QByteArray> answers = ask(question("<d:Types>dn:NetworkVideoTransmitter</d:Types>"));
    QCOMPARE(answers.size(), 2);
    for (qsizetype index = 0; index < 2; ++index) {
        const QHash<QString, QString> texts = textsOf(answers.at(index));
        const DiscoverableDevice &device = m_devices.at(index);
        QCOMPARE(texts.value(u"body"_s), u"ProbeMatches"_s);
        QCOMPARE(texts.value(u"RelatesTo"_s), u"urn:uuid:question"_s);
        QCOMPARE(texts.value(u"Action"_s), u"http://schemas.xmlsoap.org/ws/2005/04/discovery/ProbeMatches"_s);
        QCOMPARE(texts.value(u"Address"_s), u"urn:uuid:"_s + device.uuid);
        QCOMPARE(texts.value(u"Types"_s), u"dn:NetworkVideoTransmitter tds:Device"_s);
        QCOMPARE(texts.value(u"Scopes"_s), device.scopes.join(u' '));
        QCOMPARE(texts.value(u"XAddrs"_s), u"https://127.0.0.1:%1/onvif/device_service"_s.arg(device.httpsPort));
    }
    // A device that is off the network keeps quiet.
    m_devices[0].httpsPort = 0;
    const QList<QByteArray> other = ask(question({}));
    QCOMPARE(other.size(), 1);
    QVERIFY(other.constFirst().contains("uuid-south"));
}

void tst_DiscoveryService::question_isAnswered_whenItFits_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("answers");
    QTest::newRow("anything") << QByteArray() << 2;
    QTest::newRow("device") << QByteArray("<d:Types>tds:Device</d:Types>") << 2;
    QTest::newRow("both") << QByteArray("<d:Types> tds:Device\n dn:NetworkVideoTransmitter</d:Types>") << 2;
    QTest::newRow("device of another world") << QByteArray("<d:Types>wsdp:Device</d:Types>") << 0;
    QTest::newRow("one of two") << QByteArray("<d:Types>tds:Device wsdp:Device</d:Types>") << 0;
    QTest::newRow("unknown prefix") << QByteArray("<d:Types>nn:NetworkVideoTransmitter</d:Types>") << 0;
    QTest::newRow("own prefix")
        << QByteArray("<d:Types xmlns:n=\"http://www.onvif.org/ver10/network/wsdl\">n:NetworkVideoTransmitter</d:Types>") << 2;
    QTest::newRow("prefix of an element before")
        << QByteArray("<x xmlns:n=\"http://www.onvif.org/ver10/network/wsdl\"/><d:Types>n:NetworkVideoTransmitter</d:Types>") << 0;
    QTest::newRow("scope of one") << QByteArray("<d:Scopes>onvif://www.onvif.org/name/South</d:Scopes>") << 1;
    QTest::newRow("scope above") << QByteArray("<d:Scopes>onvif://www.onvif.org/type</d:Scopes>") << 2;
    QTest::newRow("scope cut in a word") << QByteArray("<d:Scopes>onvif://www.onvif.org/ty</d:Scopes>") << 0;
    QTest::newRow("two scopes") << QByteArray("<d:Scopes>onvif://www.onvif.org/type onvif://www.onvif.org/name/North</d:Scopes>") << 1;
    QTest::newRow("other scope") << QByteArray("<d:Scopes>onvif://www.onvif.org/location/hall</d:Scopes>") << 0;
    QTest::newRow("scope as text")
        << QByteArray("<d:Scopes MatchBy=\"http://schemas.xmlsoap.org/ws/2005/04/discovery/strcmp0\">onvif://www.onvif.org/type</d:Scopes>") << 0;
    QTest::newRow("scope by unknown rule") << QByteArray("<d:Scopes MatchBy=\"urn:other\">onvif://www.onvif.org/type</d:Scopes>") << 0;
}

void tst_DiscoveryService::question_isAnswered_whenItFits()
{
    QFETCH(const QByteArray, content);
    QFETCH(const int, answers);
    QCOMPARE(ask(question(content)).size(), answers);
}

void tst_DiscoveryService::noise_isNotAnswered_data()
{
    QTest::addColumn<QByteArray>("datagram");
    const QByteArray good = question({});
    const auto changed = [&good](const QByteArray &from, const QByteArray &to) {
        QByteArray other = good;
        return other.replace(from, to);
    };
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("noise") << QByteArray("\0\xff<<", 4);
    QTest::newRow("cut") << good.first(good.size() - 4);
    QTest::newRow("no id") << changed("urn:uuid:question", "");
    QTest::newRow("hello") << changed("d:Probe>", "d:Hello>");
    QTest::newRow("other version") << changed("2005/04/discovery", "2009/01/discovery");
    QTest::newRow("SOAP 1.1") << changed("http://www.w3.org/2003/05/soap-envelope", "http://schemas.xmlsoap.org/soap/envelope/");
    QTest::newRow("document type") << QByteArray("<!DOCTYPE x [<!ENTITY a \"b\">]>") + good;
    QTest::newRow("deep") << changed("<d:Probe>", "<d:Probe>" + QByteArray("<x>").repeated(100) + QByteArray("</x>").repeated(100));
    QTest::newRow("large") << changed("<d:Probe>", "<d:Probe><!--" + QByteArray(40000, ' ') + "-->");
}

void tst_DiscoveryService::noise_isNotAnswered()
{
    QFETCH(const QByteArray, datagram);
    QCOMPARE(ask(datagram), QList<QByteArray>());
}

void tst_DiscoveryService::questions_areAnsweredHundredTimesASecond_atMost()
{
    m_devices.removeLast();
    QUdpSocket client;
    QVERIFY(client.bind(Loopback, 0));
    int answers = 0;
    QElapsedTimer time;
    time.start();
    // In portions that no buffer is too small for.
    for (int portion = 0; portion < 8; ++portion) {
        for (int number = 0; number < 20; ++number)
            client.writeDatagram(question({}), Loopback, m_service->port());
        [[maybe_unused]] const bool allAnswered = QTest::qWaitFor([&client, &answers, portion] {
            while (client.hasPendingDatagrams()) {
                client.receiveDatagram();
                ++answers;
            }
            return answers >= 20 * (portion + 1);
        }, 50);
    }
    QVERIFY2(answers >= 100 && answers <= 100 * (1 + time.elapsed() / 1000), qPrintable(QString::number(answers)));
    // The next second is another one.
    QTRY_VERIFY(ask(question({}), 200).value(0).contains("uuid-north"));
}

void tst_DiscoveryService::question_toEverybody_isAnswered()
{
    QUdpSocket client;
    QVERIFY(client.bind(Loopback, 0));
    client.setMulticastInterface(loopbackInterface());
    QVERIFY(client.writeDatagram(question({}), Group, m_service->port()) > 0);
    QTRY_VERIFY(client.hasPendingDatagrams());
    const QNetworkDatagram answer = client.receiveDatagram();
    QCOMPARE(answer.senderAddress(), Loopback);
    QCOMPARE(answer.senderPort(), int(m_service->port()));
    QCOMPARE(textsOf(answer.data()).value(u"body"_s), u"ProbeMatches"_s);
}

void tst_DiscoveryService::comingAndGoing_isAnnounced()
{
    QUdpSocket listener;
    QVERIFY(listener.bind(Group, 0, Shared));
    QVERIFY(listener.joinMulticastGroup(Group, loopbackInterface()));
    QStringList heard;
    const auto hear = [&listener, &heard] {
        while (listener.hasPendingDatagrams()) {
            const QHash<QString, QString> texts = textsOf(listener.receiveDatagram().data());
            heard.append(texts.value(u"body"_s) + u' ' + texts.value(u"Address"_s) + u' ' + texts.value(u"XAddrs"_s));
        }
        return heard.size();
    };
    m_service = makeService(listener.localPort());
    QTRY_COMPARE(hear(), 2);
    QCOMPARE(heard, (QStringList{u"Hello urn:uuid:uuid-north https://127.0.0.1:8601/onvif/device_service"_s,
                                 u"Hello urn:uuid:uuid-south https://127.0.0.1:8602/onvif/device_service"_s}));
    heard.clear();
    m_service->sendBye(m_devices.constFirst());
    QTRY_COMPARE(hear(), 1);
    QCOMPARE(heard, QStringList{u"Bye urn:uuid:uuid-north "_s});
    heard.clear();
    m_service->sendHello(m_devices.constFirst());
    QTRY_COMPARE(hear(), 1);
    QVERIFY(heard.constFirst().startsWith(u"Hello urn:uuid:uuid-north"_s));
    heard.clear();
    m_service.reset();
    QTRY_COMPARE(hear(), 2);
    QCOMPARE(heard, (QStringList{u"Bye urn:uuid:uuid-north "_s, u"Bye urn:uuid:uuid-south "_s}));
}

void tst_DiscoveryService::service_doesNotStart_atAnIPv6Address()
{
    DiscoveryService service({QHostAddress(QHostAddress::LocalHostIPv6), 0}, [this] { return m_devices; });
    QString error;
    QVERIFY(!service.start(&error));
    QVERIFY(!error.isEmpty());
    QCOMPARE(service.port(), 0);
}

void tst_DiscoveryService::service_sharesItsPort()
{
    const auto second = makeService(m_service->port());
    QCOMPARE(second->port(), m_service->port());
}

QTEST_GUILESS_MAIN(tst_DiscoveryService)
#include "tst_discoveryservice.moc"
