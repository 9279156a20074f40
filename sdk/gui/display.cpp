// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/gui/display.h>

#include "gui/displaymailbox.h"

namespace orrin {

class DisplayPrivate
{
public:
    DisplayMailbox mailbox;
};

Display::Display() : d(std::make_unique<DisplayPrivate>()) {}
Display::~Display() = default;

void Display::setRenderer(const QSharedPointer<ImageRenderingInterface> &renderer)
{
    d->mailbox.setRenderer(renderer);
}

QSharedPointer<ImageRenderingInterface> Display::renderer() const
{
    return d->mailbox.renderer();
}

void Display::setVideoFrame(const VideoFrame &frame)
{
    d->mailbox.putFrame(frame);
}

void Display::setDelay(long long delayMs)
{
    d->mailbox.setDelay(delayMs);
}

void Display::setError(const PlaybackError &error, int mark)
{
    d->mailbox.putError(error, mark);
}

QObject *Display::qObject()
{
    return &d->mailbox;
}

void Display::setBusy(bool busy)
{
    d->mailbox.putBusy(busy);
}

quint64 Display::deliveredFrames() const
{
    return d->mailbox.deliveredFrames();
}

quint64 Display::replacedFrames() const
{
    return d->mailbox.replacedFrames();
}

long long Display::delay() const
{
    return d->mailbox.delay();
}

} // namespace orrin
