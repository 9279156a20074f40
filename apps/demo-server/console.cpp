// SPDX-License-Identifier: GPL-3.0-or-later
#include "console.h"

#include "demoserver.h"

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;

struct Console::Command
{
    QStringView name;
    QStringView usage;
    QStringView text;
    QString (Console::*run)(const QStringList &words);
};

namespace {

QString ok(const QString &text = {})
{
    return text.isEmpty() ? u"ok"_s : u"ok "_s + text;
}

QString failed(const QString &text)
{
    return u"error "_s + text;
}

const QString NoRecorder = u"there is no such recorder"_s;

} // namespace

const std::vector<Console::Command> &Console::commands()
{
    static const std::vector<Command> table{
        {u"refuse", u"too-many|outside-hours|locked SECONDS|address|none [RECORDER]",
         u"refuse logins with this reason", &Console::refuse},
        {u"key", u"renew RECORDER", u"make a new TLS key", &Console::key},
        {u"rtsp", u"drop | stall on|off | garbage on|off [RECORDER]",
         u"close RTSP connections, hold frames back, send garbage", &Console::rtsp},
        {u"replay", u"drop | late SECONDS | silent on|off | wrong-range on|off [RECORDER]",
         u"end the sessions that replay, answer PLAY late, send nothing after the first frames, send the "
         "pictures of the hour before",
         &Console::replay},
        {u"http", u"silent on|off | garbage on|off [RECORDER]", u"leave requests unanswered, answer garbage",
         &Console::http},
        {u"listener", u"stop|start RECORDER", u"take a recorder off the network and back",
         &Console::listener},
        {u"user", u"lock NAME SECONDS | unlock NAME", u"lock an account by hand", &Console::user},
        {u"camera", u"enable|disable|remove RECORDER ID | rename RECORDER ID NAME | add RECORDER NAME",
         u"change the site", &Console::camera},
        {u"event",
         u"motion|video-loss RECORDER CAMERA | door|login|disk RECORDER | rate PER_SECOND [RECORDER] | "
         "subscriptions|forget [RECORDER]",
         u"report an event, set the pace of those that come by themselves, count or forget subscriptions",
         &Console::event},
        {u"server", u"leave|join RECORDER", u"take a recorder out of the group and back", &Console::server},
        {u"change", u"site|configuration [RECORDER]", u"report a change to the sessions", &Console::change},
        {u"notice", u"restart|reboot|shutdown|userTimedOut [RECORDER]", u"report a notice to the sessions",
         &Console::notice},
        {u"ptz", u"RECORDER CAMERA", u"tell where a camera looks", &Console::ptz},
        {u"clients", u"[RECORDER]", u"count sessions and RTSP connections", &Console::clients},
        {u"help", u"", u"list the commands", nullptr},
        {u"quit", u"", u"end the server", nullptr},
    };
    return table;
}

Console::Console(DemoServer &server) : m_server(server) {}

QString Console::help()
{
    QString text;
    for (const Command &command : commands()) {
        text += u"  %1 %2\n      %3\n"_s.arg(command.name, command.usage, command.text);
    }
    return text;
}

QString Console::run(const QString &line)
{
    const QStringList words = line.simplified().split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return failed(u"empty command"_s);
    const QString &name = words.constFirst();
    const auto command = std::ranges::find(commands(), name, &Command::name);
    if (command == commands().end())
        return failed(u"unknown command; \"help\" lists them"_s);
    if (name == "help"_L1) {
        QStringList usages;
        for (const Command &each : commands())
            usages.append(u"%1 %2"_s.arg(each.name, each.usage).trimmed());
        return ok(usages.join(u"; "_s));
    }
    if (name == "quit"_L1) {
        Q_EMIT quitRequested();
        return ok();
    }
    return (this->*command->run)(words);
}

Console::Recorders Console::recorders(const QStringList &words, qsizetype index)
{
    Recorders found;
    if (words.size() > index) {
        if (Recorder *recorder = m_server.recorder(words.at(index)))
            found.push_back(recorder);
        return found;
    }
    for (const auto &recorder : m_server.recorders())
        found.push_back(recorder.get());
    return found;
}

