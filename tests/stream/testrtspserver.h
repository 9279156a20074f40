// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtsp/messageparser.h"
#include "streamencoder.h"

#include <QHash>
#include <QObject>
#include <QTcpServer>
#include <QTimer>
#include <QUrl>

#include <memory>
#include <vector>

class QTcpSocket;

namespace orrin {

/*! An RTSP server on the loopback, in the test's own event loop, on a free port. Streams: "/high" and "/low", H.264, each
    picture in one luma: 40 to 100 in "/high", 150 to 210 in "/low". The n-th picture of a connection was captured at
    firstCapture() plus n * 40 ms; it is sent every frameInterval(). */
class TestRtspServer : public QObject
{
    Q_OBJECT
public:
    enum class Mode {
        Normal,
        RefuseUser,  //!< every login is wrong
        Silent,      //!< takes connections, answers nothing
        Garbage,     //!< answers with noise
        DropStream,  //!< breaks off after a few pictures
        StallStream, //!< sends nothing more after a few pictures
        NoStream,    //!< 404
        NoVideo,     //!< describes sound alone
        Bye,         //!< says goodbye after a few pictures
        LosePackets, //!< leaves out a packet of the fourth picture
    };
    enum class Times { Extension, SenderReport, None };

    explicit TestRtspServer(bool secure = false, QObject *parent = nullptr);
    ~TestRtspServer() override;

    void setMode(Mode mode) { m_mode = mode; }
    void setTimes(Times times) { m_times = times; }
    /*! The user that is asked for; none at first. */
    void setUser(const QString &user, const QString &password);
    void setKeyInterval(int pictures);
    void closeAll();

    QUrl url(const QString &path) const;
    /*! The DER public key that the server shows. */
    static QByteArray publicKey();
    static qint64 firstCaptureMs() { return 1'790'000'000'000; }

    QList<QByteArray> requests; //!< methods in the order in which they came, with credentials or without
    int connections = 0;        //!< taken so far
    int open = 0;               //!< open now
    qsizetype bytesReceived = 0;

private:
    struct Peer
    {
        QTcpSocket *socket = nullptr;
        rtsp::MessageParser parser;
        QByteArray path;
        bool playing = false;
        int picture = 0;
        quint16 sequence = 100;
    };

    void accept();
    void read(Peer &peer);
    void answer(Peer &peer, const rtsp::Message &request);
    bool isAuthorised(const rtsp::Message &request) const;
    QByteArray describe(const QByteArray &uri) const;
    void sendPictures();
    void sendPicture(Peer &peer);
    void sendPacket(Peer &peer, const QByteArray &payload, bool marker, bool leaveOut);
    void sendRtcp(Peer &peer, bool bye);
    quint64 ntpOf(int picture) const;

    std::unique_ptr<QTcpServer> m_server;
    bool m_secure;
    Mode m_mode = Mode::Normal;
    Times m_times = Times::Extension;
    QByteArray m_user;
    QByteArray m_password;
    QHash<QByteArray, QList<StreamEncoder::Picture>> m_streams;
    std::vector<std::unique_ptr<Peer>> m_peers;
    QTimer m_timer;
};

} // namespace orrin
