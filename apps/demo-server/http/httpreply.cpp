// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/httpreply.h"

#include <QHttpHeaders>
#include <QJsonDocument>
#include <QJsonObject>

namespace orrin::demo {

HttpReply::HttpReply(QHttpServerResponder &&responder, std::function<void()> sent)
    : m_state(new State{std::move(responder), std::move(sent)})
{
}

HttpReply::~HttpReply()
{
    if (m_state)
        send(503, QByteArray(), QByteArray());
}

void HttpReply::send(int status, const QByteArray &type, const QByteArray &body, const QList<Header> &headers)
{
    const auto state = std::move(m_state);
    if (!state)
        return;
    QHttpHeaders all;
    if (!type.isEmpty())
        all.append(QHttpHeaders::WellKnownHeader::ContentType, type);
    all.append(QHttpHeaders::WellKnownHeader::CacheControl, "no-store");
    for (const auto &[name, value] : headers)
        all.append(name, value);
    state->responder.write(body, all, QHttpServerResponder::StatusCode(status));
    state->sent();
}

void HttpReply::sendJson(int status, const QJsonObject &object, const QList<Header> &headers)
{
    send(status, "application/json", QJsonDocument(object).toJson(QJsonDocument::Compact), headers);
}

void HttpReply::abandon()
{
    m_state.reset();
}

} // namespace orrin::demo