QString Console::refuse(const QStringList &words)
{
    const QString what = words.value(1);
    qsizetype next = 2;
    Refusal refusal;
    if (what == "too-many"_L1) {
        refusal.reason = Refusal::Reason::TooManyConnections;
    } else if (what == "outside-hours"_L1) {
        refusal.reason = Refusal::Reason::OutsideHours;
    } else if (what == "address"_L1) {
        refusal.reason = Refusal::Reason::AddressNotPermitted;
    } else if (what == "locked"_L1) {
        refusal = {Refusal::Reason::AccountLocked, words.value(next++).toInt()};
        if (refusal.seconds <= 0)
            return failed(u"locked wants a number of seconds"_s);
    } else if (what != "none"_L1) {
        return failed(u"unknown reason"_s);
    }
    const Recorders targets = recorders(words, next);
    if (targets.empty())
        return failed(NoRecorder);
    for (Recorder *recorder : targets)
        m_server.accounts().setRefusal(recorder->info().id, refusal);
    return ok();
}

QString Console::key(const QStringList &words)
{
    if (words.value(1) != "renew"_L1 || words.size() != 3)
        return failed(u"usage: key renew RECORDER"_s);
    Recorder *recorder = m_server.recorder(words.at(2));
    if (!recorder)
        return failed(NoRecorder);
    QString error;
    return recorder->renewKey(&error) ? ok(QString::fromLatin1(recorder->publicKeySha256().toHex()))
                                      : failed(error);
}

QString Console::rtsp(const QStringList &words)
{
    const QString what = words.value(1);
    const bool drop = what == "drop"_L1;
    const QString state = words.value(2);
    if (!drop && ((what != "stall"_L1 && what != "garbage"_L1) || (state != "on"_L1 && state != "off"_L1)))
        return failed(u"usage: rtsp drop | stall on|off | garbage on|off [RECORDER]"_s);
    const Recorders targets = recorders(words, drop ? 2 : 3);
    if (targets.empty())
        return failed(NoRecorder);
    for (Recorder *recorder : targets) {
        if (drop)
            recorder->rtsp().dropConnections();
        else if (what == "stall"_L1)
            recorder->rtsp().setStalled(state == "on"_L1);
        else
            recorder->rtsp().setGarbage(state == "on"_L1);
    }
    return ok();
}

QString Console::replay(const QStringList &words)
{
    constexpr int LongestSeconds = 20;
    const QString what = words.value(1);
    const QString state = words.value(2);
    const bool drop = what == "drop"_L1;
    bool valid = drop;
    double seconds = 0;
    if (what == "late"_L1)
        seconds = state.toDouble(&valid);
    else if (what == "silent"_L1 || what == "wrong-range"_L1)
        valid = state == "on"_L1 || state == "off"_L1;
    if (!valid || !(seconds >= 0 && seconds <= LongestSeconds))
        return failed(u"usage: replay drop | late SECONDS (up to %1) | silent on|off | wrong-range on|off "
                      "[RECORDER]"_s.arg(LongestSeconds));
    const Recorders targets = recorders(words, drop ? 2 : 3);
    if (targets.empty())
        return failed(NoRecorder);
    for (Recorder *recorder : targets) {
        ReplayControl &control = recorder->rtsp().replayControl();
        if (drop)
            recorder->rtsp().dropReplaySessions();
        else if (what == "late"_L1)
            control.lateMs = int(seconds * 1000);
        else if (what == "silent"_L1)
            control.silent = state == "on"_L1;
        else
            control.wrongRange = state == "on"_L1;
    }
    return ok();
}

QString Console::http(const QStringList &words)
{
    const QString what = words.value(1);
    const QString state = words.value(2);
    if ((what != "silent"_L1 && what != "garbage"_L1) || (state != "on"_L1 && state != "off"_L1))
        return failed(u"usage: http silent on|off | garbage on|off [RECORDER]"_s);
    const Recorders targets = recorders(words, 3);
    if (targets.empty())
        return failed(NoRecorder);
    const auto wanted = what == "silent"_L1 ? HttpListener::Mode::Silent : HttpListener::Mode::Garbage;
    for (Recorder *recorder : targets)
        recorder->setHttpMode(state == "on"_L1 ? wanted : HttpListener::Mode::Normal);
    return ok();
}

