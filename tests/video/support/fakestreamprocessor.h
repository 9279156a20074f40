// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlrendering.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/connection.h>
#include <contract/core/streampresenterinterface.h>

#include <QPointer>
#include <QStringList>

namespace orrin {

/*! Notes the commands that it is given. */
class FakeInputControl : public SPAbstractInputControl
{
    Q_OBJECT
public:
    void play(long long position, unsigned mark) override;
    void live(int mark) override;
    void pause(int mark) override;
    void rewind(int speed) override;
    void fastForward(int speed) override;
    void stepBack() override;
    void stepForward() override;
    void jumpToStart() override;
    void jumpToEnd() override;
    void jump(Time300 time, int mode) override;
    void scrub(Time300 time, unsigned mark) override;
    void setSpeed(double speed) override;
    void setStreamPreference(int preference) override;
    void enableModule(SPModuleType module) override;
    void disableModule(SPModuleType module) override;

    QStringList calls;
};

class FakePresenter : public StreamPresenterInterface
{
public:
    QList<std::shared_ptr<DisplayInterface>> displays() const override { return list; }

    QList<std::shared_ptr<DisplayInterface>> list;
};

/*! A connection whose tracks all have the same bounds. */
class FakeConnection : public Connection
{
public:
    QSharedPointer<TrackBounds> createTrackBounds(unsigned trackAndChannel) override;
    long long getCachedServerUTCOffsetToClientUTCMSecs() const override { return 0; }

    Time300 begin = 0;
    Time300 end = 0;
    QList<unsigned> asked;
};

/*! A stream without a server: its one display is one of the module's, driven by the test. */
class FakeStreamProcessor : public AbstractStreamProcessor
{
    Q_OBJECT
public:
    explicit FakeStreamProcessor(quint16 id = 1);
    ~FakeStreamProcessor() override;

    SPAbstractInputControl *inputControl() const override { return control.get(); }
    QList<QSharedPointer<SPAbstractOutput>> outputs() const override { return outputList; }
    RequestId requestId() const override { return RequestId{id}; }
    void start() override;
    void stop() override;
    bool isActive() const override { return active; }
    QSharedPointer<PlaybackState> playbackState() const override { return state; }
    Channel *channel() const override { return channelPointer; }
    void setPresentationMode(int mode) override;
    unsigned trackIdBase() const override { return base; }

    /*! The module's rendering behind the display. */
    QmlRendering *rendering() const { return renderingPointer; }
    void setFakeConnection(Connection *connection) { setConnection(connection); }

    quint16 id;
    bool active = false;
    unsigned base = 0;
    QStringList calls;
    Channel *channelPointer = nullptr;
    std::unique_ptr<FakeInputControl> control;
    QSharedPointer<PlaybackState> state;
    std::shared_ptr<FakePresenter> presenter;
    QList<QSharedPointer<SPAbstractOutput>> outputList;

private:
    QPointer<QmlRendering> renderingPointer;
};

} // namespace orrin
