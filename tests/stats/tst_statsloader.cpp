// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/statsloader.h"
#include "fakestatssession.h"

#include <QSignalSpy>
#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;

class tst_StatsLoader : public QObject
{
    Q_OBJECT

private:
    static StatsPage page(qint64 time, std::optional<qint64> next = {})
    {
        StatsPage page;
        page.times = {time};
        page.next = next;
        return page;
    }
    static StatsContents contents() { return {{u"CPU%"_s}, 10000, 0}; }

private Q_SLOTS:
    void span_isReadPageByPage()
    {
        FakeStatsSession session;
        StatsLoader loader;
        QSignalSpy known(&loader, &StatsLoader::contentsKnown);
        QSignalSpy pages(&loader, &StatsLoader::pageRead);
        QSignalSpy loaded(&loader, &StatsLoader::loaded);
        loader.setSession(&session);
        QVERIFY(!loader.isIdle());
        loader.load({1000, 9000, 1000});
        QCOMPARE(session.requests.size(), 1u);
        session.answerContents(contents());
        QCOMPARE(known.count(), 1);
        QCOMPARE(session.requests.size(), 1u);
        QCOMPARE(session.requests.front().query->fromMs, 1000);
        QCOMPARE(session.requests.front().query->stepMs, 1000);
        session.answerPage(page(1000, 4000));
        QCOMPARE(session.requests.front().query->fromMs, 4000);
        QCOMPARE(session.requests.front().query->toMs, 9000);
        QCOMPARE(loaded.count(), 0);
        session.answerPage(page(4000));
        QCOMPARE(pages.count(), 2);
        QCOMPARE(loaded.count(), 1);
        QVERIFY(loader.isIdle());
        QVERIFY(session.requests.empty());
    }

    void pages_end_whenTheyDoNotLeadOn_data()
    {
        QTest::addColumn<qint64>("next");
        QTest::newRow("back") << qint64(500);
        QTest::newRow("same") << qint64(1000);
        QTest::newRow("beyond") << qint64(9001);
    }

    void pages_end_whenTheyDoNotLeadOn()
    {
        QFETCH(const qint64, next);
        FakeStatsSession session;
        StatsLoader loader;
        QSignalSpy loaded(&loader, &StatsLoader::loaded);
        loader.setSession(&session);
        session.answerContents(contents());
        loader.load({1000, 9000, 1000});
        session.answerPage(page(1000, next));
        QCOMPARE(loaded.count(), 1);
        QVERIFY(session.requests.empty());
    }

    void pages_areBounded()
    {
        FakeStatsSession session;
        StatsLoader loader;
        QSignalSpy loaded(&loader, &StatsLoader::loaded);
        loader.setSession(&session);
        session.answerContents(contents());
        loader.load({0, 1000000, 1});
        int pages = 0;
        while (!session.requests.empty() && pages < 5000) {
            const qint64 from = session.requests.front().query->fromMs;
            session.answerPage(page(from, from + 1));
            ++pages;
        }
        QVERIFY(pages <= 512);
        QCOMPARE(loaded.count(), 1);
    }

    void answers_toOlderRequests_areDropped()
    {
        FakeStatsSession session;
        StatsLoader loader;
        QSignalSpy pages(&loader, &StatsLoader::pageRead);
        loader.setSession(&session);
        session.answerContents(contents());
        loader.load({0, 1000, 1});
        loader.load({5000, 6000, 1});
        QCOMPARE(session.requests.size(), 2u);
        session.answerPage(page(0));
        QCOMPARE(pages.count(), 0);
        session.answerPage(page(5000));
        QCOMPARE(pages.count(), 1);
    }

    void refusal_isFinal_data()
    {
        QTest::addColumn<StatsError>("error");
        QTest::newRow("unsupported") << StatsError::Unsupported;
        QTest::newRow("not permitted") << StatsError::NotPermitted;
    }

    void refusal_isFinal()
    {
        QFETCH(const StatsError, error);
        FakeStatsSession session;
        StatsLoader loader;
        QSignalSpy failed(&loader, &StatsLoader::failed);
        loader.setSession(&session);
        session.answerContents(error);
        QCOMPARE(failed.count(), 1);
        loader.load({0, 1000, 1});
        loader.retryNow();
        QVERIFY(session.requests.empty());
        // Another login may bring other rights.
        loader.setSession(&session);
        QCOMPARE(session.requests.size(), 1u);
    }

    void failure_isTriedAgain()
    {
        FakeStatsSession session;
        StatsLoader loader;
        QSignalSpy failed(&loader, &StatsLoader::failed);
        loader.setSession(&session);
        session.answerContents(StatsError::Failed);
        QCOMPARE(failed.count(), 1);
        QVERIFY(session.requests.empty());
        loader.load({0, 1000, 1});
        QVERIFY(session.requests.empty()); // not at once
        QTRY_COMPARE_WITH_TIMEOUT(session.requests.size(), 1u, 5000);
        session.answerContents(contents());
        session.answerPage(StatsError::Failed);
        loader.retryNow();
        QCOMPARE(session.requests.size(), 1u);
        QCOMPARE(session.requests.front().query->toMs, 1000);
    }

    void lostSession_isWaitedFor()
    {
        FakeStatsSession session;
        StatsLoader loader;
        QSignalSpy failed(&loader, &StatsLoader::failed);
        loader.setSession(&session);
        session.answerContents(contents());
        loader.load({0, 1000, 1});
        Q_EMIT session.lost(ConnectionError(ConnectionError::ConnectionLost));
        QCOMPARE(failed.count(), 1);
        QCOMPARE(failed[0][0].value<StatsError>(), StatsError::Disconnected);
        // The answer that was under way does not come any more, or too late.
        session.answerPage(page(0));
        Q_EMIT session.restored();
        QCOMPARE(session.requests.size(), 1u);
    }

    void session_mayGo()
    {
        StatsLoader loader;
        {
            FakeStatsSession session;
            loader.setSession(&session);
        }
        QVERIFY(!loader.hasSession());
        loader.load({0, 1000, 1});
        loader.retryNow();
        loader.setSession(nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_StatsLoader)
#include "tst_statsloader.moc"
