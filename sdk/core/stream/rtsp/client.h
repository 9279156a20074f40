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
#include <vector>

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
    /*! The longest time without a packet in play; 0 lets any silence be. */
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

    /*! Which media to set up, as indexes, the main one first, at most Client::MaxTracks; empty when none can be played. Their places in
        the list are the tracks of the packets. A further one that the server refuses is left out. */
    virtual QList<int> chooseMedia(const SessionDescription &description) = 0;
    /*! The media are set up: play() may be called. */
    virtual void ready() = 0;
    virtual void playing(const PlayReply &reply) = 0;
    /*! The server does not do this PLAY, for a reason that is no fault of the connection. True: the session goes on without it; false ends it. */
    virtual bool playRefused(const Failure &failure)
    {
        Q_UNUSED(failure)
        return false;
    }
    virtual void paused() = 0;
    /*! The bytes are lent for the call. */
    virtual void rtpPacket(int track, std::span<const std::uint8_t> bytes) = 0;
    virtual void rtcpPacket(int track, std::span<const std::uint8_t> bytes) = 0;
    /*! Once; the client is closed. */
    virtual void failed(const Failure &failure) = 0;
};

/*! One RTSP session with one medium or two, interleaved over TCP or TLS. Lives on one stream thread.

    open() describes and sets up; play() and pause() may then be called any number of times, an answer at a time; the session is kept alive in
    play and in pause. Every wait has an end: each request, and silence in play. Passwords and URLs go into no log and
    no error text. */
class ORRINSDK_CORE_EXPORT Client : public QObject
{
    Q_OBJECT
public:
    enum class State { Closed, Connecting, SettingUp, Ready, Playing };
    static constexpr int MaxTracks = 2;

    /*! \a listener outlives the client. */
    explicit Client(ClientListener &listener, QObject *parent = nullptr);
    ~Client() override;

    State state() const { return m_state; }

    void open(const ClientSettings &settings);
    /*! \a headers go with the PLAY: its range, scale and so on. */
    void play(const QList<Message::Header> &headers);
    void pause();
    /*! False: nothing is read, so that the connection fills up and the server waits. Requests that are on their way then may take longer. */
    void setReading(bool reading);
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

    struct Track
    {
        QByteArray uri;
        int rtpChannel = -1;
        int rtcpChannel = -1;
    };

    void established();
    void readBytes();
    bool readSome();
    void handleMessage(const Message &message);
    void handleRequest(const Message &request);
    void handleResponse(const Message &response);
    void handleInterleaved();
    void requestTimedOut();

    bool isBearable(Handler handler, int status);
    void enqueue(Request request);
    void sendNext();
    void send(Request &request);
    void fail(Failure::Kind kind, const QString &detail = {});
    void failForStatus(int status);

    void described(const Message &response);
    void setUpNext();
    void setUp(const Message &response);
    void ready();
    void played(const Message &response);
    void pausedByServer(const Message &response);
    void keptAlive(const Message &response);
    void keepAlive();
    void checkSilence();

    QByteArray controlUri(const QByteArray &control) const;
    bool readTransport(const QByteArray &transport, int track);
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
    std::vector<Track> m_tracks;
    std::size_t m_tracksSetUp = 0;
    bool m_reading = true;
    bool m_readQueued = false;
    bool m_receivedMeanwhile = false; // bytes came while a request waits
    QElapsedTimer m_sent;
    QElapsedTimer m_lastPacket;
    QTimer m_requestTimer;
    QTimer m_keepAliveTimer;
    QTimer m_silenceTimer;
};

} // namespace orrin::rtsp
