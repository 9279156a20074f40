// SPDX-License-Identifier: GPL-3.0-or-later
#include "rolemodel.h"
#include "testsite.h"

#include "resources/qmlchannel.h"
#include "resources/qmlserver.h"
#include "resources/qmlservergroup.h"
#include "resources/qmlsortfilterproxymodel.h"
#include "resources/qmltrack.h"

#include <contract/core/server.h>

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

using namespace Qt::StringLiterals;

namespace orrin {

class TestResourceElements : public QObject
{
    Q_OBJECT

    std::unique_ptr<QObject> create(QQmlEngine &engine, const QByteArray &body)
    {
        QQmlComponent component(&engine);
        component.setData("import QtQml\nimport orrinsdkqml 254.0\n" + body, {});
        std::unique_ptr<QObject> object(component.create());
        if (!object)
            qWarning().noquote() << component.errorString();
        return object;
    }

private Q_SLOTS:
    void element_isCreatable_data()
    {
        QTest::addColumn<QByteArray>("name");
        for (const char *name : {"Channel", "ChannelModel", "EventCauseModel", "Server", "ServerGroup", "ServerGroupModel",
                                 "ServerListModel", "ServerModel", "SortFilterProxyModel", "Track", "TrackModel"})
            QTest::newRow(name) << QByteArray(name);
    }
    void element_isCreatable()
    {
        QFETCH(QByteArray, name);
        QQmlEngine engine;
        const std::unique_ptr<QObject> object = create(engine, name + " {}");
        QVERIFY(object);
        QCOMPARE(object->metaObject()->className(), "orrin::Qml" + name);
    }

    void binding_followsTheChannel_whenItIsReadAgain()
    {
        TestSite site;
        QQmlEngine engine;
        const std::unique_ptr<QObject> object = create(engine, R"(
            Channel {
                serverGroupId: 1; serverId: 2; channelId: 5
                property string text: name + "/" + channelUniqueId + "/" + isCamera
            })");
        QVERIFY(object);
        QCOMPARE(object->property("text"), u"/-1/false"_s);
        SiteDescription description = describeServer(7, 2);
        description.channels = {describeCamera(5, u"Gate"_s)};
        QVERIFY(site.login(description));
        // Reading is what finds the channel; the signals of that read bring the binding up to date.
        QCOMPARE(object->property("sortId"), 5);
        QCOMPARE(object->property("text"), u"Gate/1002005/true"_s);
        site.logOut();
        QCOMPARE(object->property("text"), u"/-1/false"_s);
    }

    void binding_followsTheServer()
    {
        TestSite site;
        QQmlEngine engine;
        SiteDescription description = describeServer(7, 2);
        QVERIFY(site.login(description));
        const std::unique_ptr<QObject> object = create(engine, R"(
            Server { serverGroupId: 1; serverId: 2; property string text: name + "/" + cameraCount + "/" + userLevel })");
        QVERIFY(object);
        QCOMPARE(object->property("text"), u"Recorder 7/0/admin"_s);
        description.channels = {describeCamera(1)};
        description.user.level = UserLevel::User;
        site.describe(description);
        QCOMPARE(object->property("text"), u"Recorder 7/1/user"_s);
    }

    void trackModel_takesItsFilters()
    {
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.channels = {describeCamera(3), describeCamera(4)};
        QVERIFY(site.login(description));
        QQmlEngine engine;
        const std::unique_ptr<QObject> object = create(engine, R"(
            TrackModel { serverGroupId: 1; serverId: 2; channelId: 3 })");
        QVERIFY(object);
        QCOMPARE(object->property("count"), 1);
        for (int row = 0; row < 1; ++row) {
            QVariant item;
            QVERIFY(QMetaObject::invokeMethod(object.get(), "get", Q_RETURN_ARG(QVariant, item), Q_ARG(int, row)));
            delete item.value<QmlTrack *>();
        }
    }

