// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/eventspreferences.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>
#include <contract/core/publickeychecker.h>
#include <contract/core/securitypreferences.h>

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

class SomePreferences : public AbstractPreferenceGroup
{
public:
    SomePreferences() : AbstractPreferenceGroup(u"Some"_s)
    {
        addItem(u"count"_s, 3);
        addItem(u"flag"_s, true);
        addItem(u"part/text"_s, u"a"_s);
        load();
    }
};

} // namespace

class TestPreferences : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString file(const QString &name) const
    {
        return m_folder->filePath(u"orrin-tests/app."_s + name + u".ini"_s);
    }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->path());
        OrrinSDK::initInstance(u"orrin-tests"_s, u"app"_s, nullptr, u"x.log"_s);
    }

    void cleanup() { OrrinSDK::shutdown(); }

    void instance_keepsItsFirstNames()
    {
        OrrinSDK::initInstance(u"other"_s, u"name"_s, nullptr, u"y.log"_s);
        QCOMPARE(OrrinSDK::instance()->localConfigOrganisationName(), u"orrin-tests"_s);
        QCOMPARE(OrrinSDK::instance()->localConfigApplicationName(), u"app"_s);
        QCOMPARE(OrrinSDK::instance()->logFileName(), u"x.log"_s);
        OrrinSDK::shutdown();
        QVERIFY(!OrrinSDK::instance());
    }

    void groups_areFoundByName_theNewestFirst()
    {
        Preferences *preferences = OrrinSDK::instance()->preferences();
        QVERIFY(!preferences->preferenceGroup(u"Some"_s));
        const auto older = QSharedPointer<SomePreferences>::create();
        const auto newer = QSharedPointer<SomePreferences>::create();
        preferences->addPreferenceGroup(older);
        preferences->addPreferenceGroup(newer);
        QCOMPARE(preferences->preferenceGroup(u"Some"_s).data(), newer.data());
        QCOMPARE(preferences->preferenceGroups().size(), 2);
    }

    void items_areFoundByKeyAndPart()
    {
        const SomePreferences some;
        QCOMPARE(some.item(u"count"_s, QString())->value(), QVariant(3));
        QCOMPARE(some.item(u"part"_s, u"text"_s)->value(), QVariant(u"a"_s));
        QVERIFY(!some.item(u"nothing"_s, QString()));
        QCOMPARE(some.itemList(QString()).size(), 3);
        QCOMPARE(some.itemList(u"part"_s).size(), 1);
    }

    void values_surviveTheirObject_onceSaved()
    {
        {
            SomePreferences some;
            some.item(u"count"_s, {})->setValue(7);
            some.item(u"flag"_s, {})->setValue(false);
            some.item(u"part"_s, u"text"_s)->setValue(u"ü, \"b\""_s);
            QVERIFY(some.save());
            QVERIFY(QFile::exists(file(u"some"_s)));
        }
        SomePreferences again;
        QCOMPARE(again.item(u"count"_s, {})->value(), QVariant(7));
        QCOMPARE(again.item(u"flag"_s, {})->value(), QVariant(false));
        QCOMPARE(again.item(u"part"_s, u"text"_s)->value(), QVariant(u"ü, \"b\""_s));
        again.restoreDefaults(u"part"_s);
        QCOMPARE(again.item(u"part"_s, u"text"_s)->value(), QVariant(u"a"_s));
        QCOMPARE(again.item(u"count"_s, {})->value(), QVariant(7));
        again.restoreDefaults(QString());
        QCOMPARE(again.item(u"count"_s, {})->value(), QVariant(3));
        again.load();
        QCOMPARE(again.item(u"count"_s, {})->value(), QVariant(7));
    }

    void values_takeDefaults_whenTheFileMakesNoSense()
    {
        QVERIFY(QDir().mkpath(QFileInfo(file(u"some"_s)).path()));
        QFile broken(file(u"some"_s));
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write("[General]\ncount=many\nflag=perhaps\n[part\ntext");
        broken.close();
        const SomePreferences some;
        QCOMPARE(some.item(u"count"_s, {})->value(), QVariant(3));
        QCOMPARE(some.item(u"flag"_s, {})->value(), QVariant(true));
        QCOMPARE(some.item(u"part"_s, u"text"_s)->value(), QVariant(u"a"_s));
    }

    void save_fails_whenTheFolderCannotBeMade()
    {
        QFile inTheWay(m_folder->filePath(u"orrin-tests"_s));
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        SomePreferences some;
        QVERIFY(!some.save());
    }

    void publicKeyCheck_isOnAtFirst()
    {
        SecurityPreferences security;
        QCOMPARE(security.name(), SecurityPreferences::NAME);
        QCOMPARE(security.item(SecurityPreferences::PUBLIC_KEY_CHECK, {})->value(), QVariant(true));
        EventsPreferences events;
        QCOMPARE(events.item(EventsPreferences::MAXIMUM_ROWS, {})->value(), QVariant(500));
    }

    void keys_areKeptByTarget()
    {
        const QByteArray key("\x30\x00\x01\xff", 4);
        QCOMPARE(PublicKeyChecker::derKey(u"[::1]:1"_s), QByteArray());
        PublicKeyChecker::setDerKey(u"[::1]:1"_s, key);
        PublicKeyChecker::setDerKey(u"Host:1"_s, "other");
        PublicKeyChecker::setDerKey(u"empty:1"_s, QByteArray());
        QCOMPARE(PublicKeyChecker::derKey(u"[::1]:1"_s), key);
        QCOMPARE(PublicKeyChecker::derKey(u"host:1"_s), QByteArray("other"));
        QCOMPARE(PublicKeyChecker::derKey(u"host:2"_s), QByteArray());
        PublicKeyChecker::removeDerKey(u"[::1]:1"_s);
        QCOMPARE(PublicKeyChecker::derKey(u"[::1]:1"_s), QByteArray());
        QVERIFY(QFile::exists(file(u"keys"_s)));
    }
};

QTEST_GUILESS_MAIN(TestPreferences)
#include "tst_preferences.moc"
