// SPDX-License-Identifier: GPL-3.0-or-later
#include "threadtimes.h"

#include <QDir>
#include <QFile>

#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

ThreadTimes ThreadTimes::now()
{
    ThreadTimes times;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    times.all = seconds(usage.ru_utime) + seconds(usage.ru_stime);

    const double ticks = double(sysconf(_SC_CLK_TCK));
    const QString own = QString::number(getpid());
    const QStringList threads = QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    times.threads = int(threads.size());
    for (const QString &thread : threads) {
        const QByteArray stat = contents(u"/proc/self/task/%1/stat"_s.arg(thread));
        const qsizetype nameEnd = stat.lastIndexOf(')');
        const QByteArray name = stat.mid(stat.indexOf('(') + 1, nameEnd - stat.indexOf('(') - 1);
        // Behind the name: the state, and as the 12th and 13th the times in user and kernel mode.
        const QList<QByteArray> fields = stat.mid(nameEnd + 2).split(' ');
        const double taken = (fields.value(11).toDouble() + fields.value(12).toDouble()) / ticks;
        if (thread == own)
            times.gui = taken;
        else if (name.startsWith("QSGRender"))
            times.render += taken;
        else if (name.startsWith("llvmpipe"))
            times.softwareGl += taken;
    }
    // Threads that have ended since are in the sum alone.
    times.others = times.all - times.gui - times.render - times.softwareGl;
    return times;
}

double residentMiB()
{
    const QList<QByteArray> pages = contents(u"/proc/self/statm"_s).split(' ');
    return pages.value(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / 1048576;
}
