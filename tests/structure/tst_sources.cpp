// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTest>

namespace {

const QStringList suffixes = {QStringLiteral("cpp"),  QStringLiteral("h"),    QStringLiteral("qml"),
                              QStringLiteral("vert"), QStringLiteral("frag"), QStringLiteral("cmake")};

bool isSource(const QFileInfo &file, const QByteArray &firstLine)
{
    return suffixes.contains(file.suffix()) || file.fileName() == QStringLiteral("CMakeLists.txt") ||
           firstLine.startsWith("#!");
}

} // namespace

class tst_Sources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sources_beginWithTheirLicence_data()
    {
        QTest::addColumn<int>("atLeast");
        QTest::newRow("src") << 30;
        QTest::newRow("sdk") << 30;
        QTest::newRow("qml") << 4;
        QTest::newRow("shaders") << 2;
        QTest::newRow("tests") << 10;
        QTest::newRow("apps") << 0;
        QTest::newRow("benchmarks") << 0;
        QTest::newRow("scripts") << 0;
        QTest::newRow("cmake") << 1;
    }

    void sources_beginWithTheirLicence()
    {
        QFETCH(int, atLeast);
        QStringList wrong;
        int checked = 0;
        QDirIterator files(QStringLiteral(ORRIN_SOURCE_DIR "/") + QLatin1StringView(QTest::currentDataTag()),
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
            QByteArray line = file.readLine();
            if (!isSource(files.fileInfo(), line))
                continue;
            ++checked;
            if (line.startsWith("#!"))
                line = file.readLine();
            if (!line.trimmed().endsWith("SPDX-License-Identifier: GPL-3.0-or-later"))
                wrong.append(file.fileName());
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
        QVERIFY(checked >= atLeast);
    }
};

QTEST_GUILESS_MAIN(tst_Sources)
#include "tst_sources.moc"
