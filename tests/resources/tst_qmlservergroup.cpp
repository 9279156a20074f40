// SPDX-License-Identifier: GPL-3.0-or-later
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmlservergroup.h"

#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QTest>

using namespace Qt::StringLiterals;

namespace orrin {

class TestQmlServerGroup : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void signals_areDeclaredInOrder()
    {
        QCOMPARE(SignalOrder::declaredBy(QmlServerGroup::staticMetaObject),
                 (QStringList{u"serverGroupIdChanged"_s, u"hostsChanged"_s}));
    }

    void hosts_areEmpty_withoutRootObject()
    {
        QmlServerGroup group;
        QCOMPARE(group.serverGroupId(), -1);
        QCOMPARE(group.hosts(), QString());
        group.setServerGroupId(1);
        QCOMPARE(group.hosts(), QString());
    }

    void hosts_areJoined_whenTheGroupHasServers()
    {
        TestSite site;
        Server *one = site.login(describeServer(1, 1, u"site"_s));
        QVERIFY(one);
        QmlServerGroup group;
        group.setServerGroupId(one->group()->id());
        QCOMPARE(group.hosts(), u"server1:8601"_s);
        QVERIFY(site.login(describeServer(2, 2, u"site"_s)));
        QCOMPARE(group.hosts(), u"server1:8601, server2:8601"_s);
        group.setServerGroupId(99);
        QCOMPARE(group.hosts(), QString());
    }

    void setServerGroupId_emitsIdThenHosts_whenItChanges()
    {
        QmlServerGroup group;
        SignalOrder order(&group);
        group.setServerGroupId(3);
        QCOMPARE(order.take(), (QStringList{u"serverGroupIdChanged"_s, u"hostsChanged"_s}));
        group.setServerGroupId(3);
        QCOMPARE(order.take(), QStringList());
    }

    void setServerGroupId_isSafe_whenAHandlerDeletesTheGroup()
    {
        auto *group = new QmlServerGroup;
        QPointer<QmlServerGroup> alive = group;
        connect(group, &QmlServerGroup::serverGroupIdChanged, this, [group] { delete group; });
        group->setServerGroupId(3);
        QVERIFY(!alive);
    }

    // A group view listens to nothing: what becomes of its group is seen at the next read.
    void groupGoes_emitsNothing()
    {
        TestSite site;
        Server *one = site.login(describeServer(1, 1));
        QVERIFY(one);
        QmlServerGroup group;
        group.setServerGroupId(one->group()->id());
        QVERIFY(!group.hosts().isEmpty());
        SignalOrder order(&group);
        site.logOut();
        QCOMPARE(order.take(), QStringList());
        QCOMPARE(group.hosts(), QString());
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlServerGroup)
#include "tst_qmlservergroup.moc"
