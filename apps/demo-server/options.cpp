// SPDX-License-Identifier: GPL-3.0-or-later
#include "options.h"

#include "console.h"

#include <QCommandLineParser>
#include <QHostAddress>

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

struct OptionText
{
    QLatin1StringView name;
    QLatin1StringView value; // empty: a switch
    QLatin1StringView text;
};

constexpr OptionText Texts[] = {
    {"bind"_L1, "address"_L1, "Listen on this address (default 127.0.0.1)."_L1},
    {"north-port"_L1, "port"_L1, "HTTPS port of the recorder North (default 8601, 0 any free one)."_L1},
    {"south-port"_L1, "port"_L1, "HTTPS port of the recorder South (default 8602)."_L1},
    {"north-rtsp-port"_L1, "port"_L1, "RTSP port of the recorder North (default 8611)."_L1},
    {"south-rtsp-port"_L1, "port"_L1, "RTSP port of the recorder South (default 8612)."_L1},
    {"free-ports"_L1, ""_L1, "Use any free port for everything that has no port option."_L1},
    {"discovery-port"_L1, "port"_L1,
     "UDP port where clients find the recorders by WS-Discovery (default 3702, 0 any free one)."_L1},
    {"no-discovery"_L1, ""_L1, "Do not answer clients that look for recorders."_L1},
    {"state-dir"_L1, "folder"_L1, "Keep keys and certificates in this folder (default: in memory only)."_L1},
    {"user"_L1, "name:password:level"_L1,
     "Add or replace a user; level is administrator, installer, operator or user. May be repeated."_L1},
    {"clock-offset"_L1, "seconds"_L1, "The device's clock is off by this much."_L1},
    {"plain-onvif"_L1, ""_L1, "Leave the site extension out, as a device of another make does."_L1},
    {"plain-rtsp"_L1, ""_L1, "RTSP without TLS."_L1},
    {"max-sessions"_L1, "count"_L1, "Sessions of the site extension at a time and recorder (default 32)."_L1},
    {"lock-after"_L1, "count"_L1, "Lock an account after this many wrong passwords (default: never)."_L1},
    {"lock-seconds"_L1, "seconds"_L1, "How long an account is locked (default 60)."_L1},
    {"command"_L1, "command"_L1, "Run this console command at start. May be repeated."_L1},
    {"exit-with-stdin"_L1, ""_L1, "End when standard input is closed."_L1},
};

/*! Reads numbers out of options; remembers the first mistake. */
class NumberReader
{
public:
    NumberReader(const QCommandLineParser &parser, QString *error) : m_parser(parser), m_error(error) {}

    qint64 read(const QString &name, qint64 fallback, qint64 minimum, qint64 maximum)
    {
        if (!m_parser.isSet(name))
            return fallback;
        bool valid = false;
        const qint64 value = m_parser.value(name).toLongLong(&valid);
        if (valid && value >= minimum && value <= maximum)
            return value;
        m_failed = true;
        *m_error = u"--%1 wants a number from %2 to %3, not \"%4\""_s.arg(
            name, QString::number(minimum), QString::number(maximum), m_parser.value(name));
        return fallback;
    }

    bool failed() const { return m_failed; }

private:
    const QCommandLineParser &m_parser;
    QString *m_error;
    bool m_failed = false;
};

std::optional<User> parseUser(const QString &text)
{
    // The password stands in the middle and may hold colons.
    const qsizetype first = text.indexOf(u':');
    const qsizetype last = text.lastIndexOf(u':');
    if (first <= 0 || last <= first)
        return std::nullopt;
    const std::optional<UserLevel> level = levelFromName(QStringView(text).sliced(last + 1));
    if (!level)
        return std::nullopt;
    return User{0, text.left(first), text.sliced(first + 1, last - first - 1), *level};
}

} // namespace

Site Options::site() const
{
    Site site = Site::builtIn();
    for (RecorderInfo &recorder : site.recorders) {
        recorder.clock = DeviceClock(clockOffset);
        recorder.startedMs = recorder.clock.nowMs();
    }
    int nextId = int(site.users.size());
    for (const User &user : users) {
        const auto same = std::ranges::find(site.users, user.name, &User::name);
        if (same == site.users.end()) {
            site.users.append(user);
            site.users.last().id = ++nextId;
        } else {
            same->password = user.password;
            same->level = user.level;
        }
    }
    return site;
}

std::optional<Options> Options::parse(const QStringList &arguments, QString *error)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"A site of two recorders with twelve cameras, for trying out and testing clients.\n\n"
        "It prints one line of JSON when it is ready, and answers console commands, one a line, on standard "
        "input:\n\n"_s +
        Console::help());
    parser.addHelpOption();
    for (const OptionText &text : Texts) {
        const QString name(text.name);
        parser.addOption(text.value.isEmpty() ? QCommandLineOption(name, text.text)
                                              : QCommandLineOption(name, text.text, text.value));
    }
    if (!parser.parse(arguments)) {
        *error = parser.errorText();
        return std::nullopt;
    }
    if (parser.isSet(u"help"_s))
        parser.showHelp(0);
    if (!parser.positionalArguments().isEmpty()) {
        *error = u"unknown argument \"%1\""_s.arg(parser.positionalArguments().constFirst());
        return std::nullopt;
    }

    Options options;
    NumberReader numbers(parser, error);
    const bool free = parser.isSet(u"free-ports"_s);
    const auto port = [&numbers, free](const QString &name, quint16 standard) {
        return quint16(numbers.read(name, free ? 0 : standard, 0, 65535));
    };
    options.httpPorts = {port(u"north-port"_s, 8601), port(u"south-port"_s, 8602)};
    options.discoveryPort = port(u"discovery-port"_s, 3702);
    options.rtspPorts = {port(u"north-rtsp-port"_s, 8611), port(u"south-rtsp-port"_s, 8612)};
    options.clockOffset =
        std::chrono::seconds(numbers.read(u"clock-offset"_s, 0, -1'000'000'000, 1'000'000'000));
    options.maximumSessions = int(numbers.read(u"max-sessions"_s, options.maximumSessions, 0, 10000));
    options.lockAfter = int(numbers.read(u"lock-after"_s, 0, 0, 1000));
    options.lockTime =
        std::chrono::seconds(numbers.read(u"lock-seconds"_s, options.lockTime.count(), 1, 1'000'000));
    if (numbers.failed())
        return std::nullopt;
    if (parser.isSet(u"bind"_s))
        options.address = parser.value(u"bind"_s);
    if (QHostAddress(options.address).isNull()) {
        *error = u"--bind wants an IP address, not \"%1\""_s.arg(options.address);
        return std::nullopt;
    }
    for (const QString &text : parser.values(u"user"_s)) {
        const std::optional<User> user = parseUser(text);
        if (!user) {
            *error = u"--user wants NAME:PASSWORD:LEVEL"_s;
            return std::nullopt;
        }
        options.users.append(*user);
    }
    options.stateFolder = parser.value(u"state-dir"_s);
    if (parser.isSet(u"no-discovery"_s))
        options.discoveryPort.reset();
    options.plainOnvif = parser.isSet(u"plain-onvif"_s);
    options.plainRtsp = parser.isSet(u"plain-rtsp"_s);
    options.exitWithStandardInput = parser.isSet(u"exit-with-stdin"_s);
    options.commands = parser.values(u"command"_s);
    return options;
}

} // namespace orrin::demo
