// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordinginputcontrol.h"

#include <contract/core/abstractstreamprocessor.h>

#include <memory>

/*! A stream that does nothing: its control and its outputs are what a test gives it. */
class FakeStreamProcessor : public orrin::AbstractStreamProcessor
{
public:
    orrin::SPAbstractInputControl *inputControl() const override { return control.get(); }
    QList<QSharedPointer<orrin::SPAbstractOutput>> outputs() const override { return outputList; }
    orrin::RequestId requestId() const override { return {7}; }
    void start() override {}
    void stop() override {}
    bool isActive() const override { return true; }
    QSharedPointer<orrin::PlaybackState> playbackState() const override { return {}; }
    orrin::Channel *channel() const override { return nullptr; }
    void setPresentationMode(int) override {}
    unsigned trackIdBase() const override { return 0; }

    std::unique_ptr<RecordingInputControl> control = std::make_unique<RecordingInputControl>();
    QList<QSharedPointer<orrin::SPAbstractOutput>> outputList;
};
