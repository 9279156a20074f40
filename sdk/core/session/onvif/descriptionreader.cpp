// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/descriptionreader.h"

#include "core/session/onvif/devicelink.h"
#include "core/session/onvif/onvifnames.h"

#include <QPointer>

namespace orrin {

namespace {

constexpr std::chrono::milliseconds ReadTimeout{8000};

} // namespace

DescriptionReader::DescriptionReader(DeviceLink *link, Callback callback, QObject *parent)
    : QObject(parent), m_link(link), m_callback(std::move(callback))
{
    m_parts.information = link->information;
    m_parts.clockZone = link->clockZone;
    m_parts.clockOffsetMs = link->soap.clockOffset();
    m_parts.address = link->address;
    m_parts.target = link->url.hostAndPort();
    m_parts.user = link->credentials->user;
}

void DescriptionReader::start()
{
    if (m_link->hasExtension())
        readSite();
    else
        readUsers();
}

void DescriptionReader::readSite()
{
    const QPointer<DescriptionReader> guard(this);
    m_link->site->get(QStringLiteral("site"), ReadTimeout, [this, guard](const SiteAnswer &answer) {
        if (!guard)
            return;
        if (!answer.isAnswer()) {
            fail(LoginFailure::fromSite(answer));
            return;
        }
        m_parts.extension = SiteExtensionReader::readSite(*answer.object);
        readProfiles();
    });
}

void DescriptionReader::readUsers()
{
    const QPointer<DescriptionReader> guard(this);
    m_link->soap.call({m_link->deviceServiceUrl(), onvif::DeviceNamespace, QStringLiteral("GetUsers")},
                      [this, guard](const SoapAnswer &answer) {
                          if (!guard)
                              return;
                          // Only administrators may read the list, so who may and is not on it is one all the
                          // same.
                          if (answer.isAnswer()) {
                              m_parts.level = deviceservice::readUserLevel(answer.body, m_parts.user)
                                                  .value_or(UserLevel::Administrator);
                          } else if (answer.kind == SoapAnswer::Kind::NoAnswer) {
                              fail(LoginFailure::fromSoap(answer));
                              return;
                          }
                          readProfiles();
                      });
}

void DescriptionReader::readProfiles()
{
    const bool newer = !m_link->services.media2.isEmpty();
    const QString path = newer ? m_link->services.media2 : m_link->services.media;
    if (path.isEmpty()) {
        finish();
        return;
    }
    SoapClient::Request request{m_link->serviceUrl(path),
                                newer ? onvif::Media2Namespace : onvif::MediaNamespace,
                                QStringLiteral("GetProfiles")};
    if (newer) {
        request.arguments.append(
            SoapClient::argument(QStringLiteral("Type"), QStringLiteral("All"), onvif::Media2Namespace));
    }
    const QPointer<DescriptionReader> guard(this);
    m_link->soap.call(request, [this, guard, newer](const SoapAnswer &answer) {
        if (guard)
            onProfiles(answer, newer);
    });
}

void DescriptionReader::onProfiles(const SoapAnswer &answer, bool newer)
{
    if (!answer.isAnswer()) {
        // A device that lists the newer service and then does not know it still has the older one.
        if (newer && answer.kind == SoapAnswer::Kind::Fault && !m_link->services.media.isEmpty()) {
            m_link->services.media2.clear();
            readProfiles();
        } else {
            fail(LoginFailure::fromSoap(answer));
        }
        return;
    }
    m_parts.sources = mediaservice::sourcesOf(mediaservice::readProfiles(answer.body));
    if (newer)
        readMasks();
    else
        finish();
}

void DescriptionReader::readMasks()
{
    const QPointer<DescriptionReader> guard(this);
    m_link->soap.call(
        {m_link->serviceUrl(m_link->services.media2), onvif::Media2Namespace, QStringLiteral("GetMasks")},
        [this, guard](const SoapAnswer &answer) {
            if (!guard)
                return;
            // Masks are an optional part of the service.
            if (answer.isAnswer())
                m_parts.masks = mediaservice::readMasks(answer.body);
            finish();
        });
}

void DescriptionReader::finish()
{
    m_link->assembled = assembleSite(m_parts);
    const Callback callback = std::move(m_callback);
    callback(std::nullopt);
}

void DescriptionReader::fail(const LoginFailure &failure)
{
    const Callback callback = std::move(m_callback);
    callback(failure);
}

} // namespace orrin
