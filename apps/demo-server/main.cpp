// SPDX-License-Identifier: GPL-3.0-or-later
#include "console.h"
#include "demoserver.h"
#include "options.h"
#include "standardinput.h"
#include "terminationsignal.h"

#include <QGuiApplication>
#include <QJsonDocument>

#include <cstdio>

using namespace orrin::demo;

namespace {

void printLine(const QByteArray &line)
{
    std::fwrite(line.constData(), 1, std::size_t(line.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

int fail(const QString &error)
{
    std::fprintf(stderr, "orrin-demo-server: %s\n", qUtf8Printable(error));
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    // Pictures are painted in memory: no display is needed, and none is asked for.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("orrin-demo-server"));

    QString error;
    const std::optional<Options> options = Options::parse(QGuiApplication::arguments(), &error);
    if (!options)
        return fail(error + QStringLiteral(" (--help tells more)"));

    TerminationSignal signal;
    QObject::connect(&signal, &TerminationSignal::received, &application, &QCoreApplication::quit);
    DemoServer server(*options);
    if (!server.start(&error))
        return fail(error);

    Console console(server);
    for (const QString &command : options->commands) {
        const QString answer = console.run(command);
        if (!answer.startsWith(QLatin1StringView("ok")))
            return fail(QStringLiteral("--command %1: %2").arg(command, answer));
    }
    printLine(QJsonDocument(server.readyMessage()).toJson(QJsonDocument::Compact));

    // Queued, so that the answer to "quit" is printed first.
    QObject::connect(&console, &Console::quitRequested, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    StandardInput input;
    QObject::connect(&input, &StandardInput::line, &console,
                     [&console](const QString &line) { printLine(console.run(line).toUtf8()); });
    if (options->exitWithStandardInput)
        QObject::connect(&input, &StandardInput::closed, &application, &QCoreApplication::quit,
                         Qt::QueuedConnection);
    input.start();
    return QGuiApplication::exec();
}
