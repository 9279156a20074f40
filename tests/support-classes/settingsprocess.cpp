// SPDX-License-Identifier: GPL-3.0-or-later
// Uses the settings in a process of its own: settings-process <command> [arguments]; the folder comes from XDG_CONFIG_HOME.
// Commands end with status 0 unless they were used wrongly.

#include "support/qmlsettings.h"

#include <contract/core/orrinsdk.h>

#include <QCoreApplication>
#include <QSettings>
#include <QTextStream>
#include <QVariant>

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <unistd.h>

using namespace orrin;

namespace {

constexpr unsigned NobodyId = 65534;

/*! Gives up the rights of an administrator, who may write everywhere. */
bool becomeOrdinary()
{
    return geteuid() != 0 || (setgid(NobodyId) == 0 && setuid(NobodyId) == 0);
}

bool limitFileSize(unsigned long bytes)
{
    // A write past the limit then fails as it does on a full disk, with an error number.
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

/*! Saves again and again, with a key of its own beside the settings each time; prints a line per round. */
void saveRounds(const QString &label, int rounds)
{
    QTextStream out(stdout);
    QmlSettings settings;
    for (int round = 0; round < rounds; ++round) {
        QSettings others(QSettings::IniFormat, QSettings::UserScope, OrrinSDK::instance()->localConfigOrganisationName(),
                         OrrinSDK::instance()->localConfigApplicationName());
        others.setValue(QStringLiteral("%1%2").arg(label).arg(round), round);
        others.sync();
        settings.addHost(QStringLiteral("recorder.example"));
        out << round << Qt::endl;
    }
}

} // namespace

int main(int argc, char *argv[])
{
    // No screens here: the settings must do without.
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    const QString command = arguments.value(0);
    if (arguments.size() < 3)
        return EXIT_FAILURE;
    OrrinSDK::initInstance(arguments.at(1), arguments.at(2), nullptr, QStringLiteral("settingsprocess.log"));

    if (command == QStringLiteral("facts")) {
        const QmlSettings settings;
        QTextStream(stdout) << settings.screenWidth() << ' ' << settings.desktopAvailableHeight() << ' '
                            << settings.devicePixelRatio() << ' ' << settings.fullscreen() << ' '
                            << settings.controlHeightHints() << Qt::endl;
        return EXIT_SUCCESS;
    }
    if (command == QStringLiteral("crash")) {
        QmlSettings settings;
        settings.setProperty("layoutDimLowStream", 7);
        std::_Exit(EXIT_SUCCESS);
    }
    if (command == QStringLiteral("rounds")) {
        saveRounds(arguments.value(3), arguments.value(4).toInt());
        return EXIT_SUCCESS;
    }
    if (command == QStringLiteral("ordinary") && becomeOrdinary()) {
        QmlSettings settings;
        settings.addHost(QStringLiteral("lost.example"));
        return EXIT_SUCCESS;
    }
    if (command == QStringLiteral("limited") && limitFileSize(arguments.value(3).toULong())) {
        QmlSettings settings;
        settings.addHost(QStringLiteral("lost.example"));
        return EXIT_SUCCESS;
    }
    return EXIT_FAILURE;
}
