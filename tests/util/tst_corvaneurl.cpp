// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/channeluid.h>
#include <contract/util/corvaneurl.h>

#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;

class TestCorvaneUrl : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void parse_readsHostAndPort_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("host");
        QTest::addColumn<int>("port");
        QTest::addColumn<QString>("whole");
        QTest::newRow("name") << u"recorder"_s << u"recorder"_s << 8601 << u"recorder:8601"_s;
        QTest::newRow("name and port") << u"recorder:443"_s << u"recorder"_s << 443 << u"recorder:443"_s;
        QTest::newRow("blanks") << u"  recorder:443\t"_s << u"recorder"_s << 443 << u"recorder:443"_s;
        QTest::newRow("address") << u"192.0.2.7:1"_s << u"192.0.2.7"_s << 1 << u"192.0.2.7:1"_s;
        QTest::newRow("no port") << u"recorder:"_s << u"recorder"_s << 8601 << u"recorder:8601"_s;
        QTest::newRow("no number") << u"recorder:http"_s << u"recorder"_s << 8601 << u"recorder:8601"_s;
        QTest::newRow("port 0") << u"recorder:0"_s << u"recorder"_s << 8601 << u"recorder:8601"_s;
        QTest::newRow("port 65535") << u"recorder:65535"_s << u"recorder"_s << 65535 << u"recorder:65535"_s;
        QTest::newRow("port 65536") << u"recorder:65536"_s << u"recorder"_s << 8601 << u"recorder:8601"_s;
        QTest::newRow("sign") << u"recorder:+80"_s << u"recorder"_s << 8601 << u"recorder:8601"_s;
        QTest::newRow("huge") << u"recorder:99999999999999999999"_s << u"recorder"_s << 8601
                              << u"recorder:8601"_s;
        QTest::newRow("IPv6 in brackets")
            << u"[2001:db8::1]:443"_s << u"2001:db8::1"_s << 443 << u"[2001:db8::1]:443"_s;
        QTest::newRow("IPv6 without port") << u"[::1]"_s << u"::1"_s << 8601 << u"[::1]:8601"_s;
        QTest::newRow("bare IPv6") << u"2001:db8::1"_s << u"2001:db8::1"_s << 8601 << u"[2001:db8::1]:8601"_s;
        QTest::newRow("IPv6 with zone")
            << u"fe80::1%eth0"_s << u"fe80::1%eth0"_s << 8601 << u"[fe80::1%eth0]:8601"_s;
        QTest::newRow("other letters") << u"überwachung:7"_s << u"überwachung"_s << 7 << u"überwachung:7"_s;
    }

    void parse_readsHostAndPort()
    {
        QFETCH(QString, text);
        const CorvaneUrl url(text, 8601);
        QTEST(url.host(), "host");
        QTEST(url.port(), "port");
        QTEST(url.hostAndPort(), "whole");
        QVERIFY(url.isValid());
        // The canonical form reads as itself.
        QCOMPARE(CorvaneUrl(url.hostAndPort(), 1), url);
    }

    void parse_givesNoHost_whenTextCannotBeOne_data()
    {
        QTest::addColumn<QString>("text");
        for (const QString &text :
             {u""_s, u"   "_s, u":80"_s, u"a b"_s, u"http://a"_s, u"a/b"_s, u"user@host"_s, u"a\nb"_s,
              u"[::1"_s, u"[::1]80"_s, u"[recorder]:80"_s, u"a:b:c:x"_s, u"a?b"_s, u"a#b"_s, u"::1]"_s,
              QString(254, u'a'), u"a\0b"_s}) {
            QTest::newRow(qPrintable(text.left(20))) << text;
        }
    }

    void parse_givesNoHost_whenTextCannotBeOne()
    {
        QFETCH(QString, text);
        const CorvaneUrl url(text, 8601);
        QVERIFY2(!url.isValid(), qPrintable(url.host()));
        QCOMPARE(url.port(), 8601);
        QCOMPARE(url.hostAndPort(), QString());
    }

    void emptyUrl_hasNoPort()
    {
        QCOMPARE(CorvaneUrl().port(), 0);
        QVERIFY(!CorvaneUrl().isValid());
        QVERIFY(CorvaneUrl(QString(253, u'a'), 1).isValid());
    }

    void channelUid_isText()
    {
        QCOMPARE(serverUIDToString(0), u"0000000000000000"_s);
        QCOMPARE(serverUIDToString(0xFEDCBA9876543210), u"fedcba9876543210"_s);
        QCOMPARE(ChannelUID(0xAB, 12).toString(), u"00000000000000ab:12"_s);
        QVERIFY(ChannelUID().isNull());
        QVERIFY(!ChannelUID(0, 1).isNull());
    }
};

QTEST_GUILESS_MAIN(TestCorvaneUrl)
#include "tst_corvaneurl.moc"
