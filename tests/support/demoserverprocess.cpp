// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace orrin::test {

using namespace Qt::StringLiterals;

namespace {
constexpr int StartTimeoutMs = 30000;
constexpr int CommandTimeoutMs = 10000;
constexpr int StopTimeoutMs = 10000;
} // namespace

DemoServerProcess::DemoServerProcess()
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

DemoServerProcess::~DemoServerProcess()
{
    stop();
}

bool DemoServerProcess::start(const QStringList &arguments)
{
    m_recorders.clear();
    m_errorText.clear();
    m_process.start(QStringLiteral(ORRIN_DEMO_SERVER),
                    QStringList{u"--free-ports"_s, u"--exit-with-stdin"_s} + arguments);
    if (!m_process.waitForStarted(StartTimeoutMs)) {
        m_errorText = m_process.errorString();
        return false;
    }
    const QJsonObject ready = QJsonDocument::fromJson(readLine(StartTimeoutMs)).object();
    if (!ready.value("ready"_L1).toBool()) {
        m_errorText = u"the demo server did not get ready"_s;
        stop();
        return false;
    }
    m_discoveryPort = quint16(ready.value("discoveryPort"_L1).toInt());
    for (const QJsonValue value : ready.value("recorders"_L1).toArray()) {
        const QJsonObject object = value.toObject();
        m_recorders.append({object.value("id"_L1).toInt(), object.value("name"_L1).toString(),
                            quint16(object.value("port"_L1).toInt()),
                            quint16(object.value("rtspPort"_L1).toInt()),
                            object.value("publicKeySha256"_L1).toString().toLatin1()});
    }
    return true;
}

void DemoServerProcess::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.closeWriteChannel();
    m_process.terminate();
    if (!m_process.waitForFinished(StopTimeoutMs)) {
        m_process.kill();
        m_process.waitForFinished(StopTimeoutMs);
    }
}

QString DemoServerProcess::command(const QString &line)
{
    if (!isRunning())
        return {};
    m_process.write(line.toUtf8() + '\n');
    return QString::fromUtf8(readLine(CommandTimeoutMs));
}

bool DemoServerProcess::isRunning() const
{
    return m_process.state() == QProcess::Running;
}

quint16 DemoServerProcess::port(int recorder) const
{
    const Recorder *found = find(recorder);
    return found ? found->port : 0;
}

quint16 DemoServerProcess::rtspPort(int recorder) const
{
    const Recorder *found = find(recorder);
    return found ? found->rtspPort : 0;
}

QUrl DemoServerProcess::url(const QString &path, int recorder) const
{
    return QUrl(u"https://127.0.0.1:%1%2"_s.arg(QString::number(port(recorder)), path));
}

const DemoServerProcess::Recorder *DemoServerProcess::find(int id) const
{
    const auto found = std::ranges::find(m_recorders, id, &Recorder::id);
    return found == m_recorders.cend() ? nullptr : &*found;
}

QByteArray DemoServerProcess::readLine(int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (!m_process.canReadLine()) {
        if (deadline.hasExpired() || !m_process.waitForReadyRead(int(deadline.remainingTime())))
            return {};
    }
    return m_process.readLine().trimmed();
}

} // namespace orrin::test
