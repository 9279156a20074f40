// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/soapclient.h"

#include "core/session/onvif/devicetrust.h"
#include "core/session/onvif/httpexchange.h"

#include <KDSoapClient/KDSoapAuthentication.h>
#include <KDSoapClient/KDSoapClientInterface.h>
#include <KDSoapClient/KDSoapMessageAddressingProperties.h>

#include <QDateTime>
#include <QNetworkAccessManager>
#include <QNetworkCookieJar>
#include <QRandomGenerator>

namespace orrin {

namespace {

constexpr const char *TakenProperty = "orrinTaken";

/*! Short: some devices refuse a nonce above 16 bytes. */
QByteArray newNonce()
{
    return QByteArray::number(QRandomGenerator::system()->generate64(), 16).rightJustified(16, '0');
}

} // namespace

SoapClient::SoapClient(DeviceTrust *trust, const SharedCredentials &credentials, QObject *parent)
    : QObject(parent)
    , m_trust(trust)
    , m_credentials(credentials)
    , m_interface(std::make_unique<KDSoapClientInterface>(QString(), QString()))
{
    m_interface->setSoapVersion(KDSoapClientInterface::SOAP1_2);
    m_interface->setStyle(KDSoapClientInterface::DocumentStyle);
    m_interface->setSslConfiguration(trust->sslConfiguration());
    // A manager owns the cookie jar that it makes: the way to the manager inside.
    m_manager = qobject_cast<QNetworkAccessManager *>(m_interface->cookieJar()->parent());
    if (!m_manager)
        return;
    m_trust->guard(m_manager);
    // Whoever answers here would answer a request for the plain password too.
    QObject::disconnect(m_manager, &QNetworkAccessManager::authenticationRequired, nullptr, nullptr);
}

SoapClient::~SoapClient() = default;

KDSoapValue SoapClient::argument(const QString &name, const QVariant &value, const QString &namespaceUri)
{
    KDSoapValue argument(name, value);
    argument.setNamespaceUri(namespaceUri);
    argument.setQualified(true);
    return argument;
}

KDSoapValue SoapClient::argument(const QString &name, const KDSoapValueList &children,
                                 const QString &namespaceUri)
{
    KDSoapValue argument(name, children);
    argument.setNamespaceUri(namespaceUri);
    argument.setQualified(true);
    return argument;
}

void SoapClient::call(const Request &request, Callback callback)
{
    Attempt attempt;
    attempt.request = request;
    attempt.callback = std::move(callback);
    send(std::move(attempt));
}

void SoapClient::send(Attempt attempt)
{
    if (!m_manager) {
        // Without it neither key nor size could be watched.
        QMetaObject::invokeMethod(
            this,
            [attempt = std::move(attempt)] {
                TransportResult nothing;
                nothing.failure = TransportResult::Failure::Other;
                attempt.callback(SoapAnswer::read(nothing));
            },
            Qt::QueuedConnection);
        return;
    }
    ++attempt.tries;
    attempt.mode = m_mode;
    prepareAuthentication(attempt);
    KDSoapMessage message;
    message = argument(attempt.request.method, attempt.request.arguments, attempt.request.serviceNamespace);
    QString action = attempt.request.serviceNamespace + u'/' + attempt.request.method;
    if (!attempt.request.action.isEmpty()) {
        action = attempt.request.action;
        KDSoapMessageAddressingProperties addressing;
        addressing.setAddressingNamespace(KDSoapMessageAddressingProperties::Addressing200508);
        addressing.setAction(action);
        addressing.setDestination(attempt.request.url.toString());
        message.setMessageAddressingProperties(addressing);
    }
    m_interface->setEndPoint(attempt.request.url.toString());
    const quint64 number = ++m_lastCall;
    m_calls.emplace(number,
                    m_interface->asyncCall(attempt.request.method, message, action));
    QNetworkReply *reply = newestReply();
    const auto timeout = attempt.request.timeout;
    new HttpExchange(
        reply, timeout,
        [this, number, attempt = std::move(attempt)](const TransportResult &transport) {
            m_calls.erase(number);
            onResult(attempt, transport);
        },
        this);
}

QNetworkReply *SoapClient::newestReply() const
{
    const auto replies = m_manager->findChildren<QNetworkReply *>(Qt::FindDirectChildrenOnly);
    for (QNetworkReply *reply : replies) {
        if (!reply->property(TakenProperty).toBool()) {
            reply->setProperty(TakenProperty, true);
            return reply;
        }
    }
    Q_UNREACHABLE_RETURN(nullptr);
}

void SoapClient::prepareAuthentication(Attempt &attempt)
{
    KDSoapAuthentication authentication;
    QMap<QByteArray, QByteArray> headers;
    attempt.hadCredentials = false;
    if (attempt.request.authenticated && attempt.mode == Mode::UsernameToken) {
        authentication.setUser(m_credentials->user);
        authentication.setPassword(m_credentials->password);
        authentication.setUseWSUsernameToken(true);
        authentication.setUsePasswordDigest(true);
        authentication.setOverrideWSUsernameNonce(newNonce());
        authentication.setOverrideWSUsernameCreatedTime(
            QDateTime::currentDateTimeUtc().addMSecs(m_clockOffsetMs));
        attempt.hadCredentials = true;
    } else if (attempt.request.authenticated && m_digest.hasChallenge()) {
        const QByteArray target =
            attempt.request.url.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment);
        headers.insert("Authorization", m_digest.authorization("POST", target, *m_credentials));
        attempt.hadCredentials = true;
    }
    m_interface->setAuthentication(authentication);
    m_interface->setRawHTTPHeaders(headers);
}

void SoapClient::onResult(Attempt attempt, const TransportResult &transport)
{
    const SoapAnswer answer = SoapAnswer::read(transport);
    if (answer.isAnswer() && attempt.hadCredentials && attempt.mode == Mode::Digest)
        m_digestProven = true;
    if (attempt.request.authenticated && shallTryAgain(attempt, answer))
        send(std::move(attempt));
    else
        attempt.callback(answer);
}

bool SoapClient::shallTryAgain(Attempt &attempt, const SoapAnswer &answer)
{
    constexpr int MaximumTries = 3;
    if (attempt.tries >= MaximumTries || answer.refusal ||
        answer.transport.failure != TransportResult::Failure::None)
        return false;
    const bool askedToAuthenticate = answer.isNotAuthorised() || (answer.transport.status == 400 &&
                                                                  answer.kind == SoapAnswer::Kind::Fault);
    if (!askedToAuthenticate)
        return false;
    if (answer.transport.status == 401 && m_digest.setChallenge(answer.transport.challenges)) {
        m_mode = Mode::Digest;
        // Refused with credentials that were never taken, the password is wrong: a second try would only
        // count against the user. Credentials that were taken before have an old nonce, which not every
        // device says.
        return !attempt.hadCredentials || attempt.mode == Mode::UsernameToken || m_digest.isStale() ||
               m_digestProven;
    }
    if (attempt.mode == Mode::UsernameToken || attempt.hadCredentials)
        return false;
    m_mode = Mode::UsernameToken;
    return true;
}

} // namespace orrin
