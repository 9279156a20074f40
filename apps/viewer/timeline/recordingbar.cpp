// SPDX-License-Identifier: GPL-3.0-or-later
#include "timeline/recordingbar.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

RecordingBar::RecordingBar(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(false);
}

void RecordingBar::setFrom(qint64 time)
{
    if (time == m_from)
        return;
    m_from = time;
    update();
    Q_EMIT rangeChanged();
}

void RecordingBar::setTo(qint64 time)
{
    if (time == m_to)
        return;
    m_to = time;
    update();
    Q_EMIT rangeChanged();
}

void RecordingBar::setTimes(RecordedTimes *times)
{
    if (times == m_times)
        return;
    if (m_times)
        m_times->disconnect(this);
    m_times = times;
    if (m_times)
        connect(m_times, &RecordedTimes::changed, this, [this] { update(); });
    update();
    Q_EMIT timesChanged();
}

void RecordingBar::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    update();
    Q_EMIT colorChanged();
}

void RecordingBar::paint(QPainter *painter)
{
    if (m_to <= m_from || !m_times)
        return;
    const QList<orrin::RecordedSpan> &spans = m_times->spans();
    const double scale = width() / double(m_to - m_from);
    const auto first = std::lower_bound(spans.cbegin(), spans.cend(), m_from,
                                        [](const orrin::RecordedSpan &span, qint64 time) { return span.toMs < time; });
    int drawnTo = 0;
    for (auto span = first; span != spans.cend() && span->fromMs < m_to; ++span) {
        const double left = double(std::max(span->fromMs, m_from) - m_from) * scale;
        const double right = double(std::min(span->toMs, m_to) - m_from) * scale;
        const int x = std::max(int(std::floor(left)), drawnTo);
        // A second of recording in a month is worth a pixel.
        const int end = std::max(int(std::lround(right)), int(std::floor(left)) + 1);
        if (end <= x)
            continue;
        painter->fillRect(x, 0, end - x, int(std::ceil(height())), m_color);
        drawnTo = end;
    }
}
