// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/loginsequence.h"

#include "core/session/onvif/descriptionreader.h"
#include "core/session/onvif/onvifnames.h"

#include <QPointer>

namespace orrin {

LoginSequence::LoginSequence(const Target &target, const OnvifTimings &timings, Callback callback,
                             QObject *parent)
    : QObject(parent), m_target(target), m_timings(timings), m_callback(std::move(callback))
{
    m_probe.setHandshakeTime(timings.handshake);
    m_deadline.setSingleShot(true);
    connect(&m_probe, &TlsProbe::finished, this, &LoginSequence::onProbed);
    connect(&m_deadline, &QTimer::timeout, this, &LoginSequence::onDeadline);
}

LoginSequence::~LoginSequence()
{
    // A session that the server opened for an attempt that is given up would stay taken until its time-out.
    DeviceLink::end(std::move(m_link));
}

void LoginSequence::start()
{
    m_deadline.start(m_timings.loginDeadline);
    m_probe.start(m_target.url);
}

template <typename Answer>
std::function<void(const Answer &)> LoginSequence::step(void (LoginSequence::*next)(const Answer &))
{
    return [guard = QPointer<LoginSequence>(this), next](const Answer &answer) {
        if (guard && guard->m_callback)
            (guard.data()->*next)(answer);
    };
}

void LoginSequence::onProbed(TlsProbe::Outcome outcome)
{
    if (!m_callback)
        return;
    const bool mustHaveTls = m_target.requireTls || !m_target.trustedKey.isEmpty();
    if (outcome != TlsProbe::Outcome::Encrypted && (outcome != TlsProbe::Outcome::NoTls || mustHaveTls)) {
        fail(LoginFailure::fromProbe(outcome, m_probe.detail()));
        return;
    }
    if (!m_target.trustedKey.isEmpty() && m_probe.key() != m_target.trustedKey) {
        fail({LoginError::PublicKeyChanged, {}, 0, m_probe.key()});
        return;
    }
    m_link.reset(new DeviceLink(m_target.url, m_target.credentials, m_probe.key(), m_probe.address()));
    readClock();
}

void LoginSequence::readClock()
{
    SoapClient::Request request{m_link->deviceServiceUrl(), onvif::DeviceNamespace,
                                QStringLiteral("GetSystemDateAndTime")};
    request.authenticated = false;
    m_link->soap.call(request, step(&LoginSequence::onClock));
}

void LoginSequence::onClock(const SoapAnswer &answer)
{
    if (answer.isAnswer()) {
        if (const auto clock = deviceservice::readClock(answer.body)) {
            // The device tells whole seconds: a difference that these explain is none.
            const qint64 difference = QDateTime::currentDateTimeUtc().msecsTo(clock->utc);
            m_link->soap.setClockOffset(difference <= 0 && difference > -1000 ? 0 : difference);
            m_link->clockZone = clock->zone;
        }
    } else if (!answer.isNotAuthorised() && (answer.kind != SoapAnswer::Kind::Fault || answer.refusal)) {
        fail(LoginFailure::fromSoap(answer));
        return;
    }
    readInformation();
}

void LoginSequence::readInformation()
{
    m_link->soap.call(
        {m_link->deviceServiceUrl(), onvif::DeviceNamespace, QStringLiteral("GetDeviceInformation")},
        step(&LoginSequence::onInformation));
}

void LoginSequence::onInformation(const SoapAnswer &answer)
{
    if (!answer.isAnswer()) {
        fail(LoginFailure::fromSoap(answer));
        return;
    }
    m_link->information = deviceservice::readInformation(answer.body);
    readServices();
}

void LoginSequence::readServices()
{
    SoapClient::Request request{m_link->deviceServiceUrl(), onvif::DeviceNamespace,
                                QStringLiteral("GetServices")};
    request.arguments.append(SoapClient::argument(QStringLiteral("IncludeCapability"),
                                                  QStringLiteral("false"), onvif::DeviceNamespace));
    m_link->soap.call(request, step(&LoginSequence::onServices));
}

void LoginSequence::onServices(const SoapAnswer &answer)
{
    if (answer.kind == SoapAnswer::Kind::NoAnswer || answer.refusal) {
        fail(LoginFailure::fromSoap(answer));
        return;
    }
    const deviceservice::Services services = deviceservice::readServices(answer.body);
    if (services.media.isEmpty() && services.media2.isEmpty() && services.site.isEmpty()) {
        readCapabilities();
        return;
    }
    m_link->setServices(services);
    openSession();
}

void LoginSequence::readCapabilities()
{
    SoapClient::Request request{m_link->deviceServiceUrl(), onvif::DeviceNamespace,
                                QStringLiteral("GetCapabilities")};
    request.arguments.append(
        SoapClient::argument(QStringLiteral("Category"), QStringLiteral("All"), onvif::DeviceNamespace));
    m_link->soap.call(request, step(&LoginSequence::onCapabilities));
}

void LoginSequence::onCapabilities(const SoapAnswer &answer)
{
    if (!answer.isAnswer()) {
        fail(LoginFailure::fromSoap(answer));
        return;
    }
    m_link->setServices(deviceservice::readCapabilities(answer.body));
    openSession();
}

void LoginSequence::openSession()
{
    if (!m_link->hasExtension()) {
        readDescription();
        return;
    }
    m_link->site->post(QStringLiteral("session"), m_timings.loginDeadline, step(&LoginSequence::onSession));
}

void LoginSequence::onSession(const SiteAnswer &answer)
{
    if (!answer.isAnswer()) {
        fail(LoginFailure::fromSite(answer));
        return;
    }
    m_link->sessionId = answer.object->value(u"session").toString().left(SiteExtensionReader::TextLimit);
    readDescription();
}

void LoginSequence::readDescription()
{
    m_reader =
        std::make_unique<DescriptionReader>(m_link.get(), [this](const std::optional<LoginFailure> &failure) {
            if (!m_callback)
                return;
            if (failure)
                fail(*failure);
            else
                succeed();
        });
    m_reader->start();
}

void LoginSequence::onDeadline()
{
    fail({m_probe.isConnected() ? LoginError::FailedToSetupConnection : LoginError::ServerNotAvailable,
          QStringLiteral("no answer in time"),
          0,
          {}});
}

void LoginSequence::succeed()
{
    m_deadline.stop();
    Outcome outcome;
    outcome.link = std::move(m_link);
    const Callback callback = std::exchange(m_callback, nullptr);
    callback(std::move(outcome));
}

void LoginSequence::fail(const LoginFailure &failure)
{
    if (!m_callback)
        return;
    m_deadline.stop();
    DeviceLink::end(std::move(m_link));
    Outcome outcome;
    outcome.failure = failure;
    const Callback callback = std::exchange(m_callback, nullptr);
    callback(std::move(outcome));
}

} // namespace orrin
