// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingssandbox.h"

#include "support/qmlsettings.h"

#include <QColor>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <optional>

namespace orrin {

namespace {

using Values = QHash<QByteArray, QVariant>;

/*! Values that differ from the defaults, for one option of each type and kind. */
Values otherValues()
{
    return {
        {"layoutRows", 12},
        {"layoutColumns", 34},
        {"backgroundColor", QColor(QStringLiteral("#102030"))},
        {"fontPixelSize", 123.25},
        {"fontFamily", QStringLiteral("Noto Sans")},
        {"borderWidth", 210},
        {"animationDuration", 1250},
        {"hosts", QStringLiteral("alpha.example,beta.example:8602")},
        {"users", QStringLiteral("ann,b\u00e9a,\"eve\"")},
        {"lastConnectedServer", QStringList{QStringLiteral("alpha.example:8601"), QStringLiteral("a, b")}},
        {"connectServerGroup", true},
        {"subtitlesVisible", false},
        {"logDebug", true},
        {"textOverlay", false},
        {"layoutDimLowStream", 17},
    };
}

void assign(QObject &settings, const Values &values)
{
    for (auto it = values.begin(); it != values.end(); ++it) {
        if (!settings.setProperty(it.key().constData(), it.value()))
            qFatal("The test cannot set %s", it.key().constData());
    }
}

Values valuesOf(const QObject &settings)
{
    Values values;
    const QList<QByteArray> names = otherValues().keys();
    for (const QByteArray &name : names)
        values.insert(name, settings.property(name.constData()));
    return values;
}

/*! What the options are without a file. */
Values defaults(const SettingsSandbox &sandbox)
{
    if (sandbox.exists())
        qFatal("Defaults are asked for while there is a file");
    Values values;
    {
        const QmlSettings settings;
        values = valuesOf(settings);
    }
    sandbox.remove();
    return values;
}

} // namespace

class TestQmlSettingsFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_sandbox.emplace(); }
    void cleanup() { m_sandbox.reset(); }

    void save_writesTheFileOfTheRootObjectsNames();
    void save_writesEveryPropertyAndNothingElse();
    void save_keepsTheKeysOfOthers();
    void destructor_writesAllOptions();
    void restart_restoresAllOptions();
    void restart_restoresTheObjectName();
    void construction_writesNothing();
    void debugOptions_areStoredButComeUpFalse();
    void storedFactsAndHints_changeNothing();
    void unsavedChange_isLost_whenTheApplicationCrashes();

    void load_takesAllStoredValues_whenItsFirstChangesSave();
    void load_leavesTheFileAsItWas_whenItsFirstChangesSave();
    void load_rewritesTheFileAtEachChange();
    void load_writesNothing_whenNothingChanges();

    void load_keepsTheDefault_whenAValueHasTheWrongForm_data();
    void load_keepsTheDefault_whenAValueHasTheWrongForm();
    void load_convertsTexts_asThePropertySystemDoes();
    void load_takesAShortFileByHand_withoutFinalLineFeed_data();
    void load_takesAShortFileByHand_withoutFinalLineFeed();
    void load_neverTakesAHalfValue_whenTheFileIsCutAnywhere();
    void brokenFile_leavesDefaultsAndIsReplaced_data();
    void brokenFile_leavesDefaultsAndIsReplaced();
    void folderInPlaceOfTheFile_leavesDefaultsAndStays();

private:
    std::optional<SettingsSandbox> m_sandbox;
};

void TestQmlSettingsFile::save_writesTheFileOfTheRootObjectsNames()
{
    const QmlSettings settings;
    QVERIFY(!m_sandbox->exists());
    settings.save();
    QVERIFY(QFileInfo(m_sandbox->path() + QStringLiteral("/Orrin Tests/settingstest.ini")).isFile());
}

void TestQmlSettingsFile::save_writesEveryPropertyAndNothingElse()
{
    const QmlSettings settings;
    settings.save();
    const QList<QByteArray> lines = m_sandbox->bytes().split('\n');
    QCOMPARE(lines.first(), "[General]");
    QCOMPARE(lines.last(), "");
    QStringList keys;
    for (const QByteArray &line : lines.mid(1, lines.size() - 2))
        keys.append(QString::fromLatin1(line.left(line.indexOf('='))));
    QStringList expected = settingsKeys();
    expected.sort();
    QCOMPARE(keys, expected);

    QCOMPARE(m_sandbox->stored(QStringLiteral("layoutRows")).toInt(), 1);
    QCOMPARE(m_sandbox->stored(QStringLiteral("backgroundColor")).value<QColor>(), QColor(QStringLiteral("#2b2e36")));
    QCOMPARE(m_sandbox->stored(QStringLiteral("controlHeightHints")).toInt(), settings.controlHeightHints());
    QCOMPARE(m_sandbox->stored(QStringLiteral("screenWidth")).toInt(), QmlSettings::screenWidth());
    QCOMPARE(m_sandbox->stored(QStringLiteral("mobile")).toString(), QStringLiteral("false"));
    QCOMPARE(m_sandbox->stored(QStringLiteral("publicKeyCheck")).toString(), QStringLiteral("true"));
}

