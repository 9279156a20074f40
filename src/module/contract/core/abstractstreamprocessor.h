// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/playbackstate.h>
#include <contract/core/spabstractinputcontrol.h>
#include <contract/core/spabstractoutput.h>
#include <contract/util/requestid.h>

#include <QList>
#include <QObject>
#include <QSharedPointer>

namespace orrin {

class Channel;
class Connection;

/*! The control side of a stream processor. */
class StreamProcessorControlInterface
{
public:
    virtual ~StreamProcessorControlInterface() = default;

    /*! Null if none. Owned by the processor. */
    virtual SPAbstractInputControl *inputControl() const = 0;
    /*! The first is a DisplayOutput. */
    virtual QList<QSharedPointer<SPAbstractOutput>> outputs() const = 0;
    /*! Assigned at construction; never 0. */
    virtual RequestId requestId() const = 0;
    virtual void start() = 0;
    virtual void stop() = 0;
    virtual bool isActive() const = 0;
};

/*! One stream: from a channel of a server to displays. Main thread; shared by whoever holds its strong pointer, and deleted by the
    event loop once the last one is dropped. */
class ORRINSDK_CORE_EXPORT AbstractStreamProcessor : public QObject, public StreamProcessorControlInterface
{
    Q_OBJECT
public:
    explicit AbstractStreamProcessor(QObject *parent = nullptr);
    ~AbstractStreamProcessor() override;

    virtual QSharedPointer<PlaybackState> playbackState() const = 0;
    /*! Null once the channel is gone. */
    virtual Channel *channel() const = 0;
    /*! 2 keeps frames in order and drops none, as sound wants it; any other mode shows the newest. */
    virtual void setPresentationMode(int mode) = 0;
    /*! To be or-ed with a channel id for Connection::createTrackBounds(). */
    virtual unsigned trackIdBase() const = 0;

    /*! Null when not connected. Borrowed for the call. */
    Connection *connection() const { return m_connection; }

protected:
    void setConnection(Connection *connection) { m_connection = connection; }

private:
    Connection *m_connection = nullptr;
};

} // namespace orrin
