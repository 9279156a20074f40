// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/logsetup.h"

#include <contract/util/logdir.h>
#include <contract/util/logmanager.h>
#include <contract/util/messagelog.h>

#include <QTest>

// A log of this test's own: it records what is asked of it.

namespace {

QList<QByteArray> calls;

} // namespace

namespace orrin {

QString logDir()
{
    calls.append("logDir");
    return QStringLiteral("/folder/of/logs");
}

namespace olog {

class LogManagerPrivate
{
};

class MessageLogPrivate
{
};

LogManager::LogManager() = default;
LogManager::~LogManager() = default;

LogManager *LogManager::instance()
{
    static LogManager manager;
    calls.append("instance");
    return &manager;
}

void LogManager::addLogDevice(const QSharedPointer<LogDevice> &device)
{
    calls.append(device && device->type() == LogDevice::Type::Message ? "add message log"
                                                                      : "add something else");
}

MessageLog::MessageLog() = default;
MessageLog::~MessageLog() = default;
void MessageLog::write(const LogItem &) {}

void MessageLog::setSize(unsigned lines)
{
    calls.append("size " + QByteArray::number(lines));
}

void setMaxFileSize(long long bytes)
{
    calls.append("file size " + QByteArray::number(bytes));
}

void setFileDevicePath(const QString &path)
{
    calls.append("path " + path.toUtf8());
}

} // namespace olog

} // namespace orrin

class tst_LogSetup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setUpLogging_preparesMessageLogAndFiles_inThatOrder()
    {
        QVERIFY(calls.isEmpty());
        orrin::setUpLogging();
        QCOMPARE(calls, QList<QByteArray>({"instance", "size 500", "add message log", "file size 31457280",
                                           "logDir", "path /folder/of/logs"}));
    }
};

QTEST_GUILESS_MAIN(tst_LogSetup)
#include "tst_logsetup.moc"
