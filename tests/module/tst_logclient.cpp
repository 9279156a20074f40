// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/logclient.h"
#include "module/logclient_p.h"

#include <contract/util/logitem.h>
#include <contract/util/logmanager.h>
#include <contract/util/vsnprintf.h>

#include <QScopeGuard>
#include <QTemporaryFile>
#include <QTest>

#include <cstdio>
#include <unistd.h>

using namespace orrin;

namespace {

class CollectingDevice : public olog::LogDevice
{
public:
    void write(const olog::LogItem &item) override { items.append(item); }
    Type type() const override { return Type::Other; }

    QList<olog::LogItem> items;
};

/*! What \a action writes to standard error. */
template <typename Action> QByteArray standardErrorOf(Action action)
{
    QTemporaryFile file;
    if (!file.open())
        return "no temporary file";
    std::fflush(stderr);
    const int saved = dup(STDERR_FILENO);
    dup2(file.handle(), STDERR_FILENO);
    action();
    std::fflush(stderr);
    dup2(saved, STDERR_FILENO);
    close(saved);
    file.seek(0);
    return file.readAll();
}

std::optional<QByteArray> formatWith(LogFormatter formatter, const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const auto line = formatLogLine(formatter, format, arguments);
    va_end(arguments);
    return line;
}

int failingFormatter(char *, std::size_t, const char *, std::va_list)
{
    return -1;
}

int endlessFormatter(char *, std::size_t, const char *, std::va_list)
{
    return MaximumLogLineLength + 1;
}

int fickleFormatter(char *, std::size_t size, const char *, std::va_list)
{
    return size < 1000 ? 1000 : 999;
}

} // namespace

class tst_LogClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        device = QSharedPointer<CollectingDevice>::create();
        olog::LogManager::instance()->addLogDevice(device);
        olog::LogManager::instance()->setLogLevel(olog::LL_Trace);
        olog::LogManager::instance()->setEnabledSubmodules(LogClient::Module, 0xFFFFFFFFu);
    }

    void cleanup() { olog::LogManager::instance()->removeLogDevice(device); }

    void moduleName_isUnknown_whenModuleHasNoName()
    {
        QCOMPARE(LogClient::Module, 131072u);
        const LogClient client("client");
        QCOMPARE(client.moduleName(), "Unknown");
        QCOMPARE(client.enabledModules(), olog::LogManager::instance()->enabledModules());
    }

    void trace_writesItem_whenTraceIsEnabled()
    {
        int object = 0;
        const LogClient client("client", &object, 4);
        client.trace("file.cpp", "function", "%d of %s", 3, "four");

        QCOMPARE(device->items.size(), 1);
        const olog::LogItem &item = device->items.first();
        QCOMPARE(item.level(), olog::LL_Trace);
        QCOMPARE(item.module(), 0x20000u);
        QCOMPARE(item.subModules(), 4u);
        QCOMPARE(item.moduleName(), "Unknown");
        QCOMPARE(item.file(), "file.cpp");
        QCOMPARE(item.function(), "function");
        QCOMPARE(item.object(), &object);
        QCOMPARE(item.objectName(), "client");
        QCOMPARE(item.message(), "3 of four");
    }

    void trace_writesNothing_whenTraceLevelIsOff()
    {
        const LogClient client("client");
        olog::LogManager::instance()->setLogLevel(olog::maxLogLevel() & ~olog::LL_Trace);
        QVERIFY(!client.isTraceEnabled());
        client.trace("file.cpp", "function", "text");
        bool evaluated = false;
        const auto evaluate = [&evaluated] { return (evaluated = true) ? 1 : 0; };
        ORRIN_TRACE(client, "%d", evaluate());
        QVERIFY(!evaluated);
        QVERIFY(device->items.isEmpty());
    }

    void trace_writesNothing_whenSubModuleIsOff()
    {
        const LogClient client("client", nullptr, 2);
        olog::LogManager::instance()->setEnabledSubmodules(LogClient::Module, 1);
        client.trace("file.cpp", "function", "text");
        QVERIFY(device->items.isEmpty());
        // The mask is read at each line, not once.
        olog::LogManager::instance()->setEnabledSubmodules(LogClient::Module, 2);
        client.trace("file.cpp", "function", "text");
        QCOMPARE(device->items.size(), 1);
    }

    void trace_writesWholeLine_whenTextIsLong()
    {
        const LogClient client("client");
        const QByteArray text(5000, 'x');
        client.trace("file.cpp", "function", "%s", text.constData());
        QCOMPARE(device->items.size(), 1);
        QCOMPARE(device->items.first().message(), text);
    }

    void trace_dropsLineAndTellsWhy_whenTextIsTooLong()
    {
        const LogClient client("client");
        const QByteArray text(MaximumLogLineLength + 1, 'x');
        const QByteArray output =
            standardErrorOf([&] { client.trace("file.cpp", "function", "%s", text.constData()); });
        QVERIFY2(output.startsWith("logclient error2:"), output.constData());
        QVERIFY(device->items.isEmpty());
    }

    void formatLogLine_tellsWhy_whenFormattingFails_data()
    {
        QTest::addColumn<quintptr>("formatter");
        QTest::addColumn<QByteArray>("start");
        QTest::newRow("wrong format") << quintptr(&failingFormatter) << QByteArray("logclient error:");
        QTest::newRow("too long") << quintptr(&endlessFormatter) << QByteArray("logclient error2:");
        QTest::newRow("changing") << quintptr(&fickleFormatter) << QByteArray("logclient error3:");
    }

    void formatLogLine_tellsWhy_whenFormattingFails()
    {
        QFETCH(quintptr, formatter);
        QFETCH(QByteArray, start);
        std::optional<QByteArray> line = QByteArray();
        const QByteArray output =
            standardErrorOf([&] { line = formatWith(reinterpret_cast<LogFormatter>(formatter), "text"); });
        QVERIFY(!line);
        QVERIFY2(output.startsWith(start + ' '), output.constData());
        QCOMPARE(output.count('\n'), 1);
    }

    void formatLogLine_keepsText_atEachSideOfTheBuffer()
    {
        for (const int length : {0, 1, 511, 512, 513, MaximumLogLineLength}) {
            const QByteArray text(length, 'y');
            QCOMPARE(formatWith(&osal::vsnprintf_c99, "%s", text.constData()), std::optional(text));
        }
    }

private:
    QSharedPointer<CollectingDevice> device;
};

QTEST_GUILESS_MAIN(tst_LogClient)
#include "tst_logclient.moc"
