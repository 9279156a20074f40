// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/ptzfcommand.h>
#include <contract/core/ptzferror.h>
#include <contract/core/ptzfpreset.h>
#include <contract/util/channeluid.h>

#include <QObject>

#include <memory>

namespace orrin {

class Camera;
class PtzfControlPrivate;

/*! Steers one camera: pan, tilt, zoom and focus, stored positions and tours. Main thread; owned by its maker.

    Nothing is answered inside the call that asked: answers and errors come by signal, through the event loop. Speeds are sent as fast
    as the camera takes them and no faster: of those that come in between, the newest is sent. A camera whose speeds are not all 0 goes
    on moving until they are; it stops by itself, within seconds, when the connection breaks or this process ends. */
class ORRINSDK_CORE_EXPORT PtzfControl : public QObject
{
    Q_OBJECT
public:
    /*! The speed that is full speed, either way; what lies beyond counts as this. */
    static constexpr int FullSpeed = 32767;

    /*! \a keepsMoving: a camera that this control moves goes on when the control is deleted; otherwise it is stopped then. */
    PtzfControl(ChannelUID camera, bool keepsMoving, QObject *parent = nullptr);
    ~PtzfControl() override;

    /*! The camera, or null when it is not there. */
    Camera *camera() const;

    /*! Ends in supportedCommands() or error(). */
    void getSupportedCommands();

    /*! Moves at these speeds until told otherwise: to the right, down and in when positive. All 0 stops. */
    void panTiltZoom(int pan, int tilt, int zoom);
    /*! Focuses at this speed until told otherwise: to the far when positive. 0 stops. */
    void focus(int speed);

    /*! Stored positions, from 1. getPresets() ends in presets() or error(). */
    void getPresets();
    void goToPreset(unsigned char preset);
    /*! Stores where the camera looks now, over what was there. */
    void setPreset(unsigned char preset, const QString &name = {});
    void removePreset(unsigned char preset);

    /*! Stored tours, from 1. */
    void startTour(unsigned char tour);
    void stopCurrentTour();

Q_SIGNALS:
    /*! What the camera can do; empty when it can't be steered, or not by this user. */
    void supportedCommands(const QList<orrin::PtzfCommand> &commands);
    /*! By number. */
    void presets(const QList<orrin::PtzfPreset> &presets);
    void error(const orrin::PtzfError &error);

private:
    Q_DISABLE_COPY_MOVE(PtzfControl)

    std::unique_ptr<PtzfControlPrivate> d;
};

} // namespace orrin
