// SPDX-License-Identifier: GPL-3.0-or-later
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmlserverlistmodel.h"

#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/core/serverlistmodel.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

QStringList shown(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts.append(model.index(row, 0).data().toString());
    return texts;
}

} // namespace

class TestQmlServerListModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void model_hasNoRowsAndNoRoles_withoutGroup()
    {
        const QmlServerListModel model;
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(model.roleNames().isEmpty());
        QVERIFY(!model.data(QModelIndex(), Qt::DisplayRole).isValid());
        QVERIFY(!model.data(model.index(0), Qt::DisplayRole).isValid());
    }

    void model_hasNothingOfItsOwn()
    {
        const QMetaObject &meta = QmlServerListModel::staticMetaObject;
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.methodCount(), meta.methodOffset());
    }

    void rows_areThoseOfTheCore()
    {
        TestSite site;
        const Server *server = site.login(describeServer(1, 1, u"north"_s));
        QVERIFY(server);
        QVERIFY(site.login(describeServer(2, 2, u"north"_s)));
        QVERIFY(site.login(describeServer(3, 1, u"south"_s)));
        QmlServerListModel model(server->group(), nullptr);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(shown(model), (QStringList{u"Recorder 1"_s, u"Recorder 2"_s}));
        const int uid = model.roleNames().key("uid", -1);
        QVERIFY(uid >= 0);
        QVERIFY(model.roleNames().values().contains("display"));
        QCOMPARE(model.data(model.index(1), uid).toULongLong(), 2ull);
        QCOMPARE(model.rowCount(model.index(0)), 0);
        for (const int role : {-1, int(Qt::DecorationRole), std::numeric_limits<int>::max()})
            QVERIFY(!model.data(model.index(0), role).isValid());
        QVERIFY(!model.data(QModelIndex(), uid).isValid());
        const QmlServerListModel other;
        QVERIFY(!model.data(other.index(5), uid).isValid());
    }

    void serverJoins_insertsARow()
    {
        TestSite site;
        const Server *server = site.login(describeServer(2, 2, u"north"_s));
        QVERIFY(server);
        QmlServerListModel model(server->group(), nullptr);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        QVERIFY(site.login(describeServer(1, 1, u"north"_s)));
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(inserted[0][1], 0);
        QCOMPARE(inserted[0][2], 0);
        QCOMPARE(resets.size(), 0);
        QCOMPARE(shown(model), (QStringList{u"Recorder 1"_s, u"Recorder 2"_s}));
    }

    void serversGo_resets()
    {
        TestSite site;
        const Server *server = site.login(describeServer(1, 1, u"north"_s));
        QVERIFY(server);
        QmlServerListModel model(server->group(), nullptr);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy about(&model, &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        site.logOut();
        QVERIFY(resets.size() > 0);
        QCOMPARE(about.size(), resets.size());
        QCOMPARE(model.rowCount(), 0);
    }

    void model_isEmpty_whenTheGroupIsNull()
    {
        const QmlServerListModel model(nullptr, nullptr);
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(!model.roleNames().isEmpty());
    }

    void coreModel_isDeletedOnce_whoeverGoesFirst()
    {
        TestSite site;
        const Server *server = site.login(describeServer(1, 1, u"north"_s));
        QVERIFY(server);
        auto *parent = new QObject;
        auto *model = new QmlServerListModel(server->group(), parent);
        QPointer<ServerListModel> core = parent->findChild<ServerListModel *>();
        QVERIFY(core);
        delete model;
        QVERIFY(!core);

        QmlServerListModel moved(server->group(), parent);
        core = parent->findChild<ServerListModel *>();
        QVERIFY(core);
        moved.setParent(nullptr);
        QCOMPARE(moved.rowCount(), 1);
        delete parent;
        QVERIFY(!core);
        QCOMPARE(moved.rowCount(), 0);
        QVERIFY(moved.roleNames().isEmpty());
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlServerListModel)
#include "tst_qmlserverlistmodel.moc"