QString Console::listener(const QStringList &words)
{
    const bool stop = words.value(1) == "stop"_L1;
    if ((!stop && words.value(1) != "start"_L1) || words.size() != 3)
        return failed(u"usage: listener stop|start RECORDER"_s);
    Recorder *recorder = m_server.recorder(words.at(2));
    if (!recorder)
        return failed(NoRecorder);
    if (stop) {
        recorder->stop();
        return ok();
    }
    QString error;
    return recorder->restart(&error) ? ok() : failed(error);
}

QString Console::user(const QStringList &words)
{
    const QString name = words.value(2);
    if (!m_server.accounts().user(name))
        return failed(u"there is no such user"_s);
    if (words.value(1) == "unlock"_L1) {
        m_server.accounts().lock(name, {});
        return ok();
    }
    const int seconds = words.value(3).toInt();
    if (words.value(1) != "lock"_L1 || seconds <= 0)
        return failed(u"usage: user lock NAME SECONDS | unlock NAME"_s);
    m_server.accounts().lock(name, std::chrono::seconds(seconds));
    return ok();
}

QString Console::camera(const QStringList &words)
{
    const QString what = words.value(1);
    Recorder *recorder = m_server.recorder(words.value(2));
    if (!recorder)
        return failed(NoRecorder);
    if (what == "add"_L1 && words.size() > 3)
        return addCamera(*recorder, words.sliced(3).join(u' '));
    if (what == "remove"_L1)
        return removeCamera(*recorder, words.value(3).toInt());
    Camera *camera = recorder->info().camera(words.value(3).toInt());
    if (!camera)
        return failed(u"there is no such camera"_s);
    if (what == "enable"_L1 || what == "disable"_L1) {
        camera->enabled = what == "enable"_L1;
    } else if (what == "rename"_L1 && words.size() > 4) {
        camera->name = words.sliced(4).join(u' ');
    } else {
        return failed(u"usage: camera enable|disable|remove RECORDER ID | rename RECORDER ID NAME | add RECORDER NAME"_s);
    }
    recorder->rtsp().setCamera(*camera);
    recorder->changes().addChange(u"site"_s);
    return ok();
}

QString Console::addCamera(Recorder &recorder, const QString &name)
{
    const Camera *camera = recorder.info().addCamera(name);
    if (!camera)
        return failed(u"the recorder has too many cameras"_s);
    recorder.rtsp().setCamera(*camera);
    recorder.changes().addChange(u"site"_s);
    return ok(QString::number(camera->id));
}

QString Console::removeCamera(Recorder &recorder, int id)
{
    Camera *camera = recorder.info().camera(id);
    if (!camera)
        return failed(u"there is no such camera"_s);
    camera->enabled = false;
    recorder.rtsp().setCamera(*camera);
    recorder.info().cameras.removeIf([id](const Camera &each) { return each.id == id; });
    recorder.changes().addChange(u"site"_s);
    return ok();
}

QString Console::event(const QStringList &words)
{
    static const QHash<QString, EventKind> kinds{{u"motion"_s, EventKind::Motion},
                                                 {u"video-loss"_s, EventKind::VideoLoss},
                                                 {u"door"_s, EventKind::Door},
                                                 {u"login"_s, EventKind::Login},
                                                 {u"disk"_s, EventKind::Disk}};
    const QString what = words.value(1);
    if (what == "rate"_L1)
        return eventRate(words);
    if (what == "subscriptions"_L1 || what == "forget"_L1)
        return eventSubscriptions(words);
    const auto kind = kinds.constFind(what);
    if (kind == kinds.cend())
        return failed(u"there is no such event"_s);
    Recorder *recorder = m_server.recorder(words.value(2));
    if (!recorder)
        return failed(NoRecorder);
    const bool ofCamera = *kind == EventKind::Motion || *kind == EventKind::VideoLoss;
    const int camera = ofCamera ? words.value(3).toInt() : 0;
    if (ofCamera && !recorder->info().camera(camera))
        return failed(u"there is no such camera"_s);
    recorder->events().report(*kind, camera);
    return ok();
}

