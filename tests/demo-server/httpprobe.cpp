// SPDX-License-Identifier: GPL-3.0-or-later
#include "httpprobe.h"

#include <QAuthenticator>
#include <QCryptographicHash>
#include <QHttpHeaders>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QSslConfiguration>
#include <QSslKey>

namespace orrin::test {

using namespace Qt::StringLiterals;

QJsonObject HttpProbe::Answer::json() const
{
    return QJsonDocument::fromJson(body).object();
}

HttpProbe::HttpProbe(const QString &user, const QString &password)
{
    if (user.isEmpty())
        return;
    QObject::connect(&m_manager, &QNetworkAccessManager::authenticationRequired, &m_manager,
                     [user, password](QNetworkReply *reply, QAuthenticator *authenticator) {
                         // Once only: a wrong password is not to be tried again and again.
                         if (reply->property("asked").toBool())
                             return;
                         reply->setProperty("asked", true);
                         authenticator->setUser(user);
                         authenticator->setPassword(password);
                     });
}

QNetworkReply *HttpProbe::start(const QByteArray &method, const QUrl &url, const QByteArray &body,
                                const QByteArray &contentType, const QByteArray &authorization)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    if (!contentType.isEmpty())
        request.setHeader(QNetworkRequest::ContentTypeHeader, contentType);
    if (!authorization.isEmpty())
        request.setRawHeader("Authorization", authorization);
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    request.setSslConfiguration(configuration);
    return m_manager.sendCustomRequest(request, method, body);
}

HttpProbe::Answer HttpProbe::finish(QNetworkReply *reply, int timeoutMs)
{
    if (!reply->isFinished()) {
        QSignalSpy finished(reply, &QNetworkReply::finished);
        if (!finished.wait(timeoutMs))
            reply->abort();
    }
    Answer answer;
    answer.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    answer.error = reply->error();
    answer.body = reply->readAll();
    for (const QByteArray &value : reply->headers().values(QHttpHeaders::WellKnownHeader::WWWAuthenticate))
        answer.challenges.append(value);
    answer.contentType = reply->header(QNetworkRequest::ContentTypeHeader).toByteArray();
    const QByteArray key = reply->sslConfiguration().peerCertificate().publicKey().toDer();
    if (!key.isEmpty())
        answer.publicKeySha256 = QCryptographicHash::hash(key, QCryptographicHash::Sha256).toHex();
    reply->deleteLater();
    return answer;
}

HttpProbe::Answer HttpProbe::send(const QByteArray &method, const QUrl &url, const QByteArray &body,
                                  const QByteArray &contentType, const QByteArray &authorization)
{
    return finish(start(method, url, body, contentType, authorization));
}

HttpProbe::Answer HttpProbe::soap(const QUrl &url, const QByteArray &body, const QByteArray &header,
                                  const QByteArray &authorization)
{
    const QByteArray envelope = "<s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\"><s:Header>" +
                                header + "</s:Header><s:Body>" + body + "</s:Body></s:Envelope>";
    return send("POST", url, envelope, "application/soap+xml; charset=utf-8", authorization);
}

} // namespace orrin::test
