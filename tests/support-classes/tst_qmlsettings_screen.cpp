// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakescreen.h"
#include "settingssandbox.h"
#include "signalrecorder.h"

#include "support/qmlsettings.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <limits>
#include <optional>

namespace orrin {

namespace {

constexpr QSize FullHd(1920, 1080);

QStringList updateSignals()
{
    return QStringLiteral("fontPixelSizeChanged fontPixelSizeHintsChanged controlHeightChanged controlHeightHintsChanged "
                          "controlMarginsChanged controlMarginsHintsChanged controlRadiusChanged "
                          "controlRadiusHintsChanged borderWidthChanged borderWidthHintsChanged "
                          "borderActiveWidthChanged borderActiveWidthHintsChanged desktopAvailableHeightChanged "
                          "desktopAvailableWidthChanged screenHeightChanged screenWidthChanged orientationChanged "
                          "orientationUpdateMaskChanged primaryOrientationChanged devicePixelRatioChanged "
                          "pixelDensityChanged fullscreenChanged screenNameChanged")
        .split(u' ');
}

} // namespace

class TestQmlSettingsScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void facts_areThoseOfThePrimaryScreen();
    void fullscreen_isFalse_whenATaskBarTakesHeightOrWidth();
    void hints_followTheArithmetic_data();
    void hints_followTheArithmetic();
    void hints_stayInRange_whenThePercentageIsExtreme();
    void hintSignal_isNotEmitted_whenThePercentageChanges();
    void screenSignal_emitsAllInOrderAndSaves_data();
    void screenSignal_emitsAllInOrderAndSaves();
    void screenChange_updatesTheScaleUnit_onlyWithASignal();
    void rotation_isSeen();
    void laterPrimaryScreen_isReadButNotFollowed();
    void settings_survive_whenTheirScreenGoes();

private:
    FakeScreen *addScreen(const char *name, QSize size, double dotsPerInch);
    void removeScreen(FakeScreen *screen);

    std::optional<SettingsSandbox> m_sandbox;
    QList<FakeScreen *> m_screens;
    FakeScreen *m_screen = nullptr;
};

FakeScreen *TestQmlSettingsScreen::addScreen(const char *name, QSize size, double dotsPerInch)
{
    auto *screen = new FakeScreen(QString::fromLatin1(name), size, dotsPerInch);
    screen->addAsPrimary();
    m_screens.append(screen);
    return screen;
}

void TestQmlSettingsScreen::removeScreen(FakeScreen *screen)
{
    m_screens.removeOne(screen);
    screen->remove();
}

void TestQmlSettingsScreen::init()
{
    m_sandbox.emplace();
    m_screen = addScreen("Wall-1", FullHd, 96.0);
    QCOMPARE(QGuiApplication::primaryScreen()->name(), QStringLiteral("Wall-1"));
}

void TestQmlSettingsScreen::cleanup()
{
    while (!m_screens.isEmpty())
        removeScreen(m_screens.constLast());
    m_sandbox.reset();
}

void TestQmlSettingsScreen::facts_areThoseOfThePrimaryScreen()
{
    m_screen->setDevicePixelRatio(2.0);
    m_screen->setGeometry(QRect(0, 0, 1920, 1080), QRect(0, 30, 1900, 1050));
    const QmlSettings settings;
    QCOMPARE(settings.property("desktopAvailableHeight").toInt(), 1050);
    QCOMPARE(settings.property("desktopAvailableWidth").toInt(), 1900);
    QCOMPARE(settings.property("screenHeight").toInt(), 1080);
    QCOMPARE(settings.property("screenWidth").toInt(), 1920);
    QCOMPARE(settings.property("orientation").toInt(), int(Qt::LandscapeOrientation));
    QCOMPARE(settings.property("primaryOrientation").toInt(), int(Qt::LandscapeOrientation));
    QCOMPARE(settings.property("devicePixelRatio").toDouble(), 2.0);
    QCOMPARE(settings.property("pixelDensity").toDouble(), 96.0);
    QCOMPARE(settings.property("fullscreen").toBool(), false);
    QCOMPARE(settings.property("screenName").toString(), QStringLiteral("Wall-1"));
    QCOMPARE(settings.property("mobile").toBool(), false);
}

