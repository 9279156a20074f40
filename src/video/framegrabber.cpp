// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/framegrabber.h"

#include "video/framegrabber_p.h"
#include "video/qmlabstractstreamprovider.h"
#include "video/renderinglookup.h"

#include <contract/core/channel.h>
#include <contract/core/currentuser.h>
#include <contract/core/server.h>
#include <contract/core/spabstractinputcontrol.h>
#include <contract/core/sspermission.h>

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace orrin {

FrameGrabberPrivate::FrameGrabberPrivate(FrameGrabber *q, QmlAbstractStreamProvider *provider)
    : q(q), provider(provider)
{
}

FrameGrabberPrivate::~FrameGrabberPrivate() = default;
FrameGrabberPrivate::FrameGrabberPrivate(const FrameGrabberPrivate &) = default;
FrameGrabberPrivate &FrameGrabberPrivate::operator=(const FrameGrabberPrivate &) = default;

void FrameGrabberPrivate::streamProcessorCreated() {}
void FrameGrabberPrivate::serverGroupIdChanged() {}
void FrameGrabberPrivate::serverIdChanged() {}
void FrameGrabberPrivate::channelIdChanged() {}

FrameGrabber::FrameGrabber(QmlAbstractStreamProvider *provider)
    : FrameGrabber(
          PrivatePointer(new FrameGrabberPrivate(this, provider), [](FrameGrabberPrivate *d) { delete d; }))
{
}

FrameGrabber::FrameGrabber(PrivatePointer d) : d_ptr(std::move(d)) {}

FrameGrabber::~FrameGrabber()
{
    clearConnection();
}

void FrameGrabber::setActivated(bool activated)
{
    const QSharedPointer<AbstractStreamProcessor> processor = d_func()->streamProcessor;
    if (!processor)
        return;
    if (activated)
        processor->start();
    else
        processor->stop();
}

bool FrameGrabber::isActive() const
{
    return d_func()->streamProcessor && d_func()->streamProcessor->isActive();
}

int FrameGrabber::serverGroupId() const
{
    return d_func()->serverGroupId;
}

void FrameGrabber::setServerGroupId(int id)
{
    if (d_func()->serverGroupId == id)
        return;
    clearConnection();
    d_func()->serverGroupId = id;
    createStreamProcessor();
    d_func()->serverGroupIdChanged();
}

int FrameGrabber::serverId() const
{
    return d_func()->serverId;
}

void FrameGrabber::setServerId(int id)
{
    if (d_func()->serverId == id)
        return;
    clearConnection();
    d_func()->serverId = id;
    createStreamProcessor();
    d_func()->serverIdChanged();
}

int FrameGrabber::channelId() const
{
    return d_func()->channelId;
}

void FrameGrabber::setChannelId(int id)
{
    if (d_func()->channelId == id)
        return;
    clearConnection();
    d_func()->channelId = id;
    createStreamProcessor();
    d_func()->channelIdChanged();
}

int FrameGrabber::syncContextId() const
{
    return d_func()->syncContextId;
}

void FrameGrabber::setSyncContextId(int id)
{
    d_func()->syncContextId = id;
}

RequestId FrameGrabber::streamId() const
{
    return d_func()->streamProcessor ? d_func()->streamProcessor->requestId() : RequestId();
}

QString FrameGrabber::lastError()
{
    QmlRendering *rendering = d_func()->rendering;
    const QList<QString> errors = rendering ? rendering->errors() : QList<QString>();
    if (errors.isEmpty())
        return {};
    rendering->clearErrors();
    return errors.last();
}

bool FrameGrabber::isUserPermitted() const
{
    const QSharedPointer<AbstractStreamProcessor> processor = d_func()->streamProcessor;
    const Channel *channel = processor ? processor->channel() : nullptr;
    const Server *server = channel ? channel->server() : nullptr;
    const QSharedPointer<CurrentUser> user = server ? server->currentUser() : nullptr;
    return user && user->isPermitted(SSPermission(SSPermission::SeeBehindMasks));
}

bool FrameGrabber::areIDsValid() const
{
    return d_func()->serverGroupId >= 1 && d_func()->serverId >= 1 && d_func()->channelId >= 1;
}

void FrameGrabber::createStreamProcessor()
{
    if (!areIDsValid())
        return;
    FrameGrabberPrivate *d = d_func();
    d->streamProcessor = d->provider->createStreamProcessor(unsigned(d->serverGroupId), unsigned(d->serverId),
                                                            unsigned(d->channelId), d->syncContextId);
    if (!d->streamProcessor)
        return;
    d->rendering = renderingOf(*d->streamProcessor);
    if (!d->rendering)
        return;
    d->streamProcessorCreated();
    // A stream always opens live.
    if (SPAbstractInputControl *control = d->streamProcessor->inputControl())
        control->live(0);
}

void FrameGrabber::clearConnection()
{
    FrameGrabberPrivate *d = d_func();
    if (!areIDsValid() || !d->streamProcessor)
        return;
    const RequestId streamId = d->streamProcessor->requestId();
    AbstractStreamProcessor *processor = d->streamProcessor.data();
    d->streamProcessor.clear();
    d->rendering.clear();
    // The pointer's deleter is deleteLater: the stream shall end now, not with the next turn of the event
    // loop.
    QCoreApplication::sendPostedEvents(processor, QEvent::DeferredDelete);
    d->provider->removeStreamProcessorIfNoReference(unsigned(d->serverGroupId), unsigned(d->serverId),
                                                    unsigned(d->channelId), streamId);
}

} // namespace orrin
