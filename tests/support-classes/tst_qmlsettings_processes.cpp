// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingssandbox.h"

#include "support/qmlsettings.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QScopeGuard>
#include <QTest>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace orrin {

namespace {

constexpr int TimeoutMs = 30'000;

} // namespace

class TestQmlSettingsProcesses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_sandbox.emplace(); }
    void cleanup() { m_sandbox.reset(); }

    void settings_work_withoutAnyScreen();
    void unsavedChange_isLost_whenTheProcessDies();
    void save_leavesTheOldFile_whenTheDiskIsFull_data();
    void save_leavesTheOldFile_whenTheDiskIsFull();
    void save_leavesNoFile_whenTheDiskIsFullAtTheFirstTime();
    void save_leavesTheOldFile_whenTheFileIsReadOnly();
    void save_leavesTheOldFile_whenTheFolderIsReadOnly();
    void save_leavesTheOldFile_whenTheFileIsUnreadable();
    void save_losesNeitherFileNorKeys_whenProcessesSaveAtOnce();
    void file_isWholeAndUsable_whenAProcessIsKilledWhileSaving();
    void save_isNotHeldUp_byAnEmptyLock();

private:
    std::unique_ptr<QProcess> start(const QStringList &arguments) const;
    /*! Runs the process to its end; true when it ended well. */
    bool run(const QStringList &arguments, QByteArray *output = nullptr) const;
    /*! Empty when the file, read once, holds all settings and ends as it should. */
    QString defect() const;
    QByteArray writeOldFile() const;
    void setPermissions(const QString &path, QFile::Permissions permissions) const;

    std::optional<SettingsSandbox> m_sandbox;
};

std::unique_ptr<QProcess> TestQmlSettingsProcesses::start(const QStringList &arguments) const
{
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_sandbox->path());
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QStringList all = arguments;
    all.insert(1, SettingsSandbox::organisation());
    all.insert(2, SettingsSandbox::application());
    process->start(QStringLiteral(ORRIN_SETTINGS_PROCESS), all);
    return process;
}

bool TestQmlSettingsProcesses::run(const QStringList &arguments, QByteArray *output) const
{
    const std::unique_ptr<QProcess> process = start(arguments);
    const bool ended = process->waitForFinished(TimeoutMs);
    if (output)
        *output = process->readAllStandardOutput();
    return ended && process->exitStatus() == QProcess::NormalExit && process->exitCode() == 0;
}

QString TestQmlSettingsProcesses::defect() const
{
    const QByteArray bytes = m_sandbox->bytes();
    if (!bytes.endsWith('\n'))
        return QStringLiteral("the last line is open");
    for (const QString &key : settingsKeys()) {
        if (!bytes.contains('\n' + key.toLatin1() + '='))
            return key + QStringLiteral(" is missing");
    }
    return {};
}

QByteArray TestQmlSettingsProcesses::writeOldFile() const
{
    {
        QmlSettings settings;
        settings.addHost(QStringLiteral("kept.example"));
    }
    return m_sandbox->bytes();
}

void TestQmlSettingsProcesses::setPermissions(const QString &path, QFile::Permissions permissions) const
{
    QVERIFY(QFile::setPermissions(path, permissions));
}

void TestQmlSettingsProcesses::settings_work_withoutAnyScreen()
{
    QByteArray output;
    QVERIFY(run({QStringLiteral("facts")}, &output));
    QCOMPARE(output.trimmed(), "0 0 1 0 10");
}

void TestQmlSettingsProcesses::unsavedChange_isLost_whenTheProcessDies()
{
    writeOldFile();
    QVERIFY(run({QStringLiteral("crash")}));
    const QmlSettings settings;
    QCOMPARE(settings.property("layoutDimLowStream").toInt(), 2);
}

void TestQmlSettingsProcesses::save_leavesTheOldFile_whenTheDiskIsFull_data()
{
    QTest::addColumn<QString>("limit");
    QTest::newRow("at once") << QStringLiteral("0");
    QTest::newRow("in the middle of the file") << QStringLiteral("1000");
}

void TestQmlSettingsProcesses::save_leavesTheOldFile_whenTheDiskIsFull()
{
    QFETCH(QString, limit);
    const QByteArray before = writeOldFile();
    QVERIFY(before.size() > 1500);
    QVERIFY(run({QStringLiteral("limited"), limit}));
    QCOMPARE(m_sandbox->bytes(), before);
    // With space again, the next one saves as ever.
    QmlSettings settings;
    settings.addHost(QStringLiteral("next.example"));
    QCOMPARE(m_sandbox->stored(QStringLiteral("hosts")).toString(), QStringLiteral("next.example,kept.example"));
}

void TestQmlSettingsProcesses::save_leavesNoFile_whenTheDiskIsFullAtTheFirstTime()
{
    QVERIFY(run({QStringLiteral("limited"), QStringLiteral("1000")}));
    QVERIFY(!m_sandbox->exists());
}

