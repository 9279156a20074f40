// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordings/gopcache.h"
#include "rtsp/glibthread.h"
#include "rtsp/replaycontrol.h"
#include "site/accounts.h"
#include "site/deviceclock.h"
#include "site/site.h"
#include "site/tlsidentity.h"

#include <memory>

namespace orrin::demo {

/*!
    The RTSP side of one recorder: live pictures at /camera/ID/PROFILE, recorded ones at
   /recording/ID/TRACK/PROFILE by the ONVIF replay extension, over TLS unless told otherwise, interleaved in
   the RTSP connection only.

    The server lives in the loop of the given GLib thread; functions may be called from any other thread and
   return when they took effect.
*/
class RtspServer
{
public:
    struct Settings
    {
        QString address;
        bool tls = true;
        DeviceClock clock;
        std::shared_ptr<GopCache> cache = std::make_shared<GopCache>(); //!< recorders may share one
    };

    struct Counts
    {
        int connections = 0;
        int sessions = 0;
        int media = 0; //!< media that some session has set up; a shared one counts once for each
    };

    /*! \a thread must outlive the server. */
    RtspServer(GlibThread &thread, const RecorderInfo &recorder, std::shared_ptr<const Accounts> accounts,
               const Settings &settings);
    ~RtspServer();
    RtspServer(const RtspServer &) = delete;
    RtspServer &operator=(const RtspServer &) = delete;

    /*! Starts to listen; 0 is any free port. False, with \a error set, when that fails. */
    bool listen(quint16 port, QString *error);

    /*! Stops listening and closes all connections. */
    void close();

    /*! The port in use, 0 when not listening. */
    quint16 port() const;

    /*! The key and certificate of connections to come. */
    void setIdentity(const TlsIdentity &identity);

    /*! The camera was changed: its addresses come, go, or lead to a new media. Streams that play go on. */
    void setCamera(const Camera &camera);

    void dropConnections();

    /*! While stalled, connections stay and no frame is sent. */
    void setStalled(bool stalled);

    /*! While on, garbage is written into the open connections five times a second. */
    void setGarbage(bool on);

    /*! How replay misbehaves; it may be changed at any time. */
    ReplayControl &replayControl();

    /*! Ends the RTSP sessions that replay without a word; their connections stay. */
    void dropReplaySessions();

    Counts counts();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace orrin::demo
