// SPDX-License-Identifier: GPL-3.0-or-later
// A drag over a tile, from QML to the camera and back through its live picture: where the camera looks is read from the pixels.
#include "demoserverprocess.h"
#include "timestrip.h"

#include <module/orrinsdkqml.h>

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>

#include <QApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray Tile = R"(import QtQuick
    import orrinsdkqml
    Item {
        width: 640
        height: 360
        VideoDisplay {
            id: display
            objectName: "display"
            anchors.fill: parent
            serverGroupId: 1
            serverId: 1
            channelId: 2
        }
        PtzfController {
            id: ptzf
            objectName: "ptzf"
            serverGroupId: display.serverGroupId
            serverId: display.serverId
            channelId: display.channelId
            streamId: display.streamId
        }
        DistancePtzf {
            anchors.fill: parent
            onSpeedXChanged: ptzf.setPanTiltZoom(speedX, speedY, 0)
            onSpeedYChanged: ptzf.setPanTiltZoom(speedX, speedY, 0)
        }
    })";

} // namespace

class tst_Ptz : public QObject
{
    Q_OBJECT

    DemoServerProcess m_server;
    std::unique_ptr<QQuickView> m_view;
    std::unique_ptr<QTemporaryDir> m_folder;
    QObject *m_ptzf = nullptr;

    /*! What the picture on the screen says; waits for one that can be read. */
    std::optional<orrin::timestrip::Fields> look()
    {
        std::optional<orrin::timestrip::Fields> fields;
        const auto isRead = [&] {
            const QImage screen = m_view->grabWindow();
            fields = orrin::timestrip::read([&](double x, double y) {
                const QPoint point(int(x * screen.width()), int(y * screen.height()));
                return screen.valid(point) ? qGray(screen.pixel(point)) : 0;
            });
            return fields.has_value();
        };
        return QTest::qWaitFor(isRead, 10000) ? fields : std::nullopt;
    }
    int pan()
    {
        const auto fields = look();
        return fields && fields->camera == 102 ? fields->pan : -1;
    }
    /*! Two pictures, half a second apart, that look to the same place. */
    bool standsStill()
    {
        const auto first = look();
        std::optional<orrin::timestrip::Fields> second;
        const bool later = QTest::qWaitFor(
            [&] {
                second = look();
                return first && second && second->timeMs >= first->timeMs + 500;
            },
            10000);
        return later && first->pan == second->pan && first->tilt == second->tilt && first->zoom == second->zoom;
    }
    void speeds(int pan, int tilt, int zoom) { QVERIFY(QMetaObject::invokeMethod(m_ptzf, "setPanTiltZoom", pan, tilt, zoom)); }

private Q_SLOTS:
    void init();
    void cleanup();
    void camera_movesInThePicture_andStopsWhenReleased();
    void camera_followsADrag();
    void camera_stopsByItself_whenTheConnectionBreaks();
    void camera_goesToItsPreset();
};

void tst_Ptz::init()
{
    QStandardPaths::setTestModeEnabled(true);
    QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
    orrin::OrrinSDK::initInstance(u"Orrinworks"_s, u"tst_ptz"_s, nullptr, u"tst_ptz.log"_s);
    orrin::ConnectionManager *manager = orrin::OrrinSDK::instance()->connectionManager();
    QSignalSpy complete(manager, &orrin::ConnectionManager::initialConnectionComplete);
    manager->connectToServer(u"operator"_s, u"orrin-operator"_s,
                             orrin::CorvaneUrl(u"127.0.0.1:%1"_s.arg(m_server.port()), 8601), false);
    QTRY_COMPARE_WITH_TIMEOUT(complete.size(), 1, 12000);

    m_folder = std::make_unique<QTemporaryDir>();
    QFile file(m_folder->filePath(u"Tile.qml"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(Tile);
    file.close();
    m_view = std::make_unique<QQuickView>();
    orrin::initQmlContext(m_view->engine()->rootContext());
    m_view->setSource(QUrl::fromLocalFile(file.fileName()));
    QVERIFY(m_view->rootObject());
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
    m_ptzf = m_view->rootObject()->findChild<QObject *>(u"ptzf"_s);
    QVERIFY(m_ptzf);
    QTRY_VERIFY_WITH_TIMEOUT(m_ptzf->property("ptzfAvailable").toBool(), 10000);
    QTRY_COMPARE_WITH_TIMEOUT(pan(), 128, 20000);
}

void tst_Ptz::cleanup()
{
    m_view.reset();
    orrin::OrrinSDK::shutdown();
    m_server.stop();
}

void tst_Ptz::camera_movesInThePicture_andStopsWhenReleased()
{
    const auto home = look();
    QVERIFY(home);
    // To the right and down, at a fifth of the speed; longer than a camera goes on without being told again.
    speeds(6500, 6500, 0);
    QTRY_VERIFY_WITH_TIMEOUT(look()->timeMs > home->timeMs + 2600, 10000);
    QVERIFY(pan() > home->pan + 20);
    QVERIFY(look()->tilt < home->tilt - 20);
    QCOMPARE(look()->zoom, home->zoom);
    speeds(0, 0, 0);
    QTRY_VERIFY_WITH_TIMEOUT(standsStill(), 10000);
    const int stopped = pan();
    QVERIFY(stopped < 255);
    speeds(0, 0, 20000);
    QTRY_VERIFY_WITH_TIMEOUT(look()->zoom > 60, 10000);
    speeds(0, 0, 0);
    QTRY_VERIFY_WITH_TIMEOUT(standsStill(), 10000);
    QCOMPARE(pan(), stopped);
    QCOMPARE(m_ptzf->property("error").toString(), QString());
}

void tst_Ptz::camera_followsADrag()
{
    const int home = pan();
    QTest::mousePress(m_view.get(), Qt::LeftButton, {}, QPoint(320, 180));
    for (int step = 1; step <= 40; ++step)
        QTest::mouseMove(m_view.get(), QPoint(320 + step, 180), 16);
    QTRY_VERIFY_WITH_TIMEOUT(pan() > home + 10, 10000);
    QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, QPoint(360, 180));
    QCOMPARE(m_ptzf->property("pan").toInt(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(standsStill(), 10000);
    QVERIFY(pan() < 255);
}

void tst_Ptz::camera_stopsByItself_whenTheConnectionBreaks()
{
    speeds(4000, 0, 0);
    QTRY_VERIFY_WITH_TIMEOUT(pan() > 132, 10000);
    // Nothing is answered any more, the picture goes on.
    QCOMPARE(m_server.command(u"http silent on North"_s), u"ok"_s);
    QTRY_VERIFY_WITH_TIMEOUT(standsStill(), 10000);
    const int stopped = pan();
    QVERIFY(stopped > 132 && stopped < 220);
    // The user lets go later, and finds the camera where it stopped.
    speeds(0, 0, 0);
    QVERIFY(standsStill());
    QCOMPARE(pan(), stopped);
}

void tst_Ptz::camera_goesToItsPreset()
{
    QVERIFY(QMetaObject::invokeMethod(m_ptzf, "goToPreset", 1));
    // 0.8 to the left.
    QTRY_COMPARE_WITH_TIMEOUT(pan(), 26, 10000);
    QTRY_VERIFY_WITH_TIMEOUT(standsStill(), 10000);
    QCOMPARE(m_ptzf->property("error").toString(), QString());
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QQuickStyle::setStyle(u"Material"_s);
    tst_Ptz test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ptz.moc"