    // QML must not collect what it got from a model and has let go.
    void items_stayAlive_whenQmlLetsThemGo_data()
    {
        QTest::addColumn<QByteArray>("model");
        for (const char *model : {"ServerGroupModel", "ServerModel", "TrackModel", "ChannelModel"})
            QTest::newRow(model) << QByteArray(model);
    }
    void items_stayAlive_whenQmlLetsThemGo()
    {
        QFETCH(QByteArray, model);
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.channels = {describeCamera(3)};
        QVERIFY(site.login(description));
        QQmlEngine engine;
        const std::unique_ptr<QObject> object = create(engine, model + R"( {
            function read(): string {
                const item = get(0);
                return item.serverGroupId;
            } })");
        QVERIFY(object);
        QVariant item;
        QVERIFY(QMetaObject::invokeMethod(object.get(), "get", Q_RETURN_ARG(QVariant, item), Q_ARG(int, 0)));
        const QPointer<QObject> alive = item.value<QObject *>();
        QVERIFY(alive);
        QString text;
        QVERIFY(QMetaObject::invokeMethod(object.get(), "read", Q_RETURN_ARG(QString, text)));
        QCOMPARE(text, u"1"_s);
        engine.collectGarbage();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(alive);
        if (!alive->parent())
            delete alive;
    }

    void proxy_takesItsPropertiesAndFilters_fromQml()
    {
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.channels = {describeCamera(1, u"North gate"_s), describeCamera(2, u"South gate"_s),
                                describeCamera(3, u"Garage"_s)};
        QVERIFY(site.login(description));
        QQmlEngine engine;
        const std::unique_ptr<QObject> object = create(engine, R"(
            SortFilterProxyModel {
                sortRole: "name"; sortOrder: Qt.DescendingOrder; filterRole: "name"
                model: ChannelModel {}
                property string found
                function type(text: string) { filterRegExp = text; found = names() }
                function filter(value: var, match: bool) { clearFilters(); addAndFilter("name", value, match); found = names() }
                function either(value: var, match: bool) { clearFilters(); addOrFilter("name", value, match); found = names() }
                function fromScript() {
                    clearFilters();
                    addAndFilter("name", ["gate", "North"], true);
                    found = names() + ";" + filters[0].key + "=" + filters[0].value.join("+");
                    addAndFilter("name", "ga", true);
                    found += ";" + names();
                }
                function names(): string {
                    let list = [];
                    for (let row = 0; row < rowCount(); ++row)
                        list.push(get(row).name);
                    return list.join(",");
                }
                Component.onCompleted: found = names()
            })");
        QVERIFY(object);
        QCOMPARE(object->property("found"), u"South gate,North gate,Garage"_s);
        const auto call = [&](const char *function, auto... arguments) {
            return QMetaObject::invokeMethod(object.get(), function, arguments...);
        };
        QVERIFY(call("type", Q_ARG(QString, u"gat"_s)));
        QCOMPARE(object->property("found"), u"South gate,North gate"_s);
        QVERIFY(call("type", Q_ARG(QString, QString())));
        QVERIFY(call("fromScript"));
        QCOMPARE(object->property("found"), u"North gate;name=gate+North;South gate,North gate"_s);
        QVERIFY(call("either", Q_ARG(QVariant, QVariant(QStringList{u"Nor"_s, u"Gar"_s})), Q_ARG(bool, true)));
        QCOMPARE(object->property("found"), u"North gate,Garage"_s);
        QVERIFY(call("filter", Q_ARG(QVariant, QVariant(u"gate"_s)), Q_ARG(bool, false)));
        QCOMPARE(object->property("found"), u"Garage"_s);
    }

    void proxyCount_isFollowed_afterTheModelIsSet()
    {
        QQmlEngine engine;
        RoleModel first({"name"}, {});
        const std::unique_ptr<QObject> object = create(engine, R"(
            SortFilterProxyModel {
                id: proxy
                property int shown: count
                property int handled
                onCountChanged: ++handled
                property Connections other: Connections {
                    target: proxy
                    function onCountChanged() { ++proxy.handled }
                }
                function rebind() { shown = Qt.binding(() => count) }
            })");
        QVERIFY(object);
        auto *proxy = qobject_cast<QmlSortFilterProxyModel *>(object.get());
        proxy->setModel(QVariant::fromValue<QAbstractItemModel *>(&first));
        // Setting a model drops the bindings and handlers that were there.
        first.append({u"a"_s});
        QCOMPARE(proxy->count(), 1);
        QCOMPARE(object->property("shown"), 0);
        QCOMPARE(object->property("handled"), 0);
        // New ones hold.
        QVERIFY(QMetaObject::invokeMethod(object.get(), "rebind"));
        QCOMPARE(object->property("shown"), 1);
        int changes = 0;
        connect(proxy, &QmlSortFilterProxyModel::countChanged, this, [&] { ++changes; });
        first.append({u"b"_s});
        QCOMPARE(changes, 1);
        // Other signals are left alone.
        QCOMPARE(object->property("handled"), 0);
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestResourceElements)
#include "tst_resourceelements.moc"
