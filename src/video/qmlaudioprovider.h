// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlabstractstreamprovider.h"

#include <functional>
#include <memory>

namespace orrin {

class QmlAudioProviderPrivate;

/*! The provider of sound: its processors play through displays of QmlAudioDisplayFactory, in order and without drops. Main thread. */
class ORRINSDKQML_EXPORT QmlAudioProvider : public QmlAbstractStreamProvider
{
public:
    /*! Made by the first call; lives until the process ends. */
    static QmlAudioProvider &instance();

    QmlAudioProvider(QmlAudioProvider &&other) noexcept;
    QmlAudioProvider &operator=(QmlAudioProvider &&other) noexcept;
    ~QmlAudioProvider() override;

    QSharedPointer<AbstractStreamProcessor> createStreamProcessor(unsigned serverGroupId, unsigned serverId,
                                                                  unsigned channelId, int syncContextId) override;
    QPointer<AbstractStreamProcessor> getStreamProcessor(unsigned serverGroupId, unsigned serverId, unsigned channelId,
                                                         RequestId streamId) override;
    void removeStreamProcessorIfNoReference(unsigned serverGroupId, unsigned serverId, unsigned channelId,
                                            RequestId streamId) override;

private:
    QmlAudioProvider();
    QmlAudioProvider(const QmlAudioProvider &) = delete;
    QmlAudioProvider &operator=(const QmlAudioProvider &) = delete;

    QmlAudioProviderPrivate *d_func() const { return d_ptr.get(); }

    std::unique_ptr<QmlAudioProviderPrivate, std::function<void(QmlAudioProviderPrivate *)>> d_ptr;
};

} // namespace orrin
