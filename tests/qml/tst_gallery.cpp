// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostsettings.h"

#include <QApplication>
#include <QDir>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

void qml_register_types_orrinsdkqml();

/*! The viewer's gallery: all components in all states, at several sizes of the controls.

    With ORRIN_GALLERY_PICTURES naming a folder, the pictures are left there. */
class tst_Gallery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void gallery_showsEverything_data();
    void gallery_showsEverything();
};

void tst_Gallery::initTestCase()
{
    QQuickStyle::setStyle(u"Material"_s);
    [[maybe_unused]] volatile auto keep = &qml_register_types_orrinsdkqml;
}

void tst_Gallery::gallery_showsEverything_data()
{
    QTest::addColumn<int>("percent");
    for (const int percent : {100, 150, 200})
        QTest::addRow("%d percent", percent) << percent;
}

void tst_Gallery::gallery_showsEverything()
{
    QFETCH(const int, percent);
    HostSettings settings;
    QQuickView view;
    QSignalSpy warnings(view.engine(), &QQmlEngine::warnings);
    view.rootContext()->setContextProperty(u"settings"_s, &settings);
    view.setInitialProperties({{u"controlHeight"_s, percent}});
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.resize(1280, 800);
    view.setSource(QUrl::fromLocalFile(QStringLiteral(ORRIN_GALLERY_FILE)));
    QCOMPARE(view.status(), QQuickView::Ready);
    QCOMPARE(settings.property("controlHeight").toInt(), percent);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const auto fitsItsContent = [&view] {
        const int wanted = qRound(view.rootObject()->property("contentHeight").toReal()) + 120;
        if (view.height() == wanted && qRound(view.rootObject()->height()) == wanted)
            return true;
        view.resize(1280, wanted);
        return false;
    };
    QTRY_VERIFY(fitsItsContent());

    // What stands in a section has a size, stays in its row and keeps clear of its neighbours.
    int shown = 0;
    const auto flows = view.rootObject()->findChildren<QQuickItem *>();
    for (const QQuickItem *flow : flows) {
        if (!flow->inherits("QQuickFlow"))
            continue;
        QList<QRectF> places;
        for (const QQuickItem *item : flow->childItems()) {
            if (item->inherits("QQuickRepeater"))
                continue;
            const QRectF place(item->position(), item->size());
            QVERIFY2(!place.isEmpty(), item->metaObject()->className());
            QVERIFY2(place.right() <= flow->width(), item->metaObject()->className());
            for (const QRectF &other : std::as_const(places))
                QVERIFY2(!place.intersects(other), item->metaObject()->className());
            places.append(place);
            ++shown;
        }
    }
    QCOMPARE_GE(shown, 80);

    // The message and the wheel fade in.
    QTest::qWait(600);
    const QImage picture = view.grabWindow();
    QCOMPARE(picture.size(), view.size());
    const QString folder = qEnvironmentVariable("ORRIN_GALLERY_PICTURES");
    if (!folder.isEmpty())
        QVERIFY(picture.save(QDir(folder).filePath(u"gallery-%1.png"_s.arg(percent))));
    view.setSource({});
    QCOMPARE(settings.property("controlHeight").toInt(), 100);
    QCOMPARE(warnings.count(), 0);
}

QTEST_MAIN(tst_Gallery)
#include "tst_gallery.moc"
