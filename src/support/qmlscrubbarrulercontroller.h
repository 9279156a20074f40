// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QDateTime>
#include <QQuickPaintedItem>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace orrin {

/*! The notches of a time scrub bar.

    The centre of the item is the current time, its width spans rangeSecs, and a notch stands at every multiple of notchIntervalSecs
    since the epoch. Notches fade towards both edges. Only a change of the time repaints; nothing is painted while a number is not
    above 0. Fields belong to the main thread. */
class ORRINSDKQML_EXPORT QmlScrubBarRulerController : public QQuickPaintedItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(Ruler)

    /*! The seconds that the width spans, above 0. Shows with the next change of time. */
    Q_PROPERTY(qlonglong rangeSecs READ rangeSecs WRITE setRangeSecs NOTIFY rangeSecsChanged FINAL)
    /*! The seconds between two notches, above 0. Shows with the next change of time. */
    Q_PROPERTY(qlonglong notchIntervalSecs READ notchIntervalSecs WRITE setNotchIntervalSecs NOTIFY
                   notchIntervalSecsChanged FINAL)

public:
    explicit QmlScrubBarRulerController(QQuickItem *parent = nullptr);
    ~QmlScrubBarRulerController() override;

    /*! Invalid at the start. */
    QDateTime currentTime() const;
    void setCurrentTime(const QDateTime &time);

    qlonglong rangeSecs() const;
    void setRangeSecs(qlonglong seconds);
    qlonglong notchIntervalSecs() const;
    void setNotchIntervalSecs(qlonglong seconds);

    void paint(QPainter *painter) override;

    /*! Moves the current time by milliseconds. */
    Q_INVOKABLE void addMsecs(int mssecs);
    /*! Sets the current time; \a epoch is in milliseconds. The zone doesn't move the notches. */
    Q_INVOKABLE void setTimeFromEpoch(qlonglong epoch, const QVariant &time_zone);

Q_SIGNALS:
    void rangeSecsChanged();
    void notchIntervalSecsChanged();

private:
    qint64 rangeMs() const;
    qint64 notchIntervalMs() const;
    qint64 msPerPixel() const;
    double pixelPerMs() const;
    double notchIntervalPx() const;
    QDateTime calculateLeftTime() const;
    qint64 leftEpochMs() const;
    double firstNotchX() const;

    QDateTime m_currentTime;
    qint64 m_rangeSecs = 60;
    qint64 m_notchIntervalSecs = 10;
};

} // namespace orrin
