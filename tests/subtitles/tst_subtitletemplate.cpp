// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/subtitles/subtitletemplate.h"

#include <QTest>

using namespace orrin;

namespace {

/*! "ServerName", "Time(hh:mm)" and "'text'", in their order. */
QStringList piecesOf(const QString &text)
{
    QStringList list;
    const QList<SubtitleTemplate::Piece> pieces = SubtitleTemplate::parse(text).pieces();
    for (const SubtitleTemplate::Piece &piece : pieces) {
        if (piece.tag == SubtitleTag::Literal)
            list.append(QStringLiteral("'%1'").arg(piece.argument));
        else if (piece.hasArgument)
            list.append(QStringLiteral("%1(%2)").arg(int(piece.tag)).arg(piece.argument));
        else
            list.append(QString::number(int(piece.tag)));
    }
    return list;
}

QString number(SubtitleTag tag)
{
    return QString::number(int(tag));
}

} // namespace

class tst_SubtitleTemplate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parse_yieldsNothing_whenTextIsEmpty()
    {
        QVERIFY(SubtitleTemplate::parse(QString()).pieces().isEmpty());
    }

    void parse_keepsTextBetweenTags()
    {
        QCOMPARE(piecesOf(QStringLiteral(" - [<SortID>] <CameraName>")),
                 QStringList({QStringLiteral("' - ['"), number(SubtitleTag::SortId), QStringLiteral("'] '"),
                              number(SubtitleTag::CameraName)}));
    }

    void parse_takesArgumentToTheClosingBracket()
    {
        QCOMPARE(
            piecesOf(QStringLiteral(
                "<Date1a:dd MMM><D3a: yyyy><D1a: - ><Time:hh:mm:ss.zzz> <TimeAgo:(- ><TimeAgo><TimeAgo:)>")),
            QStringList({number(SubtitleTag::Date) + QStringLiteral("(dd MMM)"),
                         number(SubtitleTag::DateYear) + QStringLiteral("( yyyy)"),
                         number(SubtitleTag::DateLiteral) + QStringLiteral("( - )"),
                         number(SubtitleTag::Time) + QStringLiteral("(hh:mm:ss.zzz)"), QStringLiteral("' '"),
                         number(SubtitleTag::TimeAgo) + QStringLiteral("((- )"), number(SubtitleTag::TimeAgo),
                         number(SubtitleTag::TimeAgo) + QStringLiteral("())")}));
    }

    void parse_leavesTextAsItIs_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("markup") << QStringLiteral("<font color='white'>x</font><p><b>");
        QTest::newRow("unknown tag") << QStringLiteral("<Nothing>");
        QTest::newRow("other case") << QStringLiteral("<servername>");
        QTest::newRow("blank in the name") << QStringLiteral("< ServerName>");
        QTest::newRow("no closing bracket") << QStringLiteral("a <ServerName");
        QTest::newRow("empty brackets") << QStringLiteral("<>");
        QTest::newRow("brackets alone") << QStringLiteral("<<>>");
        QTest::newRow("argument where none is taken") << QStringLiteral("<ServerName:x>");
        QTest::newRow("line breaks") << QStringLiteral("\n    a\n");
    }

    void parse_leavesTextAsItIs()
    {
        QFETCH(QString, text);
        QCOMPARE(piecesOf(text), QStringList(QStringLiteral("'%1'").arg(text)));
    }

    void parse_findsTagBehindOpenBracket()
    {
        QCOMPARE(piecesOf(QStringLiteral("1 < 2 <SID>")),
                 QStringList({QStringLiteral("'1 < 2 '"), number(SubtitleTag::ServerId)}));
        QCOMPARE(piecesOf(QStringLiteral("<<SID>>")),
                 QStringList({QStringLiteral("'<'"), number(SubtitleTag::ServerId), QStringLiteral("'>'")}));
    }

    void parse_tellsEmptyArgumentFromNone()
    {
        const SubtitleTemplate with = SubtitleTemplate::parse(QStringLiteral("<TimeAgo:>"));
        QCOMPARE(with.pieces().size(), 1);
        QVERIFY(with.pieces().first().hasArgument);
        QVERIFY(!SubtitleTemplate::parse(QStringLiteral("<TimeAgo>")).pieces().first().hasArgument);
    }

    void parse_endsInTime_whenTextIsAllBrackets()
    {
        const QString text(20'000, QLatin1Char('<'));
        QCOMPARE(SubtitleTemplate::parse(text + QLatin1Char('>')).pieces().size(), 1);
    }

    void parse_readsEachTagByItsName()
    {
        const QStringList names = SubtitleTemplate::tagNames();
        QVERIFY(!names.isEmpty());
        QSet<int> tags;
        for (const QString &name : names) {
            const auto pieces = SubtitleTemplate::parse(QStringLiteral("<%1>").arg(name)).pieces();
            QCOMPARE(pieces.size(), 1);
            QVERIFY2(pieces.first().tag != SubtitleTag::Literal, qPrintable(name));
            tags.insert(int(pieces.first().tag));
        }
        QCOMPARE(tags.size(), names.size());
    }
};

QTEST_GUILESS_MAIN(tst_SubtitleTemplate)
#include "tst_subtitletemplate.moc"
