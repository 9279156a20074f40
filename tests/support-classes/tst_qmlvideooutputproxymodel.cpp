// SPDX-License-Identifier: GPL-3.0-or-later
#include "rolemodel.h"
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmlchannelmodel.h"
#include "resources/qmlsortfilterproxymodel.h"
#include "support/qmlvideooutputproxymodel.h"

#include <QAbstractItemModelTester>
#include <QJSEngine>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

const QByteArrayList roles = {"serverGroupId", "serverId", "serverUid", "channelId", "sortId", "channelUniqueId"};
const QStringList currentIds = {u"currentServerGroupIdChanged"_s, u"currentServerIdChanged"_s, u"currentChannelIdChanged"_s,
                                u"currentTrackIdChanged"_s};

// A channel list whose row r has the ids 10 + r, 20 + r and 30 + r, and the unique id 100 + r.
std::unique_ptr<RoleModel> channels(int count)
{
    QList<QVariantList> rows;
    for (int row = 0; row < count; ++row)
        rows.append(QVariantList{10 + row, 20 + row, u"uid"_s, 30 + row, row, 100 + row});
    return std::make_unique<RoleModel>(roles, rows);
}

QVariant asModel(QAbstractItemModel *model)
{
    return QVariant::fromValue(model);
}

/*! The class as a view of a flat table needs it: it gives its rows to any parent, which the tester takes for a tree. */
class FlatModel : public QmlVideoOutputProxyModel
{
public:
    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : QmlVideoOutputProxyModel::rowCount(); }
    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : QmlVideoOutputProxyModel::columnCount();
    }
};

QList<int> column(const QAbstractItemModel &model, int column)
{
    QList<int> values;
    for (int row = 0; row < model.rowCount(); ++row)
        values.append(model.index(row, column).data().toInt());
    return values;
}

QList<int> shownRows(const QAbstractItemModel &model)
{
    return column(model, 0);
}

QList<int> tile(const QAbstractItemModel &model, int row)
{
    QList<int> values;
    for (int column = 0; column < model.columnCount(); ++column)
        values.append(model.index(row, column).data().toInt());
    return values;
}

struct Changed
{
    int first, firstColumn, last, lastColumn;
    qsizetype roles;
    bool operator==(const Changed &) const = default;
};

QList<Changed> changes(const QSignalSpy &spy)
{
    QList<Changed> list;
    for (const QVariantList &call : spy) {
        const auto from = call.at(0).toModelIndex();
        const auto to = call.at(1).toModelIndex();
        list.append({from.row(), from.column(), to.row(), to.column(), call.at(2).value<QList<int>>().size()});
    }
    return list;
}

} // namespace

class TestQmlVideoOutputProxyModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void signals_areDeclaredInOrder()
    {
        QCOMPARE(SignalOrder::declaredBy(QmlVideoOutputProxyModel::staticMetaObject),
                 (QStringList{u"modelChanged"_s, u"sizeChanged"_s, u"currentOutputIndexChanged"_s} + currentIds));
    }

    void freshModel_isEmpty_andHasNoCurrentTile()
    {
        QmlVideoOutputProxyModel model;
        SignalOrder order(&model);
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 5);
        QCOMPARE(model.size(), 0);
        for (const char *name : {"currentOutputIndex", "currentServerGroupId", "currentServerId", "currentChannelId", "currentTrackId"})
            QCOMPARE(model.property(name), -1);
        QCOMPARE(model.property("model").metaType(), QMetaType::fromType<QPointer<QAbstractItemModel>>());
        QVERIFY(!model.property("model").value<QPointer<QAbstractItemModel>>());
        model.setChannel(3);
        model.setCurrentOutputIndex(0);
        model.setCurrentOutputIndex(-1);
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(order.take(), QStringList());
    }

    void rowsAndColumns_areTheSame_forAnyParent()
    {
        QmlVideoOutputProxyModel model;
        model.resize(3);
        QCOMPARE(model.rowCount(model.index(1, 1)), 3);
        QCOMPARE(model.columnCount(model.index(1, 1)), 5);
    }

    void table_hasRolesAndHeadings()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(4);
        model.setModel(asModel(source.get()));
        model.resize(2);
        const QByteArrayList names = {"modelIndex", "serverGroupId", "serverId", "channelId", "trackId"};
        const QStringList headings = {u"Model Index"_s, u"Server Group Id"_s, u"Server Id"_s, u"Channel Id"_s, u"Track Id"_s};
        const QList<int> second = {1, 11, 21, 31, 1};
        QCOMPARE(model.roleNames().value(Qt::DisplayRole), "display");
        QVERIFY(!model.roleNames().contains(261));
        for (int column = 0; column < 5; ++column) {
            QCOMPARE(model.roleNames().value(256 + column), names.at(column));
            QCOMPARE(model.headerData(column, Qt::Horizontal), headings.at(column));
            QCOMPARE(model.headerData(0, Qt::Horizontal, 256 + column), headings.at(column));
            QVERIFY(!model.headerData(column, Qt::Vertical).isValid());
            QVERIFY(!model.headerData(column, Qt::Vertical, 256 + column).isValid());
            QCOMPARE(model.data(model.index(1, column)), second.at(column));
            QCOMPARE(model.data(model.index(1, column)).metaType(), QMetaType::fromType<int>());
            QCOMPARE(model.data(model.index(1, 0), 256 + column), second.at(column));
            for (const int role : {int(Qt::EditRole), int(Qt::DecorationRole), 255, -1}) {
                QVERIFY(!model.data(model.index(1, column), role).isValid());
                QVERIFY(!model.headerData(column, Qt::Horizontal, role).isValid());
            }
        }
        QCOMPARE(model.headerData(5, Qt::Horizontal), u"Invalid column: 5"_s);
        QCOMPARE(model.headerData(-1, Qt::Horizontal), u"Invalid column: -1"_s);
        QCOMPARE(model.headerData(0, Qt::Horizontal, 262), u"Invalid column: 6"_s);
        QCOMPARE(model.data(model.index(1, 0), 261), u"Invalid column: 5"_s);
        QCOMPARE(model.data({}), u"Invalid column: -1"_s);
        QCOMPARE(model.data({}, std::numeric_limits<int>::max()), u"Invalid column: 2147483391"_s);
        QVERIFY(!model.data({}, 256).isValid());
    }

    void flags_allowEditing_inTheFirstColumn()
    {
        QmlVideoOutputProxyModel model;
        model.resize(1);
        const Qt::ItemFlags plain = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
        QCOMPARE(model.flags(model.index(0, 0)), plain | Qt::ItemIsEditable);
        for (int column = 1; column < 5; ++column)
            QCOMPARE(model.flags(model.index(0, column)), plain);
        QCOMPARE(model.flags({}), Qt::NoItemFlags);
    }

    void resize_doesNothing_whenBelowOneOrTheSame()
    {
        FlatModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        SignalOrder order(&model);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        for (const int count : {0, -1, std::numeric_limits<int>::min()})
            model.resize(count);
        QCOMPARE(resets.size(), 0);
        model.resize(2);
        model.resize(2);
        QCOMPARE(resets.size(), 1);
        QCOMPARE(model.size(), 2);
        model.resize(0);
        QCOMPARE(model.size(), 2);
    }

    void resize_fillsTilesByTheSourcesRows_andRound()
    {
        FlatModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto source = channels(2);
        model.setModel(asModel(source.get()));
        model.resize(4);
        QCOMPARE(shownRows(model), (QList<int>{0, 1, 0, 1}));
        QCOMPARE(column(model, 4), (QList<int>{1, 1, 1, 1}));
        QCOMPARE(tile(model, 1), (QList<int>{1, 11, 21, 31, 1}));
        QCOMPARE(tile(model, 2), (QList<int>{0, 10, 20, 30, 1}));
    }

    void resize_repeatsTheRowOfTheTileBefore()
    {
        FlatModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto source = channels(8);
        model.setModel(asModel(source.get()));
        model.resize(1);
        model.setChannel(5, 0);
        model.resize(3);
        QCOMPARE(shownRows(model), (QList<int>{5, 5, 6}));
        model.resize(2);
        QCOMPARE(shownRows(model), (QList<int>{5, 5}));
        // A tile with a smaller row does not take the count back.
        model.setChannel(1, 1);
        model.resize(3);
        QCOMPARE(shownRows(model), (QList<int>{5, 1, 5}));
        model.resize(6);
        QCOMPARE(shownRows(model), (QList<int>{5, 1, 5, 5, 6, 7}));
        model.resize(8);
        QCOMPARE(shownRows(model), (QList<int>{5, 1, 5, 5, 6, 7, 7, 0}));
    }

    void resize_emitsInOrder()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(3);
        model.setModel(asModel(source.get()));
        SignalOrder order(&model);
        QSignalSpy begins(&model, &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy ends(&model, &QAbstractItemModel::modelReset);
        auto receiver = std::make_unique<QObject>();
        connect(&model, &QmlVideoOutputProxyModel::currentOutputIndexChanged, receiver.get(), [&] {
            QCOMPARE(begins.size(), 1);
            QCOMPARE(ends.size(), 0);
            QCOMPARE(shownRows(model), (QList<int>{0, 1}));
        });
        connect(&model, &QmlVideoOutputProxyModel::sizeChanged, receiver.get(), [&] { QCOMPARE(ends.size(), 1); });
        model.resize(2);
        QCOMPARE(order.take(), QStringList{u"currentOutputIndexChanged"_s} + currentIds + QStringList{u"sizeChanged"_s});
        receiver.reset();
        model.setCurrentOutputIndex(1);
        order.take();
        model.resize(3);
        QCOMPARE(order.take(), QStringList{u"currentOutputIndexChanged"_s} + currentIds + QStringList{u"sizeChanged"_s});
        QCOMPARE(model.currentOutputIndex(), 0);
        // It is 0 already, and tile 0 is not assigned anew.
        model.resize(1);
        QCOMPARE(order.take(), QStringList{u"sizeChanged"_s});
    }

    void setModel_takesModels_fromAnyPointerType()
    {
        const auto source = channels(2);
        QmlVideoOutputProxyModel other;
        other.setModel(asModel(source.get()));
        QJSEngine engine;
        QJSEngine::setObjectOwnership(source.get(), QJSEngine::CppOwnership);
        for (const QVariant &value :
             {asModel(source.get()), QVariant::fromValue<QObject *>(source.get()), QVariant::fromValue(source.get()), other.model(),
              QVariant::fromValue(engine.newQObject(source.get()))}) {
            QmlVideoOutputProxyModel model;
            SignalOrder order(&model);
            model.setModel(value);
            QCOMPARE(model.model().value<QPointer<QAbstractItemModel>>().data(), source.get());
            QCOMPARE(order.take(), QStringList{u"modelChanged"_s} + currentIds);
        }
    }

    void setModel_doesNothing_whenItIsNoOtherModel()
    {
        const auto source = channels(2);
        QmlVideoOutputProxyModel model;
        model.setModel(asModel(source.get()));
        SignalOrder order(&model);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        QObject object;
        for (const QVariant &value : {QVariant(), asModel(nullptr), QVariant::fromValue(nullptr), QVariant::fromValue(&object), QVariant(5),
                                      QVariant(u"model"_s), asModel(source.get())}) {
            model.setModel(value);
            QCOMPARE(model.model().value<QPointer<QAbstractItemModel>>().data(), source.get());
        }
        QCOMPARE(order.take(), QStringList());
        QCOMPARE(resets.size(), 0);
    }

    void setModel_emitsInOrder_andFillsTheTiles()
    {
        FlatModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.resize(2);
        QCOMPARE(model.currentOutputIndex(), 0);
        QCOMPARE(tile(model, 0), (QList<int>{0, -1, -1, -1, 1}));
        QCOMPARE(tile(model, 1), (QList<int>{1, -1, -1, -1, 1}));
        const auto source = channels(4);
        QStringList own;
        for (const auto signal : {&QmlVideoOutputProxyModel::modelChanged, &QmlVideoOutputProxyModel::currentServerGroupIdChanged,
                                  &QmlVideoOutputProxyModel::currentServerIdChanged, &QmlVideoOutputProxyModel::currentChannelIdChanged,
                                  &QmlVideoOutputProxyModel::currentTrackIdChanged, &QmlVideoOutputProxyModel::currentOutputIndexChanged}) {
            const QString name = QString::fromLatin1(QMetaMethod::fromSignal(signal).name());
            connect(&model, signal, &model, [&own, name] { own.append(name); });
        }
        connect(&model, &QAbstractItemModel::modelReset, &model, [&own] { own.append(u"reset"_s); });
        model.setModel(asModel(source.get()));
        // The current tile was assigned, then the model is told, then the ids once more.
        QCOMPARE(own, (currentIds + QStringList{u"reset"_s, u"modelChanged"_s} + currentIds));
        QCOMPARE(tile(model, 0), (QList<int>{0, 10, 20, 30, 1}));
        QCOMPARE(tile(model, 1), (QList<int>{1, 11, 21, 31, 1}));
        QCOMPARE(model.currentServerGroupId(), 10);
    }

    void setModel_keepsTilesThatAreComplete()
    {
        QmlVideoOutputProxyModel model;
        const auto first = channels(4);
        model.setModel(asModel(first.get()));
        model.resize(2);
        RoleModel second(roles, {{70, 71, u"uid"_s, 72, 0, 7}});
        model.setModel(asModel(&second));
        QCOMPARE(tile(model, 1), (QList<int>{1, 11, 21, 31, 1}));
        model.setChannel(0, 1);
        QCOMPARE(tile(model, 1), (QList<int>{0, 70, 71, 72, 1}));
    }

    void source_isNotFollowed()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(2);
        model.setModel(asModel(source.get()));
        model.resize(2);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        source->reset(roles, {{1, 2, u"uid"_s, 3, 4, 5}});
        source->append({6, 7, u"uid"_s, 8, 9, 10});
        QCOMPARE(changed.size(), 0);
        QCOMPARE(tile(model, 0), (QList<int>{0, 10, 20, 30, 1}));
        model.setChannel(0, 0);
        QCOMPARE(tile(model, 0), (QList<int>{0, 1, 2, 3, 1}));
    }

    void setChannel_announcesItsTile_andTheIdsOfTheCurrentOne()
    {
        FlatModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto source = channels(6);
        model.setModel(asModel(source.get()));
        model.resize(3);
        SignalOrder order(&model);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.setChannel(4, 1);
        QCOMPARE(changes(changed), (QList<Changed>{{1, 0, 1, 4, 0}}));
        QCOMPARE(order.take(), QStringList());
        QCOMPARE(tile(model, 1), (QList<int>{4, 14, 24, 34, 1}));
        changed.clear();
        model.setChannel(5, 0);
        QCOMPARE(changes(changed), (QList<Changed>{{0, 0, 0, 4, 0}}));
        QCOMPARE(order.take(), currentIds);
        QCOMPARE(model.currentChannelId(), 35);
        QCOMPARE(model.currentTrackId(), 1);
    }

    void setChannel_emitsFourSignalsInOrder_forTheCurrentTile()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(6);
        model.setModel(asModel(source.get()));
        model.resize(3);
        model.setCurrentOutputIndex(2);
        SignalOrder order(&model);
        model.setChannel(1, 0);
        QCOMPARE(order.take(), QStringList());
        model.setChannel(1, 2);
        QCOMPARE(order.take(), currentIds);
        // The same row again is told again.
        model.setChannel(1, 2);
        QCOMPARE(order.take(), currentIds);
    }

    void setChannel_takesTheCurrentTile_whenTheIndexIsNone()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(6);
        model.setModel(asModel(source.get()));
        model.resize(3);
        model.setCurrentOutputIndex(1);
        for (const int index : {-1, 3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
            model.setChannel(0, 1);
            model.setChannel(5, index);
            QCOMPARE(shownRows(model), (QList<int>{0, 5, 2}));
        }
        model.setChannel();
        QCOMPARE(shownRows(model), (QList<int>{0, 0, 2}));
    }

    void setChannel_givesZeros_whenTheRowIsPastTheSource()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(2);
        model.setModel(asModel(source.get()));
        model.resize(1);
        for (const int row : {2, -1, std::numeric_limits<int>::max()}) {
            model.setChannel(row, 0);
            QCOMPARE(tile(model, 0), (QList<int>{row, 0, 0, 0, 1}));
        }
        model.resize(2);
        QCOMPARE(model.size(), 2);
    }

    void setChannel_givesNoIds_withoutSource()
    {
        QmlVideoOutputProxyModel model;
        auto source = channels(4);
        model.setModel(asModel(source.get()));
        model.resize(2);
        source.reset();
        QCOMPARE(tile(model, 1), (QList<int>{1, 11, 21, 31, 1}));
        model.setChannel(3, 1);
        QCOMPARE(tile(model, 1), (QList<int>{3, -1, -1, -1, 1}));
        // It is filled again with the next source, from the row that it has.
        const auto next = channels(5);
        model.setModel(asModel(next.get()));
        QCOMPARE(tile(model, 1), (QList<int>{3, 13, 23, 33, 1}));
    }

    void setChannelFromChannelUid_findsTheRow()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(6);
        model.setModel(asModel(source.get()));
        model.resize(2);
        model.setChannelFromChannelUid(104, 1);
        QCOMPARE(shownRows(model), (QList<int>{0, 4}));
        model.setChannelFromChannelUid(103);
        QCOMPARE(shownRows(model), (QList<int>{3, 4}));
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.setChannelFromChannelUid(99, 0);
        QCOMPARE(changed.size(), 0);
        QCOMPARE(shownRows(model), (QList<int>{3, 4}));
    }

    void setChannelFromChannelUid_takesALongerNumber_thatStandsEarlier()
    {
        QmlVideoOutputProxyModel model;
        RoleModel source(roles, {{1, 1, u"uid"_s, 1, 0, 70}, {1, 1, u"uid"_s, 2, 1, 71}, {1, 1, u"uid"_s, 3, 2, 7}});
        model.setModel(asModel(&source));
        model.resize(1);
        model.setChannel(2, 0);
        model.setChannelFromChannelUid(7, 0);
        QCOMPARE(shownRows(model), QList<int>{0});
        model.setChannelFromChannelUid(71, 0);
        QCOMPARE(shownRows(model), QList<int>{1});
    }

    void setChannelFromChannelUid_takesRowZeroOfTheCurrentTile_withoutSource()
    {
        QmlVideoOutputProxyModel model;
        model.resize(3);
        model.setCurrentOutputIndex(1);
        model.setChannelFromChannelUid(5, 2);
        QCOMPARE(shownRows(model), (QList<int>{0, 0, 2}));
    }

    void setChannelFromChannelUid_doesNothing_whenTheSourceIsEmpty()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(0);
        model.setModel(asModel(source.get()));
        model.resize(1);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.setChannelFromChannelUid(5, 0);
        QCOMPARE(changed.size(), 0);
    }

    void nextAndPrevious_goRound()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(3);
        model.setModel(asModel(source.get()));
        model.resize(2);
        model.setChannel(2, 1);
        model.nextChannel(1);
        QCOMPARE(shownRows(model), (QList<int>{0, 0}));
        model.previousChannel(1);
        QCOMPARE(shownRows(model), (QList<int>{0, 2}));
        model.previousChannel(1);
        QCOMPARE(shownRows(model), (QList<int>{0, 1}));
        model.nextChannel(1);
        QCOMPARE(shownRows(model), (QList<int>{0, 2}));
        model.nextChannel();
        QCOMPARE(shownRows(model), (QList<int>{1, 2}));
        model.previousChannel(7);
        QCOMPARE(shownRows(model), (QList<int>{0, 2}));
        for (const int row : {-1, -7, std::numeric_limits<int>::min()}) {
            model.setChannel(row, 0);
            model.nextChannel(0);
            QCOMPARE(shownRows(model).constFirst(), row == -1 ? 0 : row + 1);
            model.setChannel(row, 0);
            model.previousChannel(0);
            QCOMPARE(shownRows(model).constFirst(), 2);
        }
        model.setChannel(std::numeric_limits<int>::max(), 0);
        model.nextChannel(0);
        QCOMPARE(shownRows(model).constFirst(), 0);
        model.setChannel(9, 0);
        model.previousChannel(0);
        QCOMPARE(shownRows(model).constFirst(), 8);
    }

    void nextAndPrevious_doNothing_withoutSourceOrTile()
    {
        QmlVideoOutputProxyModel model;
        model.nextChannel();
        model.previousChannel(0);
        model.resize(1);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.nextChannel(0);
        model.previousChannel(0);
        QCOMPARE(changed.size(), 0);
        QmlVideoOutputProxyModel empty;
        const auto source = channels(3);
        empty.setModel(asModel(source.get()));
        empty.nextChannel();
        empty.previousChannel();
        QCOMPARE(empty.rowCount(), 0);
    }

    void setCurrentOutputIndex_takesTilesAlone()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(4);
        model.setModel(asModel(source.get()));
        model.resize(3);
        SignalOrder order(&model);
        for (const int index : {0, 3, -1, std::numeric_limits<int>::max()})
            model.setCurrentOutputIndex(index);
        QCOMPARE(order.take(), QStringList());
        model.setCurrentOutputIndex(2);
        QCOMPARE(order.take(), QStringList{u"currentOutputIndexChanged"_s} + currentIds);
        QCOMPARE(model.currentOutputIndex(), 2);
        QCOMPARE(model.currentServerGroupId(), 12);
        QCOMPARE(model.currentServerId(), 22);
        QCOMPARE(model.currentChannelId(), 32);
    }

    void setData_assignsByTheFirstColumn()
    {
        FlatModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto source = channels(6);
        model.setModel(asModel(source.get()));
        model.resize(2);
        QVERIFY(model.setData(model.index(1, 0), 4));
        QCOMPARE(tile(model, 1), (QList<int>{4, 14, 24, 34, 1}));
        QVERIFY(model.setData(model.index(1, 3), u"5"_s, 256));
        QCOMPARE(tile(model, 1), (QList<int>{5, 15, 25, 35, 1}));
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QVERIFY(!model.setData(model.index(1, 0), u"five"_s));
        QVERIFY(!model.setData(model.index(1, 1), 2));
        QVERIFY(!model.setData(model.index(1, 0), 2, 257));
        QVERIFY(!model.setData(model.index(1, 0), 2, Qt::DisplayRole));
        QVERIFY(!model.setData(model.index(1, 0), 2, 255));
        QVERIFY(!model.setData({}, 2));
        QCOMPARE(changed.size(), 0);
        QCOMPARE(shownRows(model), (QList<int>{0, 5}));
    }

    void cacheModel_leavesOneTile_untilTheGridIsRestored()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(6);
        model.setModel(asModel(source.get()));
        model.resize(4);
        SignalOrder order(&model);
        QSignalSpy resets(&model, &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.cacheModel(2);
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(tile(model, 0), (QList<int>{2, 12, 22, 32, 1}));
        QCOMPARE(changes(changed), (QList<Changed>{{0, 0, 0, 4, 0}}));
        // The current tile is tile 0, which is another one now.
        QCOMPARE(order.take(), currentIds);
        source->reset(roles, {{1, 2, u"uid"_s, 3, 4, 5}, {2, 3, u"uid"_s, 4, 5, 6}, {3, 4, u"uid"_s, 5, 6, 7}, {4, 5, u"uid"_s, 6, 7, 8}});
        changed.clear();
        model.restoreModelCache();
        QCOMPARE(shownRows(model), (QList<int>{0, 1, 2, 3}));
        QCOMPARE(tile(model, 3), (QList<int>{3, 4, 5, 6, 1}));
        QCOMPARE(changes(changed), (QList<Changed>{{0, 0, 0, 4, 0}, {1, 0, 1, 4, 0}, {2, 0, 2, 4, 0}, {3, 0, 3, 4, 0}}));
        QCOMPARE(order.take(), currentIds);
        QCOMPARE(resets.size(), 0);
        // Nothing guards the order of the calls.
        model.restoreModelCache();
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.currentOutputIndex(), 0);
        QCOMPARE(model.currentChannelId(), -1);
    }

    void cacheModel_doesNothing_whenTheIndexIsNone()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(6);
        model.setModel(asModel(source.get()));
        model.cacheModel(0);
        model.resize(3);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.cacheModel();
        model.cacheModel(-1);
        model.cacheModel(3);
        QCOMPARE(changed.size(), 0);
        QCOMPARE(shownRows(model), (QList<int>{0, 1, 2}));
    }

    void zoomedTable_isATableOfOne()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(6);
        model.setModel(asModel(source.get()));
        model.resize(4);
        model.setCurrentOutputIndex(3);
        const QModelIndex late = model.index(3, 0);
        model.cacheModel(3);
        QCOMPARE(model.currentOutputIndex(), 3);
        QCOMPARE(model.currentChannelId(), -1);
        // A view may still ask for what is gone, and the current tile is none of those that are left.
        QVERIFY(!model.data(late).isValid());
        model.setChannel(1);
        model.nextChannel();
        QCOMPARE(shownRows(model), QList<int>{3});
        model.nextChannel(0);
        QCOMPARE(shownRows(model), QList<int>{4});
        // A second one puts that one tile aside, and a new size is that of the table.
        model.cacheModel(0);
        model.resize(2);
        QCOMPARE(shownRows(model), (QList<int>{4, 4}));
        model.restoreModelCache();
        QCOMPARE(shownRows(model), QList<int>{4});
    }

    void handlers_mayChangeTheNumberOfTiles()
    {
        QmlVideoOutputProxyModel model;
        const auto source = channels(6);
        model.setModel(asModel(source.get()));
        bool once = false;
        connect(&model, &QAbstractItemModel::dataChanged, &model, [&] {
            if (!std::exchange(once, true))
                model.cacheModel(0);
        });
        // While tiles are filled, while the grid comes back, and while one is assigned.
        model.resize(4);
        QCOMPARE(shownRows(model), QList<int>{0});
        model.restoreModelCache();
        QCOMPARE(model.size(), 4);
        model.cacheModel(2);
        once = false;
        model.restoreModelCache();
        QCOMPARE(model.size(), 1);
        model.resize(3);
        model.setCurrentOutputIndex(2);
        once = false;
        model.setChannel(5);
        QCOMPARE(model.size(), 1);
        QCOMPARE(model.currentChannelId(), -1);
    }

    void channelModel_isASource_alsoThroughAProxy()
    {
        TestSite site;
        SiteDescription description = describeServer(0xabc, 1);
        for (int id = 1; id <= 3; ++id)
            description.channels.append(describeCamera(id, u"Camera %1"_s.arg(id)));
        QVERIFY(site.login(description));
        QmlChannelModel source;
        QCOMPARE(source.rowCount(), 3);
        QmlSortFilterProxyModel proxy;
        proxy.setModel(asModel(&source));
        proxy.setSortRole("name");
        proxy.setSortOrder(Qt::DescendingOrder);
        for (QAbstractItemModel *each : {static_cast<QAbstractItemModel *>(&source), static_cast<QAbstractItemModel *>(&proxy)}) {
            FlatModel model;
            QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
            model.setModel(asModel(each));
            model.resize(3);
            QCOMPARE(column(model, 3), each == &proxy ? (QList<int>{3, 2, 1}) : (QList<int>{1, 2, 3}));
            QCOMPARE(column(model, 2), (QList<int>{1, 1, 1}));
            model.setChannelFromChannelUid(source.index(1, 0).data(261).toInt(), 0);
            QCOMPARE(column(model, 3).constFirst(), 2);
        }
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlVideoOutputProxyModel)
#include "tst_qmlvideooutputproxymodel.moc"
