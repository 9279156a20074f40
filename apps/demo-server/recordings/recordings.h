// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordings/recordingschedule.h"
#include "site/site.h"

#include <QList>
#include <QString>

/*! What a recorder has recorded: one recording for each track of a camera and each of its profiles. */
namespace orrin::demo::recordings {

/*! The tokens of a recording's tracks, as the descriptions of its streams name them. */
inline constexpr QLatin1StringView VideoTrack("VIDEO000");
inline constexpr QLatin1StringView AudioTrack("AUDIO001");

/*! One recording; the pointers are valid during the call that gave it. */
struct Ref
{
    const Camera *camera = nullptr;
    const Track *track = nullptr;
    const Profile *profile = nullptr;

    QString token() const;
    /*! The path of its RTSP address. */
    QString path() const;
    RecordingSchedule schedule(const RecorderInfo &recorder) const;
    bool hasAudio() const { return camera->audio != AudioCodec::None; }
    explicit operator bool() const { return profile != nullptr; }
};

/*! All recordings of one camera. */
QList<Ref> recordingsOf(const Camera &camera);

/*! Those of all cameras that are enabled and that \a user may see; none when the user may not play back. */
QList<Ref> recordingsFor(const RecorderInfo &recorder, const User &user);

/*! The one of them with this token, or an empty one. */
Ref recordingFor(const RecorderInfo &recorder, const User &user, const QString &token);

} // namespace orrin::demo::recordings
