// SPDX-License-Identifier: GPL-3.0-or-later
// The viewer's grid on live cameras: one tile alone and back, large and small streams, dragging, saved layouts, words for errors.
#include "demoserverprocess.h"
#include "hosttypes.h"
#include "tiles/layoutstore.h"

#include <module/orrinsdkqml.h>
#include <support/qmlsettings.h>
#include <video/qmlvideodisplay.h>

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFont>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

// Referenced so that the library of the pages is linked.
extern void qml_register_types_OrrinViewer();
[[maybe_unused]] static void (*const volatile registrar)() = &qml_register_types_OrrinViewer;

namespace {

constexpr int Cameras = 11;
constexpr int PictureTimeout = 30000;

void collect(QQuickItem *item, const char *type, QList<QQuickItem *> &found)
{
    if (QByteArrayView(item->metaObject()->className()).startsWith(type))
        found.append(item);
    const auto children = item->childItems();
    for (QQuickItem *child : children)
        collect(child, type, found);
}

} // namespace

class tst_viewer_tiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void grid_fillsWithCameras_andOthersStayEmpty();
    void doubleClick_showsTheLargeStream_andTheOthersRest();
    void nextChannel_goesThroughTheCameras();
    void keys_moveTheSelection_andChooseTheGrid();
    void camera_isDroppedOnATile();
    void tile_isSwapped_byItsHeader();
    void layout_isSavedAndShownAgain();
    void layouts_takeTurns_butNotOverATileAlone();
    void tile_tellsWhatIsWrong_atEverySize();

private:
    int number(const char *property) const { return m_page->property(property).toInt(); }
    QList<QQuickItem *> tiles() const;
    QList<int> channels() const;
    QQuickItem *part(QQuickItem *tile, const char *type) const;
    orrin::QmlVideoDisplay *display(int tile) const { return tiles().at(tile)->findChild<orrin::QmlVideoDisplay *>(); }
    QPoint middle(const QQuickItem *item) const { return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint(); }
    void drag(QPoint from, QPoint to);

    orrin::test::DemoServerProcess m_server;
    std::unique_ptr<orrin::QmlSettings> m_settings;
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<QQuickItem> m_page;
};

void tst_viewer_tiles::initTestCase()
{
    QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
    QQuickStyle::setStyle(u"Material"_s);
    registerHostTypes();
    orrin::OrrinSDK::initInstance(u"Orrinworks"_s, u"tst_viewer_tiles"_s, nullptr, u"tst_viewer_tiles.log"_s);
    orrin::ConnectionManager *manager = orrin::OrrinSDK::instance()->connectionManager();
    QSignalSpy complete(manager, &orrin::ConnectionManager::initialConnectionComplete);
    manager->connectToServer(u"admin"_s, u"orrin-admin"_s, orrin::CorvaneUrl(u"127.0.0.1:%1"_s.arg(m_server.port()), 8601), true);
    QVERIFY(complete.wait(12000));
}

void tst_viewer_tiles::init()
{
    QTest::failOnWarning(QRegularExpression(u"\\.qml:"_s));
    m_settings = std::make_unique<orrin::QmlSettings>();
    m_engine = std::make_unique<QQmlEngine>();
    m_engine->rootContext()->setContextProperty(u"settings"_s, m_settings.get());
    QQmlComponent component(m_engine.get(), "OrrinViewer", "LivePage");
    m_page.reset(qobject_cast<QQuickItem *>(component.create()));
    QVERIFY2(m_page, qPrintable(component.errorString()));
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(1280, 800);
    m_page->setParentItem(m_window->contentItem());
    m_page->setSize(m_window->size());
    m_window->show();
    m_window->requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTRY_COMPARE_WITH_TIMEOUT(number("cameraCount"), Cameras, 12000);
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "setLayout", 2));
}

void tst_viewer_tiles::cleanup()
{
    m_page.reset();
    m_window.reset();
    m_engine.reset();
    m_settings.reset();
}

void tst_viewer_tiles::cleanupTestCase()
{
    orrin::OrrinSDK::shutdown();
}

QList<QQuickItem *> tst_viewer_tiles::tiles() const
{
    QList<QQuickItem *> found;
    collect(m_page.get(), "CameraTile", found);
    std::ranges::sort(found, {}, [](const QQuickItem *tile) { return tile->property("index").toInt(); });
    return found;
}

QList<int> tst_viewer_tiles::channels() const
{
    QList<int> ids;
    for (const QQuickItem *tile : tiles())
        ids.append(tile->property("channelId").toInt());
    return ids;
}

