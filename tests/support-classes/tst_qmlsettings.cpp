// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingssandbox.h"
#include "signalrecorder.h"

#include "support/qmlsettings.h"

#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>
#include <contract/core/securitypreferences.h>
#include <contract/util/logmanager.h>

#include <QGuiApplication>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QSignalSpy>
#include <QTest>

#include <optional>

namespace orrin {

namespace {

/*! A property as users of the class may rely on it. */
struct Option
{
    const char *name;
    const char *type;
    QVariant defaultValue; // invalid: computed
    QVariant other; // invalid: not writable
    bool savedOnChange = false;
};

QColor colour(const char *name)
{
    return QColor(QLatin1StringView(name));
}

const QList<Option> &options()
{
    static const QColor red = Qt::red;
    static const QList<Option> all = {
        {"layoutRows", "int", 1, 3, true},
        {"layoutColumns", "int", 1, 4, true},
        {"backgroundColor", "QColor", colour("#2b2e36"), red},
        {"highlightColor", "QColor", colour("#4d5261"), red},
        {"activeColor", "QColor", colour("#06a5df"), red},
        {"textColor", "QColor", colour("#e5e5e5"), red},
        {"textHighlightColor", "QColor", colour("#ffffff"), red},
        {"textActiveColor", "QColor", colour("#06a5df"), red},
        {"textDisabledColor", "QColor", colour("#888888"), red},
        {"fontPixelSize", "double", 100.0, 120.5, true},
        {"fontFamily", "QString", QString(), QStringLiteral("Sans")},
        {"iconColor", "QColor", colour("#e5e5e5"), red},
        {"iconHighlightColor", "QColor", colour("#ffffff"), red},
        {"iconActiveColor", "QColor", colour("#06a5df"), red},
        {"borderColor", "QColor", colour("#606465"), red},
        {"borderActiveColor", "QColor", colour("#06a5df"), red},
        {"borderWidth", "int", 100, 110},
        {"borderActiveWidth", "int", 100, 120},
        {"controlHeight", "int", 100, 130, true},
        {"controlMargins", "int", 100, 140},
        {"controlRadius", "int", 100, 150},
        {"animationDuration", "int", 500, 250},
        {"hosts", "QString", QString(), QStringLiteral("a,b"), true},
        {"users", "QString", QString(), QStringLiteral("u,v"), true},
        {"lastConnectedServer", "QStringList", QStringList(), QStringList{QStringLiteral("h"), QStringLiteral("u")}, true},
        {"connectServerGroup", "bool", false, true},
        {"publicKeyCheck", "bool", true, false, true},
        {"subtitlesVisible", "bool", true, false, true},
        {"channelButtonsVisible", "bool", false, true, true},
        {"showMainToolbar", "bool", true, false, true},
        {"showPlaybackToolbar", "bool", false, true, true},
        {"showPtzfToolbar", "bool", false, true, true},
        {"effectsVisible", "bool", false, true, true},
        {"effectButtonsVisible", "bool", false, true, true},
        {"zoomSliderVisible", "bool", false, true, true},
        {"pinchPointsVisible", "bool", false, true, true},
        {"subtitlesCamera", "bool", true, false, true},
        {"subtitlesServer", "bool", true, false, true},
        {"subtitlesTime", "bool", true, false, true},
        {"subtitlesDebug", "bool", false, true, true},
        {"subtitlesPlayback", "bool", true, false, true},
        {"logError", "bool", false, true, true},
        {"logWarning", "bool", false, true, true},
        {"logStartup", "bool", false, true, true},
        {"logInfo", "bool", false, true, true},
        {"logDebug", "bool", false, true, true},
        {"logTrace", "bool", false, true, true},
        {"logTiming", "bool", false, true, true},
        {"logGraphics", "bool", false, true, true},
        {"textOverlay", "bool", true, false, true},
        {"layoutDimLowStream", "int", 2, 5},
        {"fontPixelSizeHints", "double", {}, {}},
        {"borderWidthHints", "int", {}, {}},
        {"borderActiveWidthHints", "int", {}, {}},
        {"controlHeightHints", "int", {}, {}},
        {"controlMarginsHints", "int", {}, {}},
        {"controlRadiusHints", "int", {}, {}},
        {"desktopAvailableHeight", "int", {}, {}},
        {"desktopAvailableWidth", "int", {}, {}},
        {"screenHeight", "int", {}, {}},
        {"screenWidth", "int", {}, {}},
        {"orientation", "int", {}, {}},
        {"primaryOrientation", "int", {}, {}},
        {"devicePixelRatio", "double", {}, {}},
        {"pixelDensity", "double", {}, {}},
        {"fullscreen", "bool", {}, {}},
        {"screenName", "QString", {}, {}},
        {"mobile", "bool", false, {}},
    };
    return all;
}

/*! A trust option that counts how often its group is saved. */
class CountingGroup : public PreferenceGroupInterface
{
public:
    explicit CountingGroup(bool withItem = true)
    {
        if (withItem)
            option = QSharedPointer<PreferenceItem>::create(SecurityPreferences::PUBLIC_KEY_CHECK, true);
    }

