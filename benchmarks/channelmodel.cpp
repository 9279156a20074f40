// SPDX-License-Identifier: GPL-3.0-or-later
// A refresh of the channel model, from the start of the reset to its end, with none, one or all of the channels renamed, whose items
// survive, or replaced by others: the time for each channel, and its ratio to that with 1,000 channels. Each refresh begins with cold
// caches, as in an application that did something else since the last one.
//
//   bench_channelmodel [ROUNDS]     default 21; the medians are shown
#include "testsite.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/server.h>
#include <resources/qmlchannelmodel.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace orrin;

namespace {

constexpr std::array sizes = {100, 1000, 10000};
constexpr std::array changes = {"none", "one renamed", "all renamed", "one replaced", "all replaced"};

SiteDescription describe(int first, int count)
{
    SiteDescription site = describeServer(1, 1);
    site.channels.reserve(count);
    for (int i = 0; i < count; ++i)
        site.channels.append(describeCamera(first + i));
    return site;
}

// The site after the change of an odd or an even round.
SiteDescription describeChanged(int channels, std::size_t change, bool odd)
{
    SiteDescription site = describe(odd && change == 4 ? channels + 1 : 1, channels);
    if (odd && change == 3)
        site.channels.last() = describeCamera(channels + 1);
    if (change == 1)
        site.channels.last().name = odd ? QStringLiteral("Gate") : QStringLiteral("Door");
    for (ChannelDescription &channel : site.channels) {
        if (change == 2)
            channel.name = (odd ? QStringLiteral("Gate %1") : QStringLiteral("Door %1")).arg(channel.id);
    }
    return site;
}

void coolCaches()
{
    static std::vector<char> other(64 << 20);
    for (std::size_t i = 0; i < other.size(); i += 64)
        ++other[i];
}

// Nanoseconds of one refresh, the median of \a rounds.
qint64 measure(int channels, std::size_t change, int rounds)
{
    TestSite site;
    site.login(describe(1, channels));
    QmlChannelModel model;
    QElapsedTimer timer;
    qint64 spent = 0;
    QObject::connect(&model, &QAbstractItemModel::modelAboutToBeReset, &model, [&] {
        coolCaches();
        timer.start();
    });
    QObject::connect(&model, &QAbstractItemModel::modelReset, &model, [&] { spent = timer.nsecsElapsed(); });

    std::vector<qint64> times;
    for (int round = 0; round < rounds; ++round) {
        if (change == 0)
            Q_EMIT site.manager().initialConnectionComplete();
        else
            site.describe(describeChanged(channels, change, round % 2 == 0));
        times.push_back(spent);
        TestSite::deleteLeft();
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[static_cast<std::size_t>(rounds / 2)];
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 21;

    std::printf("%12s  %8s  %12s  %14s  %14s\n", "changed", "channels", "refresh (ms)", "per channel ns", "to that of 1000");
    for (std::size_t change = 0; change < changes.size(); ++change) {
        std::array<double, sizes.size()> perChannel{};
        std::array<qint64, sizes.size()> refresh{};
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            refresh[i] = measure(sizes[i], change, rounds);
            perChannel[i] = double(refresh[i]) / sizes[i];
        }
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            std::printf("%12s  %8d  %12.3f  %14.0f  %14.2f\n", changes[change], sizes[i], double(refresh[i]) / 1e6,
                        perChannel[i], perChannel[i] / perChannel[1]);
        }
    }
    return 0;
}