QQuickItem *tst_viewer_tiles::part(QQuickItem *tile, const char *type) const
{
    QList<QQuickItem *> found;
    collect(tile, type, found);
    return found.value(0);
}

void tst_viewer_tiles::drag(QPoint from, QPoint to)
{
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, from);
    for (int step = 1; step <= 10; ++step)
        QTest::mouseMove(m_window.get(), from + (to - from) * step / 10, 10);
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, to);
}

void tst_viewer_tiles::grid_fillsWithCameras_andOthersStayEmpty()
{
    QCOMPARE(tiles().size(), 4);
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "setLayout", 4));
    QCOMPARE(tiles().size(), 16);
    QTRY_COMPARE(number("wantedPictures"), Cameras);
    QTRY_COMPARE_WITH_TIMEOUT(number("showingPictures"), Cameras, PictureTimeout);
    for (int tile = 0; tile < 16; ++tile) {
        // Sixteen tiles never take the large pictures.
        QCOMPARE(display(tile)->frameWidth(), tile < Cameras ? 640.0 : 100.0);
        QCOMPARE(part(tiles().at(tile), "TileNotice")->property("text").toString(), tile < Cameras ? QString() : u"No camera"_s);
    }
    // The tiles that stay keep their streams.
    const auto stream = display(0)->streamId();
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "setLayout", 2));
    QCOMPARE(tiles().size(), 4);
    QVERIFY(display(0)->streamId() == stream);
    QCOMPARE(number("showingPictures"), 4);
}

void tst_viewer_tiles::doubleClick_showsTheLargeStream_andTheOthersRest()
{
    QTRY_COMPARE_WITH_TIMEOUT(number("showingPictures"), 4, PictureTimeout);
    QQuickItem *tile = tiles().at(1);
    QTest::mouseDClick(m_window.get(), Qt::LeftButton, {}, middle(part(tile, "VideoOutput")));
    QTRY_VERIFY(tile->property("alone").toBool());
    QVERIFY(tile->width() > 900);
    QTRY_COMPARE_WITH_TIMEOUT(display(1)->frameWidth(), 1280.0, PictureTimeout);
    QCOMPARE(number("wantedPictures"), 1);
    for (const int other : {0, 2, 3}) {
        QVERIFY(!tiles().at(other)->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(!display(other)->isActive(), 8000);
    }
    QVERIFY(display(1)->isActive());
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    QTRY_VERIFY(!tile->property("alone").toBool());
    for (int each = 0; each < 4; ++each)
        QVERIFY(display(each)->isActive());
    // New pictures come again, and the small ones do for a small tile.
    QSignalSpy frames(display(3), &orrin::QmlVideoDisplay::currentFrameChanged);
    QTRY_VERIFY_WITH_TIMEOUT(frames.size() > 2, PictureTimeout);
    QTRY_COMPARE_WITH_TIMEOUT(display(1)->frameWidth(), 640.0, PictureTimeout);
}

void tst_viewer_tiles::nextChannel_goesThroughTheCameras()
{
    const QList<int> before = channels();
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "nextChannel"));
    QCOMPARE(channels().constFirst(), before.at(1));
    QCOMPARE(number("selectedChannelId"), before.at(1));
    QTest::keyClick(m_window.get(), Qt::Key_PageUp);
    QTRY_COMPARE(channels(), before);
}