    QString name() const override { return SecurityPreferences::NAME; }
    void load() override {}
    bool save() override
    {
        ++saves;
        return true;
    }
    void restoreDefaults(const QString &) override {}
    QSharedPointer<PreferenceItem> item(const QString &group, const QString &name) const override
    {
        return group == SecurityPreferences::PUBLIC_KEY_CHECK && name.isEmpty() ? option : nullptr;
    }
    QList<QSharedPointer<PreferenceItem>> itemList(const QString &) const override { return {option}; }

    QSharedPointer<PreferenceItem> option;
    int saves = 0;
};

QSharedPointer<CountingGroup> addTrustOption(bool withItem = true)
{
    const auto group = QSharedPointer<CountingGroup>::create(withItem);
    OrrinSDK::instance()->preferences()->addPreferenceGroup(group);
    return group;
}

} // namespace

class TestQmlSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_sandbox.emplace(); }
    void cleanup() { m_sandbox.reset(); }

    void properties_standInTheirOrder_withTypeAndAccess();
    void signals_standInTheirOrder();
    void invokables_areThoseOfQml();
    void class_isNoQmlElement();
    void defaults_hold_withoutAFile();
    void write_storesAndEmitsOnce_whenTheValueChanges_data() { writableOptions(); }
    void write_storesAndEmitsOnce_whenTheValueChanges();
    void change_savesAtOnce_forTheSavingOptionsOnly_data() { writableOptions(); }
    void change_savesAtOnce_forTheSavingOptionsOnly();
    void readOnly_refusesToBeWritten_data();
    void readOnly_refusesToBeWritten();

    void addHost_changesTheList_data();
    void addHost_changesTheList();
    void addUser_changesTheList_data();
    void addUser_changesTheList();
    void addHostAndAddUser_emit_whenNothingChanges();
    void setLastConnectedServer_keepsThePortAndEmits_always();
    void resetLayout_emitsInOrder_always();

    void publicKeyCheck_isTrueAndSettingDoesNothing_whenTheGroupIsMissing();
    void publicKeyCheck_isTrueAndSettingDoesNothing_whenTheItemIsMissing();
    void publicKeyCheck_isTrueAndSettingDoesNothing_withoutRootObject();
    void setPublicKeyCheck_storesSavesAndEmits_evenWhenEqual();
    void publicKeyCheck_followsTheStoredValue_atConstruction();

    void logMask_followsEachFlag_data();
    void logMask_followsEachFlag();
    void logMask_isThatOfTheFile_atConstruction();

    void qml_readsAndWrites_throughTheContextProperty();

private:
    static void writableOptions();

    std::optional<SettingsSandbox> m_sandbox;
};

