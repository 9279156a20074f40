// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/events/eventmodel_p.h"

#include <contract/core/eventmanager.h>
#include <contract/core/eventmodel.h>
#include <contract/core/eventspreferences.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <QTimeZone>

using namespace orrin;
using namespace Qt::StringLiterals;

class TestEventModel : public QObject
{
    Q_OBJECT

private:
    static QList<EventRecord> batch(int first, int count, quint64 uid = 1)
    {
        QList<EventRecord> records;
        for (int i = first; i < first + count; ++i) {
            EventRecord record;
            record.cause = QString::number(i);
            record.serverUid = uid;
            records.append(record);
        }
        return records;
    }

    void setLimit(int rows) { m_preferences->item(EventsPreferences::MAXIMUM_ROWS, {})->setValue(rows); }
    EventModelPrivate &data() { return *m_model->d_func(); }
    QString cause(int row) const { return m_model->index(row).data(EventModel::CauseStringRole).toString(); }

    QSharedPointer<EventsPreferences> m_preferences;
    QSharedPointer<EventModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;

private Q_SLOTS:
    void init()
    {
        QStandardPaths::setTestModeEnabled(true);
        OrrinSDK::initInstance(u"orrin-tests"_s, u"tst_eventmodel"_s, nullptr, u"test.log"_s);
        m_preferences = QSharedPointer<EventsPreferences>::create();
        OrrinSDK::instance()->preferences()->addPreferenceGroup(m_preferences);
        setLimit(500);
        m_model = OrrinSDK::instance()->eventManager()->liveEvents();
        m_tester = std::make_unique<QAbstractItemModelTester>(
            m_model.data(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
        OrrinSDK::shutdown();
    }

    void batch_isOneInsertion_newestFirst()
    {
        QSignalSpy inserted(m_model.data(), &QAbstractItemModel::rowsInserted);
        QSignalSpy reset(m_model.data(), &QAbstractItemModel::modelReset);
        data().append(batch(0, 3));
        data().append(batch(3, 2));
        QCOMPARE(inserted.size(), 2);
        QCOMPARE(inserted[1][1].toInt(), 0);
        QCOMPARE(inserted[1][2].toInt(), 1);
        QVERIFY(reset.isEmpty());
        for (int row = 0; row < 5; ++row)
            QCOMPARE(cause(row), QString::number(4 - row));
    }

    void list_neverExceedsItsLimit()
    {
        setLimit(10);
        int largest = 0;
        connect(m_model.data(), &QAbstractItemModel::rowsInserted, this,
                [&] { largest = std::max(largest, m_model->rowCount()); });
        for (int i = 0; i < 20; ++i)
            data().append(batch(i * 7, 7));
        QCOMPARE(largest, 10);
        QCOMPARE(m_model->rowCount(), 10);
        QCOMPARE(cause(0), u"139"_s);
        QCOMPARE(cause(9), u"130"_s);
        data().append(batch(1000, 25));
        QCOMPARE(m_model->rowCount(), 10);
        QCOMPARE(cause(0), u"1024"_s);
        QCOMPARE(cause(9), u"1015"_s);
        setLimit(4);
        data().append(batch(2000, 1));
        QCOMPARE(m_model->rowCount(), 4);
        data().append(QList<EventRecord>());
        QCOMPARE(m_model->rowCount(), 4);
    }

    void numbers_countWhatCame_alsoWhatDidNotFit()
    {
        setLimit(2);
        data().append(batch(0, 5, 7));
        data().append(batch(5, 1, 8));
        const auto number = [this](int row, int role) { return m_model->index(row).data(role).toULongLong(); };
        QCOMPARE(number(1, EventModel::IdRole), 5ull);
        QCOMPARE(number(1, EventModel::InstanceNumberRole), 5ull);
        QCOMPARE(number(0, EventModel::IdRole), 6ull);
        QCOMPARE(number(0, EventModel::InstanceNumberRole), 1ull);
    }

    void details_areRoles()
    {
        EventRecord record;
        record.cause = u"Motion ended"_s;
        record.baseCause = u"Motion"_s;
        record.serverUid = 0x4f52494e4e525448ULL;
        record.serverName = u"North"_s;
        record.sourceId = u"VS_2"_s;
        record.sourceName = u"Gate"_s;
        record.text = u"State=false"_s;
        record.state = EventDescription::State::Ended;
        record.time = QDateTime(QDate(2025, 7, 1), QTime(14, 30, 5), QTimeZone("Europe/Berlin"));
        record.sortId = 20;
        data().append(record);
        const QHash<QByteArray, QVariant> expected{
            {"id", 1},
            {"sourceId", u"VS_2"_s},
            {"sourceName", u"Gate"_s},
            {"text", u"State=false"_s},
            {"stateCode", 0},
            {"stateString", u"ended"_s},
            {"timeCode", qint64(1751373005000)},
            {"timeString", u"2025-07-01 14:30:05"_s},
            {"timeZoneOffset", 7200},
            {"timeZoneName", u"Europe/Berlin"_s},
            {"serverUniqueId", u"5715711477756875848"_s},
            {"serverName", u"North"_s},
            {"instanceNumber", 1},
            {"sortId", 20},
        };
        const QHash<int, QByteArray> names = m_model->roleNames();
        for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
            const int role = names.key(it.key(), -1);
            QVERIFY2(role >= 0, it.key().constData());
            QCOMPARE(m_model->index(0).data(role).toString(), it.value().toString());
        }
        QCOMPARE(data().causes.of(record.serverUid), QStringList{u"Motion"_s});
    }
};

QTEST_GUILESS_MAIN(TestEventModel)
#include "tst_eventmodel.moc"
