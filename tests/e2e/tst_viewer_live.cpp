// SPDX-License-Identifier: GPL-3.0-or-later
// The main job on real input: the viewer's pages log in to a recorder that asks for a password, over TLS, and four live H.264
// streams move on the screen. The moment of each picture is read back from its pixels.
#include "demoserverprocess.h"
#include "hosttypes.h"
#include "startoptions.h"
#include "timestrip.h"

#include <module/orrinsdkqml.h>
#include <support/qmlsettings.h>
#include <support/qmltimetools.h>

#include <contract/core/orrinsdk.h>

#include <QApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int TileCount = 4;
constexpr qint64 WorstMedianLagMs = 2000;

// The time strip of the picture that lies in area of the screenshot.
std::optional<orrin::timestrip::Fields> readStrip(const QImage &screenshot, const QRectF &area)
{
    return orrin::timestrip::read([&](double x, double y) {
        const QPoint point((area.topLeft() + QPointF(x * area.width(), y * area.height())).toPoint());
        return screenshot.valid(point) ? qGray(screenshot.pixel(point)) : 0;
    });
}

// Where the picture lies inside the item: fitted, centred.
QRectF pictureArea(const QQuickItem *display)
{
    const QSizeF frame(display->property("frameWidth").toDouble(), display->property("frameHeight").toDouble());
    QRectF area(QPointF(), frame.scaled(display->size(), Qt::KeepAspectRatio));
    area.moveCenter(QRectF(QPointF(), display->size()).center());
    return area.translated(display->mapToScene(QPointF()));
}

void collectDisplays(QQuickItem *item, QList<QQuickItem *> &displays)
{
    if (item->inherits("orrin::QmlVideoDisplay"))
        displays.append(item);
    for (QQuickItem *child : item->childItems())
        collectDisplays(child, displays);
}

} // namespace

class tst_viewer_live : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void login_isRefusedInWords_whenPasswordIsWrong();
    void tiles_showTimeThatAdvances_whenLoggedIn();
    void siteRequest_opensAnotherLogin_andLeavingItClosesIt();
    void cleanupTestCase();

private:
    QQuickItem *page(const QString &name) const;
    void login(const QString &password);

    orrin::test::DemoServerProcess m_server;
    std::unique_ptr<orrin::QmlSettings> m_settings;
    orrin::QmlTimeTools m_timeTools;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    StartOptions m_options;
    QQuickWindow *m_window = nullptr;
};

void tst_viewer_live::initTestCase()
{
    QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
    QQuickStyle::setStyle(u"Material"_s);
    orrin::OrrinSDK::initInstance(u"Orrinworks"_s, u"tst_viewer_live"_s, nullptr, u"tst_viewer_live.log"_s);
    registerHostTypes();
    m_settings = std::make_unique<orrin::QmlSettings>();
    // The strip of text would lie over the strip of time.
    m_settings->setProperty("subtitlesVisible", false);
    m_engine = std::make_unique<QQmlApplicationEngine>();
    QSignalSpy warnings(m_engine.get(), &QQmlEngine::warnings);
    orrin::initQmlContext(m_engine->rootContext());
    m_engine->rootContext()->setContextProperty(u"settings"_s, m_settings.get());
    m_engine->rootContext()->setContextProperty(u"timeTools"_s, &m_timeTools);
    m_engine->setInitialProperties({{u"options"_s, QVariant::fromValue(&m_options)}});
    m_engine->loadFromModule("OrrinViewer", "Main");
    QCOMPARE(m_engine->rootObjects().size(), 1);
    m_window = qobject_cast<QQuickWindow *>(m_engine->rootObjects().constFirst());
    QVERIFY(m_window);
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
    QCOMPARE(warnings.count(), 0);
}

QQuickItem *tst_viewer_live::page(const QString &name) const
{
    return m_window->findChild<QQuickItem *>(name);
}

void tst_viewer_live::login(const QString &password)
{
    QQuickItem *loginPage = page(u"login"_s);
    loginPage->setProperty("host", u"127.0.0.1:%1"_s.arg(m_server.port()));
    loginPage->setProperty("user", u"admin"_s);
    loginPage->setProperty("password", password);
    QMetaObject::invokeMethod(loginPage, "login");
}