void TestQmlSettings::writableOptions()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("saved");
    for (const Option &option : options()) {
        if (option.other.isValid())
            QTest::addRow("%s", option.name) << QByteArray(option.name) << option.other << option.savedOnChange;
    }
}

void TestQmlSettings::properties_standInTheirOrder_withTypeAndAccess()
{
    const QMetaObject &meta = QmlSettings::staticMetaObject;
    QCOMPARE(options().size(), 68);
    QCOMPARE(meta.propertyCount(), 69);
    QCOMPARE(meta.propertyOffset(), 1);
    for (int index = 0; index < options().size(); ++index) {
        const Option &option = options().at(index);
        const QMetaProperty property = meta.property(index + 1);
        QCOMPARE(QByteArray(property.name()), QByteArray(option.name));
        QCOMPARE(QByteArray(property.typeName()), QByteArray(option.type));
        QVERIFY(property.isReadable());
        QCOMPARE(property.isWritable(), option.other.isValid());
        if (QByteArray(option.name) == "mobile") {
            QVERIFY(property.isConstant());
            QVERIFY(!property.hasNotifySignal());
        } else {
            QVERIFY(!property.isConstant());
            QCOMPARE(property.notifySignal().methodSignature(), QByteArray(option.name) + "Changed()");
        }
    }
}

void TestQmlSettings::signals_standInTheirOrder()
{
    QList<QByteArray> expected;
    for (const Option &option : options())
        expected.append(QByteArray(option.name) + "Changed()");
    expected.removeLast(); // mobile
    expected.insert(2, "layoutReset()");
    expected.insert(expected.indexOf("primaryOrientationChanged()"), "orientationUpdateMaskChanged()");
    QCOMPARE(expected.size(), 69);

    const QMetaObject &meta = QmlSettings::staticMetaObject;
    QList<QByteArray> found;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        if (meta.method(index).methodType() == QMetaMethod::Signal)
            found.append(meta.method(index).methodSignature());
    }
    QCOMPARE(found, expected);
}

void TestQmlSettings::invokables_areThoseOfQml()
{
    const QMetaObject &meta = QmlSettings::staticMetaObject;
    QList<QByteArray> invokables;
    QList<QByteArray> slotNames;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        if (method.methodType() == QMetaMethod::Method && method.access() == QMetaMethod::Public)
            invokables.append(method.methodSignature());
        if (method.methodType() == QMetaMethod::Slot) {
            QCOMPARE(method.access(), QMetaMethod::Private);
            slotNames.append(method.methodSignature());
        }
    }
    QCOMPARE(invokables, QList<QByteArray>({"load()", "save()", "setPublicKeyCheck(bool)",
                                            "setLastConnectedServer(QString,QString)", "addHost(QString)",
                                            "addUser(QString)", "resetLayout()"}));
    QCOMPARE(slotNames, QList<QByteArray>({"updateProperties()", "updateLogLevel()"}));
}

void TestQmlSettings::class_isNoQmlElement()
{
    QCOMPARE(QmlSettings::staticMetaObject.indexOfClassInfo("QML.Element"), -1);
}

void TestQmlSettings::defaults_hold_withoutAFile()
{
    const QmlSettings settings;
    for (const Option &option : options()) {
        if (option.defaultValue.isValid())
            QCOMPARE(settings.property(option.name), option.defaultValue);
    }
    QCOMPARE(olog::LogManager::instance()->logLevel(), 0U);
    QVERIFY(!m_sandbox->exists());
}

void TestQmlSettings::write_storesAndEmitsOnce_whenTheValueChanges()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, value);
    const auto trust = addTrustOption();
    QmlSettings settings;
    SignalRecorder recorder(&settings);

    QVERIFY(settings.setProperty(name.constData(), value));
    QCOMPARE(settings.property(name.constData()), value);
    QCOMPARE(recorder.names(), QStringList{QString::fromLatin1(name) + QStringLiteral("Changed")});

    recorder.clear();
    QVERIFY(settings.setProperty(name.constData(), value));
    // The trust option is not compared first.
    QCOMPARE(recorder.names().size(), name == "publicKeyCheck" ? 1 : 0);
}

