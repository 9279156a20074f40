// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlabstractstreamprovider.h"

#include <functional>
#include <memory>

namespace orrin {

class QmlVideoProviderPrivate;

/*! The provider of pictures: its processors show on displays of QmlVideoDisplayFactory. Main thread. */
class ORRINSDKQML_EXPORT QmlVideoProvider : public QmlAbstractStreamProvider
{
public:
    /*! Made by the first call; lives until the process ends. */
    static QmlVideoProvider &instance();

    QmlVideoProvider(QmlVideoProvider &&other) noexcept;
    QmlVideoProvider &operator=(QmlVideoProvider &&other) noexcept;
    ~QmlVideoProvider() override;

    QSharedPointer<AbstractStreamProcessor> createStreamProcessor(unsigned serverGroupId, unsigned serverId,
                                                                  unsigned channelId, int syncContextId) override;
    QPointer<AbstractStreamProcessor> getStreamProcessor(unsigned serverGroupId, unsigned serverId, unsigned channelId,
                                                         RequestId streamId) override;
    void removeStreamProcessorIfNoReference(unsigned serverGroupId, unsigned serverId, unsigned channelId,
                                            RequestId streamId) override;

private:
    QmlVideoProvider();
    QmlVideoProvider(const QmlVideoProvider &) = delete;
    QmlVideoProvider &operator=(const QmlVideoProvider &) = delete;

    QmlVideoProviderPrivate *d_func() const { return d_ptr.get(); }

    std::unique_ptr<QmlVideoProviderPrivate, std::function<void(QmlVideoProviderPrivate *)>> d_ptr;
};

} // namespace orrin