void TestQmlSettingsScreen::fullscreen_isFalse_whenATaskBarTakesHeightOrWidth()
{
    QVERIFY(QmlSettings::fullscreen());
    m_screen->setGeometry(QRect(0, 0, 1920, 1080), QRect(0, 0, 1920, 1040));
    QVERIFY(!QmlSettings::fullscreen());
    m_screen->setGeometry(QRect(0, 0, 1920, 1080), QRect(60, 0, 1860, 1080));
    QVERIFY(!QmlSettings::fullscreen());
    m_screen->setGeometry(QRect(0, 0, 1920, 1080), QRect(0, 0, 1920, 1080));
    QVERIFY(QmlSettings::fullscreen());
}

void TestQmlSettingsScreen::hints_followTheArithmetic_data()
{
    QTest::addColumn<double>("dotsPerInch");
    QTest::addColumn<int>("percentage");
    QTest::addColumn<double>("font");
    QTest::addColumn<QList<int>>("others"); // control height, margins, radius, border width, active border width
    QTest::newRow("96 dpi") << 96.0 << 100 << 14.85 << QList<int>{33, 5, 5, 2, 4};
    QTest::newRow("96 dpi, larger") << 96.0 << 150 << 22.275 << QList<int>{49, 8, 8, 3, 7};
    QTest::newRow("96 dpi, smaller") << 96.0 << 77 << 11.4345 << QList<int>{25, 4, 4, 1, 3};
    QTest::newRow("96 dpi, none") << 96.0 << 0 << 0.0 << QList<int>{0, 0, 0, 0, 0};
    QTest::newRow("96 dpi, below none") << 96.0 << -150 << -22.275 << QList<int>{-49, -8, -8, -3, -7};
    QTest::newRow("smallest unit") << 28.0 << 100 << 4.5 << QList<int>{10, 1, 1, 0, 1};
    QTest::newRow("smallest unit for less, too") << 10.0 << 100 << 4.5 << QList<int>{10, 1, 1, 0, 1};
    QTest::newRow("120 dpi") << 120.0 << 100 << 18.9 << QList<int>{42, 7, 7, 2, 6};
    QTest::newRow("300 dpi") << 300.0 << 150 << 70.875 << QList<int>{157, 26, 26, 10, 22};
}

void TestQmlSettingsScreen::hints_followTheArithmetic()
{
    QFETCH(double, dotsPerInch);
    QFETCH(int, percentage);
    QFETCH(double, font);
    QFETCH(QList<int>, others);
    addScreen("Wall-2", FullHd, dotsPerInch);
    QmlSettings settings;
    for (const char *option : {"fontPixelSize", "controlHeight", "controlMargins", "controlRadius", "borderWidth",
                               "borderActiveWidth"})
        QVERIFY(settings.setProperty(option, percentage));
    QCOMPARE(settings.property("fontPixelSizeHints").toDouble(), font);
    QList<int> hints;
    for (const char *hint : {"controlHeightHints", "controlMarginsHints", "controlRadiusHints", "borderWidthHints",
                             "borderActiveWidthHints"})
        hints.append(settings.property(hint).toInt());
    QCOMPARE(hints, others);
}

