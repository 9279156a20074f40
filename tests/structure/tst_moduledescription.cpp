// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

// Referenced so that the module is linked.
extern void qml_register_types_orrinsdkqml();
static void (*const volatile registrar)() = &qml_register_types_orrinsdkqml;

namespace {

const QString root = QStringLiteral(":/qt/qml/orrinsdkqml/");

/*! All components, in the order in which they are listed. */
const QStringList components = [] {
    const std::pair<const char *, const char *> folders[] = {
        {"Charts", "ChartContainer Chart DateTimeSelection FilterCombo"},
        {"Controls", "DistancePtzf LayoutSelector LoadingCircle ScreenPreview TimePicker ToolBarButton "
                     "TransparentDialog O_Button "
                     "O_Calendar O_CheckBox O_ComboBox O_ComboBoxInput O_FormCheckBoxInput O_Label "
                     "O_PlaybackControl O_Polygon "
                     "O_RoundButton O_SpinBox O_TextEdit O_TextInput"},
        {"Dialogs", "ChannelSelection DatetimeSelection EventTable LayoutSelection PtzExtraControls"},
        {"Display",
         "HsbSelection PieMenu VideoDisplayBorder VideoDisplayInputArea VideoOutput VideoOutputMessage"},
        {"Layout", "LayoutArea"},
        {"Pages", "Message Page Title TitleStack Toolbar ToolbarStack"},
        {"Settings", "ActiveBackground ActiveIcon ActiveLabel GeneralSettingsPage InfoSettingsPage "
                     "LayoutSettingsPage LogSettingsPage "
                     "SecuritySettingsPage SettingsPage SubtitlesSettingsPage"},
        {"Theme", "Theme"},
        {"Views", "BusySpinner ChannelView ChannelWindow EventCauseCombo EventSourceSelector ServerCombo "
                  "ServerGroupView ServerView "
                  "Subtitle TrackView O_ScrollViewStyle O_StyleSheet"},
    };
    QStringList list;
    for (const auto &[folder, names] : folders) {
        for (const QString &name : QString::fromLatin1(names).split(QLatin1Char(' ')))
            list.append(QLatin1StringView(folder) + QLatin1Char('/') + name);
    }
    return list;
}();

/*! Those of them whose file there is. */
QStringList presentComponents()
{
    QStringList list;
    for (const QString &component : components) {
        if (QFile::exists(QStringLiteral(ORRIN_QML_DIR "/") + component + QStringLiteral(".qml")))
            list.append(component);
    }
    return list;
}

QStringList linesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

/*! The registrar's calls that concern types, in their order. */
const QStringList registrations = {
    QStringLiteral("meta QAbstractProxyModel *"),
    QStringLiteral("meta QAbstractTableModel *"),
    QStringLiteral("meta QQuickRhiItem *"),
    QStringLiteral("meta QQuickRhiItem::TextureFormat"),
    QStringLiteral("meta QSortFilterProxyModel *"),
    QStringLiteral("type orrin::QmlAudioPlaybackController"),
    QStringLiteral("type orrin::QmlChannel"),
    QStringLiteral("type orrin::QmlChannelModel"),
    QStringLiteral("anonymous QAbstractItemModel"),
    QStringLiteral("type orrin::QmlConnectionManager"),
    QStringLiteral("meta orrin::QmlConnectionManager::Status"),
    QStringLiteral("meta orrin::QmlConnectionManager::ErrorType"),
    QStringLiteral("type orrin::QmlEventCauseModel"),
    QStringLiteral("meta orrin::QmlPlaybackControllerInterface *"),
    QStringLiteral("meta orrin::QmlPlaybackControllerInterface::State"),
    QStringLiteral("type orrin::QmlPtzfcontroller"),
    QStringLiteral("type orrin::QmlScrubBarRulerController"),
    QStringLiteral("anonymous QQuickItem"),
    QStringLiteral("type orrin::QmlServer"),
    QStringLiteral("type orrin::QmlServerGroup"),
    QStringLiteral("type orrin::QmlServerGroupModel"),
    QStringLiteral("type orrin::QmlServerListModel"),
    QStringLiteral("type orrin::QmlServerModel"),
    QStringLiteral("type orrin::QmlSortFilterProxyModel"),
    QStringLiteral("type orrin::QmlSubtitleMonitor"),
    QStringLiteral("type orrin::QmlTrack"),
    QStringLiteral("type orrin::QmlTrackModel"),
    QStringLiteral("type orrin::QmlVideoDisplay"),
    QStringLiteral("type orrin::QmlVideoOutputProxyModel"),
    QStringLiteral("type orrin::QmlVideoPlaybackController"),
    QStringLiteral("type orrin::StatsHeadingsModelProxy"),
    QStringLiteral("type orrin::StatsModelProxy"),
    QStringLiteral("type orrin::StatsQmlHelper"),
};

} // namespace

