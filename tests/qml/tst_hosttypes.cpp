// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostsettings.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

void qml_register_types_orrinsdkqml();

/*! Components whose types only a host can supply, in a host that does its part. */
class tst_HostTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void layoutArea_holdsTheHostsGrid();
    void scrollViewStyle_extendsTheHostsBaseType();

private:
    std::unique_ptr<QObject> create(QQmlEngine &engine, const QByteArray &type);

    HostSettings m_settings;
};

void tst_HostTypes::initTestCase()
{
    QQuickStyle::setStyle(u"Material"_s);
    [[maybe_unused]] volatile auto keep = &qml_register_types_orrinsdkqml;
    // The module takes no more types once it has been imported.
    qmlRegisterType<QQuickItem>("orrinsdkqml", 254, 0, "OGridLayout");
}

std::unique_ptr<QObject> tst_HostTypes::create(QQmlEngine &engine, const QByteArray &type)
{
    engine.rootContext()->setContextProperty(u"settings"_s, &m_settings);
    QQmlComponent component(&engine);
    component.setData("import QtQuick\nimport orrinsdkqml\nItem { width: 320; height: 200\n property QtObject made: " + type
                          + " {}\n}",
                      QUrl(u"qrc:/host.qml"_s));
    return std::unique_ptr<QObject>(component.create());
}

void tst_HostTypes::layoutArea_holdsTheHostsGrid()
{
    QQmlEngine engine;
    const auto host = create(engine, "LayoutArea");
    QVERIFY(host);
    auto *area = host->property("made").value<QQuickItem *>();
    QVERIFY(area);
    QCOMPARE(area->property("color").value<QColor>(), QColor(Qt::red));
    QCOMPARE(area->childItems().size(), 1);
    area->setParentItem(qobject_cast<QQuickItem *>(host.get()));
    QCOMPARE(area->size(), QSizeF(320, 200));
}

void tst_HostTypes::scrollViewStyle_extendsTheHostsBaseType()
{
    QTemporaryDir imports;
    const QString folder = imports.filePath(u"QtQuick/Controls/Styles"_s);
    QVERIFY(QDir().mkpath(folder));
    const auto write = [&folder](const QString &name, const QByteArray &text) {
        QFile file(folder + u'/' + name);
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
    };
    QVERIFY(write(u"qmldir"_s, "module QtQuick.Controls.Styles\nScrollViewStyle 1.0 ScrollViewStyle.qml\n"));
    QVERIFY(write(u"ScrollViewStyle.qml"_s, "import QtQml\nQtObject {\n property Component scrollBarBackground\n"
                                            " property Component incrementControl\n property Component decrementControl\n"
                                            " property Component handle\n}\n"));
    QQmlEngine engine;
    engine.addImportPath(imports.path());
    m_settings.setProperty("devicePixelRatio", 2.0);
    const auto host = create(engine, "O_ScrollViewStyle");
    QVERIFY(host);
    auto *style = host->property("made").value<QObject *>();
    QVERIFY(style);
    QCOMPARE(style->property("backgroundWidth").toInt(), 0);
    style->setProperty("backgroundWidth", 30);
    style->setProperty("backgroundHeight", 7);

    const auto make = [style](const char *part) {
        auto *component = style->property(part).value<QQmlComponent *>();
        QObject *made = component ? component->create(component->creationContext()) : nullptr;
        return std::unique_ptr<QQuickItem>(qobject_cast<QQuickItem *>(made));
    };
    const auto background = make("scrollBarBackground");
    QVERIFY(background);
    QCOMPARE(background->size(), QSizeF(30, 7));
    QCOMPARE(background->property("color").value<QColor>(), QColor(Qt::black));
    const auto handle = make("handle");
    QVERIFY(handle);
    QCOMPARE(handle->implicitWidth(), 24);
    QCOMPARE(handle->implicitHeight(), 6);
    QCOMPARE(handle->childItems().constFirst()->property("color").value<QColor>(), QColor(u"darkGray"_s));
    QVERIFY(make("incrementControl"));
    QVERIFY(make("decrementControl"));
}

QTEST_MAIN(tst_HostTypes)
#include "tst_hosttypes.moc"