void TestQmlSettings::change_savesAtOnce_forTheSavingOptionsOnly()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, value);
    QFETCH(bool, saved);
    int saving = 0;
    for (const Option &option : options())
        saving += option.savedOnChange ? 1 : 0;
    QCOMPARE(saving, 31);

    const auto trust = addTrustOption();
    {
        QmlSettings settings;
        QVERIFY(settings.setProperty(name.constData(), value));
        QCOMPARE(m_sandbox->exists(), saved);
        if (saved)
            QCOMPARE(m_sandbox->stored(QString::fromLatin1(name)).toString(), value.toString());
        m_sandbox->remove();
    }
    // The destructor writes what no change has written.
    const QVariant stored = m_sandbox->stored(QString::fromLatin1(name));
    if (value.metaType() == QMetaType::fromType<QColor>())
        QCOMPARE(stored.value<QColor>(), value.value<QColor>());
    else if (value.metaType() == QMetaType::fromType<QStringList>())
        QCOMPARE(stored.toStringList(), value.toStringList());
    else
        QCOMPARE(stored.toString(), value.toString());
}

void TestQmlSettings::readOnly_refusesToBeWritten_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const Option &option : options()) {
        if (!option.other.isValid())
            QTest::addRow("%s", option.name) << QByteArray(option.name);
    }
}

void TestQmlSettings::readOnly_refusesToBeWritten()
{
    QFETCH(QByteArray, name);
    QmlSettings settings;
    const QVariant before = settings.property(name.constData());
    QVERIFY(before.isValid());
    QVERIFY(!settings.setProperty(name.constData(), before));
    QCOMPARE(settings.property(name.constData()), before);
}

void TestQmlSettings::addHost_changesTheList_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *title, const char *before, const char *host, const char *after) {
        QTest::newRow(title) << QString::fromLatin1(before) << QString::fromLatin1(host) << QString::fromLatin1(after);
    };
    row("default port is dropped", "", "a:8601", "a");
    row("another port stays", "", "a:8602", "a:8602");
    row("default port inside stays", "", "a:86011", "a:86011");
    row("both occurrences go", "", "a:8601:b:8601", "a:b");
    row("an inner occurrence alone stays", "", "a:8601:b", "a:8601:b");
    row("nothing but the port", "a", ":8601", "a");
    row("new one comes first", "a,b", "c", "c,a,b");
    row("known one moves to the front", "a,b", "b", "b,a");
    row("first one stays first", "a,b", "a", "a,b");
    row("case counts", "a", "A", "A,a");
    row("empty one on one", "a", "", "a");
    row("empty one on none", "", "", "");
    row("empty entries collapse and go", "a,,b,", "c", "c,a,b");
    row("duplicates of earlier days go", "a,b,a", "c", "c,a,b");
    row("a comma is no part of the arithmetic", "a", "b,a", "b,a,a");
}

void TestQmlSettings::addHost_changesTheList()
{
    QFETCH(QString, before);
    QFETCH(QString, host);
    QFETCH(QString, after);
    QmlSettings settings;
    settings.setProperty("hosts", before);
    const QSignalSpy changed(&settings, &QmlSettings::hostsChanged);
    settings.addHost(host);
    QCOMPARE(settings.property("hosts").toString(), after);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_sandbox->stored(QStringLiteral("hosts")).toString(), after);
}

void TestQmlSettings::addUser_changesTheList_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *title, const char *before, const char *user, const char *after) {
        QTest::newRow(title) << QString::fromLatin1(before) << QString::fromLatin1(user) << QString::fromLatin1(after);
    };
    row("first one", "", "ann", "ann");
    row("new one comes first", "ann,bob", "eve", "eve,ann,bob");
    row("known one moves to the front", "ann,bob", "bob", "bob,ann");
    row("a port is part of the name", "", "ann:8601", "ann:8601");
    row("empty one", "ann", "", "ann");
}

