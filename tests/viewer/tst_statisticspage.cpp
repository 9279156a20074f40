// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/util/corvaneurl.h>
#include <statistics/statisticssource.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

QList<QQuickItem *> itemsBelow(const QQuickItem *parent)
{
    QList<QQuickItem *> found;
    const auto children = parent->childItems();
    for (QQuickItem *child : children) {
        found.append(child);
        found.append(itemsBelow(child));
    }
    return found;
}

} // namespace

/*! The statistics page over a demo server. With ORRIN_CHART_PICTURES naming a folder, pictures are left there. */
class tst_StatisticsPage : public QObject
{
    Q_OBJECT

private:
    test::DemoServerProcess m_server;
    QTemporaryDir m_folder;
    std::unique_ptr<QQuickView> m_view;
    std::unique_ptr<QSignalSpy> m_warnings;

    QQuickItem *page() const { return m_view->rootObject(); }
    StatisticsSource *source() const { return page()->property("source").value<StatisticsSource *>(); }
    QList<QQuickItem *> named(const QString &prefix) const
    {
        QList<QQuickItem *> found;
        const auto items = itemsBelow(page());
        for (QQuickItem *item : items) {
            if (QString::fromLatin1(item->metaObject()->className()).startsWith(prefix))
                found.append(item);
        }
        return found;
    }
    QQuickItem *button(const QString &text) const
    {
        const auto items = itemsBelow(page());
        for (QQuickItem *item : items) {
            if (item->inherits("QQuickAbstractButton") && item->property("text").toString() == text && item->isVisible())
                return item;
        }
        return nullptr;
    }
    void leavePicture(const char *name)
    {
        const QString folder = qEnvironmentVariable("ORRIN_CHART_PICTURES");
        QTest::qWait(200);
        if (!folder.isEmpty())
            m_view->grabWindow().save(QDir(folder).filePath(QString::fromLatin1(name) + u".png"_s));
    }

private Q_SLOTS:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        QQuickStyle::setStyle(u"Material"_s);
        OrrinSDK::initInstance(u"Orrinworks"_s, u"orrin-test"_s, nullptr, u"orrin-test.log"_s);
        QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
        ConnectionManager *manager = OrrinSDK::instance()->connectionManager();
        QSignalSpy complete(manager, &ConnectionManager::initialConnectionComplete);
        manager->connectToServer(u"operator"_s, u"orrin-operator"_s, CorvaneUrl(u"127.0.0.1:%1"_s.arg(m_server.port()), 443), true);
        QTRY_COMPARE_WITH_TIMEOUT(complete.count(), 1, 20000);
    }

    void init()
    {
        m_view = std::make_unique<QQuickView>();
        m_warnings = std::make_unique<QSignalSpy>(m_view->engine(), &QQmlEngine::warnings);
        m_view->setResizeMode(QQuickView::SizeRootObjectToView);
        m_view->resize(1280, 800);
        QQmlComponent component(m_view->engine());
        component.loadFromModule("OrrinViewer", "StatisticsPage");
        QObject *root = component.create();
        QVERIFY2(root, qPrintable(component.errorString()));
        m_view->setContent({}, nullptr, root);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        QTRY_VERIFY_WITH_TIMEOUT(source()->isReady(), 20000);
        QTRY_COMPARE(page()->property("chartCount").toInt(), 1);
    }

    void cleanup()
    {
        if (m_warnings)
            QCOMPARE(m_warnings->count(), 0);
        m_view.reset();
    }

    void cleanupTestCase()
    {
        m_view.reset();
        OrrinSDK::instance()->connectionManager()->disconnectFromAll();
        OrrinSDK::shutdown();
    }

    void page_showsTheFirstServer()
    {
        QCOMPARE(page()->objectName(), u"statistics"_s);
        QVERIFY(page()->property("serverId").toInt() > 0);
        QVERIFY(source()->isRunning());
        QCOMPARE(source()->from().msecsTo(source()->to()), 3600000);
        QVERIFY(source()->headings()->rowCount() > 50);
        // The first of the list, with its samples in their bands.
        const QList<QQuickItem *> views = named(u"DeclarativeChart"_s);
        QCOMPARE(views.size(), 1);
        QTRY_COMPARE(views.first()->property("title").toString(), u"Recorder status"_s);
        QTRY_VERIFY(source()->samples()->rowCount() > 300);
        leavePicture("page-hour");
    }

    void presets_changeTheSpan()
    {
        for (const auto &[name, days] : {std::pair(u"Day"_s, 1), std::pair(u"Week"_s, 7), std::pair(u"Month"_s, 31)}) {
            QQuickItem *preset = button(name);
            QVERIFY(preset);
            QMetaObject::invokeMethod(preset, "click");
            QTRY_COMPARE(source()->from().daysTo(source()->to()), days);
            QTRY_VERIFY_WITH_TIMEOUT(source()->isReady(), 20000);
            QTRY_VERIFY_WITH_TIMEOUT(source()->samples()->rowCount() > 1000, 20000);
            QVERIFY(source()->samples()->rowCount() < 5000);
        }
        leavePicture("page-month");
    }

    void window_isFixed()
    {
        QVERIFY(!button(u"Show"_s));
        QMetaObject::invokeMethod(button(u"Window…"_s), "click");
        QTRY_VERIFY(button(u"Show"_s));
        leavePicture("page-window");
        QMetaObject::invokeMethod(button(u"Show"_s), "click");
        QTRY_VERIFY(!source()->isRunning());
        QCOMPARE(source()->from(), QDateTime(QDate(2024, 3, 2), QTime(9, 22), QTimeZone::UTC));
        QCOMPARE(source()->from().secsTo(source()->to()), 300);
        // The demo server keeps a year: the chart says that there is nothing.
        QTRY_COMPARE_WITH_TIMEOUT(source()->statusText(), u"There are no statistics for this time"_s, 20000);
        leavePicture("page-empty");
    }

    void charts_areAddedAndRemoved()
    {
        QMetaObject::invokeMethod(button(u"+"_s), "click");
        QTRY_COMPARE(page()->property("chartCount").toInt(), 2);
        QTRY_COMPARE(named(u"ChartTools_QMLTYPE"_s).size(), 2);
        const QList<QQuickItem *> charts = named(u"Chart_QMLTYPE"_s);
        QMetaObject::invokeMethod(charts.at(1), "showStatistic", Q_ARG(QString, u"CPU%"_s));
        leavePicture("page-two");
        QQuickItem *remove = button(u"✕"_s);
        QVERIFY(remove);
        QMetaObject::invokeMethod(remove, "click");
        QTRY_COMPARE(page()->property("chartCount").toInt(), 1);
        QTRY_COMPARE(named(u"Chart_QMLTYPE"_s).size(), 1);
        QCOMPARE(named(u"Chart_QMLTYPE"_s).first(), charts.at(1));
        // The last one stays.
        QVERIFY(!button(u"✕"_s));
    }

    void pointer_readsAValue_anywhereInTheChart()
    {
        QTRY_VERIFY(source()->samples()->rowCount() > 300);
        QQuickItem *tools = named(u"ChartTools_QMLTYPE"_s).value(0);
        QVERIFY(tools);
        const QPointF middle = tools->mapToScene(QPointF(tools->width() / 2, tools->height() * 0.6));
        QTest::mouseMove(m_view.get(), middle.toPoint() - QPoint(40, 0));
        QTest::mouseMove(m_view.get(), middle.toPoint());
        QTRY_VERIFY(!tools->property("reading").toString().isEmpty());
        const QString word = tools->property("reading").toString().section(u"   "_s, -1);
        QVERIFY2(QStringList({u"Recording"_s, u"Not recording"_s, u"Fault"_s, u"Warning"_s, u"Restart"_s, u"Standby"_s, u"Standby2"_s}).contains(word),
                 qPrintable(tools->property("reading").toString()));
        leavePicture("page-reading");
    }

    void files_areSaved()
    {
        const QUrl table = QUrl::fromLocalFile(m_folder.filePath(u"t.csv"_s));
        QMetaObject::invokeMethod(page(), "saveTable", Q_ARG(QUrl, table));
        QFile file(table.toLocalFile());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readLine(), QByteArray("Time,Recorder status\r\n"));
        QVERIFY(file.readLine().contains("Z,"));
        const QUrl picture = QUrl::fromLocalFile(m_folder.filePath(u"c.png"_s));
        QMetaObject::invokeMethod(page(), "savePicture", Q_ARG(QQuickItem *, named(u"Chart_QMLTYPE"_s).first()), Q_ARG(QUrl, picture));
        QTRY_VERIFY(QFile::exists(picture.toLocalFile()));
        const QImage image(picture.toLocalFile());
        QVERIFY(image.width() > 1000);
        QCOMPARE(image.height(), 600);
    }

    void otherServer_isShownAfresh()
    {
        const int group = page()->property("serverGroupId").toInt();
        const int other = page()->property("serverId").toInt() == 1 ? 2 : 1;
        QMetaObject::invokeMethod(page(), "showServer", Q_ARG(int, group), Q_ARG(int, other));
        QTRY_VERIFY_WITH_TIMEOUT(source()->isReady(), 20000);
        QTRY_COMPARE(page()->property("chartCount").toInt(), 1);
        QCOMPARE(page()->property("serverId").toInt(), other);
    }
};

QTEST_MAIN(tst_StatisticsPage)
#include "tst_statisticspage.moc"
