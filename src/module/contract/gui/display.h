// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/displayinterface.h>
#include <contract/gui/export.h>
#include <contract/gui/rendererhostinterface.h>

#include <memory>

namespace orrin {

class DisplayPrivate;

/*! The concrete display: takes frames and errors on any thread and hands them to its renderer on the thread that it was made
    on (the main thread), by the event loop.

    Frames pass a mailbox of one: a frame that comes while another waits replaces it, and is counted. Errors and busy states
    keep their order and are all delivered, up to 64 waiting errors; the oldest are dropped beyond that. */
class ORRINSDK_GUI_EXPORT Display : public RendererHostInterface, public DisplayInterface
{
public:
    Display();
    ~Display() override;

    void setRenderer(const QSharedPointer<ImageRenderingInterface> &renderer) override;
    QSharedPointer<ImageRenderingInterface> renderer() const override;

    void setVideoFrame(const VideoFrame &frame) override;
    void setDelay(long long delayMs) override;
    void setError(const PlaybackError &error, int mark) override;
    QObject *qObject() override;

    /*! Shows or clears the busy wheel of the renderer. Any thread. */
    void setBusy(bool busy);

    /*! Frames handed to the renderer, and frames that were replaced before. Any thread. */
    quint64 deliveredFrames() const;
    quint64 replacedFrames() const;
    /*! The delay told last, in milliseconds. Any thread. */
    long long delay() const;

private:
    std::unique_ptr<DisplayPrivate> d;
};

} // namespace orrin
