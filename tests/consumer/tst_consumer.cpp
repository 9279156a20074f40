// SPDX-License-Identifier: GPL-3.0-or-later
// Installs the build into a folder of its own, moves that, and stands where an integrator stands: with that
// folder and nothing else.
#include "demoserverprocess.h"
#include "timestrip.h"

#include <QApplication>
#include <QDirIterator>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int BuildTimeoutMs = 240'000;
constexpr int PictureTimeoutMs = 40'000;

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isProgram(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(4) == "\x7f"
                                                             "ELF";
}

/*! The lines of "readelf -d" that say where \a path looks for libraries. */
QStringList searchPaths(const QString &path)
{
    QProcess readelf;
    readelf.start(QStringLiteral(ORRIN_READELF), {u"-dW"_s, path});
    readelf.waitForFinished();
    QStringList lines;
    for (const QString &line : QString::fromUtf8(readelf.readAllStandardOutput()).split(u'\n')) {
        if (line.contains(u"(RUNPATH)"_s) || line.contains(u"(RPATH)"_s))
            lines.append(line.section(u'[', 1).section(u']', 0, 0));
    }
    return lines;
}

/*! The time strip of a camera's picture in the upper left of the screen. */
std::optional<orrin::timestrip::Fields> pictureOnScreen()
{
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0, 0, 0, 640, 360).toImage();
    if (screen.isNull())
        return std::nullopt;
    return orrin::timestrip::read([&](double x, double y) {
        const QPoint point(int(x * screen.width()), int(y * screen.height()));
        return screen.valid(point) ? qGray(screen.pixel(point)) : 0;
    });
}

} // namespace

class tst_Consumer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void tree_namesNeitherSourcesNorBuild();
    void programs_searchBesideThemselves();
    void headers_compileTogether();
    void tile_showsACamera();
    void plugin_loads_withAnImportPathAlone();

private:
    QString run(const QString &program, const QStringList &arguments);
    QString buildProject(const QString &source, const QString &name);
    QString tree(const QString &path) const { return m_folder.filePath(u"tree/"_s + path); }

    QTemporaryDir m_folder;
    QString m_tile;
};

/*! Empty when that went well, else what was said. */
QString tst_Consumer::run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(BuildTimeoutMs) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        process.kill();
        process.waitForFinished();
        return program + u' ' + arguments.join(u' ') + u'\n' +
               QString::fromUtf8(process.readAll().right(6000));
    }
    return {};
}

QString tst_Consumer::buildProject(const QString &source, const QString &name)
{
    const QString folder = m_folder.filePath(name);
    const QString error = run(QStringLiteral(ORRIN_CMAKE),
                              {u"-S"_s, source, u"-B"_s, folder, u"-G"_s, QStringLiteral(ORRIN_GENERATOR),
                               u"-DCMAKE_CXX_COMPILER="_s + QStringLiteral(ORRIN_CXX),
                               u"-DCMAKE_CXX_STANDARD=20"_s, u"-DCMAKE_PREFIX_PATH="_s + tree({})});
    return error.isEmpty() ? run(QStringLiteral(ORRIN_CMAKE), {u"--build"_s, folder}) : error;
}

void tst_Consumer::initTestCase()
{
    QVERIFY(m_folder.isValid());
    const QString first = m_folder.filePath(u"first"_s);
    QString error = run(QStringLiteral(ORRIN_CMAKE),
                        {u"--install"_s, QStringLiteral(ORRIN_BUILD_DIR), u"--prefix"_s, first});
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QVERIFY(QDir().rename(first, tree({})));

    error = buildProject(QStringLiteral(ORRIN_SOURCE_DIR "/tests/consumer/tile"), u"tile"_s);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    m_tile = m_folder.filePath(u"tile/tile"_s);
    QVERIFY(QFile::exists(m_tile));
}

void tst_Consumer::tree_namesNeitherSourcesNorBuild()
{
    int texts = 0;
    QDirIterator files(tree({}), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        if (isProgram(path))
            continue;
        ++texts;
        const QByteArray text = contents(path);
        QVERIFY2(!text.contains(ORRIN_SOURCE_DIR) && !text.contains(ORRIN_BUILD_DIR), qPrintable(path));
        QVERIFY2(!text.contains(m_folder.filePath(u"first"_s).toUtf8()), qPrintable(path));
    }
    QVERIFY(texts > 100);
}

