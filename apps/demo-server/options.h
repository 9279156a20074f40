// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "site/site.h"

#include <QHash>
#include <QStringList>

#include <chrono>
#include <optional>

namespace orrin::demo {

/*! What the command line asked for. A plain value. */
struct Options
{
    QString address = QStringLiteral("127.0.0.1");
    QList<quint16> httpPorts{8601, 8602}; //!< one a recorder, 0 is any free port
    QList<quint16> rtspPorts{8611, 8612};
    QString stateFolder; //!< empty: keys live in memory only
    QList<User> users;   //!< in addition to the built-in ones, or in place of those with the same name
    std::chrono::seconds clockOffset{0};
    std::optional<quint16> discoveryPort = 3702; //!< UDP port of WS-Discovery, 0 is any free port; empty: off
    bool plainOnvif = false;
    bool plainRtsp = false;
    bool exitWithStandardInput = false;
    int maximumSessions = 32;
    int lockAfter = 0; //!< 0: never
    std::chrono::seconds lockTime{60};
    QStringList commands; //!< console commands to run before the server is ready

    /*! The site with the users of the command line. */
    Site site() const;

    /*! Parses \a arguments (with the program's name first). Empty, with \a error set, when they make no
     * sense. Ends the process for --help. */
    static std::optional<Options> parse(const QStringList &arguments, QString *error);
};

} // namespace orrin::demo
