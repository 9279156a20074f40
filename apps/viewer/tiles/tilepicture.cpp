// SPDX-License-Identifier: GPL-3.0-or-later
#include "tiles/tilepicture.h"

#include <video/qmlvideodisplay.h>
#include <video/qmlvideoplaybackcontroller.h>
#include <video/qmlvideoprovider.h>

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/playbackstate.h>
#include <contract/core/spabstractinputcontrol.h>

#include <QTextDocumentFragment>

namespace {

constexpr int HighQuality = 1;
constexpr int LowQuality = 3;

// The panel is the item among the children of a `VideoOutput` that shows messages.
QQuickItem *panelIn(const QQuickItem *output)
{
    const QList<QQuickItem *> children = output->childItems();
    for (QQuickItem *child : children) {
        if (QByteArrayView(child->metaObject()->className()).startsWith("VideoOutputMessage"))
            return child;
    }
    return nullptr;
}

} // namespace

TilePicture::TilePicture(QObject *parent) : QObject(parent) {}

void TilePicture::setOutput(QQuickItem *output)
{
    if (output == m_output)
        return;
    if (m_display)
        m_display->disconnect(this);
    m_output = output;
    m_display = output ? output->findChild<orrin::QmlVideoDisplay *>() : nullptr;
    m_panel = output ? panelIn(output) : nullptr;
    if (m_display) {
        using Display = orrin::QmlVideoDisplay;
        connect(m_display, &Display::streamIdChanged, this, &TilePicture::beginStream);
        connect(m_display, &Display::serverGroupIdChanged, this, &TilePicture::forgetPictures);
        connect(m_display, &Display::serverIdChanged, this, &TilePicture::forgetPictures);
        connect(m_display, &Display::channelIdChanged, this, &TilePicture::forgetPictures);
        connect(m_display, &Display::currentFrameChanged, this, &TilePicture::countPicture);
        // The output reads the error in its own handler, which is called before this one.
        connect(m_display, &Display::errorReceived, this, &TilePicture::takeError);
        connect(m_display, &Display::busySpinnerVisibleChanged, this, &TilePicture::waitingChanged);
        beginStream();
        forgetPictures();
    }
    Q_EMIT outputChanged();
    Q_EMIT waitingChanged();
}

void TilePicture::setHigh(bool high)
{
    if (m_high == high)
        return;
    m_high = high;
    sendQuality();
    Q_EMIT highChanged();
}

void TilePicture::setRunning(bool running)
{
    if (m_running == running)
        return;
    m_running = running;
    sendRunning();
    Q_EMIT runningChanged();
}

bool TilePicture::waiting() const
{
    return m_display && m_display->isBusySpinnerVisible();
}

void TilePicture::zoom(double factor)
{
    if (!m_display)
        return;
    if (factor > 0)
        m_display->zoom(factor, 0, 0);
    else
        m_display->resetZoom();
}

void TilePicture::beginStream()
{
    sendQuality();
    sendRunning();
}

void TilePicture::forgetPictures()
{
    const bool addressed =
        m_display && m_display->serverGroupId() > 0 && m_display->serverId() > 0 && m_display->channelId() > 0;
    if (m_pictures != 0) {
        m_pictures = 0;
        Q_EMIT picturesChanged();
    }
    setState(addressed ? Waiting : Empty);
}

void TilePicture::countPicture()
{
    if (m_pictures < EnoughPictures) {
        ++m_pictures;
        Q_EMIT picturesChanged();
    }
    setState(Showing);
}

void TilePicture::takeError()
{
    const QString html = m_panel ? m_panel->property("text").toString() : QString();
    const QString text = QTextDocumentFragment::fromHtml(html).toPlainText().simplified();
    setState(Failed, text.isEmpty() ? tr("The picture is not available.") : text);
}

void TilePicture::sendQuality()
{
    if (orrin::AbstractStreamProcessor *stream = processor())
        stream->inputControl()->setStreamPreference(m_high ? HighQuality : LowQuality);
    if (std::exchange(m_qualityWaits, true))
        return;
    // The controller learns the address of a new stream after this, and keeps its own record.
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_qualityWaits = false;
            auto *controller = m_output ? m_output->property("playbackController").value<orrin::QmlVideoPlaybackController *>() : nullptr;
            if (controller)
                controller->setHighStream(m_high);
        },
        Qt::QueuedConnection);
}

void TilePicture::sendRunning()
{
    const orrin::AbstractStreamProcessor *stream = processor();
    if (!stream || stream->isActive() == m_running)
        return;
    const bool recorded = stream->playbackState() && stream->playbackState()->mode() != orrin::PlayMode::Live
        && stream->playbackState()->mode() != orrin::PlayMode::Stopped;
    if (m_running || !recorded)
        m_display->setActivated(m_running);
}

void TilePicture::setState(State state, const QString &errorText)
{
    if (m_state == state && m_errorText == errorText)
        return;
    m_state = state;
    m_errorText = errorText;
    Q_EMIT stateChanged();
}

orrin::AbstractStreamProcessor *TilePicture::processor() const
{
    if (!m_display)
        return nullptr;
    return orrin::QmlVideoProvider::instance().getStreamProcessor(unsigned(m_display->serverGroupId()), unsigned(m_display->serverId()),
                                                                  unsigned(m_display->channelId()), m_display->streamId());
}
