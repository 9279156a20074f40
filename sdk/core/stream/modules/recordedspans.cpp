// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/recordedspans.h>

#include <algorithm>
#include <utility>

namespace orrin {

namespace {

QList<RecordedSpan> merged(QList<RecordedSpan> spans)
{
    spans.removeIf([](const RecordedSpan &span) { return span.toMs <= span.fromMs; });
    std::ranges::sort(spans, {}, &RecordedSpan::fromMs);
    QList<RecordedSpan> result;
    for (const RecordedSpan &span : std::as_const(spans)) {
        if (!result.isEmpty() && span.fromMs <= result.last().toMs)
            result.last().toMs = std::max(result.last().toMs, span.toMs);
        else
            result.append(span);
    }
    if (result.size() > RecordedSpans::SpanLimit)
        result.remove(0, result.size() - RecordedSpans::SpanLimit);
    return result;
}

} // namespace

RecordedSpans::RecordedSpans(QObject *parent) : QObject(parent) {}
RecordedSpans::~RecordedSpans() = default;

void RecordedSpans::setSpans(QList<RecordedSpan> spans)
{
    spans = merged(std::move(spans));
    if (m_state == State::Known && m_spans == spans)
        return;
    m_state = State::Known;
    m_spans = std::move(spans);
    Q_EMIT changed();
}

void RecordedSpans::setUnavailable()
{
    if (m_state == State::Unavailable)
        return;
    m_state = State::Unavailable;
    m_spans.clear();
    Q_EMIT changed();
}

} // namespace orrin
