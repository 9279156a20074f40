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
    quint8 flags = 0; //!< of the header extension, of all packets together: see RtspProbe::Flag
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

    /*! The bits of the header extension: a key frame, the end of a contiguous section, what does not follow
     * what was before, the last of the range. */
    enum Flag : quint8 { Clean = 0x80, End = 0x40, Discontinuity = 0x20, Terminal = 0x10 };

    RtspProbe(const QUrl &url, const QString &user, const QString &password);

    bool connectToServer();

    /*! Sends a request, with credentials once the server asked for them, and waits for its answer. */
    Response request(const QByteArray &method, const QByteArray &url,
                     const QList<QPair<QByteArray, QByteArray>> &headers = {});

    /*! DESCRIBE and SETUP of the picture, and of the sound if that is wanted: the status of the first that
     * is not 200, or 200. */
    int setUp(bool withAudio = false, const QList<QPair<QByteArray, QByteArray>> &headers = {});

    /*! setUp() and PLAY. */
    int play(bool withAudio = false);

    /*! PLAY of a range as the replay extension has it, as fast as the client reads. What came before is
     * forgotten. */
    Response replay(qint64 fromMs, qint64 untilMs, const QByteArray &scale = "1.0",
                    const QByteArray &frames = {});

    /*! setUp() for replay(). */
    int setUpReplay(bool withAudio = false) { return setUp(withAudio, {{"Require", "onvif-replay"}}); }

    /*! The next access unit, or nothing when none comes in time. */
    std::optional<AccessUnit> next(int timeoutMs = 3000);

    /*! The next packet of the sound, or nothing when none comes in time. */
    std::optional<AccessUnit> nextAudio(int timeoutMs = 3000);

    QByteArray codec() const { return m_codec; }
    QString description() const { return m_description; }
    bool isConnected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }
    QSslSocket &socket() { return m_socket; }
    QString error() const { return m_error; }

private:
    bool readMore(int timeoutMs);
    bool takeMessage(std::optional<Response> *response);
    std::optional<AccessUnit> take(QList<AccessUnit> &units, int timeoutMs);
    qsizetype readHeader(QByteArrayView packet, AccessUnit &unit);
    void takeRtp(QByteArrayView packet);
    void takeAudio(QByteArrayView packet);
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
    QList<AccessUnit> m_audio;
    QString m_description;
    QString m_error;
    int m_sequence = 0;
};

} // namespace orrin::test
