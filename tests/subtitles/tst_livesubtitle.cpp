// SPDX-License-Identifier: GPL-3.0-or-later
// The text over a live picture of the demo server: what the stream measures reaches the words.
#include "demoserverprocess.h"

#include <contract/core/orrinsdk.h>

#include <QApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// Referenced so that the module is linked.
extern void qml_register_types_orrinsdkqml();
static void (*const volatile registrar)() = &qml_register_types_orrinsdkqml;

namespace {

constexpr int PictureTimeoutMs = 30'000;

const QByteArray tile = R"(
import QtQuick
import orrinsdkqml

Item {
    id: root

    property alias server: manager.hostAndPort
    property alias subtitle: monitor.subtitle
    property string failure
    width: 640
    height: 360

    ConnectionManager {
        id: manager

        username: "admin"
        password: "orrin-admin"
        onStatusChanged: if (status === ConnectionManager.Error) root.failure = errorString()
        Component.onCompleted: connectServers()
    }
    VideoDisplay {
        id: display

        anchors.fill: parent
        serverGroupId: 1
        serverId: 1
        channelId: manager.status === ConnectionManager.Connected ? 1 : -1
        onCurrentFrameChanged: monitor.update()
    }
    SubtitleMonitor {
        id: monitor

        subtitleTemplate: "<ServerName>|<CameraName>|<SID>|<CID>|<Live><Paused>|<TimeAgo>|<ImageEntryTimeMinusServerVideoTime>|<ElapsedMSecsSinceImageLoad>|<DecodingDurationMSecs2>|<FrameRateHuman>|<Width>x<Height>|<Type>|<Date1a:yyyy-MM-dd>|<Rec>"
        serverGroupId: display.serverGroupId
        serverId: display.serverId
        channelId: display.channelId
        streamId: display.streamId
    }
}
)";

} // namespace

class tst_LiveSubtitle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void subtitle_tellsTheLivePicture();
};

void tst_LiveSubtitle::subtitle_tellsTheLivePicture()
{
    QVERIFY(registrar);
    orrin::test::DemoServerProcess server;
    QVERIFY2(server.start(), qPrintable(server.errorText()));
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData(tile, QUrl());
        const std::unique_ptr<QObject> object(
            component.createWithInitialProperties({{u"server"_s, u"127.0.0.1:%1"_s.arg(server.port())}}));
        QVERIFY2(object, qPrintable(component.errorString()));
        const auto parts = [&object] { return object->property("subtitle").toString().split(u'|'); };
        QTRY_VERIFY2_WITH_TIMEOUT(parts().value(9).endsWith(u" fps"_s),
                                  qPrintable(object->property("failure").toString()), PictureTimeoutMs);
        QTRY_COMPARE_WITH_TIMEOUT(parts().value(9), u"15 fps"_s, PictureTimeoutMs);
        const QStringList text = parts();
        QCOMPARE(text.at(0), server.recorders().constFirst().name);
        QVERIFY(!text.at(1).isEmpty());
        QCOMPARE(text.at(2), u"1"_s);
        QCOMPARE(text.at(3), u"1"_s);
        QCOMPARE(text.at(4), u"LIVE"_s);
        QCOMPARE(text.at(5), QString());
        QVERIFY2(text.at(6).toInt() > -1000 && text.at(6).toInt() < 2000, qPrintable(text.at(6)));
        QVERIFY2(text.at(7).toInt() >= 0 && text.at(7).toInt() < 2000, qPrintable(text.at(7)));
        QVERIFY2(text.at(8).toDouble() > 0.0 && text.at(8).toDouble() < 1000.0, qPrintable(text.at(8)));
        static const QRegularExpression size(u"^\\d+x\\d+$"_s);
        QVERIFY(size.match(text.at(10)).hasMatch());
        QVERIFY2(text.at(11).startsWith(u"H264 "_s), qPrintable(text.at(11)));
        // The demo server records all the time; the client asks for the bounds when the template tells of
        // them.
        QTRY_COMPARE_WITH_TIMEOUT(parts().value(13), u"REC"_s, PictureTimeoutMs);
        static const QRegularExpression date(u"^20\\d\\d-\\d\\d-\\d\\d$"_s);
        QVERIFY2(date.match(text.at(12)).hasMatch(), qPrintable(text.at(12)));
    }
    orrin::OrrinSDK::shutdown();
}

int main(int argc, char *argv[])
{
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    orrin::OrrinSDK::initInstance(u"Orrinworks"_s, u"tst_livesubtitle"_s, nullptr, u"test.log"_s);
    tst_LiveSubtitle test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_livesubtitle.moc"