QString Console::eventRate(const QStringList &words)
{
    bool valid = false;
    const double rate = words.value(2).toDouble(&valid);
    if (!valid || !(rate >= 0 && rate <= EventLog::MaximumRate))
        return failed(u"rate wants a number from 0 to %1"_s.arg(EventLog::MaximumRate));
    const Recorders targets = recorders(words, 3);
    if (targets.empty())
        return failed(NoRecorder);
    for (Recorder *recorder : targets)
        recorder->events().setRate(rate);
    return ok();
}

QString Console::eventSubscriptions(const QStringList &words)
{
    const Recorders targets = recorders(words, 2);
    if (targets.empty())
        return failed(NoRecorder);
    int standing = 0;
    int made = 0;
    for (Recorder *recorder : targets) {
        const auto counts = recorder->subscriptionCounts();
        standing += counts.first;
        made += counts.second;
        if (words.value(1) == "forget"_L1)
            recorder->forgetSubscriptions();
    }
    return ok(u"standing=%1 made=%2"_s.arg(QString::number(standing), QString::number(made)));
}

QString Console::server(const QStringList &words)
{
    const bool leave = words.value(1) == "leave"_L1;
    if ((!leave && words.value(1) != "join"_L1) || words.size() != 3)
        return failed(u"usage: server leave|join RECORDER"_s);
    Recorder *recorder = m_server.recorder(words.at(2));
    if (!recorder)
        return failed(NoRecorder);
    recorder->info().inGroup = !leave;
    for (const auto &each : m_server.recorders()) {
        // One that leaves has no one to tell: its clients hear of it from the others.
        if (!leave || each.get() != recorder)
            each->changes().addChange(u"site"_s);
    }
    return ok();
}

QString Console::change(const QStringList &words)
{
    const QString topic = words.value(1);
    if (topic != "site"_L1 && topic != "configuration"_L1)
        return failed(u"usage: change site|configuration [RECORDER]"_s);
    const Recorders targets = recorders(words, 2);
    if (targets.empty())
        return failed(NoRecorder);
    for (Recorder *recorder : targets)
        recorder->changes().addChange(topic);
    return ok();
}

QString Console::notice(const QStringList &words)
{
    const QString name = words.value(1);
    if (!QStringList{u"restart"_s, u"reboot"_s, u"shutdown"_s, u"userTimedOut"_s}.contains(name))
        return failed(u"usage: notice restart|reboot|shutdown|userTimedOut [RECORDER]"_s);
    const Recorders targets = recorders(words, 2);
    if (targets.empty())
        return failed(NoRecorder);
    for (Recorder *recorder : targets)
        recorder->changes().addNotice(name);
    return ok();
}

QString Console::ptz(const QStringList &words)
{
    Recorder *recorder = m_server.recorder(words.value(1));
    if (!recorder)
        return failed(NoRecorder);
    const Camera *camera = recorder->info().camera(words.value(2).toInt());
    if (!camera || !camera->motor)
        return failed(u"there is no such camera that moves"_s);
    const std::int64_t now = recorder->clock().nowMs();
    const View view = camera->motor->viewAt(now);
    return ok(u"pan=%1 tilt=%2 zoom=%3 focus=%4 %5"_s.arg(
        QString::number(view.pan, 'f', 4), QString::number(view.tilt, 'f', 4),
        QString::number(view.zoom, 'f', 4), QString::number(camera->motor->focusAt(now), 'f', 4),
        camera->motor->isMoving(now) || camera->motor->isFocusMoving(now) ? u"moving"_s : u"still"_s));
}

QString Console::clients(const QStringList &words)
{
    const Recorders targets = recorders(words, 1);
    if (targets.empty())
        return failed(NoRecorder);
    RtspServer::Counts sum;
    int sessions = 0;
    for (Recorder *recorder : targets) {
        const RtspServer::Counts counts = recorder->rtsp().counts();
        sum.connections += counts.connections;
        sum.sessions += counts.sessions;
        sum.media += counts.media;
        sessions += recorder->siteService().sessionCount();
    }
    return ok(u"sessions=%1 rtspConnections=%2 rtspSessions=%3 rtspMedia=%4"_s.arg(
        QString::number(sessions), QString::number(sum.connections), QString::number(sum.sessions),
        QString::number(sum.media)));
}

} // namespace orrin::demo