void TestQmlSettings::addUser_changesTheList()
{
    QFETCH(QString, before);
    QFETCH(QString, user);
    QFETCH(QString, after);
    QmlSettings settings;
    settings.setProperty("users", before);
    SignalRecorder recorder(&settings);
    settings.addUser(user);
    QCOMPARE(settings.property("users").toString(), after);
    QCOMPARE(recorder.names(), QStringList{QStringLiteral("usersChanged")});
}

void TestQmlSettings::addHostAndAddUser_emit_whenNothingChanges()
{
    QmlSettings settings;
    settings.addHost(QStringLiteral("a"));
    settings.addUser(QStringLiteral("u"));
    SignalRecorder recorder(&settings);
    settings.addHost(QStringLiteral("a"));
    settings.addUser(QStringLiteral("u"));
    QCOMPARE(recorder.names(), QStringList({QStringLiteral("hostsChanged"), QStringLiteral("usersChanged")}));
}

void TestQmlSettings::setLastConnectedServer_keepsThePortAndEmits_always()
{
    QmlSettings settings;
    SignalRecorder recorder(&settings);
    settings.setLastConnectedServer(QStringLiteral("a:8601"), QStringLiteral("ann"));
    settings.setLastConnectedServer(QStringLiteral("a:8601"), QStringLiteral("ann"));
    QCOMPARE(settings.property("lastConnectedServer").toStringList(),
             QStringList({QStringLiteral("a:8601"), QStringLiteral("ann")}));
    QCOMPARE(recorder.names(), QStringList(2, QStringLiteral("lastConnectedServerChanged")));
}

void TestQmlSettings::resetLayout_emitsInOrder_always()
{
    const QStringList expected{QStringLiteral("layoutRowsChanged"), QStringLiteral("layoutColumnsChanged"),
                               QStringLiteral("layoutReset")};
    QmlSettings settings;
    settings.setProperty("layoutRows", 3);
    settings.setProperty("layoutColumns", 2);
    SignalRecorder recorder(&settings);
    settings.resetLayout();
    QCOMPARE(settings.property("layoutRows").toInt(), 1);
    QCOMPARE(settings.property("layoutColumns").toInt(), 1);
    QCOMPARE(recorder.names(), expected);

    recorder.clear();
    settings.resetLayout();
    QCOMPARE(recorder.names(), expected);
}

void TestQmlSettings::publicKeyCheck_isTrueAndSettingDoesNothing_whenTheGroupIsMissing()
{
    QmlSettings settings;
    SignalRecorder recorder(&settings);
    settings.setPublicKeyCheck(false);
    QVERIFY(settings.property("publicKeyCheck").toBool());
    QVERIFY(recorder.names().isEmpty());
    QVERIFY(!m_sandbox->exists());
}

void TestQmlSettings::publicKeyCheck_isTrueAndSettingDoesNothing_whenTheItemIsMissing()
{
    const auto group = addTrustOption(false);
    QmlSettings settings;
    SignalRecorder recorder(&settings);
    settings.setPublicKeyCheck(false);
    QVERIFY(settings.property("publicKeyCheck").toBool());
    QVERIFY(recorder.names().isEmpty());
    QCOMPARE(group->saves, 0);
}

void TestQmlSettings::publicKeyCheck_isTrueAndSettingDoesNothing_withoutRootObject()
{
    SettingsSandbox::forgetRootObject();
    QmlSettings settings;
    SignalRecorder recorder(&settings);
    settings.setPublicKeyCheck(false);
    settings.load();
    settings.save();
    QVERIFY(settings.property("publicKeyCheck").toBool());
    QVERIFY(recorder.names().isEmpty());
    QVERIFY(!m_sandbox->exists());
}

