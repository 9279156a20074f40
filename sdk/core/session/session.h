// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/eventdescription.h"
#include "core/session/mediaendpoint.h"
#include "core/session/sitedescription.h"

#include <contract/core/connection.h>
#include <contract/core/connectionerror.h>
#include <contract/core/export.h>
#include <contract/core/loginerror.h>
#include <contract/core/statusobject.h>

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>

namespace orrin {

/*! The seam between the core and a recorder: one recorder that the user logged in to.

    Lives on the main thread. Every outcome comes by the event loop, never inside the call that asked. open() ends in described() and then
    opened(), or in loginFailed(), within 10 seconds. After opened() the session looks after itself: it reports lost() once, tries again with
    back-off and jitter (1 s to 60 s, one attempt at a time), and reports described() and restored(). close() ends it for
    good, with no further signal. */
class ORRINSDK_CORE_EXPORT Session : public QObject
{
    Q_OBJECT
public:
    using MediaEndpointCallback = std::function<void(const MediaEndpointResult &)>;

    explicit Session(QObject *parent = nullptr);
    ~Session() override;

    virtual void open() = 0;
    virtual void close() = 0;

    /*! Asks for the stream \a quality of a channel. \a callback is called once, by the event loop, within 10 seconds, unless \a context or
        the session ends before. */
    virtual void requestMediaEndpoint(int channelId, StreamQuality quality, QObject *context,
                                      MediaEndpointCallback callback) = 0;

    /*! The connection that streams of this session show to the module; lives as long as the session. */
    virtual Connection *connection() = 0;

Q_SIGNALS:
    /*! The whole description, at login, after a reconnect and after each change. */
    void described(const orrin::SiteDescription &site);
    void opened();
    void loginFailed(const orrin::LoginError &error);
    void lost(const orrin::ConnectionError &error);
    void restored();
    /*! What happened since the last time, oldest first. */
    void eventsReceived(const QList<orrin::EventDescription> &events);
    /*! The causes of all events that the server has, in words; after opened() and after restored(). */
    void eventCausesKnown(const QStringList &causes);
    void statusChanged(const orrin::StatusObject &status);
    /*! The server ended the user's session for lack of activity; the session is then closed. */
    void userTimedOut();
    void restartRequested();
    void rebootRequested();
    void shutdownRequested();
};

} // namespace orrin