class tst_ModuleDescription : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(registrar); }

    void qmldir_holdsItsLinesInOrder()
    {
        QStringList expected = {QStringLiteral("module orrinsdkqml"),
                                QStringLiteral("linktarget orrinsdkqmlplugin"),
                                QStringLiteral("optional plugin orrinsdkqmlplugin"),
                                QStringLiteral("classname orrinsdkqmlPlugin"),
                                QStringLiteral("typeinfo orrinsdkqml.qmltypes"),
                                QStringLiteral("prefer :/qt/qml/orrinsdkqml/")};
        for (const QString &component : presentComponents()) {
            const QString name = component.section(QLatin1Char('/'), 1);
            expected.append(
                QStringLiteral("%1%2 254.0 %3.qml")
                    .arg(name == QStringLiteral("Theme") ? QStringLiteral("singleton ") : QString(), name,
                         component));
        }
        expected.append(QStringLiteral("depends QtQuick"));
        QCOMPARE(linesOf(root + QStringLiteral("qmldir")), expected);
    }

    void components_areInTheResources()
    {
        for (const QString &component : presentComponents())
            QVERIFY2(QFile::exists(root + component + QStringLiteral(".qml")), qPrintable(component));
    }

    void folders_preferTheResources()
    {
        QStringList folders;
        for (const QString &component : presentComponents())
            folders.append(component.section(QLatin1Char('/'), 0, 0));
        folders.removeDuplicates();
        QVERIFY(!folders.isEmpty());
        for (const QString &folder : std::as_const(folders)) {
            QCOMPARE(linesOf(root + folder + QStringLiteral("/qmldir")),
                     QStringList(QStringLiteral("prefer :/qt/qml/orrinsdkqml/")));
        }
    }

    void registrar_beginsAndEndsWithTheVersionRange()
    {
        QStringList calls;
        for (const QString &line : linesOf(QStringLiteral(ORRIN_REGISTRATIONS))) {
            if (line.trimmed().startsWith(QStringLiteral("qml")) ||
                line.trimmed().startsWith(QStringLiteral("QMeta")))
                calls.append(line.trimmed());
        }
        QVERIFY(calls.size() > 2);
        QCOMPARE(calls.first(), QStringLiteral("qmlRegisterModule(\"orrinsdkqml\", 254, 0);"));
        QCOMPARE(calls.last(), QStringLiteral("qmlRegisterModule(\"orrinsdkqml\", 254, 254);"));
        for (const QString &call : calls.mid(1, calls.size() - 2)) {
            if (call.startsWith(QStringLiteral("qml")))
                QVERIFY2(call.endsWith(QStringLiteral("(\"orrinsdkqml\", 254);")), qPrintable(call));
        }
    }

    void registrar_namesTypesInOrder()
    {
        static const QRegularExpression call(
            QStringLiteral("(QMetaType::fromType|qmlRegisterTypesAndRevisions|qmlRegisterAnonymousType)<([^>,"
                           "]+)(?:, 254)?>"));
        QStringList found;
        for (const QString &line : linesOf(QStringLiteral(ORRIN_REGISTRATIONS))) {
            const QRegularExpressionMatch match = call.match(line);
            if (!match.hasMatch())
                continue;
            const QString kind = match.captured(1) == QStringLiteral("QMetaType::fromType")
                                     ? QStringLiteral("meta ")
                                 : match.captured(1) == QStringLiteral("qmlRegisterAnonymousType")
                                     ? QStringLiteral("anonymous ")
                                     : QStringLiteral("type ");
            found.append(kind + match.captured(2));
        }
        QVERIFY(!found.isEmpty());
        for (const QString &entry : std::as_const(found))
            QVERIFY2(registrations.contains(entry), qPrintable(entry));
        if (found.size() == registrations.size()) {
            QCOMPARE(found, registrations);
            return;
        }
        // Not all classes are there: those that are stand in the order of the whole. An anonymous base stands
        // behind the first class that needs it, which may be another one then.
        QStringList named;
        QStringList expected;
        for (const QString &entry : std::as_const(found)) {
            if (!entry.startsWith(QStringLiteral("anonymous")))
                named.append(entry);
        }
        for (const QString &entry : registrations) {
            if (named.contains(entry))
                expected.append(entry);
        }
        QCOMPARE(named, expected);
    }
};

QTEST_GUILESS_MAIN(tst_ModuleDescription)
#include "tst_moduledescription.moc"
