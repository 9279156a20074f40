// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakehttpserver.h"

#include <QDateTime>

namespace orrin::test {

/*! A device on the network as far as a session needs one: two sources, the first with two profiles. What it
    is and how it misbehaves is set by the members, before or between requests. One thread. */
class FakeOnvifDevice : public QObject
{
    Q_OBJECT
public:
    enum class Login { Digest, UsernameToken, BasicOnly };

    FakeOnvifDevice();

    bool start(const QString &key = QStringLiteral("first")) { return server.start(key); }
    QString target() const { return QStringLiteral("127.0.0.1:%1").arg(server.port()); }

    /*! Operations, in the order in which they came; "GET site" and the like for the site extension. */
    QList<QByteArray> operations;
    /*! Requests with credentials of whatever form. */
    int loginAttempts = 0;

    FakeHttpServer server;
    Login login = Login::Digest;
    QByteArray user = "admin";
    QByteArray password = "Secret-Pa55";
    bool hasMedia2 = true;
    bool hasGetServices = true;
    bool hasExtension = false;
    qint64 clockOffsetSeconds = 0;
    QByteArray timeZone = "CET-1CEST,M3.5.0,M10.5.0/3";
    QByteArray userLevel = "Operator"; //!< empty: GetUsers is refused
    QByteArray refusal;                //!< name of a refusal for everything with credentials
    QByteArray streamUri = "rtsp://10.1.2.3:554/stream/high?a=1";
    bool refuseStream = false;
    QByteArray site = "{}"; //!< of the extension
    QByteArray changes;     //!< empty: the request for changes stays open
    QByteArray jsonRefusal; //!< body of a 403 for POST session
    bool sessionKnown = true;
    int forgottenPolls = 0; //!< so many polls for changes are answered as for an unknown session
    /*! Asked first; what it returns goes out in place of everything else. */
    std::function<std::optional<FakeAnswer>(const FakeRequest &)> intercept;

    /*! A SOAP 1.2 envelope around \a body. */
    static QByteArray envelope(const QByteArray &body);

private:
    std::optional<FakeAnswer> answer(const FakeRequest &request);
    std::optional<FakeAnswer> answerSite(const FakeRequest &request);
    FakeAnswer answerSoap(const QByteArray &operation);
    FakeAnswer fault(int status, const QByteArray &subcode, const QByteArray &inner = {},
                     const QByteArray &detail = {}) const;
    FakeAnswer challenge() const;
    bool hasCredentials(const FakeRequest &request) const;
    bool isAuthorised(const FakeRequest &request) const;
    bool checkDigest(const FakeRequest &request) const;
    bool checkUsernameToken(const QByteArray &body) const;
    QDateTime now() const { return QDateTime::currentDateTimeUtc().addSecs(clockOffsetSeconds); }
};

} // namespace orrin::test
