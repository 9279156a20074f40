// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/credentials.h"
#include "core/session/onvif/digestauthenticator.h"
#include "core/session/onvif/soapanswer.h"

#include <KDSoapClient/KDSoapMessage.h>
#include <KDSoapClient/KDSoapPendingCall.h>

#include <QObject>
#include <QPointer>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <unordered_map>

class KDSoapClientInterface;
QT_BEGIN_NAMESPACE
class QNetworkAccessManager;
class QNetworkReply;
QT_END_NAMESPACE

namespace orrin {

class DeviceTrust;

/*! Calls the SOAP services of one device. Main thread.

    Messages, WS-Security and the sending are KDSoap's. The answers are read by SoapAnswer, since a hostile
    one must be bounded in size and depth before anything parses it. HTTP digest comes first; a device that
    does not offer it gets the digest form of WS-UsernameToken, with its own clock. A password leaves in no
    other form.

    Callbacks come by the event loop, once each; with the client go its calls, without a callback. */
class SoapClient : public QObject
{
    Q_OBJECT
public:
    struct Request
    {
        QUrl url;
        QString serviceNamespace;
        QString method;
        KDSoapValueList arguments = {};
        bool authenticated = true;
        std::chrono::milliseconds timeout{8000};
        /*! The action of WS-Addressing, with which the message then names its receiver too; services of
            notifications want it. Empty: the service's namespace and the method. */
        QString action = {};
    };
    using Callback = std::function<void(const SoapAnswer &)>;

    SoapClient(DeviceTrust *trust, const SharedCredentials &credentials, QObject *parent = nullptr);
    ~SoapClient() override;

    /*! Milliseconds to add to this machine's clock to get the device's. */
    void setClockOffset(qint64 offsetMs) { m_clockOffsetMs = offsetMs; }
    qint64 clockOffset() const { return m_clockOffsetMs; }
    bool usesUsernameToken() const { return m_mode == Mode::UsernameToken; }

    void call(const Request &request, Callback callback);

    /*! An argument in the namespace of the message's own schema. */
    static KDSoapValue argument(const QString &name, const QVariant &value, const QString &namespaceUri);
    static KDSoapValue argument(const QString &name, const KDSoapValueList &children,
                                const QString &namespaceUri);

private:
    enum class Mode { Digest, UsernameToken };
    struct Attempt
    {
        Request request;
        Callback callback;
        Mode mode = Mode::Digest;
        bool hadCredentials = false;
        int tries = 0;
    };

    void send(Attempt attempt);
    void onResult(Attempt attempt, const TransportResult &transport);
    bool shallTryAgain(Attempt &attempt, const SoapAnswer &answer);
    void prepareAuthentication(Attempt &attempt);
    QNetworkReply *newestReply() const;

    DeviceTrust *m_trust;
    SharedCredentials m_credentials;
    std::unique_ptr<KDSoapClientInterface> m_interface;
    QPointer<QNetworkAccessManager> m_manager;
    std::unordered_map<quint64, KDSoapPendingCall> m_calls; // KDSoap ends a reply with its last handle
    quint64 m_lastCall = 0;
    DigestAuthenticator m_digest;
    bool m_digestProven = false;
    Mode m_mode = Mode::Digest;
    qint64 m_clockOffsetMs = 0;
};

} // namespace orrin
