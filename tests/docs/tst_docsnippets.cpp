// SPDX-License-Identifier: GPL-3.0-or-later
#include "page.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin::test;

// Referenced so that the module is linked.
extern void qml_register_types_orrinsdkqml();
static void (*const volatile registrar)() = &qml_register_types_orrinsdkqml;

namespace {

const QString top = QStringLiteral(ORRIN_SOURCE_DIR);

QList<Page> pages()
{
    return Page::all(top + QStringLiteral("/docs")) + QList<Page>{Page(top + QStringLiteral("/README.md"))};
}

QList<Snippet> snippetsIn(const QString &language)
{
    QList<Snippet> list;
    for (const Page &page : pages()) {
        for (const Snippet &snippet : page.snippets()) {
            if (snippet.language == language)
                list.append(snippet);
        }
    }
    return list;
}

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void addRows(const QList<Snippet> &snippets)
{
    QTest::addColumn<QString>("text");
    for (const Snippet &snippet : snippets)
        QTest::newRow(
            qPrintable(QFileInfo(snippet.page).fileName() + QStringLiteral(":%1").arg(snippet.line)))
            << snippet.text;
}

} // namespace

class tst_DocSnippets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(registrar); }

    void fences_nameALanguageThatIsChecked()
    {
        const QStringList checked = {QStringLiteral("cpp"), QStringLiteral("qml"), QStringLiteral("sh"),
                                     QStringLiteral("cmake")};
        int count = 0;
        for (const Page &page : pages()) {
            for (const Snippet &snippet : page.snippets()) {
                QVERIFY2(checked.contains(snippet.language),
                         qPrintable(snippet.place() + u' ' + snippet.language));
                ++count;
            }
        }
        QVERIFY(count > 10);
    }

    void cpp_compiles_data()
    {
        const QList<Snippet> snippets = snippetsIn(QStringLiteral("cpp"));
        QVERIFY(snippets.size() >= 5);
        addRows(snippets);
    }

    void cpp_compiles()
    {
        QFETCH(QString, text);
        const QTemporaryDir folder;
        QFile unit(folder.filePath(QStringLiteral("snippet.cpp")));
        QVERIFY(unit.open(QIODevice::WriteOnly));
        unit.write(text.toUtf8());
        unit.close();
        QProcess compiler;
        compiler.setProcessChannelMode(QProcess::MergedChannels);
        compiler.start(QStringLiteral(ORRIN_CXX),
                       {QStringLiteral("-std=c++20"), QStringLiteral("-fPIC"),
                        QStringLiteral("-fsyntax-only"), QStringLiteral("-Wall"), QStringLiteral("-Wextra"),
                        QStringLiteral("-Werror"), QStringLiteral("@" ORRIN_SNIPPET_FLAGS), unit.fileName()});
        QVERIFY(compiler.waitForFinished(120'000));
        QVERIFY2(compiler.exitCode() == 0, compiler.readAll().constData());
    }

    void qml_loads_data()
    {
        const QList<Snippet> snippets = snippetsIn(QStringLiteral("qml"));
        QVERIFY(snippets.size() >= 4);
        addRows(snippets);
    }

    void qml_loads()
    {
        QFETCH(QString, text);
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData(text.toUtf8(), QUrl());
        QVERIFY2(component.isReady(), qPrintable(component.errorString()));
    }

    void qml_fails_whenAnExampleNamesWhatIsNotThere()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData("import orrinsdkqml\nVideoDisplay { noSuchThing: 1 }", QUrl());
        QVERIFY(component.isError());
    }

    void sh_parsesAndNamesWhatIsThere()
    {
        const QList<Snippet> snippets = snippetsIn(QStringLiteral("sh"));
        QVERIFY(!snippets.isEmpty());
        const QString presets = textOf(top + QStringLiteral("/CMakePresets.json"));
        for (const Snippet &snippet : snippets) {
            QProcess bash;
            bash.start(QStringLiteral("bash"), {QStringLiteral("-n"), QStringLiteral("-c"), snippet.text});
            QVERIFY(bash.waitForFinished());
            QVERIFY2(bash.exitCode() == 0, qPrintable(snippet.place()));
            for (const QString &line : snippet.text.split(u'\n', Qt::SkipEmptyParts)) {
                const QStringList words = line.section(QStringLiteral(" #"), 0, 0).simplified().split(u' ');
                const QString &program = words.first();
                const QString place = snippet.place() + u' ' + line;
                if (program.startsWith(QStringLiteral("build/")))
                    QVERIFY2(!QDir(top + QStringLiteral("/tests")).isEmpty(), qPrintable(place));
                else if (program.contains(u'/'))
                    QVERIFY2(QFileInfo(top + u'/' + program).isExecutable(), qPrintable(place));
                else
                    QVERIFY2(!QStandardPaths::findExecutable(program).isEmpty(), qPrintable(place));
                if (const qsizetype preset = words.indexOf(QStringLiteral("--preset")); preset >= 0)
                    QVERIFY2(presets.contains(u'"' + words.at(preset + 1) + u'"'), qPrintable(place));
            }
        }
    }

    void hostGuide_showsTheHostThatIsBuilt()
    {
        const Page guide(top + QStringLiteral("/docs/host-guide.md"));
        QStringList shown;
        for (const Snippet &snippet : guide.snippets())
            shown.append(snippet.text);
        for (const QString &file :
             {QStringLiteral("CMakeLists.txt"), QStringLiteral("main.cpp"), QStringLiteral("Tile.qml")}) {
            const QString text = textOf(top + QStringLiteral("/tests/consumer/tile/") + file);
            QVERIFY(!text.isEmpty());
            QVERIFY2(shown.contains(text.section(u'\n', 1)), qPrintable(file)); // without the licence line
        }
    }

    void links_leadSomewhere()
    {
        static const QRegularExpression link(QStringLiteral("\\]\\(([^)#]+)(#[^)]*)?\\)"));
        int count = 0;
        for (const Page &page : pages()) {
            QRegularExpressionMatchIterator matches = link.globalMatch(page.lines().join(u'\n'));
            while (matches.hasNext()) {
                const QString target = matches.next().captured(1);
                if (target.contains(QStringLiteral("://")))
                    continue;
                ++count;
                QVERIFY2(QFileInfo::exists(QFileInfo(page.path()).path() + u'/' + target),
                         qPrintable(page.path() + u' ' + target));
            }
        }
        QVERIFY(count > 10);
    }

    void index_namesEachPage()
    {
        const QString index = textOf(top + QStringLiteral("/docs/README.md"));
        const QDir docs(top + QStringLiteral("/docs"));
        for (const Page &page : Page::all(docs.path())) {
            const QString name = docs.relativeFilePath(page.path());
            if (name != QStringLiteral("README.md"))
                QVERIFY2(index.contains(u'(' + name + u')'), qPrintable(name));
        }
    }
};

QTEST_MAIN(tst_DocSnippets)
#include "tst_docsnippets.moc"
