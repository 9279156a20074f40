// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/qmlscrubbarrulercontroller.h"

#include <QPainter>
#include <QPen>
#include <QTimeZone>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orrin {

namespace {

// Notches that stand closer than this cannot be told apart, and no screen shows more of them than that; the row is then
// thinned out.
constexpr double MinimumStepPx = 0.5;
constexpr double MaximumNotches = 8192;

/*! The conversion to an integer that a cast does, with the ends of the range where a cast is undefined; 0 for what is no number. */
template <class Integer>
Integer truncated(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= double(std::numeric_limits<Integer>::max()))
        return std::numeric_limits<Integer>::max();
    if (value <= double(std::numeric_limits<Integer>::min()))
        return std::numeric_limits<Integer>::min();
    return Integer(value);
}

qint64 toMilliseconds(qint64 seconds)
{
    constexpr qint64 Limit = std::numeric_limits<qint64>::max() / 1000;
    return std::clamp(seconds, -Limit, Limit) * 1000;
}

qint64 difference(qint64 left, qint64 right)
{
    qint64 result = 0;
    if (qSubOverflow(left, right, &result))
        return left < right ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
    return result;
}

} // namespace

QmlScrubBarRulerController::QmlScrubBarRulerController(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
}

QmlScrubBarRulerController::~QmlScrubBarRulerController() = default;

QDateTime QmlScrubBarRulerController::currentTime() const
{
    return m_currentTime;
}

void QmlScrubBarRulerController::setCurrentTime(const QDateTime &time)
{
    if (m_currentTime == time)
        return;
    m_currentTime = time;
    update();
}

qlonglong QmlScrubBarRulerController::rangeSecs() const
{
    return m_rangeSecs;
}

void QmlScrubBarRulerController::setRangeSecs(qlonglong seconds)
{
    if (m_rangeSecs == seconds)
        return;
    m_rangeSecs = seconds;
    Q_EMIT rangeSecsChanged();
}

qlonglong QmlScrubBarRulerController::notchIntervalSecs() const
{
    return m_notchIntervalSecs;
}

void QmlScrubBarRulerController::setNotchIntervalSecs(qlonglong seconds)
{
    if (m_notchIntervalSecs == seconds)
        return;
    m_notchIntervalSecs = seconds;
    Q_EMIT notchIntervalSecsChanged();
}

void QmlScrubBarRulerController::addMsecs(int mssecs)
{
    setCurrentTime(m_currentTime.addMSecs(mssecs));
}

void QmlScrubBarRulerController::setTimeFromEpoch(qlonglong epoch, const QVariant &time_zone)
{
    setCurrentTime(QDateTime::fromMSecsSinceEpoch(epoch, time_zone.value<QTimeZone>()));
}

qint64 QmlScrubBarRulerController::rangeMs() const
{
    return toMilliseconds(m_rangeSecs);
}

qint64 QmlScrubBarRulerController::notchIntervalMs() const
{
    return toMilliseconds(m_notchIntervalSecs);
}

qint64 QmlScrubBarRulerController::msPerPixel() const
{
    return truncated<qint64>(double(rangeMs()) / size().width());
}

double QmlScrubBarRulerController::pixelPerMs() const
{
    return size().width() / double(rangeMs());
}

double QmlScrubBarRulerController::notchIntervalPx() const
{
    return double(notchIntervalMs()) * pixelPerMs();
}

QDateTime QmlScrubBarRulerController::calculateLeftTime() const
{
    return m_currentTime.addMSecs(-truncated<qint64>(size().width() / 2.0 * double(msPerPixel())));
}

// The moment of the notch at or before the left edge. Aligned in UTC, whatever the zone of the time.
qint64 QmlScrubBarRulerController::leftEpochMs() const
{
    return calculateLeftTime().toMSecsSinceEpoch() / notchIntervalMs() * notchIntervalMs();
}

// Grows with the time since that notch: the row moves to the right as time goes on and steps back with the next notch.
double QmlScrubBarRulerController::firstNotchX() const
{
    const qint64 elapsed = difference(m_currentTime.toMSecsSinceEpoch(), leftEpochMs());
    const qint64 offset = truncated<qint64>(double(elapsed) * pixelPerMs());
    return double(offset) - size().width() / 2.0 - notchIntervalPx();
}

void QmlScrubBarRulerController::paint(QPainter *painter)
{
    const double width = size().width();
    const double height = size().height();
    if (m_rangeSecs <= 0 || m_notchIntervalSecs <= 0 || !(width > 0.0) || !std::isfinite(width) || !std::isfinite(height))
        return;

    painter->setRenderHint(QPainter::Antialiasing);
    QPen pen;
    pen.setCapStyle(Qt::RoundCap);
    pen.setColor(QColor(QStringLiteral("black")));
    pen.setCosmetic(true);
    pen.setWidth(3);
    painter->setPen(pen);

    const int top = truncated<int>(height * 0.25);
    const int bottom = truncated<int>(height * 0.75);
    double x = firstNotchX();
    double step = notchIntervalPx();
    const double minimumStep = std::max(MinimumStepPx, width / MaximumNotches);
    if (step < minimumStep)
        step *= std::ceil(minimumStep / step);
    // Only a time at the end of its range puts the row further out than that; it would take ages to come in.
    if (x < -2.0 * (width + step))
        x = -step;

    for (; width > x; x += step) {
        if (x > 0.0) {
            const double fade = 0.6 / (width / 2.0);
            painter->setOpacity(width / 2.0 > x ? 0.4 + x * fade : (width - x) * fade + 0.4);
        }
        const int column = truncated<int>(x);
        painter->drawLine(column, top, column, bottom);
    }
}

} // namespace orrin
