// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/orrinsdkqml.h"

#include <contract/core/eventmanager.h>
#include <contract/core/eventspreferences.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>
#include <contract/core/securitypreferences.h>
#include <contract/util/logdir.h>
#include <contract/util/logitem.h>
#include <contract/util/logmanager.h>

#include <QDir>
#include <QJSValue>
#include <QQmlContext>
#include <QQmlEngine>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin;

class tst_InitQmlContext : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(home.isValid());
        qputenv("HOME", QFile::encodeName(home.path()));
        for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
            qputenv(variable, QFile::encodeName(home.path()) + '/' + variable);
        QStandardPaths::setTestModeEnabled(true);
    }

    void cleanup() { OrrinSDK::shutdown(); }

    void initQmlContext_createsRootObject_whenHostHasNone()
    {
        QVERIFY(!OrrinSDK::instance());
        QQmlEngine engine;
        initQmlContext(engine.rootContext());
        const OrrinSDK *sdk = OrrinSDK::instance();
        QVERIFY(sdk);
        QCOMPARE(sdk->localConfigOrganisationName(), QStringLiteral("Orrinworks"));
        QCOMPARE(sdk->localConfigApplicationName(), QStringLiteral("orrinviewmobile"));
        QCOMPARE(sdk->logFileName(), QStringLiteral("orrinsdk.log"));
        QVERIFY(!sdk->osdNotification());
    }

    void initQmlContext_leavesNames_whenHostHasInitialised()
    {
        OrrinSDK::initInstance(QStringLiteral("Host"), QStringLiteral("App"), nullptr,
                               QStringLiteral("host.log"));
        const OrrinSDK *before = OrrinSDK::instance();
        QQmlEngine engine;
        initQmlContext(engine.rootContext());
        QCOMPARE(OrrinSDK::instance(), before);
        QCOMPARE(before->localConfigOrganisationName(), QStringLiteral("Host"));
        QCOMPARE(before->localConfigApplicationName(), QStringLiteral("App"));
        QCOMPARE(before->logFileName(), QStringLiteral("host.log"));
    }

    void initQmlContext_publishesTwoProperties_andNoMore()
    {
        QQmlEngine engine;
        initQmlContext(engine.rootContext());
        QQmlContext *context = engine.rootContext();
        QCOMPARE(context->contextProperty(QStringLiteral("OrrinSDK")).value<QObject *>(),
                 OrrinSDK::instance());
        QObject *model = OrrinSDK::instance()->eventManager()->liveEvents().data();
        QVERIFY(model);
        QCOMPARE(context->contextProperty(QStringLiteral("liveEventModel")).value<QObject *>(), model);
        for (const QString &name : {QStringLiteral("settings"), QStringLiteral("timeTools")})
            QVERIFY(!context->contextProperty(name).isValid());
        QCOMPARE(QQmlEngine::objectOwnership(model), QQmlEngine::CppOwnership);
    }

    void initQmlContext_addsEventsAndSecurityGroups_inThatOrder()
    {
        QQmlEngine engine;
        initQmlContext(engine.rootContext());
        const auto groups = OrrinSDK::instance()->preferences()->preferenceGroups();
        QCOMPARE(groups.size(), 2);
        QVERIFY(groups.at(0).dynamicCast<EventsPreferences>());
        QVERIFY(groups.at(1).dynamicCast<SecurityPreferences>());
    }

    void initQmlContext_addsGroupsAgain_whenCalledTwice()
    {
        QQmlEngine engine;
        initQmlContext(engine.rootContext());
        initQmlContext(engine.rootContext());
        QCOMPARE(OrrinSDK::instance()->preferences()->preferenceGroups().size(), 4);
        QCOMPARE(engine.rootContext()->contextProperty(QStringLiteral("OrrinSDK")).value<QObject *>(),
                 OrrinSDK::instance());
    }

    void initQmlContext_setsUpNoLogging()
    {
        QQmlEngine engine;
        initQmlContext(engine.rootContext());
        olog::LogManager::instance()->log(olog::LogItem(olog::LL_Error, 1, 1, "test", __FILE__, __func__,
                                                        nullptr, QByteArray(),
                                                        QByteArrayLiteral("an error")));
        QVERIFY(!logDir().isEmpty());
        QCOMPARE(QDir(logDir()).entryList(QDir::Files), QStringList());
    }

private:
    QTemporaryDir home;
};

QTEST_GUILESS_MAIN(tst_InitQmlContext)
#include "tst_initqmlcontext.moc"
