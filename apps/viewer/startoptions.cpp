// SPDX-License-Identifier: GPL-3.0-or-later
#include "startoptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <utility>

using namespace Qt::StringLiterals;

StartOptions::StartOptions(QObject *parent) : QObject(parent) {}

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
    const QCommandLineOption developer(u"developer"_s, tr("Developer mode: Ctrl+G shows the gallery of components."));
    parser.addOptions({server, user, headless, developer});
    parser.process(*QCoreApplication::instance());

    m_server = parser.value(server);
    m_user = parser.value(user);
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
