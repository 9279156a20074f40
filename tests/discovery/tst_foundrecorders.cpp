// SPDX-License-Identifier: GPL-3.0-or-later
#include "answers.h"
#include "fakedevices.h"

#include "discovery/foundrecorders.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace orrin::test;
using namespace Qt::StringLiterals;

class tst_FoundRecorders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void search_fillsTheList();
    void search_forgetsWhatWasFoundBefore();
    void stop_keepsWhatWasFound_andClearDoesNot();
    void networkMissing_isTold();
    void properties_tellTheirChanges();
};

namespace {

/*! Two devices; the second one tells nothing about itself. */
QList<QByteArray> twoDevices(const QByteArray &id)
{
    AnsweringDevice nameless;
    nameless.uuid = u"uuid:2"_s;
    nameless.addresses = u"https://127.0.0.1:8443/"_s;
    nameless.scopes.clear();
    return {answerOf(id, {}), answerOf(id, nameless)};
}

void prepare(FoundRecorders &recorders, const FakeDevices &devices, int duration)
{
    recorders.setMulticast(false);
    recorders.setProbeAddresses({devices.address()});
    recorders.setDuration(duration);
}

} // namespace

void tst_FoundRecorders::search_fillsTheList()
{
    FakeDevices devices(twoDevices);
    FoundRecorders recorders;
    const QAbstractItemModelTester tester(&recorders);
    prepare(recorders, devices, 500);
    QSignalSpy searching(&recorders, &FoundRecorders::searchingChanged);
    QSignalSpy counts(&recorders, &FoundRecorders::countChanged);
    QVERIFY(!recorders.isSearching());
    recorders.search();
    QVERIFY(recorders.isSearching());
    QCOMPARE(searching.size(), 1);
    QTRY_COMPARE(recorders.count(), 2);
    QCOMPARE(counts.size(), 2);
    QTRY_VERIFY(!recorders.isSearching());
    QCOMPARE(searching.size(), 2);
    QVERIFY(!recorders.isNetworkMissing());

    const QHash<int, QByteArray> names = recorders.roleNames();
    const auto value = [&](int row, const QByteArray &role) { return recorders.index(row).data(names.key(role)).toString(); };
    QCOMPARE(value(0, "name"), u"Gate"_s);
    QCOMPARE(value(0, "address"), u"127.0.0.1:8080"_s);
    QCOMPARE(value(0, "hardware"), u"C-1"_s);
    QCOMPARE(value(1, "name"), u"127.0.0.1:8443"_s);
    QCOMPARE(value(1, "address"), u"127.0.0.1:8443"_s);
    QCOMPARE(value(1, "hardware"), QString());
    QCOMPARE(recorders.address(1), u"127.0.0.1:8443"_s);
    QCOMPARE(recorders.address(2), QString());
    QCOMPARE(recorders.address(-1), QString());
}

void tst_FoundRecorders::search_forgetsWhatWasFoundBefore()
{
    FakeDevices devices(twoDevices);
    FoundRecorders recorders;
    const QAbstractItemModelTester tester(&recorders);
    prepare(recorders, devices, 60000);
    QSignalSpy searching(&recorders, &FoundRecorders::searchingChanged);
    recorders.search();
    QTRY_COMPARE(recorders.count(), 2);
    recorders.search();
    QCOMPARE(recorders.count(), 0);
    QCOMPARE(searching.size(), 1);
    QTRY_COMPARE(recorders.count(), 2);
    QVERIFY(recorders.isSearching());
}

void tst_FoundRecorders::stop_keepsWhatWasFound_andClearDoesNot()
{
    FakeDevices devices(twoDevices);
    FoundRecorders recorders;
    prepare(recorders, devices, 60000);
    QSignalSpy searching(&recorders, &FoundRecorders::searchingChanged);
    recorders.search();
    QTRY_COMPARE(recorders.count(), 2);
    recorders.stop();
    QVERIFY(!recorders.isSearching());
    QCOMPARE(searching.size(), 2);
    QCOMPARE(recorders.count(), 2);
    recorders.stop();
    QCOMPARE(searching.size(), 2);
    recorders.clear();
    QCOMPARE(recorders.count(), 0);
}

void tst_FoundRecorders::networkMissing_isTold()
{
    FoundRecorders recorders;
    recorders.setMulticast(false);
    recorders.search();
    QTRY_VERIFY(!recorders.isSearching());
    QVERIFY(recorders.isNetworkMissing());
}

void tst_FoundRecorders::properties_tellTheirChanges()
{
    FoundRecorders recorders;
    QSignalSpy duration(&recorders, &FoundRecorders::durationChanged);
    QSignalSpy multicast(&recorders, &FoundRecorders::multicastChanged);
    QSignalSpy addresses(&recorders, &FoundRecorders::probeAddressesChanged);
    QVERIFY(recorders.isMulticast());
    for (int time = 0; time < 2; ++time) {
        recorders.setDuration(1);
        recorders.setMulticast(false);
        recorders.setProbeAddresses({u"127.0.0.1"_s});
    }
    QCOMPARE(recorders.duration(), 100);
    recorders.setDuration(100000);
    QCOMPARE(recorders.duration(), 60000);
    QCOMPARE(duration.size(), 2);
    QCOMPARE(multicast.size(), 1);
    QCOMPARE(addresses.size(), 1);
    QCOMPARE(recorders.probeAddresses(), QStringList{u"127.0.0.1"_s});
}

QTEST_GUILESS_MAIN(tst_FoundRecorders)
#include "tst_foundrecorders.moc"
