// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlconnectionmanager.h"
#include "video/qmlvideodisplay.h"

#include <QColor>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSGRendererInterface>
#include <QTest>

#include <rhi/qshader.h>

#include <memory>

using namespace orrin;

namespace {

const QString root = QStringLiteral(":/qt/qml/orrinsdkqml/");

/*! The object of \a qml, or null; errors go to \a errors. */
std::unique_ptr<QObject> create(QQmlEngine &engine, const QByteArray &qml, QString *errors = nullptr)
{
    QQmlComponent component(&engine);
    component.setData(qml, QUrl());
    std::unique_ptr<QObject> object(component.create());
    if (errors)
        *errors = component.errorString();
    return object;
}

/*! Whether a SPIR-V module decorates something with that location. */
bool hasInputAtLocation(const QByteArray &spirv, quint32 location)
{
    constexpr quint32 decorate = 4u << 16 | 71u; // OpDecorate of four words
    constexpr quint32 locationDecoration = 30;
    QList<quint32> words(spirv.size() / 4);
    memcpy(words.data(), spirv.constData(), std::size_t(words.size()) * 4);
    for (qsizetype i = 5; i + 3 < words.size(); ++i) {
        if (words.at(i) == decorate && words.at(i + 2) == locationDecoration && words.at(i + 3) == location)
            return true;
    }
    return false;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_QmlModule : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void import_resolvesElementsAndComponents_whenVersionIs_data()
    {
        QTest::addColumn<QByteArray>("import");
        QTest::newRow("none") << QByteArray("import orrinsdkqml");
        QTest::newRow("254.0") << QByteArray("import orrinsdkqml 254.0");
        QTest::newRow("254.7") << QByteArray("import orrinsdkqml 254.7");
        QTest::newRow("254.254") << QByteArray("import orrinsdkqml 254.254");
    }

    void import_resolvesElementsAndComponents_whenVersionIs()
    {
        QFETCH(QByteArray, import);
        QQmlEngine engine;
        QString errors;
        const auto object = create(engine, "import QtQuick\n" + import + R"(
                                   Item {
                                       property ConnectionManager manager: ConnectionManager {}
                                       property VideoDisplay video: VideoDisplay {}
                                       property ActiveIcon icon: ActiveIcon {}
                                       property color blue: Theme.orrinworksBlue
                                   })",
                                   &errors);
        QVERIFY2(object, qPrintable(errors));
        QVERIFY(qobject_cast<QmlConnectionManager *>(object->property("manager").value<QObject *>()));
        QVERIFY(qobject_cast<QmlVideoDisplay *>(object->property("video").value<QObject *>()));
        QCOMPARE(object->property("blue").value<QColor>(), QColor(0x07, 0x77, 0xBC));
    }

    void import_fails_whenMajorVersionIsAnother()
    {
        QQmlEngine engine;
        QString errors;
        QVERIFY(!create(engine, "import QtQml\nimport orrinsdkqml 1.0\nQtObject {}", &errors));
        QVERIFY2(errors.contains(QStringLiteral("orrinsdkqml")), qPrintable(errors));
    }

    void elements_takeAParent()
    {
        QObject parent;
        const auto *manager = new QmlConnectionManager(&parent);
        QCOMPARE(manager->parent(), &parent);
    }

    void enums_reachQml_asThoseOfTheElement()
    {
        QQmlEngine engine;
        const auto object = create(engine, R"(
            import QtQml
            import orrinsdkqml
            QtObject {
                property var status: [ConnectionManager.Invalid, ConnectionManager.Disconnected, ConnectionManager.Error,
                                      ConnectionManager.Connecting, ConnectionManager.Connected]
                property int keyChanged: ConnectionManager.PUBLIC_KEY_CHANGED
                property int badLogin: ConnectionManager.BAD_LOGIN
            })");
        QVERIFY(object);
        QCOMPARE(object->property("status").value<QJSValue>().toVariant().toList(),
                 QVariantList({0, 1, 2, 3, 4}));
        QCOMPARE(object->property("keyChanged").toInt(), 11);
        QCOMPARE(object->property("badLogin").toInt(), 2);
    }

    void theme_isSingleton()
    {
        QQmlEngine engine;
        QString errors;
        QVERIFY(!create(engine, "import orrinsdkqml\nTheme {}", &errors));
        QVERIFY2(errors.contains(QStringLiteral("ingleton")), qPrintable(errors));
    }

    void theme_holdsValue_whenPropertyIs_data()
    {
        QTest::addColumn<QVariant>("value");
        const auto color = [](const char *name, const char *value) {
            QTest::newRow(name) << QVariant::fromValue(QColor::fromString(QLatin1StringView(value)));
        };
        color("defaultIconColor", "#FFFFFF");
        color("defaultTextColor", "#FFFFFF");
        color("defaultMaterialAccentColor", "#0777BC");
        color("defaultMaterialForegroundColor", "#FFFFFF");
        color("borderColor", "#434c4e");
        color("borderSelectedColor", "#3A6073");
        color("white", "#FFFFFF");
        color("orrinworksBlue", "#0777BC");
        color("darkBlue", "#043C5E");
        color("lightBlue", "#D1ECFF");
        color("blackOne", "#1A1B1F");
        color("blackTwo", "#16222A");
        color("gray", "#7F898C");
        color("grayBlue", "#3A6073");
        color("green", "#006344");
        color("yellowGreen", "#B6C61A");
        color("yellow", "#E0EC6F");
        color("darkGray", "#434c4e");
        QTest::newRow("borderWidth") << QVariant(2);
        QTest::newRow("borderRadius") << QVariant(4);
        QTest::newRow("defaultSpacing") << QVariant(4);
        QTest::newRow("wideSpacing") << QVariant(12);
        QTest::newRow("veryWideSpacing") << QVariant(16);
        QTest::newRow("defaultMargins") << QVariant(3);
        QTest::newRow("wideMargins") << QVariant(8);
        QTest::newRow("veryWideMargins") << QVariant(16);
    }

