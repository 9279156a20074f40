// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/scenefactory.h"
#include "camera/view.h"
#include "site/deviceclock.h"
#include "ptz/ptzmotor.h"

#include <QByteArray>
#include <QList>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace orrin::demo {

enum class VideoCodec { H264, H265, Mjpeg };

/*! What a camera hears, and how it is encoded. */
enum class AudioCodec { None, Mulaw, Alaw, Aac };

/*! When a track records, as a function of time; see RecordingSchedule. */
enum class RecordingPattern { Continuous, HourlyGap, OnAlarm, JustBegun, Empty };

/*! One encoding of a camera's picture: "main" or "sub". */
struct Profile
{
    QString name;
    QSize size;
    int rate = 15;       //!< frames a second
    int bitrateKbit = 0; //!< what the encoder is configured for
};

/*! A recording track as the site extension describes it. */
struct Track
{
    int id = 1;
    QString name;
    QString type; //!< "track1", "track2", "track3", "metadata", "events", "vmd", "audio", "talkback"
    bool enabled = true;
    RecordingPattern recording = RecordingPattern::Continuous;
};

struct Camera
{
    int id = 0;     //!< unique on its recorder, from 1
    int number = 0; //!< unique in the site, for the time strip: 12 bits
    int sortId = 0;
    QString name;
    bool enabled = true;
    bool ptz = false;
    std::shared_ptr<PtzMotor> motor; //!< moves its view; null for a camera that stands still
    VideoCodec codec = VideoCodec::H264;
    AudioCodec audio = AudioCodec::None;
    SceneKind scene = SceneKind::Road;
    int variant = 0;
    std::optional<QRectF> mask; //!< privacy mask in fractions of the picture
    QStringList refusedUsers;   //!< users that may not see this camera
    QList<Profile> profiles;
    QList<Track> tracks;

    const Profile *profile(QStringView name) const;
    const Track *track(int id) const;
    /*! Where it looks at a moment, by the device's clock. */
    View viewAt(std::int64_t timeMs) const { return motor ? motor->viewAt(timeMs) : View(); }
    bool permittedFor(const QString &user) const { return !refusedUsers.contains(user); }
};

struct RecorderInfo
{
    int id = 0; //!< unique in the group, from 1
    quint64 uid = 0;
    QString name;
    QString version;       //!< "major.minor.patch.build"
    QByteArray timeZone;   //!< IANA name
    QString posixTimeZone; //!< the same zone as POSIX and ONVIF write it
    QList<Camera> cameras;
    bool inGroup = true; //!< false: it left the group, and stands alone
    DeviceClock clock;
    qint64 startedMs = 0; //!< when it was started, by its own clock

    const Camera *camera(int id) const;
    Camera *camera(int id);

    /*! Cameras that a recorder can have. */
    static constexpr qsizetype MaximumCameras = 64;

    /*! A new camera with the lowest id that is free; null when there are too many. */
    Camera *addCamera(const QString &name);
};

enum class UserLevel { Administrator, Installer, Operator, User };

/*! \a level as the site extension spells it. */
QString levelName(UserLevel level);

/*! The level that is spelt \a name, or nothing. */
std::optional<UserLevel> levelFromName(QStringView name);

struct User
{
    int id = 0;
    QString name;
    QString password;
    UserLevel level = UserLevel::User;

    bool mayPlayBack() const { return level != UserLevel::User; }
};

/*! All that the demo site consists of. The one place where its data stands. */
struct Site
{
    QString groupUid;
    QString groupName;
    QList<RecorderInfo> recorders;
    QList<User> users;

    /*! Two recorders, "North" and "South", with twelve cameras, and three users. */
    static Site builtIn();
};

} // namespace orrin::demo