void TestQmlSettingsFile::save_keepsTheKeysOfOthers()
{
    m_sandbox->write("[General]\nsomebody=1\nlayoutRows=3\n\n[window]\nwidth=640\n");
    QmlSettings settings;
    settings.addHost(QStringLiteral("a"));
    QCOMPARE(m_sandbox->stored(QStringLiteral("somebody")).toInt(), 1);
    QCOMPARE(m_sandbox->stored(QStringLiteral("window/width")).toInt(), 640);
    QCOMPARE(m_sandbox->storedKeys().size(), settingsKeys().size() + 2);
    QCOMPARE(m_sandbox->stored(QStringLiteral("layoutRows")).toInt(), 3);
}

void TestQmlSettingsFile::destructor_writesAllOptions()
{
    {
        QmlSettings settings;
        settings.setProperty("animationDuration", 750);
        QVERIFY(!m_sandbox->exists());
    }
    QCOMPARE(m_sandbox->stored(QStringLiteral("animationDuration")).toInt(), 750);
}

void TestQmlSettingsFile::restart_restoresAllOptions()
{
    {
        QmlSettings settings;
        assign(settings, otherValues());
    }
    const QmlSettings settings;
    QCOMPARE(valuesOf(settings), otherValues());
}

void TestQmlSettingsFile::restart_restoresTheObjectName()
{
    {
        QmlSettings settings;
        settings.setObjectName(QStringLiteral("options"));
    }
    const QmlSettings settings;
    QCOMPARE(settings.objectName(), QStringLiteral("options"));
}

void TestQmlSettingsFile::construction_writesNothing()
{
    const QByteArray before = "[General]\nlayoutRows=3\nhosts=a\nlogError=true\n";
    m_sandbox->write(before);
    const QmlSettings settings;
    QCOMPARE(settings.property("layoutRows").toInt(), 3);
    QCOMPARE(settings.property("hosts").toString(), QStringLiteral("a"));
    QCOMPARE(m_sandbox->bytes(), before);
}

void TestQmlSettingsFile::debugOptions_areStoredButComeUpFalse()
{
    {
        QmlSettings settings;
        settings.setProperty("pinchPointsVisible", true);
        settings.setProperty("subtitlesDebug", true);
    }
    QCOMPARE(m_sandbox->stored(QStringLiteral("pinchPointsVisible")).toString(), QStringLiteral("true"));
    QCOMPARE(m_sandbox->stored(QStringLiteral("subtitlesDebug")).toString(), QStringLiteral("true"));
    QmlSettings settings;
    QCOMPARE(settings.property("pinchPointsVisible"), QVariant(false));
    QCOMPARE(settings.property("subtitlesDebug"), QVariant(false));

    // A later load does not touch them either.
    m_sandbox->write("[General]\npinchPointsVisible=false\nsubtitlesDebug=false\n");
    settings.blockSignals(true);
    settings.setProperty("pinchPointsVisible", true);
    settings.blockSignals(false);
    settings.load();
    QCOMPARE(settings.property("pinchPointsVisible"), QVariant(true));
}

void TestQmlSettingsFile::storedFactsAndHints_changeNothing()
{
    m_sandbox->write("[General]\nscreenWidth=1\ndevicePixelRatio=9\nscreenName=other\nmobile=true\ncontrolHeightHints=1\n"
                     "fullscreen=maybe\n");
    const QmlSettings settings;
    QCOMPARE(settings.property("screenWidth").toInt(), QGuiApplication::primaryScreen()->size().width());
    QCOMPARE(settings.property("devicePixelRatio").toDouble(), QGuiApplication::primaryScreen()->devicePixelRatio());
    QCOMPARE(settings.property("screenName").toString(), QGuiApplication::primaryScreen()->name());
    QCOMPARE(settings.property("mobile").toBool(), false);
    QVERIFY(settings.controlHeightHints() >= 10);
}

