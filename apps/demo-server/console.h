// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace orrin::demo {

class DemoServer;
class Recorder;

/*!
    The commands that change the server's behaviour while it runs. Each is one line and is answered with one
   line that begins with "ok" or "error". GUI thread.
*/
class Console : public QObject
{
    Q_OBJECT

public:
    /*! \a server outlives the console. */
    explicit Console(DemoServer &server);

    /*! Runs one command and gives its answer, without a line end. */
    QString run(const QString &line);

    /*! All commands with what they do, one a line. */
    static QString help();

Q_SIGNALS:
    /*! The command "quit" was given. */
    void quitRequested();

private:
    struct Command;
    using Recorders = std::vector<Recorder *>;

    static const std::vector<Command> &commands();

    /*! The recorder that the word at \a index names, all without one, none when there is no such. */
    Recorders recorders(const QStringList &words, qsizetype index);

    QString refuse(const QStringList &words);
    QString key(const QStringList &words);
    QString rtsp(const QStringList &words);
    QString replay(const QStringList &words);
    QString http(const QStringList &words);
    QString listener(const QStringList &words);
    QString user(const QStringList &words);
    QString camera(const QStringList &words);
    QString addCamera(Recorder &recorder, const QString &name);
    QString removeCamera(Recorder &recorder, int id);
    QString change(const QStringList &words);
    QString notice(const QStringList &words);
    QString event(const QStringList &words);
    QString eventRate(const QStringList &words);
    QString eventSubscriptions(const QStringList &words);
    QString server(const QStringList &words);
    QString clients(const QStringList &words);
    QString ptz(const QStringList &words);

    DemoServer &m_server;
};

} // namespace orrin::demo
