// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtsp/connection.h"
#include "core/stream/rtsp/digestauthenticator.h"
#include "core/stream/rtsp/failure.h"
#include "core/stream/rtsp/messageparser.h"
#include "core/stream/rtsp/sessiondescription.h"

#include <contract/core/export.h>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <deque>
#include <functional>
#include <optional>

namespace orrin::rtsp {

/*! What a client is to open. */
struct ClientSettings
{
    QUrl url; //!< rtsp or rtsps, without user and password
    QString user;
    QString password;
    QByteArray trustedKey;
    /*! Sent with DESCRIBE, SETUP and PLAY, such as a Require. */
    QList<Message::Header> options;
    /*! For the connection and for each answer. */
    std::chrono::milliseconds requestTimeout{5000};
    /*! The longest time without a packet in play. */
    std::chrono::milliseconds silenceTimeout{10000};
};

/*! What the server said to a PLAY. */
struct PlayReply
{
    QByteArray range;
    QByteArray scale;
    QByteArray cseq; //!< of the PLAY that is answered
    /*! The sequence number of the first packet that belongs to this PLAY. */
    std::optional<quint16> firstSequence;
};

/*! Takes what a Client receives. Called on its thread. Each call may close the client, none may delete it. */
class ClientListener
{
public:
    virtual ~ClientListener() = default;

    /*! Which medium to set up, as an index; -1 when none can be played. */
    virtual int chooseMedium(const SessionDescription &description) = 0;
    /*! The medium is set up: play() may be called. */
    virtual void ready() = 0;
    virtual void playing(const PlayReply &reply) = 0;
    virtual void paused() = 0;
    /*! The bytes are lent for the call. */
    virtual void rtpPacket(std::span<const std::uint8_t> bytes) = 0;
    virtual void rtcpPacket(std::span<const std::uint8_t> bytes) = 0;
    /*! Once; the client is closed. */
    virtual void failed(const Failure &failure) = 0;
};

/*! One RTSP session with one medium, interleaved over TCP or TLS. Lives on one stream thread.

    open() describes and sets up; play() and pause() may then be called any number of times, an answer at a time; the session is kept alive in
    play and in pause. Every wait has an end: each request, and silence in play. Passwords and URLs go into no log and
    no error text. */
class ORRINSDK_CORE_EXPORT Client : public QObject
{
    Q_OBJECT
public:
    enum class State { Closed, Connecting, SettingUp, Ready, Playing };

    /*! \a listener outlives the client. */
    explicit Client(ClientListener &listener, QObject *parent = nullptr);
    ~Client() override;

    State state() const { return m_state; }

    void open(const ClientSettings &settings);
    /*! \a headers go with the PLAY: its range, scale and so on. */
    void play(const QList<Message::Header> &headers);
    void pause();
    /*! Ends the session politely, without waiting. Nothing is called any more. */
    void close();

private:
    using Handler = void (Client::*)(const Message &response);
    struct Request
    {
        QByteArray method;
        QByteArray uri;
        QList<Message::Header> headers;
        Handler handler = nullptr;
        int cseq = 0;
        bool challenged = false;
    };

    void established();
    void readBytes();
    bool readSome();
    void handleMessage(const Message &message);
    void handleRequest(const Message &request);
    void handleResponse(const Message &response);
    void handleInterleaved();

    void enqueue(Request request);
    void sendNext();
    void send(Request &request);
    void fail(Failure::Kind kind, const QString &detail = {});
    void failForStatus(int status);

    void described(const Message &response);
    void setUp(const Message &response);
    void played(const Message &response);
    void pausedByServer(const Message &response);
    void keptAlive(const Message &response);
    void keepAlive();
    void checkSilence();

    QByteArray controlUri(const QByteArray &control) const;
    bool readTransport(const QByteArray &transport);
    void readSession(const QByteArray &header);

    ClientListener &m_listener;
    ClientSettings m_settings;
    State m_state = State::Closed;
    Connection m_connection;
    MessageParser m_parser;
    DigestAuthenticator m_authenticator;
    std::deque<Request> m_requests; // the first is on its way while m_waiting
    bool m_waiting = false;
    int m_cseq = 0;
    QByteArray m_requestUri;
    QByteArray m_baseUri;
    QByteArray m_session;
    std::chrono::milliseconds m_keepAliveInterval;
    bool m_getParameter = true;
    int m_rtpChannel = 0;
    int m_rtcpChannel = 1;
    bool m_readQueued = false;
    QElapsedTimer m_lastPacket;
    QTimer m_requestTimer;
    QTimer m_keepAliveTimer;
    QTimer m_silenceTimer;
};

} // namespace orrin::rtsp