void TestQmlSettingsFile::unsavedChange_isLost_whenTheApplicationCrashes()
{
    {
        QmlSettings settings;
        settings.save();
        settings.setProperty("layoutDimLowStream", 7);
        SettingsSandbox::forgetRootObject();
    }
    SettingsSandbox::initRootObject();
    const QmlSettings settings;
    QCOMPARE(settings.property("layoutDimLowStream").toInt(), 2);
}

void TestQmlSettingsFile::load_takesAllStoredValues_whenItsFirstChangesSave()
{
    {
        QmlSettings settings;
        assign(settings, otherValues());
    }
    const QByteArray stored = m_sandbox->bytes();
    m_sandbox->remove();

    // layoutRows comes first and saves, while all that follows still has its default.
    QmlSettings settings;
    m_sandbox->write(stored);
    settings.load();
    QCOMPARE(valuesOf(settings), otherValues());
}

void TestQmlSettingsFile::load_leavesTheFileAsItWas_whenItsFirstChangesSave()
{
    QmlSettings settings;
    m_sandbox->write("[General]\nlayoutRows=5\nlayoutDimLowStream=9\n");
    settings.load();
    SettingsSandbox::forgetRootObject();
    QCOMPARE(m_sandbox->stored(QStringLiteral("layoutRows")).toInt(), 5);
    QCOMPARE(m_sandbox->stored(QStringLiteral("layoutDimLowStream")).toInt(), 9);
}

void TestQmlSettingsFile::load_rewritesTheFileAtEachChange()
{
    QmlSettings settings;
    m_sandbox->write("[General]\nlayoutRows=5\nlayoutColumns=6\n");
    QStringList seen;
    connect(&settings, &QmlSettings::layoutRowsChanged, this, [&] {
        seen.append(m_sandbox->stored(QStringLiteral("layoutRows")).toString());
        seen.append(m_sandbox->stored(QStringLiteral("layoutColumns")).toString());
    });
    connect(&settings, &QmlSettings::layoutColumnsChanged, this,
            [&] { seen.append(m_sandbox->stored(QStringLiteral("layoutColumns")).toString()); });
    settings.load();
    QCOMPARE(seen, QStringList({QStringLiteral("5"), QStringLiteral("1"), QStringLiteral("6")}));
}

void TestQmlSettingsFile::load_writesNothing_whenNothingChanges()
{
    QmlSettings settings;
    const QByteArray bytes = "[General]\nlayoutRows=1\nlayoutColumns=1\n";
    m_sandbox->write(bytes);
    settings.load();
    QCOMPARE(m_sandbox->bytes(), bytes);
}

void TestQmlSettingsFile::load_keepsTheDefault_whenAValueHasTheWrongForm_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("text for int") << QByteArray("layoutRows=many") << QByteArray("layoutRows");
    QTest::newRow("empty for int") << QByteArray("layoutRows=") << QByteArray("layoutRows");
    QTest::newRow("text for double") << QByteArray("fontPixelSize=big") << QByteArray("fontPixelSize");
    QTest::newRow("text for colour") << QByteArray("backgroundColor=dark") << QByteArray("backgroundColor");
    QTest::newRow("number for colour") << QByteArray("backgroundColor=12") << QByteArray("backgroundColor");
    QTest::newRow("broken variant") << QByteArray("backgroundColor=@Variant(\\0\\0\\0)") << QByteArray("backgroundColor");
    QTest::newRow("list for int") << QByteArray("layoutRows=2, 3") << QByteArray("layoutRows");
    QTest::newRow("list for text") << QByteArray("hosts=a, b") << QByteArray("hosts");
    QTest::newRow("no value") << QByteArray("layoutRows") << QByteArray("layoutRows");
    QTest::newRow("invalid") << QByteArray("layoutRows=@Invalid()") << QByteArray("layoutRows");
}

void TestQmlSettingsFile::load_keepsTheDefault_whenAValueHasTheWrongForm()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, name);
    const Values expected = defaults(*m_sandbox);
    m_sandbox->write("[General]\n" + line + "\nlayoutColumns=7\n");
    const QmlSettings settings;
    QCOMPARE(settings.property(name.constData()), expected.value(name));
    QCOMPARE(settings.property("layoutColumns").toInt(), 7);
}

