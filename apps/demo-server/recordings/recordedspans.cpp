// SPDX-License-Identifier: GPL-3.0-or-later
#include "recordings/recordedspans.h"

#include "onvif/mediatokens.h"
#include "recordings/recordings.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace orrin::demo::recordedspans {

using namespace Qt::StringLiterals;

void answer(const RecorderInfo &recorder, const User &user, qint64 nowMs, const HttpRequest &request,
            HttpReply reply)
{
    if (!user.mayPlayBack())
        return reply.sendJson(403, {});
    const QString source = request.query.queryItemValue(u"source"_s);
    const int track = request.query.queryItemValue(u"track"_s).toInt();
    const auto refs = recordings::recordingsFor(recorder, user);
    const auto ref = std::ranges::find_if(refs, [&](const recordings::Ref &each) {
        return mediatokens::source(*each.camera) == source && each.track->id == track;
    });
    if (ref == refs.cend())
        return reply.sendJson(404, {});
    const RecordingSchedule schedule = ref->schedule(recorder);
    bool fromValid = true;
    bool untilValid = true;
    const auto number = [&request](const QString &name, qint64 fallback, bool &valid) {
        const QString text = request.query.queryItemValue(name);
        return text.isEmpty() ? fallback : text.toLongLong(&valid);
    };
    const qint64 fromMs = number(u"from"_s, schedule.beginMs(), fromValid);
    const qint64 untilMs = number(u"to"_s, nowMs, untilValid);
    if (!fromValid || !untilValid || fromMs > untilMs)
        return reply.sendJson(400, {});
    QList<Span> spans = schedule.spans(fromMs, untilMs, nowMs, Limit + 1);
    const bool more = spans.size() > Limit;
    spans.resize(std::min(spans.size(), Limit));
    QJsonArray array;
    for (const Span &span : std::as_const(spans))
        array.append(QJsonArray{QString::number(span.beginMs), QString::number(span.endMs)});
    reply.sendJson(200, {{u"begin"_s, QString::number(schedule.beginMs())},
                         {u"end"_s, QString::number(schedule.endMs(nowMs))},
                         {u"spans"_s, array},
                         {u"more"_s, more}});
}

} // namespace orrin::demo::recordedspans
