// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/credentials.h"
#include "core/session/onvif/digestauthenticator.h"
#include "core/session/onvif/refusal.h"
#include "core/session/onvif/transportresult.h"

#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QObject>
#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>

namespace orrin {

class DeviceTrust;

/*! A server's answer to a request of the site extension. A value. */
struct SiteAnswer
{
    TransportResult transport; //!< without the body
    std::optional<QJsonObject> object;
    std::optional<Refusal> refusal;

    /*! There is an object, and the status is one of success. */
    bool isAnswer() const { return object && transport.status >= 200 && transport.status < 300; }
};

/*! Speaks the JSON site extension to one server, with HTTP digest over the session's TLS. Main thread.
    Callbacks come by the event loop, once each; with the client go its requests, without a callback. */
class SiteExtensionClient : public QObject
{
    Q_OBJECT
public:
    using Callback = std::function<void(const SiteAnswer &)>;
    using Milliseconds = std::chrono::milliseconds;

    /*! \a base is the service's address, with a slash at its end. */
    SiteExtensionClient(const QUrl &base, DeviceTrust *trust, const SharedCredentials &credentials,
                        QObject *parent = nullptr);
    ~SiteExtensionClient() override;

    /*! \a path is relative to the base and may hold a query. */
    void get(const QString &path, Milliseconds timeout, Callback callback);
    void post(const QString &path, Milliseconds timeout, Callback callback);
    void remove(const QString &path, Milliseconds timeout, Callback callback);

private:
    struct Attempt
    {
        QByteArray verb;
        QUrl url;
        Milliseconds timeout{};
        Callback callback;
        bool hadCredentials = false;
        int tries = 0;
    };

    void start(const QByteArray &verb, const QString &path, Milliseconds timeout, Callback callback);
    void send(Attempt attempt);
    void onResult(Attempt attempt, const TransportResult &transport);

    QUrl m_base;
    DeviceTrust *m_trust;
    SharedCredentials m_credentials;
    QNetworkAccessManager m_manager;
    DigestAuthenticator m_digest;
    bool m_digestProven = false;
};

} // namespace orrin
