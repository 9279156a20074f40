// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/session.h"

#include <QPointer>

#include <deque>

/*! A session whose answers about statistics a test gives, one by one. One thread. */
class FakeStatsSession : public orrin::Session
{
    Q_OBJECT
public:
    struct Request
    {
        std::optional<orrin::StatsQuery> query; // nothing: the contents are asked for
        QPointer<QObject> context;
        StatsContentsCallback contents;
        StatsCallback page;
    };

    void open() override {}
    void close() override {}
    void requestMediaEndpoint(int, orrin::StreamQuality, QObject *, MediaEndpointCallback) override {}
    orrin::Connection *connection() override { return nullptr; }
    void requestStatsContents(QObject *context, StatsContentsCallback callback) override
    {
        requests.push_back({std::nullopt, context, std::move(callback), {}});
    }
    void requestStats(const orrin::StatsQuery &query, QObject *context, StatsCallback callback) override
    {
        requests.push_back({query, context, {}, std::move(callback)});
    }

    Request take()
    {
        Request request = std::move(requests.front());
        requests.pop_front();
        return request;
    }
    void answerContents(const orrin::StatsContentsResult &result) { take().contents(result); }
    void answerPage(const orrin::StatsResult &result) { take().page(result); }

    std::deque<Request> requests;
};
