// SPDX-License-Identifier: GPL-3.0-or-later
// What each component of the module costs: the time to create one (median and slowest), the heap that one holds, and how many of its
// bindings and functions the compiler turned into native code. A component that needs what only a host registers is named as such.
//
//   bench_components [ROUNDS]     default 100
#include <contract/core/orrinsdk.h>
#include <module/orrinsdkqml.h>
#include <support/qmlsettings.h>
#include <support/qmltimetools.h>

#include <QApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QTemporaryDir>

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Compiled
{
    int native = 0;
    int all = 0;
};

/*! By the name of the component, from what the compiler noted during the build. */
QHash<QString, Compiled> compiledShares()
{
    QHash<QString, Compiled> shares;
    QDirIterator files(QStringLiteral(ORRIN_AOT_FOLDER), {u"*_qml.cpp.aotstats"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        Compiled &share = shares[files.fileName().section(u"_qml.cpp"_s, 0, 0)];
        const QJsonArray modules = QJsonDocument::fromJson(file.readAll()).array();
        for (const QJsonValue &module : modules) {
            const QJsonArray sources = module[u"moduleFiles"_s].toArray();
            for (const QJsonValue &source : sources) {
                const QJsonArray entries = source[u"entries"_s].toArray();
                share.all += int(entries.size());
                share.native += int(std::count_if(entries.begin(), entries.end(), [](const QJsonValue &entry) {
                    return entry[u"codegenSuccessfull"_s].toBool();
                }));
            }
        }
    }
    return shares;
}

QStringList componentNames()
{
    QFile file(u":/qt/qml/orrinsdkqml/qmldir"_s);
    QStringList names;
    if (!file.open(QIODevice::ReadOnly))
        return names;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString &line : lines) {
        const QStringList words = line.split(u' ');
        if (words.size() == 3 && words.at(2).endsWith(u".qml"_s))
            names.append(words.at(0));
    }
    return names;
}

std::size_t heap()
{
    return mallinfo2().uordblks;
}

} // namespace

int main(int argc, char *argv[])
{
    QTemporaryDir home;
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, QFile::encodeName(home.path()));
    QApplication application(argc, argv);
    QQuickStyle::setStyle(u"Material"_s);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 100;
    {
        orrin::QmlSettings settings;
        orrin::QmlTimeTools timeTools;
        QQmlEngine engine;
        orrin::initQmlContext(engine.rootContext());
        engine.rootContext()->setContextProperty(u"settings"_s, &settings);
        engine.rootContext()->setContextProperty(u"timeTools"_s, &timeTools);
        const QHash<QString, Compiled> shares = compiledShares();
        Compiled total;
        std::printf("%-24s %10s %10s %10s %14s\n", "component", "median us", "worst us", "heap KiB", "native");
        const QStringList names = componentNames();
        for (const QString &name : names) {
            QQmlComponent component(&engine, "orrinsdkqml", name);
            const Compiled share = shares.value(name);
            total.native += share.native;
            total.all += share.all;
            std::vector<std::unique_ptr<QObject>> made;
            // The first one loads what all share.
            made.emplace_back(component.create(engine.rootContext()));
            if (!made.front()) {
                std::printf("%-24s needs types of a host\n", qPrintable(name));
                continue;
            }
            std::vector<double> times;
            const std::size_t before = heap();
            for (int i = 0; i < rounds; ++i) {
                QElapsedTimer clock;
                clock.start();
                made.emplace_back(component.create(engine.rootContext()));
                times.push_back(double(clock.nsecsElapsed()) / 1000.0);
            }
            const double held = (double(heap()) - double(before)) / rounds / 1024.0;
            std::sort(times.begin(), times.end());
            std::printf("%-24s %10.0f %10.0f %10.1f %7d of %3d\n", qPrintable(name), times.at(times.size() / 2), times.back(), held,
                        share.native, share.all);
        }
        std::printf("native in all: %d of %d (%.0f %%)\n", total.native, total.all, 100.0 * total.native / std::max(1, total.all));
    }
    orrin::OrrinSDK::shutdown();
    return 0;
}
