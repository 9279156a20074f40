// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <contract/util/requestid.h>

#include <QString>

#include <functional>
#include <memory>

namespace orrin {

class FrameGrabberPrivate;
class QmlAbstractStreamProvider;

/*! Owns the stream processor of one channel address. Main thread.

    With group, server and channel at 1 or above it has the provider make a processor, which plays live at once; a change of any of
    them ends that processor and makes another. */
class ORRINSDKQML_EXPORT FrameGrabber
{
public:
    /*! \a provider is borrowed for the life of the object. */
    explicit FrameGrabber(QmlAbstractStreamProvider *provider);
    virtual ~FrameGrabber();

    /*! Starts or stops the processor, if there is one. */
    virtual void setActivated(bool activated);
    /*! False without a processor. */
    virtual bool isActive() const;

    int serverGroupId() const;
    void setServerGroupId(int id);
    int serverId() const;
    void setServerId(int id);
    int channelId() const;
    void setChannelId(int id);
    /*! Streams with the same number, other than -1, are kept at one moment; a change counts for the next processor. */
    int syncContextId() const;
    void setSyncContextId(int id);

    /*! The processor's number, 0 without one. */
    RequestId streamId() const;
    /*! The newest error since the last call, as HTML, or an empty text. Reading it clears all errors. */
    QString lastError();
    /*! True if the user of the channel's server may see behind privacy masks; false while that is not known. */
    bool isUserPermitted() const;

protected:
    using PrivatePointer = std::unique_ptr<FrameGrabberPrivate, std::function<void(FrameGrabberPrivate *)>>;

    explicit FrameGrabber(PrivatePointer d);

    PrivatePointer d_ptr;

private:
    Q_DISABLE_COPY_MOVE(FrameGrabber)

    FrameGrabberPrivate *d_func() const { return d_ptr.get(); }
    bool areIDsValid() const;
    void createStreamProcessor();
    void clearConnection();
};

} // namespace orrin
