// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/log/filelogdevice.h"
#include "util/log/logdir_p.h"
#include "util/log/logmanager_p.h"

#include <contract/util/logdir.h>
#include <contract/util/logmanager.h>
#include <contract/util/messagelog.h>
#include <contract/util/vsnprintf.h>

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <thread>

using namespace orrin;
using namespace orrin::olog;
using namespace Qt::StringLiterals;

namespace {

LogItem item(const QByteArray &message, LogLevel level = LL_Error)
{
    return LogItem(level, 7, 1, "module", "file.cpp", "function", nullptr, "object", message);
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int format(char *buffer, std::size_t size, const char *text, ...)
{
    std::va_list arguments;
    va_start(arguments, text);
    const int length = osal::vsnprintf_c99(buffer, size, text, arguments);
    va_end(arguments);
    return length;
}

} // namespace

class TestLogManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void cleanup()
    {
        setFileDevicePath(QString());
        setMaxFileSize(0);
        LogManager::instance()->setLogLevel(LL_Warning | LL_Error);
    }

    void log_reachesDevices_byLevel()
    {
        const auto messages = QSharedPointer<MessageLog>::create();
        LogManager *manager = LogManager::instance();
        manager->addLogDevice(messages);
        manager->addLogDevice(messages);
        manager->log(item("one"));
        manager->log(item("two", LL_Debug));
        manager->setLogLevel(maxLogLevel());
        manager->log(item("three", LL_Debug));
        manager->removeLogDevice(messages);
        manager->log(item("four"));
        const QList<QByteArray> lines = messages->lines();
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines.at(0).endsWith("ERROR module [function] object: one"));
        QVERIFY(lines.at(1).endsWith("three"));
    }

    void traceFlag_followsTheLevel()
    {
        LogManager::instance()->setLogLevel(maxLogLevel());
        QVERIFY(LG_trace_enabled);
        LogManager::instance()->setLogLevel(maxLogLevel() & ~unsigned(LL_Trace));
        QVERIFY(!LG_trace_enabled);
    }

    void line_isOneLine_whateverTheMessage() { QVERIFY(!item("a\nb\r\nc").toLine().contains('\n')); }

    void messageLog_keepsTheNewest()
    {
        MessageLog log;
        log.setSize(3);
        for (int i = 0; i < 5; ++i)
            log.write(item(QByteArray::number(i)));
        QCOMPARE(log.lines().size(), 3);
        QVERIFY(log.lines().first().endsWith(": 2"));
        log.setSize(1);
        QVERIFY(log.lines().first().endsWith(": 4"));
    }

    void modules_haveNamesAndMasks()
    {
        LogManager *manager = LogManager::instance();
        QVERIFY(!manager->logModule(0x777));
        manager->registerModule(0x777, "first");
        manager->registerModule(0x777, "second");
        QCOMPARE(manager->logModule(0x777)->name_cstr(), "first");
        const std::atomic<unsigned> *mask = manager->enabledSubmodules(0x777);
        QCOMPARE(mask->load(), ~0u);
        manager->setEnabledSubmodules(0x777, 5);
        QCOMPARE(mask->load(), 5u);
        QCOMPARE(manager->enabledSubmodules(0x777), mask);
    }

    void file_receivesAllLines_fromManyThreads()
    {
        QTemporaryDir folder;
        setLogFileName(u"threads.log"_s);
        setFileDevicePath(folder.path());
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([] {
                for (int i = 0; i < 5000; ++i)
                    LogManager::instance()->log(item("line"));
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        flushFileDevice();
        QCOMPARE(contents(folder.filePath(u"threads.log"_s)).count('\n'), 20000);
    }

    void file_keepsOnePredecessor_whenTheLimitIsReached()
    {
        QTemporaryDir folder;
        setLogFileName(u"small.log"_s);
        setMaxFileSize(2000);
        setFileDevicePath(folder.path());
        for (int i = 0; i < 200; ++i)
            LogManager::instance()->log(item("line " + QByteArray::number(i)));
        flushFileDevice();
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), (QStringList{u"small.log"_s, u"small.log.1"_s}));
        QVERIFY(QFileInfo(folder.filePath(u"small.log"_s)).size() <= 2000);
        QVERIFY(QFileInfo(folder.filePath(u"small.log.1"_s)).size() <= 2000);
        QVERIFY(contents(folder.filePath(u"small.log"_s)).endsWith(": line 199\n"));
        const QByteArray both =
            contents(folder.filePath(u"small.log.1"_s)) + contents(folder.filePath(u"small.log"_s));
        const qsizetype lines = both.count('\n');
        QVERIFY(both.contains(": line " + QByteArray::number(200 - lines) + '\n'));
    }

    void file_goesOnBehindWhatIsThere()
    {
        QTemporaryDir folder;
        setLogFileName(u"again.log"_s);
        for (const char *text : {"first", "second"}) {
            setFileDevicePath(folder.path());
            LogManager::instance()->log(item(text));
            setFileDevicePath(QString());
        }
        QCOMPARE(contents(folder.filePath(u"again.log"_s)).count('\n'), 2);
    }

    void path_isRefused_whenItCannotBeWritten()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath(u"file"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        setFileDevicePath(folder.filePath(u"file/below"_s));
        LogManager::instance()->log(item("nowhere"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"file"_s});
    }

    void stoppedDevice_stillWrites()
    {
        QTemporaryDir folder;
        FileLogDevice device(folder.path(), u"late.log"_s, 0);
        device.write(item("before"));
        device.stop();
        device.write(item("after"));
        const QByteArray text = contents(folder.filePath(u"late.log"_s));
        QVERIFY(text.indexOf("before") >= 0 && text.indexOf("before") < text.indexOf("after"));
    }

    void processEnd_losesNothing()
    {
        QTemporaryDir folder;
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {u"--log-and-exit"_s, folder.path()});
        QVERIFY(child.waitForFinished(20000));
        QCOMPARE(child.exitCode(), 0);
        QCOMPARE(contents(folder.filePath(u"exit.log"_s)).count('\n'), 5000);
    }

    void logDir_dependsOnTheNames()
    {
        setLogDirNames(u"orrin-tests"_s, u"../tst/log"_s);
        const QString path = logDir();
        QVERIFY(path.endsWith(u"/orrin-tests/.._tst_log/log"_s));
        QVERIFY(QDir(path).exists());
        setLogDirNames({}, {});
        QDir(path).removeRecursively();
    }

    void vsnprintf_tellsTheWholeLength()
    {
        char buffer[4];
        QCOMPARE(format(buffer, sizeof buffer, "%d-%s", 12, "abc"), 6);
        QCOMPARE(buffer, "12-");
        QCOMPARE(format(nullptr, 0, "%s", "abc"), 3);
        QVERIFY(format(buffer, sizeof buffer, nullptr) < 0);
    }
};

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (application.arguments().value(1) == u"--log-and-exit"_s) {
        setLogFileName(u"exit.log"_s);
        setFileDevicePath(application.arguments().value(2));
        for (int i = 0; i < 5000; ++i)
            LogManager::instance()->log(item("line"));
        return 0;
    }
    TestLogManager test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_logmanager.moc"
