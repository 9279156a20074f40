// SPDX-License-Identifier: GPL-3.0-or-later
// Typing into the filter over 10,000 channels, key by key and back again: the time of a key stroke beside a plain
// QSortFilterProxyModel with setFilterRegularExpression() on the same data. Each source has its own lines, since what reading
// a value costs belongs to the source.
//
//   bench_sortfilter [ROUNDS]     default 15; the medians are shown
#include "rolemodel.h"
#include "testsite.h"

#include <contract/core/server.h>
#include <resources/qmlchannelmodel.h>
#include <resources/qmlsortfilterproxymodel.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace orrin;

namespace {

constexpr int channels = 10000;

qint64 median(std::vector<qint64> times)
{
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2), times.end());
    return times[times.size() / 2];
}

// "C", "Ca" up to \a word and back to nothing.
QStringList keyStrokes(const QString &word)
{
    QStringList texts;
    for (qsizetype i = 1; i <= word.size(); ++i)
        texts.append(word.left(i));
    for (qsizetype i = word.size(); i-- > 0;)
        texts.append(word.left(i));
    return texts;
}

void compare(const char *name, QAbstractItemModel &source, int column, const QString &word, int rounds)
{
    QmlSortFilterProxyModel ours;
    ours.setModel(QVariant::fromValue(&source));
    ours.setFilterRole("name");
    QSortFilterProxyModel plain;
    plain.setSourceModel(&source);
    plain.setFilterKeyColumn(column);
    if (ours.rowCount() != channels || plain.rowCount() != channels)
        std::abort();

    const QStringList texts = keyStrokes(word);
    std::vector<qint64> ourTimes;
    std::vector<qint64> plainTimes;
    QElapsedTimer timer;
    for (int round = 0; round < rounds; ++round) {
        for (const QString &text : texts) {
            timer.start();
            ours.setFilterRexExp(text);
            ourTimes.push_back(timer.nsecsElapsed());
            timer.start();
            plain.setFilterRegularExpression(text);
            plainTimes.push_back(timer.nsecsElapsed());
        }
    }
    const double ourMs = double(median(ourTimes)) / 1e6;
    const double plainMs = double(median(plainTimes)) / 1e6;
    std::printf("%-14s  %-10s  %10.3f  %10.3f  %6.2f\n", name, qPrintable(word), ourMs, plainMs, ourMs / plainMs);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 15;

    TestSite site;
    SiteDescription description = describeServer(1, 1);
    QList<QVariantList> rows;
    for (int id = 1; id <= channels; ++id) {
        description.channels.append(describeCamera(id, QStringLiteral("Building %1 camera %2").arg(id % 97).arg(id)));
        rows.append(QVariantList{description.channels.last().name});
    }
    site.login(description);
    QmlChannelModel channelModel;
    RoleModel table({"name"}, rows);

    std::printf("%-14s  %-10s  %10s  %10s  %6s\n", "source", "typed", "ours (ms)", "plain (ms)", "ratio");
    for (const QString &word : {QStringLiteral("camera 77"), QStringLiteral("^Building 5"), QStringLiteral("12.*3$")}) {
        compare("channel model", channelModel, 6, word, rounds);
        compare("bare table", table, 0, word, rounds);
    }
    return 0;
}
