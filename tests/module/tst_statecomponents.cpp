// SPDX-License-Identifier: GPL-3.0-or-later
#include <QColor>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlPropertyMap>
#include <QQuickItem>
#include <QTest>

#include <memory>

// Referenced so that the module is linked.
extern void qml_register_types_orrinsdkqml();
static void (*const volatile registrar)() = &qml_register_types_orrinsdkqml;

/*! The components that carry the colour states "normal", "highlight" and "active". */
class tst_StateComponents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(registrar);
        settings.insert({
            {QStringLiteral("backgroundColor"), QColor(1, 2, 3)},
            {QStringLiteral("highlightColor"), QColor(4, 5, 6)},
            {QStringLiteral("activeColor"), QColor(7, 8, 9)},
            {QStringLiteral("textColor"), QColor(11, 12, 13)},
            {QStringLiteral("textHighlightColor"), QColor(14, 15, 16)},
            {QStringLiteral("textActiveColor"), QColor(17, 18, 19)},
            {QStringLiteral("fontPixelSizeHints"), 23},
        });
        engine.rootContext()->setContextProperty(QStringLiteral("settings"), &settings);
    }

    void background_takesColourOfState()
    {
        const auto background = create("ActiveBackground {}");
        QVERIFY(background);
        QCOMPARE(background->property("state"), QVariant(QStringLiteral("normal")));
        QCOMPARE(background->property("color").value<QColor>(), QColor(1, 2, 3));
        background->setProperty("state", QStringLiteral("highlight"));
        QCOMPARE(background->property("color").value<QColor>(), QColor(4, 5, 6));
        background->setProperty("state", QStringLiteral("active"));
        QCOMPARE(background->property("color").value<QColor>(), QColor(7, 8, 9));
        background->setProperty("activeColor", QColor(70, 80, 90));
        QCOMPARE(background->property("color").value<QColor>(), QColor(70, 80, 90));
        background->setProperty("state", QStringLiteral("normal"));
        QCOMPARE(background->property("color").value<QColor>(), QColor(1, 2, 3));
    }

    void label_takesColourOfState()
    {
        const auto label = create("ActiveLabel {}");
        QVERIFY(label);
        QCOMPARE(label->property("state"), QVariant(QStringLiteral("normal")));
        QCOMPARE(label->property("font").value<QFont>().pixelSize(), 23);
        QCOMPARE(label->property("color").value<QColor>(), QColor(11, 12, 13));
        label->setProperty("state", QStringLiteral("highlight"));
        QCOMPARE(label->property("color").value<QColor>(), QColor(14, 15, 16));
        label->setProperty("state", QStringLiteral("active"));
        QCOMPARE(label->property("color").value<QColor>(), QColor(17, 18, 19));
    }

    void icon_changesEffectColourOnly()
    {
        const auto icon = create(
            "ActiveIcon { width: 24; height: 20; source: \"qt/qml/orrinsdkqml/resources/arrow_left\" }");
        QVERIFY(icon);
        QCOMPARE(icon->property("state"), QVariant(QStringLiteral("normal")));
        QCOMPARE(icon->property("sourceSize").toSize(), QSize(24, 20));
        const QList<QQuickItem *> children = qobject_cast<QQuickItem *>(icon.get())->childItems();
        QCOMPARE(children.size(), 2);
        QQuickItem *image = children.at(0);
        QQuickItem *effect = children.at(1);
        QVERIFY(!image->isVisible());
        QCOMPARE(image->property("source").toUrl(),
                 QUrl(QStringLiteral("qrc:/qt/qml/orrinsdkqml/resources/arrow_left.svg")));
        QCOMPARE(image->size(), QSizeF(24, 20));
        QCOMPARE(effect->size(), QSizeF(24, 20));

        QCOMPARE(effect->property("colorizationColor").value<QColor>(),
                 QColor::fromString(QLatin1StringView("orange")));
        icon->setProperty("state", QStringLiteral("highlight"));
        QCOMPARE(effect->property("colorizationColor").value<QColor>(),
                 QColor::fromString(QLatin1StringView("green")));
        icon->setProperty("state", QStringLiteral("active"));
        QCOMPARE(effect->property("colorizationColor").value<QColor>(),
                 QColor::fromString(QLatin1StringView("blue")));
        QCOMPARE(effect->property("colorization").toDouble(), 0.0);
    }

private:
    std::unique_ptr<QObject> create(const QByteArray &text)
    {
        QQmlComponent component(&engine);
        component.setData("import orrinsdkqml\n" + text, QUrl());
        std::unique_ptr<QObject> object(component.create());
        if (!object)
            qWarning() << component.errorString();
        return object;
    }

    QQmlPropertyMap settings;
    QQmlEngine engine;
};

QTEST_MAIN(tst_StateComponents)
#include "tst_statecomponents.moc"
