// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/view.h"
#include "ptz/ptzmotor.h"
#include "site/deviceclock.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

namespace orrin::demo {

struct PtzPreset
{
    QString token;
    QString name;
    View view;
};

struct PtzTourSpot
{
    QString preset; //!< token
    double speed = 1.0;
    int stayMs = 2000;
};

struct PtzTour
{
    QString token;
    QString name;
    QList<PtzTourSpot> spots;
};

/*! What a camera that moves remembers beside its motor: stored positions, the home position, tours, and which of them runs. GUI
    thread. */
class PtzCamera : public QObject
{
    Q_OBJECT
public:
    static constexpr qsizetype MaximumPresets = 255;
    static constexpr qsizetype MaximumTours = 16;
    static constexpr qsizetype MaximumSpots = 32;

    PtzCamera(std::shared_ptr<PtzMotor> motor, DeviceClock clock);

    PtzMotor &motor() { return *m_motor; }
    bool isFor(const std::shared_ptr<PtzMotor> &motor) const { return m_motor == motor; }
    std::int64_t nowMs() const { return m_clock.nowMs(); }

    const QList<PtzPreset> &presets() const { return m_presets; }
    const PtzPreset *preset(const QString &token) const;
    /*! Stores where the camera looks now, over the preset with this token, or as a new one when \a token is empty. Its token; empty when
        there is no such preset or there are too many. */
    QString setPreset(const QString &token, const QString &name);
    bool removePreset(const QString &token);
    bool goToPreset(const QString &token, double speed = 1.0);

    void setHome();
    void goHome(double speed = 1.0);

    const QList<PtzTour> &tours() const { return m_tours; }
    PtzTour *tour(const QString &token);
    /*! The token of a new, empty tour; empty when there are too many. */
    QString addTour();
    bool removeTour(const QString &token);
    bool startTour(const QString &token);
    void stopTour();
    /*! The token of the one that runs; empty when none does. */
    const QString &runningTour() const { return m_running; }

private:
    void nextSpot();

    const std::shared_ptr<PtzMotor> m_motor;
    const DeviceClock m_clock;
    QList<PtzPreset> m_presets;
    QList<PtzTour> m_tours;
    View m_home;
    QString m_running;
    qsizetype m_spot = 0;
    QTimer m_next;
};

} // namespace orrin::demo
