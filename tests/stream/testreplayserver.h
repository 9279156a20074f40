// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtsp/messageparser.h"
#include "testrecording.h"

#include <QObject>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <memory>
#include <vector>

namespace orrin {

/*! A recorder on the loopback, in the test's own event loop, on a free port, with one recording. It sends as fast as it is read: the group that holds
    the beginning of the range, and what follows up to its end; backward, groups in descending order. */
class TestReplayServer : public QObject
{
    Q_OBJECT
public:
    enum class Mode {
        Normal,
        RefuseDescribe,   //!< 551: no replay here
        RefusePlay,       //!< 403 to each PLAY
        RangeNotFound,    //!< 457 to each PLAY
        LateAnswers,      //!< PLAY is answered after 300 ms
        NoAnswer,         //!< PLAY is never answered
        OtherRange,       //!< plays what was an hour earlier
        NextKeyFrame,     //!< begins with the first group that begins in the range
        NoEndMark,        //!< says nothing at the end of a range
        NoEnd,            //!< goes on behind the end of a range
        OldPackets,       //!< after each PLAY still sends packets of the one before
        SessionGone,      //!< 454 to each PLAY
        Break,            //!< breaks off after ten frames of a range
        Shuffle,          //!< swaps packets
        Damage,           //!< frames are noise
    };

    explicit TestReplayServer(QObject *parent = nullptr);
    ~TestReplayServer() override;

    void setMode(Mode mode) { m_mode = mode; }
    QUrl url() const;
    void closeAll();

    TestRecording recording;
    QList<QByteArray> requests;  //!< methods in the order in which they came
    QList<QByteArray> ranges;    //!< of each PLAY
    int frames = 0;              //!< sent so far
    int open = 0;                //!< connections

private:
    struct Peer
    {
        QTcpSocket *socket = nullptr;
        rtsp::MessageParser parser;
        quint16 sequence = 1000;
        quint8 cseq = 0;
        bool playing = false;
        bool backward = false;
        bool keysOnly = false;
        qint64 keyIntervalMs = 0;
        qint64 fromMs = 0;
        qint64 toMs = 0;
        qint64 groupMs = 0;    // under way
        qsizetype index = 0;   // inside the group
        qint64 lastKeyMs = 0;
        int sent = 0;          // of this range
        bool gapBefore = false;
        QList<QByteArray> old; // packets of the range before
        QByteArray held;
    };

    void accept();
    void read(Peer &peer);
    void answer(Peer &peer, const rtsp::Message &request);
    void play(Peer &peer, const rtsp::Message &request);
    void begin(Peer &peer);
    void pump(Peer &peer);
    bool sendNext(Peer &peer);
    void moveOn(Peer &peer);
    void sendFrame(Peer &peer, const TestRecording::Frame &frame, bool discontinuity, bool end);
    void sendPacket(Peer &peer, const QByteArray &payload, bool marker, qint64 ms, quint8 flags);
    void sendBye(Peer &peer);
    qint64 groupHolding(qint64 ms) const;

    QTcpServer m_server;
    Mode m_mode = Mode::Normal;
    std::vector<std::unique_ptr<Peer>> m_peers;
};

} // namespace orrin
