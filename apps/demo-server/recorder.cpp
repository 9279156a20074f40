// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder.h"

namespace orrin::demo {

using namespace Qt::StringLiterals;

Recorder::Recorder(Site &site, qsizetype index, const Options &options, std::shared_ptr<Accounts> accounts,
                   GlibThread &thread, SiteService::PortOf portOf)
    : m_info(site.recorders[index])
    , m_index(index)
    , m_options(options)
    , m_http([this](const HttpRequest &request, HttpReply reply) { handle(request, std::move(reply)); })
    , m_rtsp(thread, m_info, accounts,
             {options.address, !options.plainRtsp, DeviceClock(options.clockOffset)})
    , m_events(m_info, DeviceClock(options.clockOffset))
    , m_authenticator(m_info, accounts, DeviceClock(options.clockOffset))
    , m_onvif(onvifContext(options, accounts), m_authenticator)
    , m_siteService(site, m_info, m_authenticator, m_changes, options.maximumSessions, std::move(portOf))
{
}

Recorder::~Recorder() = default;

OnvifContext Recorder::onvifContext(const Options &options, std::shared_ptr<Accounts> accounts)
{
    OnvifContext context;
    context.recorder = &m_info;
    context.accounts = std::move(accounts);
    context.clock = DeviceClock(options.clockOffset);
    context.events = &m_events;
    context.address = options.address;
    context.siteExtension = !options.plainOnvif;
    context.rtspTls = !options.plainRtsp;
    context.httpPort = [this] { return m_http.port(); };
    context.rtspPort = [this] { return m_rtsp.port(); };
    return context;
}

bool Recorder::start(QString *error)
{
    return useIdentity(false, error) &&
           open(m_options.httpPorts.value(m_index), m_options.rtspPorts.value(m_index), error);
}

void Recorder::stop()
{
    if (m_http.port() != 0)
        Q_EMIT closing();
    m_siteService.reset();
    m_onvif.reset();
    m_http.close();
    m_rtsp.close();
}

bool Recorder::restart(QString *error)
{
    stop();
    if (!open(m_httpPort, m_rtspPort, error))
        return false;
    Q_EMIT opened();
    return true;
}

bool Recorder::renewKey(QString *error)
{
    return useIdentity(true, error);
}

bool Recorder::useIdentity(bool renew, QString *error)
{
    const std::optional<TlsIdentity> identity =
        TlsIdentity::loadOrGenerate(m_options.stateFolder, m_info.name, renew, error);
    if (!identity)
        return false;
    m_identity = *identity;
    m_http.setConfiguration(m_identity.serverConfiguration());
    m_rtsp.setIdentity(m_identity);
    if (renew)
        m_rtsp.dropConnections();
    return true;
}

bool Recorder::open(quint16 httpPort, quint16 rtspPort, QString *error)
{
    if (!m_http.listen(QHostAddress(m_options.address), httpPort, error) || !m_rtsp.listen(rtspPort, error)) {
        m_http.close();
        return false;
    }
    m_httpPort = m_http.port();
    m_rtspPort = m_rtsp.port();
    return true;
}

void Recorder::handle(const HttpRequest &request, HttpReply reply)
{
    static constexpr QLatin1StringView SitePath("/orrin/v1/");
    if (request.path.startsWith("/onvif/"_L1))
        m_onvif.handle(request, std::move(reply));
    else if (!m_options.plainOnvif && request.path.startsWith(SitePath))
        m_siteService.handle(request.path.sliced(SitePath.size()), request, std::move(reply));
    else
        reply.send(404, "text/plain", "There is nothing here.\n");
}

} // namespace orrin::demo