void TestQmlSettingsProcesses::save_leavesTheOldFile_whenTheFileIsReadOnly()
{
    const QByteArray before = writeOldFile();
    const QString folder = QFileInfo(m_sandbox->fileName()).path();
    // All may enter and write the folders, for the process runs as somebody else where the test runs as administrator.
    setPermissions(m_sandbox->path(), QFile::Permissions(0x7777));
    setPermissions(folder, QFile::Permissions(0x7777));
    setPermissions(m_sandbox->fileName(), QFile::Permissions(0x4444));
    QVERIFY(run({QStringLiteral("ordinary")}));
    QCOMPARE(m_sandbox->bytes(), before);
}

void TestQmlSettingsProcesses::save_leavesTheOldFile_whenTheFolderIsReadOnly()
{
    const QByteArray before = writeOldFile();
    const QString folder = QFileInfo(m_sandbox->fileName()).path();
    setPermissions(m_sandbox->path(), QFile::Permissions(0x7777));
    setPermissions(m_sandbox->fileName(), QFile::Permissions(0x6666));
    setPermissions(folder, QFile::Permissions(0x5555));
    const auto restore = qScopeGuard([&] { setPermissions(folder, QFile::Permissions(0x7777)); });
    QVERIFY(run({QStringLiteral("ordinary")}));
    QCOMPARE(m_sandbox->bytes(), before);
}

void TestQmlSettingsProcesses::save_leavesTheOldFile_whenTheFileIsUnreadable()
{
    const QByteArray before = writeOldFile();
    const QString folder = QFileInfo(m_sandbox->fileName()).path();
    setPermissions(m_sandbox->path(), QFile::Permissions(0x7777));
    setPermissions(folder, QFile::Permissions(0x7777));
    setPermissions(m_sandbox->fileName(), QFile::Permissions(0x2222));
    QVERIFY(run({QStringLiteral("ordinary")}));
    setPermissions(m_sandbox->fileName(), QFile::Permissions(0x6666));
    QCOMPARE(m_sandbox->bytes(), before);
}

void TestQmlSettingsProcesses::save_losesNeitherFileNorKeys_whenProcessesSaveAtOnce()
{
    constexpr int rounds = 20;
    const QStringList labels{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")};
    writeOldFile();
    int reads = 0;
    QString firstDefect;
    std::vector<std::unique_ptr<QProcess>> processes;
    for (const QString &label : labels) {
        processes.push_back(start({QStringLiteral("rounds"), label, QString::number(rounds)}));
    }
    // The file is looked at all the while, not when a process happens to report.
    const auto isRunning = [](const auto &process) { return process->state() != QProcess::NotRunning; };
    QElapsedTimer waited;
    waited.start();
    while (std::ranges::any_of(processes, isRunning) && waited.elapsed() < TimeoutMs) {
        if (firstDefect.isEmpty())
            firstDefect = defect();
        ++reads;
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
    for (const auto &process : processes) {
        QCOMPARE(process->state(), QProcess::NotRunning);
        QCOMPARE(process->exitCode(), 0);
    }
    QVERIFY(reads > rounds);
    QCOMPARE(firstDefect, QString());

    const QStringList keys = m_sandbox->storedKeys();
    QCOMPARE(keys.size(), settingsKeys().size() + labels.size() * rounds);
    for (const QString &label : labels) {
        for (int round = 0; round < rounds; ++round)
            QVERIFY2(keys.contains(label + QString::number(round)), qPrintable(label + QString::number(round)));
    }
    QCOMPARE(defect(), QString());
}

void TestQmlSettingsProcesses::file_isWholeAndUsable_whenAProcessIsKilledWhileSaving()
{
    writeOldFile();
    for (int kills = 0; kills < 8; ++kills) {
        const std::unique_ptr<QProcess> process =
            start({QStringLiteral("rounds"), QStringLiteral("key"), QStringLiteral("1000000")});
        QVERIFY(process->waitForReadyRead(TimeoutMs));
        process->kill();
        QVERIFY(process->waitForFinished(TimeoutMs));
        QCOMPARE(process->exitStatus(), QProcess::CrashExit);
        QCOMPARE(defect(), QString());

        // A lock that the dead process has left behind holds nobody up.
        QElapsedTimer clock;
        clock.start();
        QmlSettings settings;
        settings.setProperty("layoutRows", 10 + kills);
        QCOMPARE(m_sandbox->stored(QStringLiteral("layoutRows")).toInt(), 10 + kills);
        QVERIFY(clock.elapsed() < 10'000);
    }
}

void TestQmlSettingsProcesses::save_isNotHeldUp_byAnEmptyLock()
{
    // What a process leaves that was killed between making its lock and writing its number into it.
    writeOldFile();
    QFile lock(m_sandbox->fileName() + QStringLiteral(".lock"));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.close();

    QmlSettings settings;
    QElapsedTimer clock;
    clock.start();
    settings.setProperty("layoutRows", 5);
    QVERIFY(clock.elapsed() < 10'000);
    QCOMPARE(m_sandbox->stored(QStringLiteral("layoutRows")).toInt(), 5);
}

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlSettingsProcesses)

#include "tst_qmlsettings_processes.moc"
