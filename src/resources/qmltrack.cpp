// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmltrack.h"

#include "resources/qmltrack_p.h"
#include "resources/resourcelookup_p.h"

#include <contract/core/track.h>

#include <array>

namespace orrin {

QmlTrackPrivate::QmlTrackPrivate(QmlTrack *q)
    : q_ptr(q)
{
}

Track *QmlTrackPrivate::track()
{
    const QPointer<Track> found = findTrack(serverGroupId, serverId, channelId, trackId);
    if (found && found != cachedTrack) {
        cachedTrack = found;
        connect(found, &QObject::destroyed, q_ptr.data(), &QmlTrack::update);
        // A handler may delete this view and the track.
        q_ptr->update();
    }
    return found;
}

QmlTrack::QmlTrack(QObject *parent)
    : QObject(parent)
    , d_ptr(std::make_unique<QmlTrackPrivate>(this))
    , m_log("orrin::QmlTrack", this)
{
    m_log.trace(__FILE__, "orrin::QmlTrack::QmlTrack", "orrin::QmlTrack::QmlTrack");
}

QmlTrack::~QmlTrack()
{
    m_log.trace(__FILE__, "orrin::QmlTrack::~QmlTrack", "orrin::QmlTrack::~QmlTrack");
}

int QmlTrack::serverGroupId() const
{
    return d_func()->serverGroupId;
}

void QmlTrack::setServerGroupId(int id)
{
    if (d_func()->serverGroupId == id)
        return;
    d_func()->serverGroupId = id;
    Q_EMIT serverGroupIdChanged();
}

int QmlTrack::serverId() const
{
    return d_func()->serverId;
}

void QmlTrack::setServerId(int id)
{
    if (d_func()->serverId == id)
        return;
    d_func()->serverId = id;
    Q_EMIT serverIdChanged();
}

int QmlTrack::channelId() const
{
    return d_func()->channelId;
}

void QmlTrack::setChannelId(int id)
{
    if (d_func()->channelId == id)
        return;
    d_func()->channelId = id;
    Q_EMIT channelIdChanged();
}

int QmlTrack::trackId() const
{
    return d_func()->trackId;
}

void QmlTrack::setTrackId(int id)
{
    if (d_func()->trackId == id)
        return;
    d_func()->trackId = id;
    Q_EMIT trackIdChanged();
}

QString QmlTrack::name() const
{
    const Track *track = d_func()->track();
    return track ? track->name() : QString();
}

bool QmlTrack::isEnabled() const
{
    const Track *track = d_func()->track();
    return track && track->isEnabled();
}

QString QmlTrack::type() const
{
    const Track *track = d_func()->track();
    if (!track)
        return {};
    switch (track->type()) {
    case TrackType::Track1: return QStringLiteral("Track 1");
    case TrackType::Track2: return QStringLiteral("Track 2");
    case TrackType::Track3: return QStringLiteral("Track 3");
    case TrackType::Metadata: return QStringLiteral("Metadata");
    case TrackType::Events: return QStringLiteral("Events");
    case TrackType::Vmd: return QStringLiteral("VMD");
    case TrackType::Audio: return QStringLiteral("Audio");
    case TrackType::Talkback: return QStringLiteral("Talkback");
    }
    return {};
}

void QmlTrack::update()
{
    emitAll<QmlTrack, 3>(this, {&QmlTrack::nameChanged, &QmlTrack::isEnabledChanged, &QmlTrack::typeChanged});
}

} // namespace orrin
