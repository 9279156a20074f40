// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QSslSocket>
#include <QUrl>

#include <optional>

namespace orrin::test {

/*! One access unit as it came over RTP. */
struct AccessUnit
{
    QByteArray
        data; //!< H.264 and H.265: a byte stream with start codes; JPEG: the payloads with their RTP headers
    qint64 timeMs = -1; //!< Unix time from the header extension, -1 without one
    quint32 rtpTime = 0;
};

/*!
    A small RTSP client for tests: interleaved over TLS or TCP, digest by RFC 2069 and 2617. It blocks, each
   wait with an end, and is strict: what it does not understand makes it stop with an error.
*/
class RtspProbe
{
public:
    struct Response
    {
        int status = 0;                        //!< 0: there was no answer
        QHash<QByteArray, QByteArray> headers; //!< names in lower case
        QByteArray body;
    };

    RtspProbe(const QUrl &url, const QString &user, const QString &password);

    bool connectToServer();

    /*! Sends a request, with credentials once the server asked for them, and waits for its answer. */
    Response request(const QByteArray &method, const QByteArray &url,
                     const QList<QPair<QByteArray, QByteArray>> &headers = {});

    /*! DESCRIBE, SETUP and PLAY: the status of the first that is not 200, or 200. */
    int play();

    /*! The next access unit, or nothing when none comes in time. */
    std::optional<AccessUnit> next(int timeoutMs = 3000);

    QByteArray codec() const { return m_codec; }
    bool isConnected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }
    QSslSocket &socket() { return m_socket; }
    QString error() const { return m_error; }

private:
    bool readMore(int timeoutMs);
    bool takeMessage(std::optional<Response> *response);
    void takeRtp(QByteArrayView packet);
    void takePayload(QByteArrayView payload);
    void takeH264(QByteArrayView payload);
    void takeH265(QByteArrayView payload);
    void addNal(QByteArrayView nal);
    QByteArray authorization(const QByteArray &method, const QByteArray &url) const;

    QUrl m_url;
    QByteArray m_user;
    QByteArray m_password;
    QSslSocket m_socket;
    QByteArray m_input;
    QHash<QByteArray, QByteArray> m_challenge;
    QByteArray m_session;
    QByteArray m_codec;
    AccessUnit m_current;
    QList<AccessUnit> m_units;
    QString m_error;
    int m_sequence = 0;
};

} // namespace orrin::test
