// SPDX-License-Identifier: GPL-3.0-or-later
#include "recordings/recordings.h"

#include <algorithm>

namespace orrin::demo::recordings {

using namespace Qt::StringLiterals;

QString Ref::token() const
{
    return u"R_%1_%2_%3"_s.arg(QString::number(camera->id), QString::number(track->id), profile->name);
}

QString Ref::path() const
{
    return u"/recording/%1/%2/%3"_s.arg(QString::number(camera->id), QString::number(track->id),
                                        profile->name);
}

RecordingSchedule Ref::schedule(const RecorderInfo &recorder) const
{
    return {track->recording, camera->number * 8 + track->id, recorder.startedMs};
}

QList<Ref> recordingsOf(const Camera &camera)
{
    QList<Ref> refs;
    for (const Track &track : camera.tracks) {
        for (const Profile &profile : camera.profiles)
            refs.append({&camera, &track, &profile});
    }
    return refs;
}

QList<Ref> recordingsFor(const RecorderInfo &recorder, const User &user)
{
    QList<Ref> refs;
    if (!user.mayPlayBack())
        return refs;
    for (const Camera &camera : recorder.cameras) {
        if (camera.enabled && camera.permittedFor(user.name))
            refs += recordingsOf(camera);
    }
    return refs;
}

Ref recordingFor(const RecorderInfo &recorder, const User &user, const QString &token)
{
    const auto refs = recordingsFor(recorder, user);
    const auto found = std::ranges::find(refs, token, &Ref::token);
    return found == refs.cend() ? Ref() : *found;
}

} // namespace orrin::demo::recordings
