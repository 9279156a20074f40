// SPDX-License-Identifier: GPL-3.0-or-later
#include "rolemodel.h"

#include "tiles/tilemodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QByteArrayList roles = {"serverGroupId", "serverId", "serverUid", "channelId", "sortId", "channelUniqueId", "name",
                              "channelUniqueIdMeta"};

QVariantList camera(int id, int server = 1)
{
    return {1, server, u"uid"_s, id, id, 100 * server + id, u"Camera %1"_s.arg(id), u"key-%1-%2"_s.arg(server).arg(id)};
}

std::unique_ptr<orrin::RoleModel> cameras(int count)
{
    QList<QVariantList> rows;
    for (int id = 1; id <= count; ++id)
        rows.append(camera(id));
    return std::make_unique<orrin::RoleModel>(roles, rows);
}

QList<int> channels(const TileModel &model)
{
    QList<int> ids;
    for (int tile = 0; tile < model.rowCount(); ++tile)
        ids.append(model.index(tile).data(TileModel::ChannelIdRole).toInt());
    return ids;
}

} // namespace

class tst_TileModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void tiles_takeTheFirstCameras_andNoneTwice()
    {
        TileModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy assigned(&model, &TileModel::assignedChanged);
        const auto list = cameras(3);
        model.setCount(4);
        QCOMPARE(channels(model), (QList<int>{-1, -1, -1, -1}));
        model.setCameras(list.get());
        QCOMPARE(channels(model), (QList<int>{1, 2, 3, -1}));
        QCOMPARE(model.assigned(), 3);
        QCOMPARE(assigned.size(), 1);
        QCOMPARE(model.index(1).data(TileModel::NameRole), u"Camera 2"_s);
        QCOMPARE(model.index(1).data(TileModel::CameraKeyRole), u"key-1-2"_s);
        QCOMPARE(model.index(1).data(TileModel::AvailableRole), true);
        QCOMPARE(model.currentChannelId(), 1);
        QCOMPARE(model.currentServerGroupId(), 1);
    }

    void tilesThatWereEmpty_takeCamerasThatCome_andOthersStay()
    {
        TileModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto list = cameras(2);
        model.setCount(4);
        model.setCameras(list.get());
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        // A recorder that stands before the others in the list.
        list->reset(roles, {camera(7, 0), camera(1), camera(2)});
        QCOMPARE(channels(model), (QList<int>{1, 2, 7, -1}));
        for (const QVariantList &call : std::as_const(changed))
            QCOMPARE(call.at(0).toModelIndex().row(), 2);
        model.nextChannel(0);
        QCOMPARE(channels(model), (QList<int>{2, 2, 7, -1}));
        model.previousChannel(0);
        model.previousChannel(0);
        QCOMPARE(channels(model), (QList<int>{7, 2, 7, -1}));
        model.previousChannel(0);
        QCOMPARE(channels(model), (QList<int>{2, 2, 7, -1}));
    }

    void camerasThatGo_keepTheirTiles_andTheirAddresses()
    {
        TileModel model;
        const auto list = cameras(2);
        model.setCount(4);
        model.setCameras(list.get());
        list->reset(roles, {});
        QCOMPARE(channels(model), (QList<int>{1, 2, -1, -1}));
        list->reset(roles, {camera(2), camera(3)});
        QCOMPARE(channels(model), (QList<int>{1, 2, 3, -1}));
    }

    void setCount_insertsAndRemovesRows_withoutAReset()
    {
        TileModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto list = cameras(9);
        model.setCameras(list.get());
        model.setCount(4);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QList<int> atInsertion;
        connect(&model, &QAbstractItemModel::rowsInserted, this, [&] { atInsertion = channels(model); });
        model.setCount(9);
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(inserted.constFirst().at(1).toInt(), 4);
        QCOMPARE(inserted.constFirst().at(2).toInt(), 8);
        QCOMPARE(atInsertion, (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
        model.setCurrent(7);
        model.setCount(4);
        QCOMPARE(removed.size(), 1);
        QCOMPARE(model.current(), 3);
        QCOMPARE(resets.size(), 0);
        QCOMPARE(channels(model), (QList<int>{1, 2, 3, 4}));
        QCOMPARE(changed.size(), 0);
        model.setCount(0);
        QCOMPARE(model.count(), 1);
        model.setCount(1000);
        QCOMPARE(model.count(), TileModel::MaxTiles);
    }

    void assign_showsTheCamera_orNothingHappens()
    {
        TileModel model;
        const auto list = cameras(6);
        model.setCount(4);
        model.setCameras(list.get());
        QSignalSpy keys(&model, &TileModel::cameraKeysChanged);
        QSignalSpy current(&model, &TileModel::currentCameraChanged);
        model.assign(0, 1, 1, 6);
        QCOMPARE(channels(model), (QList<int>{6, 2, 3, 4}));
        QCOMPARE(keys.size(), 1);
        QCOMPARE(current.size(), 1);
        model.assign(0, 1, 1, 7);
        model.assign(0, 2, 1, 1);
        model.assign(-1, 1, 1, 1);
        model.assign(4, 1, 1, 1);
        QCOMPARE(keys.size(), 1);
        QCOMPARE(channels(model), (QList<int>{6, 2, 3, 4}));
    }

    void clearedTile_staysEmpty_untilAssigned()
    {
        TileModel model;
        const auto list = cameras(6);
        model.setCount(4);
        model.setCameras(list.get());
        model.clear(1);
        QCOMPARE(channels(model), (QList<int>{1, -1, 3, 4}));
        QCOMPARE(model.assigned(), 3);
        list->append(camera(7));
        QCOMPARE(channels(model), (QList<int>{1, -1, 3, 4}));
        model.nextChannel(1);
        QCOMPARE(channels(model), (QList<int>{1, 1, 3, 4}));
    }

    void swap_exchangesCameras()
    {
        TileModel model;
        const auto list = cameras(3);
        model.setCount(4);
        model.setCameras(list.get());
        model.swap(0, 2);
        QCOMPARE(channels(model), (QList<int>{3, 2, 1, -1}));
        model.swap(3, 1);
        QCOMPARE(channels(model), (QList<int>{3, -1, 1, 2}));
        // Both go on from their new places.
        model.previousChannel(0);
        QCOMPARE(channels(model), (QList<int>{2, -1, 1, 2}));
        model.swap(0, 0);
        model.swap(0, 9);
        QCOMPARE(channels(model), (QList<int>{2, -1, 1, 2}));
    }

    void cameraKeys_bringAGridBack()
    {
        TileModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const auto list = cameras(6);
        model.setCount(4);
        model.setCameras(list.get());
        const QStringList wanted = {u"key-1-5"_s, QString(), u"key-1-1"_s, u"key-9-9"_s, u"key-1-2"_s};
        model.setCameraKeys(wanted);
        QCOMPARE(model.count(), 5);
        QCOMPARE(channels(model), (QList<int>{5, -1, 1, -1, 2}));
        QCOMPARE(model.cameraKeys(), wanted);
        QCOMPARE(model.index(3).data(TileModel::AvailableRole), false);
        QCOMPARE(model.index(1).data(TileModel::AvailableRole), true);
        // The camera that was missing takes its tile, the empty one stays so.
        list->append(camera(9, 9));
        QCOMPARE(channels(model), (QList<int>{5, -1, 1, 9, 2}));
        model.setCameraKeys({u"key-1-2"_s});
        QCOMPARE(channels(model), QList<int>{2});
        model.setCameraKeys({});
        QCOMPARE(channels(model), QList<int>{2});
    }

    void cameraKeys_waitForTheirCameras_whenSetFirst()
    {
        TileModel model;
        const auto list = cameras(0);
        model.setCameraKeys({u"key-1-3"_s, u"key-1-1"_s});
        model.setCameras(list.get());
        QCOMPARE(channels(model), (QList<int>{-1, -1}));
        list->reset(roles, {camera(1), camera(2), camera(3)});
        QCOMPARE(channels(model), (QList<int>{3, 1}));
    }

    void current_takesTilesAlone()
    {
        TileModel model;
        const auto list = cameras(4);
        model.setCount(4);
        model.setCameras(list.get());
        QSignalSpy changed(&model, &TileModel::currentChanged);
        model.setCurrent(4);
        model.setCurrent(-1);
        QCOMPARE(changed.size(), 0);
        model.setCurrent(2);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(model.currentChannelId(), 3);
        QCOMPARE(model.currentServerId(), 1);
    }

    void listOfCameras_mayGo()
    {
        TileModel model;
        auto list = cameras(4);
        model.setCount(4);
        model.setCameras(list.get());
        list.reset();
        model.nextChannel(0);
        model.assign(0, 1, 1, 2);
        model.setCount(9);
        model.swap(0, 1);
        QCOMPARE(model.count(), 9);
        const auto next = cameras(5);
        model.setCameras(next.get());
        QCOMPARE(model.assigned(), 5);
    }
};

QTEST_GUILESS_MAIN(tst_TileModel)
#include "tst_tilemodel.moc"
