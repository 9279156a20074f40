// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/logclient.h"
#include "module/orrinsdkqmlglobal.h"

#include <contract/util/requestid.h>

#include <QPointer>
#include <QSharedPointer>

#include <functional>
#include <memory>

namespace orrin {

class AbstractStreamProcessor;
class QmlStreamProviderPrivate;
class SPMFactory;

/*! What the video and the audio provider share: the list of processors and the factory that makes them.

    Main thread, no lock. A moved-from provider must not be used. */
class ORRINSDKQML_EXPORT QmlStreamProvider
{
public:
    QmlStreamProvider();
    QmlStreamProvider(QmlStreamProvider &&other) noexcept;
    QmlStreamProvider &operator=(QmlStreamProvider &&other) noexcept;
    ~QmlStreamProvider();

    void setVideoFactory(QSharedPointer<SPMFactory> factory);
    void setAudioFactory(QSharedPointer<SPMFactory> factory);

    /*! Makes a processor, starts it and takes it into the list; the caller owns it. Null, and no entry, when the group, the
        server or the channel is not known. */
    QSharedPointer<AbstractStreamProcessor> createStreamProcessor(int serverGroupId, int serverId, int channelId,
                                                                  int syncContextId);
    /*! The first processor whose four keys are equal; null when there is none or when it is gone. */
    QPointer<AbstractStreamProcessor> getStreamProcessor(int serverGroupId, int serverId, int channelId,
                                                         RequestId streamId) const;
    /*! Takes the entry out of the list if its processor is gone. */
    void removeStreamProcessorIfNoReference(int serverGroupId, int serverId, int channelId, RequestId streamId);

private:
    QmlStreamProviderPrivate *d_func() const { return d_ptr.get(); }

    std::unique_ptr<QmlStreamProviderPrivate, std::function<void(QmlStreamProviderPrivate *)>> d_ptr;
    LogClient m_log;
};

} // namespace orrin
