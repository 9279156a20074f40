// SPDX-License-Identifier: GPL-3.0-or-later
#include "subtitlestream.h"

#include "core/stream/subtitles/subtitletemplate.h"

#include <contract/core/subtitlesgenerator.h>

#include <QFile>
#include <QTest>

using namespace orrin;

namespace {

/*! The rows of the tables behind the heading \a heading, without the first two; cells lose one blank at each
 * side. */
QList<QStringList> tableRows(const QString &heading)
{
    QFile page(QStringLiteral(ORRIN_TAGS_PAGE));
    if (!page.open(QIODevice::ReadOnly))
        return {};
    QList<QStringList> rows;
    bool inside = false;
    for (const QString &line : QString::fromUtf8(page.readAll()).split(u'\n')) {
        if (line.startsWith(QStringLiteral("## ")))
            inside = line.mid(3) == heading;
        if (!inside || !line.startsWith(QStringLiteral("| `")))
            continue;
        QStringList cells;
        for (const QString &cell : line.mid(1).chopped(1).split(u'|'))
            cells.append(cell.startsWith(u' ') && cell.endsWith(u' ') && cell.size() > 1
                             ? cell.mid(1).chopped(1)
                             : cell);
        rows.append(cells);
    }
    return rows;
}

QString withoutTicks(QString cell)
{
    return cell.remove(u'`');
}

} // namespace

/*! The page for users and the code tell the same. */
class tst_SubtitleTags : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void page_listsTheTagsOfTheCode_andNoOther()
    {
        QSet<QString> listed;
        for (const QString &heading : {QStringLiteral("Values"), QStringLiteral("States")}) {
            const QList<QStringList> rows = tableRows(heading);
            QVERIFY(!rows.isEmpty());
            for (const QStringList &row : rows)
                listed.insert(withoutTicks(row.first()));
        }
        const QStringList names = SubtitleTemplate::tagNames();
        QCOMPARE(listed, QSet<QString>(names.begin(), names.end()));
    }

    void examples_readAsThePageSays()
    {
        SubtitleStream site;
        QVERIFY(site.server);
        for (const QStringList &row : tableRows(QStringLiteral("Values"))) {
            QCOMPARE(row.size(), 5);
            SubtitlesGenerator generator;
            generator.compileSubtitleTemplate(withoutTicks(row.at(3)), false);
            generator.setParameters(SubtitleStream::frame(), SubtitleStream::ServerNowMs,
                                    SubtitleStream::ClientNowMs, StreamState::Rewind, -4);
            QCOMPARE(generator.generate(), row.at(4));
        }
    }

    void words_areThoseOfThePage()
    {
        SubtitleStream site;
        QVERIFY(site.server);
        site.stream->setFakeConnection(&site.connection);
        const QHash<QString, StreamState> states = {{QStringLiteral("LIVE"), StreamState::Live},
                                                    {QStringLiteral("PLAY"), StreamState::Play},
                                                    {QStringLiteral("PAUSED"), StreamState::Paused},
                                                    {QStringLiteral("FRAME"), StreamState::Step},
                                                    {QStringLiteral("FORWARD"), StreamState::FastForward},
                                                    {QStringLiteral("REWIND"), StreamState::Rewind},
                                                    {QStringLiteral("REC"), StreamState::Stopped}};
        const QList<QStringList> rows = tableRows(QStringLiteral("States"));
        QCOMPARE(rows.size(), states.size());
        for (const QStringList &row : rows) {
            QVERIFY2(states.contains(row.at(2)), qPrintable(row.at(2)));
            SubtitlesGenerator generator;
            generator.compileSubtitleTemplate(QStringLiteral("<%1>").arg(withoutTicks(row.first())), false);
            const bool recording = row.at(2) == QStringLiteral("REC");
            site.connection.end =
                recording ? dateTimeToTime300(QDateTime::fromMSecsSinceEpoch(SubtitleStream::ServerNowMs))
                          : 0;
            generator.setParameters(SubtitleStream::frame(), SubtitleStream::ServerNowMs,
                                    SubtitleStream::ClientNowMs, states.value(row.at(2)), 1);
            QCOMPARE(generator.generate(), row.at(2));
        }
    }
};

QTEST_GUILESS_MAIN(tst_SubtitleTags)
#include "tst_subtitletags.moc"
