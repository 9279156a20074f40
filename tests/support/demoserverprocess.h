// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QStringList>
#include <QUrl>

namespace orrin::test {

/*!
    The demo server as a child process, on free ports of the loopback address. It starts in start() and is
   ended by the destructor; it also ends by itself when this process dies. Every wait has an end. One thread.
*/
class DemoServerProcess
{
public:
    /*! What the server said of one recorder. */
    struct Recorder
    {
        int id = 0;
        QString name;
        quint16 port = 0;
        quint16 rtspPort = 0;
        QByteArray publicKeySha256; //!< hexadecimal
    };

    DemoServerProcess();
    ~DemoServerProcess();
    DemoServerProcess(const DemoServerProcess &) = delete;
    DemoServerProcess &operator=(const DemoServerProcess &) = delete;

    /*! Starts the server with further \a arguments and waits until it is ready. False, with errorText() set,
     * when it is not in time. */
    bool start(const QStringList &arguments = {});

    /*! Ends the server. Nothing happens when it does not run. */
    void stop();

    /*! Runs a console command: its answer, which begins with "ok" or "error", or an empty text when none came
     * in time. */
    QString command(const QString &line);

    bool isRunning() const;
    QString errorText() const { return m_errorText; }
    const QList<Recorder> &recorders() const { return m_recorders; }

    /*! The HTTPS and RTSP ports of the recorder with this id, 0 when there is none. */
    quint16 port(int recorder = 1) const;
    quint16 rtspPort(int recorder = 1) const;

    /*! The UDP port of WS-Discovery. */
    quint16 discoveryPort() const { return m_discoveryPort; }

    /*! "https://127.0.0.1:PORT" and \a path. */
    QUrl url(const QString &path, int recorder = 1) const;

private:
    const Recorder *find(int id) const;
    QByteArray readLine(int timeoutMs);

    QProcess m_process;
    QList<Recorder> m_recorders;
    quint16 m_discoveryPort = 0;
    QString m_errorText;
};

} // namespace orrin::test