void tst_viewer_live::login_isRefusedInWords_whenPasswordIsWrong()
{
    login(u"not the password"_s);
    const QString expected = u"Invalid username or password. Server: 127.0.0.1, port: %1"_s.arg(m_server.port());
    QTRY_COMPARE_WITH_TIMEOUT(page(u"login"_s)->property("errorText").toString(), expected, 12000);
    QVERIFY(!page(u"shell"_s));
}

void tst_viewer_live::tiles_showTimeThatAdvances_whenLoggedIn()
{
    QSignalSpy warnings(m_engine.get(), &QQmlEngine::warnings);
    login(u"orrin-admin"_s);
    QTRY_VERIFY_WITH_TIMEOUT(page(u"live"_s), 12000);
    const auto live = [this](const char *property) { return page(u"live"_s)->property(property).toInt(); };
    QTRY_VERIFY_WITH_TIMEOUT(live("wantedPictures") == TileCount && live("showingPictures") == TileCount, 30000);

    // Both recorders of the site, less the camera that is switched off.
    QTRY_COMPARE_WITH_TIMEOUT(page(u"live"_s)->property("cameraCount").toInt(), 11, 12000);

    QList<QQuickItem *> displays;
    collectDisplays(m_window->contentItem(), displays);
    QCOMPARE(displays.size(), TileCount);

    QList<qint64> lags;
    QList<int> cameras(TileCount, -1);
    QList<qint64> last(TileCount, 0);
    QList<int> advances(TileCount, 0);
    for (int round = 0; round < 60; ++round) {
        // The next picture of the first tile paces the rounds.
        QSignalSpy frames(displays.constFirst(), SIGNAL(currentFrameChanged()));
        QVERIFY(frames.wait(5000));
        const QImage screenshot = m_window->grabWindow();
        const qint64 now = QDateTime::currentMSecsSinceEpoch();
        for (int tile = 0; tile < TileCount; ++tile) {
            const auto fields = readStrip(screenshot, pictureArea(displays.at(tile)));
            if (!fields)
                continue;
            const auto shown = static_cast<qint64>(fields->timeMs);
            QVERIFY2(shown >= last.at(tile), "a tile went back in time");
            QVERIFY2(cameras.at(tile) < 0 || cameras.at(tile) == int(fields->camera), "a tile changed its camera");
            cameras[tile] = int(fields->camera);
            advances[tile] += shown > last.at(tile) ? 1 : 0;
            last[tile] = shown;
            lags.append(now - shown);
        }
    }
    for (int tile = 0; tile < TileCount; ++tile)
        QVERIFY2(advances.at(tile) >= 20, qPrintable(u"tile %1 moved %2 times"_s.arg(tile).arg(advances.at(tile))));
    QList<int> distinct = cameras;
    std::ranges::sort(distinct);
    QVERIFY2(std::ranges::adjacent_find(distinct) == distinct.end(), "two tiles show one camera");

    std::ranges::sort(lags);
    const qint64 median = lags.at(lags.size() / 2);
    qInfo("screen lags capture by %lld ms (median of %lld readings; 95 of 100 below %lld ms)", median,
          static_cast<qint64>(lags.size()), lags.at(lags.size() * 95 / 100));
    QVERIFY(median <= WorstMedianLagMs);
    QVERIFY(lags.constFirst() >= 0);
    QCOMPARE(warnings.count(), 0);
}

void tst_viewer_live::siteRequest_opensAnotherLogin_andLeavingItClosesIt()
{
    QVERIFY(page(u"shell"_s));
    QVERIFY(QMetaObject::invokeMethod(page(u"shell"_s), "siteRequested"));
    QTRY_VERIFY(page(u"site"_s));
    QVERIFY(QMetaObject::invokeMethod(page(u"site"_s), "leaveRequested"));
    QTRY_VERIFY(!page(u"site"_s));
    QVERIFY(page(u"shell"_s));
}

void tst_viewer_live::cleanupTestCase()
{
    m_engine.reset();
    m_settings.reset();
    orrin::OrrinSDK::shutdown();
}

int main(int argc, char *argv[])
{
    QTemporaryDir home;
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, QFile::encodeName(home.path()));
    QApplication application(argc, argv);
    // The window keeps its place under these names.
    QApplication::setOrganizationName(u"Orrinworks"_s);
    QApplication::setApplicationName(u"tst_viewer_live"_s);
    tst_viewer_live test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_viewer_live.moc"
