// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QMap>
#include <QProcess>
#include <QTest>

namespace {

/*! The project's own files that each object was made of, by the object's path in the build folder. Paths of
   dependencies are relative to the source folder. */
QMap<QString, QStringList> readDependencies(const QString &program, const QDir &build, const QDir &source)
{
    QProcess ninja;
    ninja.start(program, {QStringLiteral("-C"), build.path(), QStringLiteral("-t"), QStringLiteral("deps")});
    if (!ninja.waitForFinished(60000))
        return {};
    QMap<QString, QStringList> dependencies;
    QString object;
    for (const QByteArray &line : ninja.readAllStandardOutput().split('\n')) {
        if (line.startsWith("    ")) {
            if (object.isEmpty())
                continue;
            const QString path =
                QDir::cleanPath(build.absoluteFilePath(QString::fromLocal8Bit(line.trimmed())));
            const QString relative = source.relativeFilePath(path);
            if (!relative.startsWith(QStringLiteral("../")) && !relative.startsWith(QStringLiteral("build/")))
                dependencies[object].append(relative);
        } else {
            // "path: #deps 12, deps mtime 34 (VALID)"; what is stale belongs to an earlier state of the
            // sources.
            const qsizetype end = line.indexOf(": #deps ");
            object = end > 0 && line.endsWith("(VALID)") ? QString::fromLocal8Bit(line.left(end)) : QString();
        }
    }
    return dependencies;
}

bool isBelow(const QString &path, const char *folder)
{
    return path.startsWith(QLatin1StringView(folder));
}

} // namespace

/*! The arrows between the folders, proved by what the compiler has read. */
class tst_Includes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        dependencies = readDependencies(QStringLiteral(ORRIN_NINJA), QDir(QStringLiteral(ORRIN_BUILD_DIR)),
                                        QDir(QStringLiteral(ORRIN_SOURCE_DIR)));
        QVERIFY(!dependencies.isEmpty());
    }

    void folder_includesNothingAboveIt_data()
    {
        QTest::addColumn<QString>("objects");
        QTest::addColumn<QStringList>("forbidden");
        const auto row = [](const char *objects, const QStringList &forbidden) {
            QTest::newRow(objects) << QString::fromLatin1(objects) << forbidden;
        };
        const QString sdk = QStringLiteral("sdk/");
        const QString apps = QStringLiteral("apps/");
        const QString support = QStringLiteral("src/support/");
        const QString video = QStringLiteral("src/video/");
        const QString resources = QStringLiteral("src/resources/");
        row("src/CMakeFiles/orrinsdkqml.dir/", {sdk, apps});
        row("src/CMakeFiles/orrinsdkqml.dir/module/", {resources, video, support});
        row("src/CMakeFiles/orrinsdkqml.dir/resources/", {video, support});
        row("src/CMakeFiles/orrinsdkqml.dir/video/", {support});
        const QString core = QStringLiteral("sdk/core/");
        const QString codecs = QStringLiteral("sdk/codecs/");
        const QString gui = QStringLiteral("sdk/gui/");
        row("sdk/", {resources, video, support, apps});
        row("sdk/util/", {codecs, core, gui});
        row("sdk/codecs/", {core, gui});
        row("sdk/core/", {gui});
    }

    void folder_includesNothingAboveIt()
    {
        QFETCH(QString, objects);
        QFETCH(QStringList, forbidden);
        QStringList wrong;
        int checked = 0;
        for (auto it = dependencies.cbegin(); it != dependencies.cend(); ++it) {
            if (!it.key().startsWith(objects))
                continue;
            ++checked;
            for (const QString &path : it.value()) {
                for (const QString &folder : std::as_const(forbidden)) {
                    if (path.startsWith(folder))
                        wrong.append(it.key() + QStringLiteral(" includes ") + path);
                }
            }
        }
        QVERIFY2(checked > 0, "nothing was built in that folder");
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
    }

    void sdk_takesTheContractAlone_ofTheModule()
    {
        QStringList wrong;
        for (auto it = dependencies.cbegin(); it != dependencies.cend(); ++it) {
            if (!isBelow(it.key(), "sdk/"))
                continue;
            for (const QString &path : it.value()) {
                if (isBelow(path, "src/") && !isBelow(path, "src/module/contract/"))
                    wrong.append(it.key() + QStringLiteral(" includes ") + path);
            }
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
    }

    void viewer_usesPublicHeadersAlone()
    {
        QStringList wrong;
        for (auto it = dependencies.cbegin(); it != dependencies.cend(); ++it) {
            if (!isBelow(it.key(), "apps/viewer/"))
                continue;
            for (const QString &path : it.value()) {
                if (isBelow(path, "sdk/") || (isBelow(path, "src/") && path.endsWith(QStringLiteral("_p.h"))))
                    wrong.append(it.key() + QStringLiteral(" includes ") + path);
            }
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
    }

private:
    QMap<QString, QStringList> dependencies;
};

QTEST_GUILESS_MAIN(tst_Includes)
#include "tst_includes.moc"