void tst_viewer_tiles::keys_moveTheSelection_andChooseTheGrid()
{
    QCOMPARE(number("selectedIndex"), 0);
    QTest::keyClick(m_window.get(), Qt::Key_Right, Qt::AltModifier);
    QTest::keyClick(m_window.get(), Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(m_window.get(), Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(number("selectedIndex"), 3);
    QCOMPARE(m_page->property("selectedTile").value<QQuickItem *>(), part(tiles().at(3), "VideoOutput"));
    QTest::keyClick(m_window.get(), Qt::Key_3);
    QCOMPARE(tiles().size(), 9);
    QCOMPARE(number("selectedIndex"), 3);
    QTest::keyClick(m_window.get(), Qt::Key_Delete);
    QCOMPARE(channels().at(3), -1);
    QVERIFY(!m_page->property("selectedTile").value<QQuickItem *>());
    QTest::keyClick(m_window.get(), Qt::Key_1);
    QCOMPARE(tiles().size(), 1);
}

void tst_viewer_tiles::camera_isDroppedOnATile()
{
    QQuickItem *panel = part(m_page.get(), "CameraPanel");
    QVERIFY(panel);
    QList<QQuickItem *> rows;
    collect(panel, "ItemDelegate", rows);
    QQuickItem *row = nullptr;
    for (QQuickItem *each : std::as_const(rows)) {
        if (each->property("index").toInt() == 5)
            row = each;
    }
    QVERIFY(row);
    const QList<int> before = channels();
    drag(middle(row), middle(tiles().at(2)));
    QTRY_COMPARE(number("selectedIndex"), 2);
    QVERIFY(channels().at(2) != before.at(2));
    QCOMPARE(part(tiles().at(2), "TileHeader")->property("text").toString(), row->property("name").toString());
    QCOMPARE(channels().first(2), before.first(2));
    QTRY_COMPARE_WITH_TIMEOUT(number("showingPictures"), 4, PictureTimeout);
}

void tst_viewer_tiles::tile_isSwapped_byItsHeader()
{
    const QList<int> before = channels();
    drag(middle(part(tiles().at(0), "TileHeader")), middle(tiles().at(3)));
    QTRY_COMPARE(channels(), (QList<int>{before.at(3), before.at(1), before.at(2), before.at(0)}));
    QCOMPARE(number("selectedIndex"), 3);
    // Dropped outside of all tiles, it stays.
    const QList<int> swapped = channels();
    drag(middle(part(tiles().at(0), "TileHeader")), QPoint(100, 20));
    QCOMPARE(channels(), swapped);
}

void tst_viewer_tiles::layout_isSavedAndShownAgain()
{
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "nextChannel"));
    const QList<int> wanted = channels();
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "saveLayout", u" Gate "_s));
    QCOMPARE(m_page->property("layoutName").toString(), u"Gate"_s);
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "setLayout", 3));
    QCOMPARE(m_page->property("layoutName").toString(), QString());
    QCOMPARE(tiles().size(), 9);
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "showLayout", u"Gate"_s));
    QCOMPARE(tiles().size(), 4);
    QCOMPARE(channels(), wanted);
    QCOMPARE(m_page->property("layoutName").toString(), u"Gate"_s);
    // The next start shows it again.
    cleanup();
    init();
    QCOMPARE(channels(), wanted);
}

void tst_viewer_tiles::layouts_takeTurns_butNotOverATileAlone()
{
    auto *store = m_page->findChild<LayoutStore *>();
    QVERIFY(store);
    const auto name = [this] { return m_page->property("layoutName").toString(); };
    for (const QString &layout : {u"one"_s, u"two"_s}) {
        QVERIFY(QMetaObject::invokeMethod(m_page.get(), "nextChannel"));
        QVERIFY(QMetaObject::invokeMethod(m_page.get(), "saveLayout", layout));
    }
    QCOMPARE(name(), u"two"_s);
    store->setCycleSeconds(LayoutStore::ShortestCycle);
    store->setCycling(true);
    QElapsedTimer clock;
    clock.start();
    QTRY_VERIFY_WITH_TIMEOUT(name() != u"two"_s, 6000);
    QVERIFY(clock.elapsed() > 2500);
    QTRY_COMPARE_WITH_TIMEOUT(name(), u"two"_s, 12000);
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "toggleSingle"));
    QSignalSpy changed(m_page.get(), SIGNAL(layoutNameChanged()));
    changed.clear();
    QVERIFY(!changed.wait(4000));
    store->setCycling(false);
}

void tst_viewer_tiles::tile_tellsWhatIsWrong_atEverySize()
{
    QVERIFY(QMetaObject::invokeMethod(m_page.get(), "setLayout", 8));
    QTRY_COMPARE_WITH_TIMEOUT(number("showingPictures"), Cameras, PictureTimeout);
    m_server.stop();
    QQuickItem *notice = part(tiles().at(0), "TileNotice");
    QTRY_COMPARE_WITH_TIMEOUT(notice->property("text").toString(), u"No picture"_s, PictureTimeout);
    QList<QQuickItem *> texts;
    collect(notice, "QQuickText", texts);
    for (const int columns : {8, 4, 2, 1}) {
        QVERIFY(QMetaObject::invokeMethod(m_page.get(), "setLayout", columns));
        QTRY_VERIFY(texts.at(0)->height() > 0 && texts.at(0)->height() <= notice->height());
        QVERIFY(texts.at(0)->property("font").value<QFont>().pixelSize() >= 11);
        QVERIFY(!texts.at(0)->property("truncated").toBool());
        // The reason stands where there is room for it.
        QCOMPARE(texts.at(1)->isVisible(), columns <= 4);
    }
    QVERIFY(!notice->property("detail").toString().isEmpty());
    QVERIFY(!notice->property("detail").toString().contains(u'<'));
}

int main(int argc, char *argv[])
{
    QTemporaryDir home;
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, QFile::encodeName(home.path()));
    QApplication application(argc, argv);
    tst_viewer_tiles test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_viewer_tiles.moc"
