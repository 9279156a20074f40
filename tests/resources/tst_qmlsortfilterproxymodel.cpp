// SPDX-License-Identifier: GPL-3.0-or-later
#include "rolemodel.h"
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmlchannel.h"
#include "resources/qmlchannelmodel.h"
#include "resources/qmlserver.h"
#include "resources/qmlservergroup.h"
#include "resources/qmlservergroupmodel.h"
#include "resources/qmlservermodel.h"
#include "resources/qmlsortfilterproxymodel.h"
#include "resources/qmltrack.h"
#include "resources/qmltrackmodel.h"

#include <contract/core/eventmanager.h>
#include <contract/core/eventmodel.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>

#include <QAbstractItemModelTester>
#include <QIdentityProxyModel>
#include <QJSValue>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTest>

#include <limits>
#include <random>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

QVariant asModel(QAbstractItemModel *model)
{
    return QVariant::fromValue(model);
}

QStringList shown(const QAbstractItemModel &model, int column = 0)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts.append(model.index(row, column).data().toString());
    return texts;
}

// The names that pass when \a setUp has set the proxy up.
template <class SetUp>
QStringList filtered(const QStringList &names, SetUp setUp)
{
    RoleModel source({"name"}, {});
    QList<QVariantList> rows;
    for (const QString &name : names)
        rows.append(QVariantList{name});
    source.reset({"name"}, rows);
    QmlSortFilterProxyModel proxy;
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
    proxy.setModel(asModel(&source));
    if (shown(proxy) != names)
        return {u"not all rows were there at first"_s};
    setUp(proxy);
    return shown(proxy);
}

} // namespace

class TestQmlSortFilterProxyModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        // An invalid pattern that is matched all the same would print one.
        QTest::failOnWarning(QRegularExpression(u".*"_s));
    }

    void signals_areDeclaredInOrder()
    {
        QCOMPARE(SignalOrder::declaredBy(QmlSortFilterProxyModel::staticMetaObject),
                 (QStringList{u"modelChanged"_s, u"sortRoleChanged"_s, u"sortOrderChanged"_s, u"filterRoleChanged"_s,
                              u"filterRegExpChanged"_s, u"countChanged"_s, u"filtersChanged"_s}));
    }

    void properties_haveDefaults_andHideThoseOfTheBaseClass()
    {
        const QmlSortFilterProxyModel proxy;
        QCOMPARE(proxy.property("sortRole"), QByteArray());
        QCOMPARE(proxy.property("sortRole").metaType(), QMetaType::fromType<QByteArray>());
        QCOMPARE(proxy.property("filterRole").metaType(), QMetaType::fromType<QByteArray>());
        QCOMPARE(proxy.property("sortOrder").value<Qt::SortOrder>(), Qt::AscendingOrder);
        QCOMPARE(proxy.property("filterRegExp"), QString());
        QCOMPARE(proxy.property("count"), 0);
        QCOMPARE(proxy.property("filters"), QVariantList());
        QCOMPARE(proxy.property("model").value<QAbstractItemModel *>(), nullptr);
    }

    void setters_storeAndEmitOnce_withoutSource()
    {
        QmlSortFilterProxyModel proxy;
        SignalOrder order(&proxy);
        for (int i = 0; i < 2; ++i) {
            proxy.setSortRole("name");
            proxy.setSortOrder(Qt::DescendingOrder);
            proxy.setFilterRole("name");
            proxy.setFilterRexExp(u"a"_s);
        }
        QCOMPARE(order.take(), (QStringList{u"sortRoleChanged"_s, u"sortOrderChanged"_s, u"filterRoleChanged"_s,
                                            u"filterRegExpChanged"_s}));
        QCOMPARE(proxy.sortRole(), "name");
        QCOMPARE(proxy.sortOrder(), Qt::DescendingOrder);
        QCOMPARE(proxy.filterRole(), "name");
        QCOMPARE(proxy.filterRegExp(), u"a"_s);
        QCOMPARE(proxy.count(), 0);
        QVERIFY(!proxy.get(0).isValid());
    }

    void setters_emitAfterTheFilterIsUpdated()
    {
        RoleModel source({"name"}, {{u"b"_s}, {u"a"_s}});
        QmlSortFilterProxyModel proxy;
        proxy.setModel(asModel(&source));
        proxy.setFilterRole("name");
        QStringList atSignal;
        connect(&proxy, &QmlSortFilterProxyModel::filterRegExpChanged, this, [&] { atSignal = shown(proxy); });
        proxy.setFilterRexExp(u"a"_s);
        QCOMPARE(atSignal, QStringList{u"a"_s});
        proxy.setFilterRexExp({});
        connect(&proxy, &QmlSortFilterProxyModel::sortRoleChanged, this, [&] { atSignal = shown(proxy); });
        proxy.setSortRole("name");
        QCOMPARE(atSignal, (QStringList{u"a"_s, u"b"_s}));
        connect(&proxy, &QmlSortFilterProxyModel::filtersChanged, this, [&] { atSignal = shown(proxy); });
        proxy.addAndFilter("name", u"b"_s, true);
        QCOMPARE(atSignal, QStringList{u"b"_s});
        proxy.clearFilters();
        QCOMPARE(atSignal, (QStringList{u"a"_s, u"b"_s}));
    }

    void setModel_takesModels_fromAnyPointerType()
    {
        RoleModel source({"name"}, {{u"a"_s}});
        for (const QVariant &model : {asModel(&source), QVariant::fromValue<QObject *>(&source),
                                      QVariant::fromValue(&source), QVariant::fromValue<QAbstractTableModel *>(&source)}) {
            QmlSortFilterProxyModel proxy;
            SignalOrder order(&proxy);
            proxy.setModel(model);
            QCOMPARE(proxy.sourceModel(), &source);
            QCOMPARE(proxy.model().value<QAbstractItemModel *>(), &source);
            QCOMPARE(order.take(), QStringList{u"modelChanged"_s});
            QCOMPARE(proxy.count(), 1);
        }
    }

    void setModel_doesNothing_whenItIsNoOtherModel()
    {
        RoleModel source({"name"}, {{u"a"_s}});
        QmlSortFilterProxyModel proxy;
        proxy.setModel(asModel(&source));
        SignalOrder order(&proxy);
        QObject object;
        for (const QVariant &model : {QVariant(), asModel(nullptr), QVariant::fromValue(nullptr),
                                      QVariant::fromValue(&object), QVariant(5), QVariant(u"model"_s), asModel(&source)}) {
            proxy.setModel(model);
            QCOMPARE(proxy.sourceModel(), &source);
        }
        QCOMPARE(order.take(), QStringList());
    }

    void setModel_refusesACircle()
    {
        RoleModel source({"name"}, {{u"a"_s}});
        QmlSortFilterProxyModel proxy;
        QmlSortFilterProxyModel upper;
        proxy.setModel(asModel(&proxy));
        QVERIFY(!proxy.sourceModel());
        proxy.setModel(asModel(&source));
        upper.setModel(asModel(&proxy));
        proxy.setModel(asModel(&upper));
        QCOMPARE(proxy.sourceModel(), &source);
    }

    void countChanged_isEmitted_whenTheSourceGrowsOrShrinks()
    {
        RoleModel source({"name"}, {{u"a"_s}});
        QmlSortFilterProxyModel proxy;
        proxy.setModel(asModel(&source));
        QSignalSpy changes(&proxy, &QmlSortFilterProxyModel::countChanged);
        source.append({u"b"_s});
        QCOMPARE(changes.size(), 1);
        QCOMPARE(proxy.count(), 2);
        source.removeLast();
        QCOMPARE(changes.size(), 2);
        // Neither a filter nor a reset is announced, though the count changes.
        proxy.setFilterRole("name");
        proxy.setFilterRexExp(u"z"_s);
        QCOMPARE(proxy.count(), 0);
        proxy.addAndFilter("name", u"x"_s, true);
        source.reset({"name"}, {});
        QCOMPARE(changes.size(), 2);
        // A row that is filtered out is announced all the same.
        source.append({u"q"_s});
        QCOMPARE(changes.size(), 3);
        QCOMPARE(proxy.count(), 0);
    }

    void setModel_dropsReceiversOfCountChanged_andKeepsTheOldSource()
    {
        RoleModel first({"name"}, {});
        RoleModel second({"name"}, {});
        QmlSortFilterProxyModel proxy;
        QSignalSpy early(&proxy, &QmlSortFilterProxyModel::countChanged);
        QSignalSpy other(&proxy, &QmlSortFilterProxyModel::modelChanged);
        proxy.setModel(asModel(&first));
        first.append({u"a"_s});
        QCOMPARE(early.size(), 0);
        QCOMPARE(other.size(), 1);
        QSignalSpy between(&proxy, &QmlSortFilterProxyModel::countChanged);
        proxy.setModel(asModel(&second));
        QSignalSpy late(&proxy, &QmlSortFilterProxyModel::countChanged);
        second.append({u"a"_s});
        QCOMPARE(late.size(), 1);
        first.append({u"b"_s});
        QCOMPARE(late.size(), 2);
        QCOMPARE(between.size(), 0);
        QCOMPARE(other.size(), 2);
    }

    void sourceGoes_leavesAnEmptyProxy()
    {
        QmlSortFilterProxyModel proxy;
        auto *source = new RoleModel({"name"}, {{u"a"_s}});
        proxy.setModel(asModel(source));
        proxy.setFilterRole("name");
        QCOMPARE(proxy.count(), 1);
        delete source;
        QCOMPARE(proxy.count(), 0);
        QVERIFY(!proxy.get(0).isValid());
        proxy.setFilterRexExp(u"b"_s);
        proxy.clearFilters();
        QVERIFY(!proxy.model().value<QAbstractItemModel *>());
        RoleModel next({"name"}, {{u"b"_s}, {u"c"_s}});
        proxy.setModel(asModel(&next));
        QCOMPARE(shown(proxy), QStringList{u"b"_s});
    }

    void sort_followsRoleAndOrder()
    {
        RoleModel source({"name", "number"}, {{u"b"_s, 10}, {u"a"_s, 9}, {u"c"_s, 100}});
        QmlSortFilterProxyModel proxy;
        QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
        proxy.setModel(asModel(&source));
        QCOMPARE(shown(proxy), (QStringList{u"b"_s, u"a"_s, u"c"_s}));
        proxy.setSortRole("name");
        QCOMPARE(shown(proxy), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
        proxy.setSortOrder(Qt::DescendingOrder);
        QCOMPARE(shown(proxy), (QStringList{u"c"_s, u"b"_s, u"a"_s}));
        proxy.setSortRole("number");
        QCOMPARE(shown(proxy, 1), (QStringList{u"100"_s, u"10"_s, u"9"_s}));
        // An unknown role leaves the order as it is.
        proxy.setSortRole("unknown");
        QCOMPARE(shown(proxy, 1), (QStringList{u"100"_s, u"10"_s, u"9"_s}));
        source.append({u"d"_s, 50});
        QCOMPARE(shown(proxy, 1), (QStringList{u"100"_s, u"50"_s, u"10"_s, u"9"_s}));
        // A role that has no column gives the source's order, from its end.
        proxy.setSortRole("display");
        QCOMPARE(shown(proxy, 1), (QStringList{u"50"_s, u"100"_s, u"9"_s, u"10"_s}));
        proxy.setSortOrder(Qt::AscendingOrder);
        QCOMPARE(shown(proxy, 1), (QStringList{u"10"_s, u"9"_s, u"100"_s, u"50"_s}));
    }

    void sort_appliesAtSetModel_whenTheRoleWasSetBefore()
    {
        RoleModel source({"name"}, {{u"b"_s}, {u"a"_s}});
        QmlSortFilterProxyModel proxy;
        proxy.setSortRole("name");
        proxy.setModel(asModel(&source));
        QCOMPARE(shown(proxy), (QStringList{u"a"_s, u"b"_s}));
    }

    void regExp_filtersNothing_withoutARole()
    {
        QCOMPARE(filtered({u"a"_s, u"b"_s}, [](auto &p) { p.setFilterRexExp(u"z"_s); }), (QStringList{u"a"_s, u"b"_s}));
        QCOMPARE(filtered({u"a"_s, u"b"_s},
                          [](auto &p) {
                              p.setFilterRexExp(u"z"_s);
                              p.setFilterRole("unknown");
                          }),
                 (QStringList{u"a"_s, u"b"_s}));
    }

    void role_filtersNothing_withoutAPattern()
    {
        QCOMPARE(filtered({u"a"_s, u""_s}, [](auto &p) { p.setFilterRole("name"); }), (QStringList{u"a"_s, u""_s}));
    }

    void regExp_keepsMatchesAndBeginnings_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QStringList>("kept");
        QTest::newRow("inside") << u"am"_s << QStringList{u"Camera"_s, u"Cam"_s, u"Gate a"_s};
        // "Cam" may still become it, and so may the "C" at the end of "ABC".
        QTest::newRow("beginning") << u"Camera"_s << QStringList{u"Camera"_s, u"Cam"_s, u"ABC"_s};
        QTest::newRow("case") << u"camera"_s << QStringList{};
        QTest::newRow("anchored") << u"^Ca"_s << QStringList{u"Camera"_s, u"Cam"_s};
        QTest::newRow("end") << u"a$"_s << QStringList{u"Camera"_s, u"Gate a"_s};
        QTest::newRow("either") << u"Gate|ABC"_s << QStringList{u"ABC"_s, u"Gate a"_s};
        QTest::newRow("broken") << u"("_s << QStringList{};
        QTest::newRow("broken class") << u"[a"_s << QStringList{};
    }
    void regExp_keepsMatchesAndBeginnings()
    {
        QFETCH(QString, pattern);
        const QStringList names{u"Camera"_s, u"Cam"_s, u"ABC"_s, u"Gate a"_s};
        const QStringList kept = filtered(names, [&](auto &p) {
            p.setFilterRole("name");
            p.setFilterRexExp(pattern);
        });
        QTEST(kept, "kept");
    }

    // Words are not looked for by an expression; the outcome is that of one.
    void word_keepsWhatAnExpressionKeeps()
    {
        std::mt19937 random(1);
        const auto text = [&random](int longest) {
            QString text;
            for (int length = std::uniform_int_distribution(0, longest)(random); length > 0; --length)
                text.append(QChar(u"abA \u00e4#-\n"[std::uniform_int_distribution(0, 7)(random)]));
            return text;
        };
        QStringList names{QString(), QString(QChar(0xd83d)), u"a"_s + QChar(0xd83d), u"\U0001f4f7 a"_s};
        for (int i = 0; i < 200; ++i)
            names.append(text(8));
        for (int i = 0; i < 100; ++i) {
            const QString word = text(5);
            const QRegularExpression expression(word);
            QStringList beginnings;
            QStringList matches;
            for (const QString &name : std::as_const(names)) {
                const auto match = expression.match(name, 0, QRegularExpression::PartialPreferFirstMatch);
                if (match.hasMatch() || match.hasPartialMatch())
                    beginnings.append(name);
                if (expression.match(name).hasMatch())
                    matches.append(name);
            }
            QCOMPARE(filtered(names,
                              [&](auto &p) {
                                  p.setFilterRole("name");
                                  p.setFilterRexExp(word);
                              }),
                     beginnings);
            QCOMPARE(filtered(names, [&](auto &p) { p.addAndFilter("name", word, true); }), matches);
        }
    }

    void regExp_isTakenBack_whenItIsCleared()
    {
        QCOMPARE(filtered({u"a"_s, u"b"_s},
                          [](auto &p) {
                              p.setFilterRole("name");
                              p.setFilterRexExp(u"("_s);
                              p.setFilterRexExp(u"b"_s);
                              p.setFilterRexExp({});
                          }),
                 (QStringList{u"a"_s, u"b"_s}));
    }

    void regExp_matchesNothing_onARoleWithoutColumn()
    {
        const auto setUp = [](auto &p) {
            p.setFilterRole("display");
            p.setFilterRexExp(u"a"_s);
        };
        QCOMPARE(filtered({u"a"_s}, setUp), QStringList());
    }

    void andFilter_holds_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("match");
        QTest::addColumn<QStringList>("kept");
        const QStringList all{u"a"_s, u"b"_s, u"ab"_s, u"c"_s};
        const QVariantList both{u"a"_s, u"b"_s};
        QTest::newRow("one") << QVariant(u"a"_s) << true << QStringList{u"a"_s, u"ab"_s};
        QTest::newRow("not one") << QVariant(u"a"_s) << false << QStringList{u"b"_s, u"c"_s};
        // A text is one pattern and not a list of its characters.
        QTest::newRow("word") << QVariant(u"ba"_s) << true << QStringList{};
        QTest::newRow("script word") << QVariant::fromValue(QJSValue(u"ba"_s)) << true << QStringList{};
        QTest::newRow("bytes") << QVariant(QByteArray("ab")) << true << QStringList{u"ab"_s};
        QTest::newRow("both") << QVariant(both) << true << QStringList{u"ab"_s};
        QTest::newRow("neither") << QVariant(both) << false << QStringList{u"c"_s};
        QTest::newRow("texts") << QVariant(QStringList{u"a"_s, u"b"_s}) << true << QStringList{u"ab"_s};
        QTest::newRow("empty list") << QVariant(QVariantList()) << true << all;
        QTest::newRow("not empty list") << QVariant(QVariantList()) << false << QStringList{};
        QTest::newRow("invalid") << QVariant() << true << all;
        QTest::newRow("broken") << QVariant(u"("_s) << true << QStringList{};
        QTest::newRow("not broken") << QVariant(u"("_s) << false << all;
        // Unlike in the role stage, a beginning is not enough.
        QTest::newRow("longer") << QVariant(u"cd"_s) << true << QStringList{};
        QTest::newRow("any") << QVariant(u"^.$"_s) << true << QStringList{u"a"_s, u"b"_s, u"c"_s};
    }
    void andFilter_holds()
    {
        QFETCH(QVariant, value);
        QFETCH(bool, match);
        const QStringList kept = filtered({u"a"_s, u"b"_s, u"ab"_s, u"c"_s},
                                          [&](auto &p) { p.addAndFilter("name", value, match); });
        QTEST(kept, "kept");
    }

    void orFilter_holds_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("match");
        QTest::addColumn<QStringList>("kept");
        const QStringList all{u"a"_s, u"b"_s, u"ab"_s, u"c"_s};
        const QVariantList both{u"a"_s, u"b"_s};
        QTest::newRow("one") << QVariant(u"a"_s) << true << QStringList{u"a"_s, u"ab"_s};
        QTest::newRow("not one") << QVariant(u"a"_s) << false << QStringList{u"b"_s, u"c"_s};
        QTest::newRow("either") << QVariant(both) << true << QStringList{u"a"_s, u"b"_s, u"ab"_s};
        QTest::newRow("lacks one") << QVariant(both) << false << QStringList{u"a"_s, u"b"_s, u"c"_s};
        QTest::newRow("broken") << QVariant(u"("_s) << true << QStringList{};
        QTest::newRow("not broken") << QVariant(u"("_s) << false << all;
        QTest::newRow("invalid") << QVariant() << true << all;
    }
    void orFilter_holds()
    {
        QFETCH(QVariant, value);
        QFETCH(bool, match);
        const QStringList kept = filtered({u"a"_s, u"b"_s, u"ab"_s, u"c"_s},
                                          [&](auto &p) { p.addOrFilter("name", value, match); });
        QTEST(kept, "kept");
    }

    void filter_readsNothing_whenTheRoleIsUnknown()
    {
        const QStringList names{u"a"_s};
        // The value of an unknown role is an empty text.
        QCOMPARE(filtered(names, [](auto &p) { p.addAndFilter("unknown", u"a"_s, true); }), QStringList());
        QCOMPARE(filtered(names, [](auto &p) { p.addAndFilter("unknown", u"a"_s, false); }), names);
        QCOMPARE(filtered(names, [](auto &p) { p.addAndFilter("unknown", u"^$"_s, true); }), names);
        QCOMPARE(filtered(names, [](auto &p) { p.addOrFilter("unknown", u"a"_s, true); }), QStringList());
        QCOMPARE(filtered(names, [](auto &p) { p.addOrFilter("", u"a"_s, false); }), names);
    }

    void addFilter_replaces_whenTheRoleHasOne()
    {
        RoleModel source({"name", "isCamera"}, {{u"a"_s, true}, {u"b"_s, false}});
        QmlSortFilterProxyModel proxy;
        proxy.setModel(asModel(&source));
        proxy.addAndFilter("isCamera", u"true"_s, true);
        QCOMPARE(shown(proxy), QStringList{u"a"_s});
        proxy.addAndFilter("isCamera", u"false"_s, true);
        QCOMPARE(shown(proxy), QStringList{u"b"_s});
        proxy.addAndFilter("isCamera", u"false"_s, false);
        QCOMPARE(shown(proxy), QStringList{u"a"_s});
        proxy.addAndFilter("isCamera", false, true);
        QCOMPARE(shown(proxy), QStringList{u"b"_s});
    }

    void stages_areAllPassed()
    {
        RoleModel source({"name", "kind"}, {{u"gate"_s, u"camera"_s},
                                            {u"garden"_s, u"camera"_s},
                                            {u"gate"_s, u"audio"_s},
                                            {u"door"_s, u"camera"_s}});
        QmlSortFilterProxyModel proxy;
        proxy.setModel(asModel(&source));
        proxy.addAndFilter("kind", u"camera"_s, true);
        QCOMPARE(shown(proxy), (QStringList{u"gate"_s, u"garden"_s, u"door"_s}));
        proxy.addOrFilter("name", QVariantList{u"gate"_s, u"garden"_s}, true);
        QCOMPARE(shown(proxy), (QStringList{u"gate"_s, u"garden"_s}));
        proxy.addOrFilter("kind", u"audio"_s, true);
        QCOMPARE(shown(proxy), (QStringList{u"gate"_s, u"garden"_s}));
        proxy.setFilterRole("name");
        proxy.setFilterRexExp(u"den"_s);
        QCOMPARE(shown(proxy), QStringList{u"garden"_s});
        proxy.clearFilters();
        QCOMPARE(shown(proxy), QStringList{u"garden"_s});
        proxy.setFilterRexExp({});
        QCOMPARE(proxy.count(), 4);
    }

    void filters_listOrThenAnd()
    {
        QmlSortFilterProxyModel proxy;
        SignalOrder order(&proxy);
        proxy.addAndFilter("isCamera", u"true"_s, true);
        proxy.addOrFilter("name", QVariantList{u"a"_s, u"b"_s}, false);
        const QVariantList both{QVariantMap{{u"key"_s, u"name"_s}, {u"value"_s, QVariantList{u"a"_s, u"b"_s}}},
                                QVariantMap{{u"key"_s, u"isCamera"_s}, {u"value"_s, u"true"_s}}};
        QCOMPARE(proxy.filters(), both);
        proxy.clearFilters();
        QCOMPARE(proxy.filters(), QVariantList());
        // Told each time, changed or not.
        proxy.clearFilters();
        QCOMPARE(order.take(), QStringList(4, u"filtersChanged"_s));
    }

    void roles_areFoundAnew_whenTheSourceIsReset()
    {
        RoleModel source({"name", "kind"}, {{u"a"_s, u"x"_s}});
        QmlSortFilterProxyModel proxy;
        proxy.setModel(asModel(&source));
        proxy.setFilterRole("name");
        proxy.setFilterRexExp(u"a"_s);
        proxy.addAndFilter("kind", u"x"_s, true);
        proxy.addOrFilter("kind", u"x"_s, true);
        QCOMPARE(proxy.count(), 1);
        source.reset({"kind", "name"}, {{u"x"_s, u"a"_s}, {u"a"_s, u"x"_s}});
        QCOMPARE(shown(proxy, 1), QStringList{u"a"_s});
        // Also when the source is set the base class's way.
        RoleModel other({"other", "name", "kind"}, {{u"a"_s, u"x"_s, u"x"_s}, {u"q"_s, u"a"_s, u"x"_s}});
        proxy.setSourceModel(&other);
        QCOMPARE(shown(proxy), QStringList{u"q"_s});
    }

    void filters_mayChange_whileAValueIsRead()
    {
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.channels = {describeCamera(1), describeCamera(2)};
        QVERIFY(site.login(description));
        QmlChannelModel channels;
        QmlSortFilterProxyModel proxy;
        connect(channels.get(0).value<QmlChannel *>(), &QmlChannel::nameChanged, this, [&] {
            proxy.addAndFilter("isCamera", u"true"_s, true);
            proxy.addAndFilter("isValid", u"true"_s, true);
        });
        proxy.addAndFilter("name", u"1"_s, true);
        proxy.addOrFilter("name", u"1"_s, true);
        proxy.setModel(asModel(&channels));
        QCOMPARE(proxy.count(), 1);
        QCOMPARE(proxy.filters().size(), 4);
    }

    void get_reachesItems_throughStackedProxies()
    {
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.channels = {describeCamera(1), describeCamera(2), describeCamera(3)};
        QVERIFY(site.login(description));
        QmlChannelModel channels;
        QmlSortFilterProxyModel lower;
        QmlSortFilterProxyModel upper;
        QAbstractItemModelTester tester(&upper, QAbstractItemModelTester::FailureReportingMode::QtTest);
        lower.setModel(QVariant::fromValue(&channels));
        lower.setSortRole("channelId");
        lower.setSortOrder(Qt::DescendingOrder);
        upper.setModel(QVariant::fromValue(&lower));
        upper.addAndFilter("name", u"1|3"_s, true);
        QCOMPARE(upper.count(), 2);
        QCOMPARE(upper.get(0).value<QmlChannel *>()->channelId(), 3);
        QCOMPARE(upper.get(1).value<QmlChannel *>()->channelId(), 1);
        QCOMPARE(upper.get(1).value<QmlChannel *>(), channels.get(0).value<QmlChannel *>());
        for (const int row : {-1, 2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
            QVERIFY(!upper.get(row).isValid());

        QSignalSpy changes(&upper, &QmlSortFilterProxyModel::countChanged);
        description.channels.removeLast();
        site.describe(description);
        QCOMPARE(upper.count(), 1);
        QCOMPARE(changes.size(), 0);
    }

    void get_asksEachModelOfTheModule()
    {
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.channels = {describeCamera(1)};
        QVERIFY(site.login(description));
        QmlServerGroupModel groups;
        QmlServerModel servers;
        QmlTrackModel tracks;
        const auto first = [](QAbstractItemModel &model) {
            QmlSortFilterProxyModel proxy;
            proxy.setModel(asModel(&model));
            return proxy.get(0);
        };
        QCOMPARE(first(groups), groups.get(0));
        QVERIFY(first(groups).value<QmlServerGroup *>());
        QCOMPARE(first(servers).value<QmlServer *>()->serverId(), 2);
        QCOMPARE(first(tracks).value<QmlTrack *>()->trackId(), 1);
        delete groups.get(0).value<QmlServerGroup *>();
        delete servers.get(0).value<QmlServer *>();
        delete tracks.get(0).value<QmlTrack *>();
    }

    void get_isInvalid_onAForeignModel()
    {
        TestSite site;
        QmlSortFilterProxyModel proxy;
        proxy.setModel(asModel(OrrinSDK::instance()->eventManager()->liveEvents().data()));
        QVERIFY(!proxy.get(0).isValid());
        QStringListModel strings({u"a"_s});
        proxy.setModel(asModel(&strings));
        QCOMPARE(proxy.count(), 1);
        QVERIFY(!proxy.get(0).isValid());
        QmlChannelModel channels;
        QIdentityProxyModel identity;
        identity.setSourceModel(&channels);
        proxy.setModel(asModel(&identity));
        QVERIFY(!proxy.get(0).isValid());
    }

    void filter_isSafe_withLongTextsAndPatterns()
    {
        const QString name(1000, u'x');
        QCOMPARE(filtered({name, u"y"_s},
                          [&](auto &p) {
                              p.setFilterRole("name");
                              p.setFilterRexExp(name);
                              p.addAndFilter("name", name, true);
                          }),
                 QStringList{name});
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlSortFilterProxyModel)
#include "tst_qmlsortfilterproxymodel.moc"
