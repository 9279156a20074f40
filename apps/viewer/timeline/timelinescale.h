// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimeZone>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

/*! How a stretch of time lies on a line of pixels: its centre stands for a moment, its width for a span. Times are
    milliseconds since the epoch, texts and the alignment of ticks follow the zone of the server, changes to and from
    summer time included. GUI thread. */
class TimelineScale : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /*! The moment in the middle. */
    Q_PROPERTY(qint64 centre READ centre WRITE setCentre NOTIFY scaleChanged FINAL)
    /*! The time from the left edge to the right one, kept between a minute and 31 days. */
    Q_PROPERTY(qint64 span READ span WRITE setSpan NOTIFY scaleChanged FINAL)
    /*! In pixels. */
    Q_PROPERTY(double width READ width WRITE setWidth NOTIFY scaleChanged FINAL)
    /*! An invalid zone counts as UTC. */
    Q_PROPERTY(QTimeZone zone READ zone WRITE setZone NOTIFY scaleChanged FINAL)
    Q_PROPERTY(qint64 from READ from NOTIFY scaleChanged FINAL)
    Q_PROPERTY(qint64 to READ to NOTIFY scaleChanged FINAL)
    /*! The labelled ticks in sight and just outside: objects with time, label and day (true where a day begins). They
        change when one comes or goes, not with each movement. */
    Q_PROPERTY(QVariantList ticks READ ticks NOTIFY ticksChanged FINAL)
    /*! Between two unlabelled notches, in seconds. */
    Q_PROPERTY(qint64 notchSeconds READ notchSeconds NOTIFY scaleChanged FINAL)
    /*! The zone's short name at the centre, empty while it is that of this machine. */
    Q_PROPERTY(QString foreignZone READ foreignZone NOTIFY scaleChanged FINAL)

public:
    static constexpr qint64 ShortestSpan = 60'000;
    static constexpr qint64 LongestSpan = 31 * qint64(86'400'000);
    /*! The years 1 to 9999 hold every moment that a recording can have. */
    static constexpr qint64 EarliestTime = -62'135'596'800'000;
    static constexpr qint64 LatestTime = 253'402'300'799'000;

    explicit TimelineScale(QObject *parent = nullptr);

    qint64 centre() const { return m_centre; }
    void setCentre(qint64 time);
    qint64 span() const { return m_span; }
    void setSpan(qint64 span);
    double width() const { return m_width; }
    void setWidth(double width);
    QTimeZone zone() const { return m_zone; }
    void setZone(const QTimeZone &zone);
    qint64 from() const { return m_centre - m_span / 2; }
    qint64 to() const { return from() + m_span; }
    QVariantList ticks() const { return m_ticks; }
    qint64 notchSeconds() const;
    QString foreignZone() const;

    Q_INVOKABLE qint64 timeAt(double x) const;
    Q_INVOKABLE double xOf(qint64 time) const;
    /*! Makes the span \a factor times as long and keeps the moment at \a x where it is. */
    Q_INVOKABLE void zoom(double factor, double x);
    /*! The moment in words of the user's language, with the date, to the second. */
    Q_INVOKABLE QString text(qint64 time) const;

Q_SIGNALS:
    void scaleChanged();
    void ticksChanged();

private:
    struct Step;

    void update();
    QVariantList makeTicks() const;
    void addTicksOfDay(QVariantList &ticks, QDate day, const Step &step) const;
    void addTick(QVariantList &ticks, const QDateTime &moment, const Step &step) const;
    const Step &labelStep() const;
    QString tickLabel(const QDateTime &moment, const Step &step) const;

    qint64 m_centre = 0;
    qint64 m_span = 3'600'000;
    double m_width = 1.0;
    QTimeZone m_zone = QTimeZone::utc();
    QVariantList m_ticks;
};
