// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrl>

namespace orrin::test {

/*!
    A small HTTPS client for tests: sends requests, accepts any certificate, logs in by digest with the
   network classes of Qt, or with an Authorization header of the caller's own making. It blocks, each wait
   with an end.
*/
class HttpProbe
{
public:
    struct Answer
    {
        int status = 0; //!< 0: there was no valid answer
        QNetworkReply::NetworkError error = QNetworkReply::NoError;
        QByteArray body;
        QList<QByteArray> challenges; //!< WWW-Authenticate, in order
        QByteArray publicKeySha256;   //!< of the server, hexadecimal
        QByteArray contentType;

        QJsonObject json() const;
        bool contains(const char *text) const { return body.contains(text); }
    };

    /*! Without a user, no login is tried. */
    explicit HttpProbe(const QString &user = {}, const QString &password = {});

    Answer send(const QByteArray &method, const QUrl &url, const QByteArray &body = {},
                const QByteArray &contentType = {}, const QByteArray &authorization = {});
    Answer get(const QUrl &url) { return send("GET", url); }

    /*! Posts a SOAP 1.2 envelope with this content of its body and header. */
    Answer soap(const QUrl &url, const QByteArray &body, const QByteArray &header = {},
                const QByteArray &authorization = {});

    /*! Like send(), without waiting. */
    QNetworkReply *start(const QByteArray &method, const QUrl &url, const QByteArray &body = {},
                         const QByteArray &contentType = {}, const QByteArray &authorization = {});
    static Answer finish(QNetworkReply *reply, int timeoutMs = 15000);

    /*! A new connection for the next request. */
    void clearConnections() { m_manager.clearConnectionCache(); }

private:
    QNetworkAccessManager m_manager;
};

} // namespace orrin::test
