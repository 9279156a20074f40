// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "timeline/recordedtimes.h"

#include <QColor>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

/*! A strip that shows where a recording is: filled over recorded spans, empty over gaps. Its width stands for the time
    between `from` and `to`, in milliseconds since the epoch. However many spans there are, a pixel is drawn once at most. GUI
    thread. */
class RecordingBar : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qint64 from READ from WRITE setFrom NOTIFY rangeChanged FINAL)
    Q_PROPERTY(qint64 to READ to WRITE setTo NOTIFY rangeChanged FINAL)
    Q_PROPERTY(RecordedTimes *times READ times WRITE setTimes NOTIFY timesChanged FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)

public:
    explicit RecordingBar(QQuickItem *parent = nullptr);

    qint64 from() const { return m_from; }
    void setFrom(qint64 time);
    qint64 to() const { return m_to; }
    void setTo(qint64 time);
    RecordedTimes *times() const { return m_times; }
    void setTimes(RecordedTimes *times);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void rangeChanged();
    void timesChanged();
    void colorChanged();

private:
    qint64 m_from = 0;
    qint64 m_to = 0;
    QPointer<RecordedTimes> m_times;
    QColor m_color = Qt::white;
};