    void theme_holdsValue_whenPropertyIs()
    {
        QFETCH(QVariant, value);
        QQmlEngine engine;
        auto *theme = engine.singletonInstance<QObject *>("orrinsdkqml", "Theme");
        QVERIFY(theme);
        QCOMPARE(theme->property(QTest::currentDataTag()), value);
        const int index = theme->metaObject()->indexOfProperty(QTest::currentDataTag());
        QVERIFY(!theme->metaObject()->property(index).isWritable());
    }

    void resources_holdAssets()
    {
        const QImage wheel(root + QStringLiteral("resources/wheel.png"));
        QCOMPARE(wheel.size(), QSize(32, 32));
        QVERIFY(wheel.hasAlphaChannel());
        QCOMPARE(qAlpha(wheel.pixel(0, 0)), 0);
        QCOMPARE(qAlpha(wheel.pixel(16, 16)), 0);
        // Twelve spokes: as many times does a walk around the ring come from the ground onto a spoke.
        int spokes = 0;
        bool wasOn = true;
        for (int step = 0; step <= 3600; ++step) {
            const double angle = step * M_PI / 1800;
            const auto x = int(16 + 11 * std::cos(angle));
            const auto y = int(16 + 11 * std::sin(angle));
            const QRgb pixel = wheel.pixel(x, y);
            const bool isOn = qAlpha(pixel) > 120;
            spokes += isOn && !wasOn;
            wasOn = isOn;
            if (isOn)
                QVERIFY(qRed(pixel) > 230 && qGreen(pixel) > 230 && qBlue(pixel) > 230);
        }
        QCOMPARE(spokes, 12);

        const QByteArray left = contentOf(root + QStringLiteral("resources/arrow_left.svg"));
        const QByteArray right = contentOf(root + QStringLiteral("resources/arrow_right.svg"));
        for (const QByteArray &arrow : {left, right}) {
            QVERIFY(arrow.contains(R"(width="24" height="24" viewBox="0 0 24 24" fill="#000000")"));
            QVERIFY(arrow.contains(R"(fill="none")"));
        }
        QVERIFY(left.contains(R"(d="M15.41 16.09l-4.58-4.59 4.58-4.59L14 5.5l-6 6 6 6z")"));
        QVERIFY(left.contains(R"(d="M0-.5h24v24H0z")"));
        QVERIFY(right.contains(R"(d="M8.59 16.34l4.58-4.59-4.58-4.59L10 5.75l6 6-6 6z")"));
        QVERIFY(right.contains(R"(d="M0-.25h24v24H0z")"));
    }

    void resources_holdShaders_inAllForms()
    {
        using Source = QShader::Source;
        for (const QString &name : {QStringLiteral("vert"), QStringLiteral("frag")}) {
            const QShader shader =
                QShader::fromSerialized(contentOf(QStringLiteral(":/shaders/yuv.%1.qsb").arg(name)));
            QVERIFY(shader.isValid());
            QSet<QShader::Source> sources;
            QSet<int> glslVersions;
            for (const QShaderKey &key : shader.availableShaders()) {
                sources.insert(key.source());
                if (key.source() == Source::GlslShader)
                    glslVersions.insert(key.sourceVersion().version());
            }
            QVERIFY(sources.contains(Source::SpirvShader));
            QVERIFY(sources.contains(Source::HlslShader));
            QVERIFY(sources.contains(Source::MslShader));
            QCOMPARE(glslVersions, QSet<int>({100, 120, 150}));
        }
    }

    void vertexShader_holdsBatchableVariant_withOrderAtLocation7()
    {
        const QShader shader = QShader::fromSerialized(contentOf(QStringLiteral(":/shaders/yuv.vert.qsb")));
        const QShaderCode code =
            shader.shader({QShader::GlslShader, QShaderVersion(150), QShader::BatchableVertexShader});
        QVERIFY2(code.shader().contains("gl_Position.z = _qt_order * gl_Position.w"),
                 code.shader().constData());
        const QShaderCode spirv =
            shader.shader({QShader::SpirvShader, QShaderVersion(100), QShader::BatchableVertexShader});
        QVERIFY(hasInputAtLocation(spirv.shader(), 7));
        const QShaderCode plain =
            shader.shader({QShader::SpirvShader, QShaderVersion(100), QShader::StandardShader});
        QVERIFY(hasInputAtLocation(plain.shader(), 1));
        QVERIFY(!hasInputAtLocation(plain.shader(), 7));
        QMap<QByteArray, int> locations;
        for (const QShaderDescription::InOutVariable &input : shader.description().inputVariables())
            locations.insert(input.name, input.location);
        const QMap<QByteArray, int> expected = {{"qt_Vertex", 0}, {"qt_MultiTexCoord0", 1}, {"_qt_order", 7}};
        QCOMPARE(locations, expected);
    }
};

QTEST_MAIN(tst_QmlModule)
#include "tst_qmlmodule.moc"
