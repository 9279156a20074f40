// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlchannel.h"

#include "resources/qmlchannel_p.h"
#include "resources/resourcelookup_p.h"

#include <contract/core/camera.h>
#include <contract/core/server.h>
#include <contract/core/track.h>

#include <array>
#include <cstdint>

namespace orrin {

namespace {

// In 32-bit arithmetic, whatever the ids are.
int uniqueIdOf(int serverGroupId, int serverId, int sortId)
{
    const auto number = [](int id) { return static_cast<std::uint32_t>(id); };
    return static_cast<int>(number(serverGroupId) * 1000000u + number(serverId) * 1000u + number(sortId));
}

} // namespace

QmlChannelPrivate::QmlChannelPrivate(QmlChannel *q)
    : q_ptr(q)
{
}

Channel *QmlChannelPrivate::channel()
{
    const QPointer<Channel> found = findChannel(serverGroupId, serverId, channelId);
    if (found && found != cachedChannel) {
        cachedChannel = found;
        QObject::connect(found, &QObject::destroyed, q_ptr.data(), [this] { update(); });
        // A handler may delete this view and the channel.
        update();
    }
    return found;
}

void QmlChannelPrivate::update()
{
    emitAll<QmlChannel, 11>(q_ptr,
                            {&QmlChannel::channelUniqueIdChanged, &QmlChannel::nameChanged, &QmlChannel::serverNameChanged,
                             &QmlChannel::isValidChanged, &QmlChannel::isEnabledChanged, &QmlChannel::isCameraChanged,
                             &QmlChannel::isAudioChanged, &QmlChannel::isTalkbackChanged, &QmlChannel::isDataChanged,
                             &QmlChannel::hasPtzfChanged, &QmlChannel::trackCountChanged});
}

QmlChannel::QmlChannel(QObject *parent)
    : QObject(parent)
    , d_ptr(std::make_unique<QmlChannelPrivate>(this))
    , m_log("orrin::QmlChannel", this)
{
    m_log.trace(__FILE__, "orrin::QmlChannel::QmlChannel", "orrin::QmlChannel::QmlChannel");
}

QmlChannel::~QmlChannel()
{
    m_log.trace(__FILE__, "orrin::QmlChannel::~QmlChannel", "orrin::QmlChannel::~QmlChannel");
}

int QmlChannel::serverGroupId() const
{
    return d_func()->serverGroupId;
}

void QmlChannel::setServerGroupId(int id)
{
    if (d_func()->serverGroupId == id)
        return;
    d_func()->serverGroupId = id;
    Q_EMIT serverGroupIdChanged();
}

int QmlChannel::serverId() const
{
    return d_func()->serverId;
}

void QmlChannel::setServerId(int id)
{
    if (d_func()->serverId == id)
        return;
    d_func()->serverId = id;
    Q_EMIT serverIdChanged();
}

int QmlChannel::channelId() const
{
    return d_func()->channelId;
}

void QmlChannel::setChannelId(int id)
{
    if (d_func()->channelId == id)
        return;
    d_func()->channelId = id;
    Q_EMIT channelIdChanged();
}

int QmlChannel::sortId() const
{
    const Channel *channel = d_func()->channel();
    return channel ? channel->sortId() : -1;
}

int QmlChannel::channelUniqueId() const
{
    const int serverGroupId = d_func()->serverGroupId;
    const int serverId = d_func()->serverId;
    const Channel *channel = d_func()->channel();
    return channel ? uniqueIdOf(serverGroupId, serverId, channel->sortId()) : -1;
}

QString QmlChannel::name() const
{
    const Channel *channel = d_func()->channel();
    return channel ? channel->name() : QString();
}

QString QmlChannel::serverName() const
{
    const Server *server = findServer(d_func()->serverGroupId, d_func()->serverId);
    return server ? server->name() : QString();
}

bool QmlChannel::isValid() const
{
    const Channel *channel = d_func()->channel();
    return channel && channel->isValid();
}

bool QmlChannel::isEnabled() const
{
    const Channel *channel = d_func()->channel();
    return channel && channel->isEnabled();
}

bool QmlChannel::isCamera() const
{
    const Channel *channel = d_func()->channel();
    return channel && !channel->isAudio() && !channel->isDataChannel() && !channel->isTalkback();
}

bool QmlChannel::isAudio() const
{
    const Channel *channel = d_func()->channel();
    return channel && channel->isAudio();
}

bool QmlChannel::isTalkback() const
{
    const Channel *channel = d_func()->channel();
    return channel && channel->isTalkback();
}

bool QmlChannel::isData() const
{
    const Channel *channel = d_func()->channel();
    return channel && channel->isDataChannel();
}

bool QmlChannel::hasPtzf() const
{
    const auto *camera = qobject_cast<Camera *>(d_func()->channel());
    return camera && camera->ptzf() != 0;
}

int QmlChannel::trackCount() const
{
    const Channel *channel = d_func()->channel();
    return channel ? static_cast<int>(channel->tracks().size()) : 0;
}

ChannelUID QmlChannel::channelUid() const
{
    const Channel *channel = d_func()->channel();
    return channel ? channel->uid() : ChannelUID();
}

} // namespace orrin