void TestQmlSettingsFile::load_convertsTexts_asThePropertySystemDoes()
{
    m_sandbox->write("[General]\nlayoutRows=3\nbackgroundColor=#a0b0c0\nactiveColor=red\nfontPixelSize=1e2\n"
                     "connectServerGroup=1\nlogError=false\nlastConnectedServer=single\n");
    const QmlSettings settings;
    QCOMPARE(settings.property("layoutRows").toInt(), 3);
    QCOMPARE(settings.property("backgroundColor").value<QColor>(), QColor(0xa0, 0xb0, 0xc0));
    QCOMPARE(settings.property("activeColor").value<QColor>(), QColor(Qt::red));
    QCOMPARE(settings.property("fontPixelSize").toDouble(), 100.0);
    QCOMPARE(settings.property("connectServerGroup").toBool(), true);
    QCOMPARE(settings.property("logError").toBool(), false);
    QCOMPARE(settings.property("lastConnectedServer").toStringList(), QStringList{QStringLiteral("single")});
}

void TestQmlSettingsFile::load_takesAShortFileByHand_withoutFinalLineFeed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("value");
    QTest::newRow("number") << QByteArray("[General]\nlayoutRows=3\nlayoutColumns=12") << QByteArray("layoutColumns")
                            << QStringLiteral("12");
    QTest::newRow("one colour") << QByteArray("[General]\nactiveColor=#010203") << QByteArray("activeColor")
                                << QStringLiteral("#010203");
}

void TestQmlSettingsFile::load_takesAShortFileByHand_withoutFinalLineFeed()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, name);
    QFETCH(QString, value);
    m_sandbox->write(bytes);
    const QmlSettings settings;
    QCOMPARE(settings.property(name.constData()).toString(), value);
}

void TestQmlSettingsFile::load_neverTakesAHalfValue_whenTheFileIsCutAnywhere()
{
    const Values byDefault = defaults(*m_sandbox);
    {
        QmlSettings settings;
        assign(settings, otherValues());
    }
    const QByteArray whole = m_sandbox->bytes();
    QVERIFY(whole.size() > 1000);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        m_sandbox->write(whole.left(length));
        SettingsSandbox::initRootObject();
        const QmlSettings settings;
        SettingsSandbox::forgetRootObject(); // the next cut must be of the same file
        const Values values = valuesOf(settings);
        for (auto it = values.begin(); it != values.end(); ++it) {
            const bool whole = it.value() == otherValues().value(it.key()) || it.value() == byDefault.value(it.key());
            QVERIFY2(whole, qPrintable(QStringLiteral("%1 is \"%2\" after a cut at %3")
                                           .arg(QString::fromLatin1(it.key()), it.value().toString())
                                           .arg(length)));
        }
    }
}

void TestQmlSettingsFile::brokenFile_leavesDefaultsAndIsReplaced_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray noise;
    for (unsigned value = 12345, index = 0; index < 4000; ++index) {
        value = value * 1103515245U + 12345U;
        noise.append(static_cast<char>(value >> 16));
    }
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("noise") << noise;
    QTest::newRow("zeroes") << QByteArray(5000, '\0');
    QTest::newRow("open section") << QByteArray("[Gen\nlayoutRows=3");
    QTest::newRow("no section, no value") << QByteArray("layoutRows\n\n==\n=3\n");
    QTest::newRow("one endless line") << QByteArray(3'000'000, 'x');
    QTest::newRow("open quote") << QByteArray("[General]\nbackgroundColor=\"#ffffff\nlayoutRows");
}

void TestQmlSettingsFile::brokenFile_leavesDefaultsAndIsReplaced()
{
    QFETCH(QByteArray, bytes);
    const Values byDefault = defaults(*m_sandbox);
    m_sandbox->write(bytes);
    {
        QmlSettings settings;
        Values expected = byDefault;
        // A quote that is never closed still ends with its line.
        if (bytes.contains('"'))
            expected.insert("backgroundColor", settings.property("backgroundColor"));
        QCOMPARE(valuesOf(settings), expected);
        settings.setProperty("layoutRows", 4);
    }
    const QmlSettings settings;
    QCOMPARE(settings.property("layoutRows").toInt(), 4);
}

void TestQmlSettingsFile::folderInPlaceOfTheFile_leavesDefaultsAndStays()
{
    const Values byDefault = defaults(*m_sandbox);
    QVERIFY(QDir().mkpath(m_sandbox->fileName()));
    {
        QmlSettings settings;
        QCOMPARE(valuesOf(settings), byDefault);
        settings.addHost(QStringLiteral("a"));
    }
    QVERIFY(QFileInfo(m_sandbox->fileName()).isDir());
}

} // namespace orrin

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    orrin::TestQmlSettingsFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_qmlsettings_file.moc"
