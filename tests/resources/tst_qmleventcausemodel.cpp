// SPDX-License-Identifier: GPL-3.0-or-later
#include "testsite.h"

#include "core/events/eventmodel_p.h"
#include "resources/qmleventcausemodel.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/eventcausemodel.h>
#include <contract/core/eventmanager.h>
#include <contract/core/eventmodel.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

void report(quint64 uid, const QString &cause)
{
    EventRecord record;
    record.serverUid = uid;
    record.cause = cause;
    OrrinSDK::instance()->eventManager()->liveEvents()->d_func()->append(record);
}

QStringList shown(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts.append(model.index(row, 0).data().toString());
    return texts;
}

} // namespace

class TestQmlEventCauseModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void model_hasNoRowsAndNoRoles_withoutServer()
    {
        QmlEventCauseModel model;
        model.requestCauses();
        QCoreApplication::processEvents();
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(model.roleNames().isEmpty());
        QVERIFY(!model.data(QModelIndex(), Qt::DisplayRole).isValid());
        QVERIFY(!model.data(model.index(0), Qt::DisplayRole).isValid());
    }

    void model_hasNothingOfItsOwn()
    {
        const QMetaObject &meta = QmlEventCauseModel::staticMetaObject;
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.methodCount(), meta.methodOffset());
    }

    void causes_areInserted_afterRequest_data()
    {
        QTest::addColumn<bool>("byUid");
        QTest::newRow("server id") << false;
        QTest::newRow("server uid") << true;
    }
    void causes_areInserted_afterRequest()
    {
        QFETCH(bool, byUid);
        TestSite site;
        QVERIFY(site.login(describeServer(7, 2)));
        QVERIFY(site.login(describeServer(8, 3)));
        report(7, u"Motion"_s);
        report(7, u"Door"_s);
        report(8, u"Disk full"_s);
        const std::unique_ptr<QmlEventCauseModel> model = byUid
            ? std::make_unique<QmlEventCauseModel>(&site.manager(), 7ull, false)
            : std::make_unique<QmlEventCauseModel>(&site.manager(), 2, false);
        QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(model->rowCount(), 0);
        QVERIFY(model->roleNames().values().contains("display"));
        QSignalSpy about(model.get(), &QAbstractItemModel::rowsAboutToBeInserted);
        QSignalSpy inserted(model.get(), &QAbstractItemModel::rowsInserted);
        model->requestCauses();
        QTRY_COMPARE(inserted.size(), 1);
        QCOMPARE(about.size(), 1);
        QCOMPARE(inserted[0][1], 0);
        QCOMPARE(inserted[0][2], 1);
        QCOMPARE(shown(*model), (QStringList{u"Motion"_s, u"Door"_s}));

        report(7, u"Video loss"_s);
        model->requestCauses();
        QTRY_COMPARE(inserted.size(), 2);
        QCOMPARE(shown(*model).last(), u"Video loss"_s);
        QCOMPARE(model->rowCount(model->index(0)), 0);
        QVERIFY(!model->data(model->index(0), 257).isValid());
    }

    void flag_isPassedThrough()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(7, 2)));
        report(7, u"Motion"_s);
        QmlEventCauseModel model(&site.manager(), 7ull, true);
        EventCauseModel core(&site.manager(), 7ull, true, nullptr);
        model.requestCauses();
        core.requestCauses();
        QTRY_VERIFY(core.rowCount() > 1);
        QCOMPARE(shown(model), shown(core));
    }

    void causes_areNone_whenTheServerIsUnknown()
    {
        TestSite site;
        QmlEventCauseModel byId(&site.manager(), -1, false);
        QmlEventCauseModel byUid(&site.manager(), 0ull, false);
        QmlEventCauseModel withoutManager(nullptr, 7, false);
        for (QmlEventCauseModel *model : {&byId, &byUid, &withoutManager})
            model->requestCauses();
        QCoreApplication::processEvents();
        for (const QmlEventCauseModel *model : {&byId, &byUid, &withoutManager})
            QCOMPARE(model->rowCount(), 0);
    }

    void model_mayGo_whileItsCausesAreAskedFor()
    {
        TestSite site;
        QVERIFY(site.login(describeServer(7, 2)));
        report(7, u"Motion"_s);
        auto *model = new QmlEventCauseModel(&site.manager(), 7ull, false);
        model->requestCauses();
        delete model;
        QCoreApplication::processEvents();
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlEventCauseModel)
#include "tst_qmleventcausemodel.moc"