void TestQmlSettings::setPublicKeyCheck_storesSavesAndEmits_evenWhenEqual()
{
    const auto group = addTrustOption();
    QmlSettings settings;
    SignalRecorder recorder(&settings);
    settings.setPublicKeyCheck(true);
    QCOMPARE(group->saves, 1);
    settings.setPublicKeyCheck(false);
    QCOMPARE(group->saves, 2);
    QCOMPARE(group->option->value(), QVariant(false));
    QVERIFY(!settings.property("publicKeyCheck").toBool());
    QCOMPARE(recorder.names(), QStringList(2, QStringLiteral("publicKeyCheckChanged")));
    QCOMPARE(m_sandbox->stored(QStringLiteral("publicKeyCheck")).toString(), QStringLiteral("false"));
}

void TestQmlSettings::publicKeyCheck_followsTheStoredValue_atConstruction()
{
    m_sandbox->write("[General]\npublicKeyCheck=false\n");
    const auto group = addTrustOption();
    const QmlSettings settings;
    QCOMPARE(group->option->value(), QVariant(false));
    QCOMPARE(group->saves, 1);
}

void TestQmlSettings::logMask_followsEachFlag_data()
{
    QTest::addColumn<unsigned>("bit");
    QTest::newRow("logTrace") << 0x01U;
    QTest::newRow("logDebug") << 0x02U;
    QTest::newRow("logInfo") << 0x04U;
    QTest::newRow("logWarning") << 0x08U;
    QTest::newRow("logError") << 0x10U;
    QTest::newRow("logTiming") << 0x20U;
    QTest::newRow("logStartup") << 0x40U;
    QTest::newRow("logGraphics") << 0x80U;
}

void TestQmlSettings::logMask_followsEachFlag()
{
    QFETCH(unsigned, bit);
    const char *const flag = QTest::currentDataTag();
    QmlSettings settings;
    QVERIFY(settings.setProperty(flag, true));
    QCOMPARE(olog::LogManager::instance()->logLevel(), bit);
    for (const Option &option : options()) {
        if (QByteArray(option.name).startsWith("log"))
            settings.setProperty(option.name, true);
    }
    QCOMPARE(olog::LogManager::instance()->logLevel(), 0xffU);
    QVERIFY(settings.setProperty(flag, false));
    QCOMPARE(olog::LogManager::instance()->logLevel(), 0xffU & ~bit);
}

void TestQmlSettings::logMask_isThatOfTheFile_atConstruction()
{
    m_sandbox->write("[General]\nlogError=true\nlogGraphics=true\nlogTrace=false\n");
    olog::LogManager::instance()->setLogLevel(0x07);
    const QmlSettings settings;
    QCOMPARE(olog::LogManager::instance()->logLevel(), 0x90U);
}

void TestQmlSettings::qml_readsAndWrites_throughTheContextProperty()
{
    QmlSettings settings;
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("settings"), &settings);
    const auto evaluate = [&engine](const char *text) {
        QQmlExpression expression(engine.rootContext(), nullptr, QString::fromLatin1(text));
        const QVariant value = expression.evaluate();
        return expression.hasError() ? QVariant(expression.error().toString()) : value;
    };
    QCOMPARE(evaluate("settings.layoutRows = 4; settings.layoutRows").toInt(), 4);
    QCOMPARE(evaluate("settings.addHost('a:8601'); settings.hosts").toString(), QStringLiteral("a"));
    QCOMPARE(evaluate("settings.setLastConnectedServer('a', 'ann'); settings.lastConnectedServer[1]").toString(),
             QStringLiteral("ann"));
    QCOMPARE(evaluate("settings.resetLayout(); settings.layoutRows").toInt(), 1);
    QCOMPARE(evaluate("settings.backgroundColor = '#010203'; '' + settings.backgroundColor").toString(),
             QStringLiteral("#010203"));
    QCOMPARE(evaluate("settings.orientationUpdateMask === undefined").toBool(), true);
    QCOMPARE(evaluate("settings.publicKeyCheck").toBool(), true);
    QCOMPARE(evaluate("settings.mobile").toBool(), false);
}

} // namespace orrin

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    orrin::TestQmlSettings test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_qmlsettings.moc"