void TestQmlSettingsScreen::hints_stayInRange_whenThePercentageIsExtreme()
{
    addScreen("Wall-2", FullHd, 3000.0);
    QmlSettings settings;
    settings.setProperty("controlHeight", std::numeric_limits<int>::max());
    settings.setProperty("borderWidth", std::numeric_limits<int>::min());
    settings.setProperty("fontPixelSize", std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(settings.controlHeightHints(), std::numeric_limits<int>::max());
    QVERIFY(settings.borderWidthHints() < -1'000'000'000);
    QVERIFY(qIsNaN(settings.fontPixelSizeHints()));
}

void TestQmlSettingsScreen::hintSignal_isNotEmitted_whenThePercentageChanges()
{
    QmlSettings settings;
    SignalRecorder recorder(&settings);
    settings.setProperty("controlHeight", 200);
    settings.setProperty("fontPixelSize", 200.0);
    settings.setProperty("borderWidth", 200);
    QCOMPARE(recorder.names(), QStringList({QStringLiteral("controlHeightChanged"), QStringLiteral("fontPixelSizeChanged"),
                                            QStringLiteral("borderWidthChanged")}));
    QCOMPARE(settings.controlHeightHints(), 66);
}

void TestQmlSettingsScreen::screenSignal_emitsAllInOrderAndSaves_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("availableGeometryChanged") << 0;
    QTest::newRow("geometryChanged") << 1;
    QTest::newRow("orientationChanged") << 2;
    QTest::newRow("physicalSizeChanged") << 3;
    QTest::newRow("virtualGeometryChanged") << 4;
}

void TestQmlSettingsScreen::screenSignal_emitsAllInOrderAndSaves()
{
    QFETCH(int, which);
    QmlSettings settings;
    QVERIFY(!m_sandbox->exists());
    SignalRecorder recorder(&settings);
    QScreen *screen = m_screen->screen();
    switch (which) {
    case 0:
        Q_EMIT screen->availableGeometryChanged(screen->availableGeometry());
        break;
    case 1:
        Q_EMIT screen->geometryChanged(screen->geometry());
        break;
    case 2:
        Q_EMIT screen->orientationChanged(screen->orientation());
        break;
    case 3:
        Q_EMIT screen->physicalSizeChanged(screen->physicalSize());
        break;
    default:
        Q_EMIT screen->virtualGeometryChanged(screen->virtualGeometry());
        break;
    }
    QCOMPARE(recorder.names(), updateSignals());
    QVERIFY(m_sandbox->exists());
}

void TestQmlSettingsScreen::screenChange_updatesTheScaleUnit_onlyWithASignal()
{
    QmlSettings settings;
    QCOMPARE(settings.controlHeightHints(), 33);
    m_screen->setDotsPerInch(192.0);
    QCOMPARE(settings.controlHeightHints(), 33);
    m_screen->setGeometry(QRect(0, 0, 2560, 1440), QRect(0, 0, 2560, 1400));
    QCOMPARE(settings.controlHeightHints(), 67);
    QCOMPARE(settings.property("screenHeight").toInt(), 1440);
    QCOMPARE(m_sandbox->stored(QStringLiteral("screenHeight")).toInt(), 1440);
}

void TestQmlSettingsScreen::rotation_isSeen()
{
    QmlSettings settings;
    SignalRecorder recorder(&settings);
    m_screen->setOrientation(Qt::InvertedPortraitOrientation);
    QCOMPARE(recorder.names(), updateSignals());
    QCOMPARE(settings.property("orientation").toInt(), int(Qt::InvertedPortraitOrientation));
    m_screen->setGeometry(QRect(0, 0, 1080, 1920), QRect(0, 0, 1080, 1920));
    QCOMPARE(settings.property("primaryOrientation").toInt(), int(Qt::PortraitOrientation));
}

void TestQmlSettingsScreen::laterPrimaryScreen_isReadButNotFollowed()
{
    QmlSettings settings;
    FakeScreen *later = addScreen("Wall-2", QSize(800, 600), 192.0);
    SignalRecorder recorder(&settings);
    Q_EMIT later->screen()->geometryChanged(later->geometry());
    Q_EMIT later->screen()->availableGeometryChanged(later->geometry());
    QVERIFY(recorder.names().isEmpty());
    QCOMPARE(settings.property("screenName").toString(), QStringLiteral("Wall-2"));
    QCOMPARE(settings.property("screenWidth").toInt(), 800);
    QCOMPARE(settings.controlHeightHints(), 33);

    // A signal of the first screen takes the unit of what is primary by then.
    Q_EMIT m_screen->screen()->geometryChanged(m_screen->geometry());
    QCOMPARE(settings.controlHeightHints(), 67);
}

void TestQmlSettingsScreen::settings_survive_whenTheirScreenGoes()
{
    QmlSettings settings;
    removeScreen(m_screen);
    QVERIFY(settings.property("screenName").toString() != QStringLiteral("Wall-1"));
    QVERIFY(settings.property("screenWidth").toInt() > 0);
}

} // namespace orrin

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    orrin::TestQmlSettingsScreen test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_qmlsettings_screen.moc"