void tst_Consumer::programs_searchBesideThemselves()
{
    int programs = 0;
    QDirIterator files(tree({}), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        if (!isProgram(path))
            continue;
        ++programs;
        const QStringList lines = searchPaths(path);
        for (const QString &line : lines) {
            for (const QString &folder : line.split(u':', Qt::SkipEmptyParts))
                QVERIFY2(folder.startsWith(u"$ORIGIN"_s), qPrintable(path + u": "_s + folder));
        }
    }
    QVERIFY(programs >= 7); // five libraries, the plugin, and the demo server at least
}

void tst_Consumer::headers_compileTogether()
{
    const QString source = m_folder.filePath(u"headers-source"_s);
    QVERIFY(QDir().mkpath(source));
    const QDir include(tree(u"include/orrinsdkqml"_s));
    QByteArray text;
    int headers = 0;
    QDirIterator files(include.path(), {u"*.h"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        text += "#include <" + include.relativeFilePath(files.next()).toUtf8() + ">\n";
        ++headers;
    }
    QVERIFY(headers > 100);
    QFile code(source + u"/headers.cpp"_s);
    QVERIFY(code.open(QIODevice::WriteOnly));
    code.write(text);
    code.close();
    QFile project(source + u"/CMakeLists.txt"_s);
    QVERIFY(project.open(QIODevice::WriteOnly));
    project.write(
        "cmake_minimum_required(VERSION 3.25)\nproject(headers LANGUAGES CXX)\nfind_package(orrinsdkqml "
        "REQUIRED)\n"
        "add_library(headers STATIC headers.cpp)\ntarget_link_libraries(headers PRIVATE orrinsdkqml)\n");
    project.close();
    const QString error = buildProject(source, u"headers"_s);
    QVERIFY2(error.isEmpty(), qPrintable(error));
}

void tst_Consumer::tile_showsACamera()
{
    orrin::test::DemoServerProcess server;
    QVERIFY2(server.start(), qPrintable(server.errorText()));
    QProcess tile;
    tile.setProcessChannelMode(QProcess::ForwardedChannels);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TILE_PASSWORD"_s, u"orrin-admin"_s);
    for (const QString &name : {u"CONFIG"_s, u"DATA"_s, u"CACHE"_s})
        environment.insert(u"XDG_%1_HOME"_s.arg(name), m_folder.filePath(name));
    tile.setProcessEnvironment(environment);
    tile.start(m_tile, {u"127.0.0.1:%1"_s.arg(server.port()), u"admin"_s});
    QVERIFY(tile.waitForStarted());

    std::optional<orrin::timestrip::Fields> first;
    QTRY_VERIFY_WITH_TIMEOUT((first = pictureOnScreen()).has_value(), PictureTimeoutMs);
    std::optional<orrin::timestrip::Fields> later;
    QTRY_VERIFY_WITH_TIMEOUT((later = pictureOnScreen()) && later->timeMs > first->timeMs, PictureTimeoutMs);

    const QByteArray maps = contents(u"/proc/%1/maps"_s.arg(tile.processId()));
    QVERIFY(maps.contains(tree(QStringLiteral(ORRIN_LIBDIR "/liborrinsdkqml.so")).toUtf8()));
    QVERIFY(maps.contains(tree(QStringLiteral(ORRIN_LIBDIR "/liborrinsdk-core.so")).toUtf8()));
    QVERIFY(!maps.contains(ORRIN_BUILD_DIR));
    tile.terminate();
    QVERIFY(tile.waitForFinished(10'000));
}

void tst_Consumer::plugin_loads_withAnImportPathAlone()
{
    QQmlEngine engine;
    engine.addImportPath(tree(QStringLiteral(ORRIN_LIBDIR "/qt6/qml")));
    QQmlComponent component(&engine);
    component.setData(
        "import QtQuick\nimport orrinsdkqml\nItem {\n ServerModel { id: servers }\n BusySpinner { }\n"
        " VideoDisplay { serverGroupId: 1 }\n property int rows: servers.rowCount()\n}",
        QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QCOMPARE(object->property("rows").toInt(), 0);
    const QByteArray maps = contents(u"/proc/self/maps"_s);
    QVERIFY(maps.contains(
        tree(QStringLiteral(ORRIN_LIBDIR "/qt6/qml/orrinsdkqml/liborrinsdkqmlplugin.so")).toUtf8()));
    QVERIFY(maps.contains(tree(QStringLiteral(ORRIN_LIBDIR "/liborrinsdkqml.so")).toUtf8()));
    QVERIFY(!maps.contains(ORRIN_BUILD_DIR "/lib/liborrinsdk"));
}

int main(int argc, char *argv[])
{
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    tst_Consumer test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_consumer.moc"
