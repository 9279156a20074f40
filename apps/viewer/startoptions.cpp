// SPDX-License-Identifier: GPL-3.0-or-later
#include "startoptions.h"
#include "translations/translations.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QCommandLineOption languageOption()
{
    return {u"language"_s, StartOptions::tr("Speak this language instead of the system's: %1.").arg(Translations::languages().join(u", "_s)),
            u"code"_s};
}

} // namespace

StartOptions::StartOptions(QObject *parent) : QObject(parent) {}

QString StartOptions::language(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption(languageOption());
    // The other arguments are none of its options; parse() judges them.
    parser.parse(arguments);
    return parser.value(u"language"_s);
}

void StartOptions::parse()
{
    QCommandLineParser parser;
    parser.setApplicationDescription(tr("Viewer for video surveillance servers."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption server(u"server"_s, tr("Log in to this server; port 8601 when none is given."),
                                    u"host[:port]"_s);
    const QCommandLineOption user(u"user"_s,
                                  tr("The user; with a password in the variable ORRIN_PASSWORD the login begins at once."),
                                  u"name"_s);
    const QCommandLineOption headless(u"headless"_s,
                                      tr("Walk through the pages, leave a screenshot of each in this folder, and end."),
                                      u"folder"_s);
    const QCommandLineOption layout(u"layout"_s, tr("Begin with this saved layout."), u"name"_s);
    const QCommandLineOption fullscreen(u"fullscreen"_s, tr("Begin in full screen."));
    const QCommandLineOption size(u"size"_s, tr("Begin with a window of this size."), u"WIDTHxHEIGHT"_s);
    const QCommandLineOption developer(u"developer"_s, tr("Developer mode: Ctrl+G shows the gallery of components."));
    const QCommandLineOption language = languageOption();
    parser.addOptions({server, user, layout, fullscreen, size, language, headless, developer});
    parser.process(*QCoreApplication::instance());
    if (parser.isSet(language) && !Translations::localeOf(parser.value(language))) {
        std::fputs(qPrintable(tr("There are no texts in the language \"%1\".").arg(parser.value(language)) + u'\n'), stderr);
        std::exit(1);
    }

    m_server = parser.value(server);
    m_user = parser.value(user);
    m_layout = parser.value(layout);
    m_fullscreen = parser.isSet(fullscreen);
    const QStringList sides = parser.value(size).split(u'x');
    m_size = sides.size() == 2 ? QSize(sides.at(0).toInt(), sides.at(1).toInt()) : QSize();
    if (parser.isSet(size) && (m_size.width() < 1 || m_size.height() < 1)) {
        std::fputs(qPrintable(tr("\"%1\" is no size; 1280x800 is one.").arg(parser.value(size)) + u'\n'), stderr);
        std::exit(1);
    }
    m_screenshots = parser.value(headless);
    m_developer = parser.isSet(developer);
    m_password = qEnvironmentVariable("ORRIN_PASSWORD");
    // Child processes and crash reports need not see it.
    qunsetenv("ORRIN_PASSWORD");
}

QString StartOptions::takePassword()
{
    return std::exchange(m_password, QString());
}
