// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/authenticator.h"
#include "http/httplistener.h"
#include "onvif/onvifendpoint.h"
#include "options.h"
#include "rtsp/rtspserver.h"
#include "site/changelog.h"
#include "site/eventlog.h"
#include "site/site.h"
#include "site/siteservice.h"
#include "site/tlsidentity.h"

#include <QObject>

#include <memory>

namespace orrin::demo {

/*! One recorder: its HTTPS port with the ONVIF services and the site extension, its RTSP port, its key. GUI
 * thread. */
class Recorder : public QObject
{
    Q_OBJECT

public:
    /*! \a site, which holds the recorder at \a index, and \a thread outlive the recorder. */
    Recorder(Site &site, qsizetype index, const Options &options, std::shared_ptr<Accounts> accounts,
             GlibThread &thread, SiteService::PortOf portOf);
    ~Recorder() override;

    RecorderInfo &info() { return m_info; }

    /*! Gets its key and opens both ports. False, with \a error set, when that fails. */
    bool start(QString *error);

    /*! Closes both ports and all connections; sessions are forgotten. */
    void stop();

    /*! Opens the ports again that were in use before stop(). */
    bool restart(QString *error);

    /*! Makes a new key and uses it for connections to come; the open ones are closed. */
    bool renewKey(QString *error);

    void setHttpMode(HttpListener::Mode mode) { m_http.setMode(mode); }
    RtspServer &rtsp() { return m_rtsp; }
    ChangeLog &changes() { return m_changes; }
    DeviceClock clock() const { return DeviceClock(m_options.clockOffset); }
    EventLog &events() { return m_events; }
    std::pair<int, int> subscriptionCounts() const { return m_onvif.subscriptionCounts(); }
    void forgetSubscriptions() { m_onvif.reset(); }
    SiteService &siteService() { return m_siteService; }

    quint16 httpPort() const { return m_http.port(); }
    QByteArray publicKeySha256() const { return m_identity.publicKeySha256(); }

Q_SIGNALS:
    /*! The ports are open again after restart(). */
    void opened();
    /*! stop() is about to close the ports, which were open. */
    void closing();

private:
    void handle(const HttpRequest &request, HttpReply reply);
    bool useIdentity(bool renew, QString *error);
    bool open(quint16 httpPort, quint16 rtspPort, QString *error);
    OnvifContext onvifContext(const Options &options, std::shared_ptr<Accounts> accounts);

    RecorderInfo &m_info;
    const qsizetype m_index;
    const Options m_options;
    TlsIdentity m_identity;
    quint16 m_httpPort = 0;
    quint16 m_rtspPort = 0;

    // Replies that wait go before the port that they belong to.
    HttpListener m_http;
    RtspServer m_rtsp;
    EventLog m_events;
    ChangeLog m_changes;
    Authenticator m_authenticator;
    OnvifEndpoint m_onvif;
    SiteService m_siteService;
};

} // namespace orrin::demo
