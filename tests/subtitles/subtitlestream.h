// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "scriptedconnector.h"
#include "scriptedsite.h"
#include "support/fakestreamprocessor.h"
#include "support/testframes.h"

#include "codecs/framefacts.h"

#include <contract/core/channel.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QSignalSpy>
#include <QStandardPaths>

namespace orrin {

/*! The server "Harbour" with camera 2, "Gate 2", logged in to, and one stream of that camera. */
class SubtitleStream
{
public:
    static constexpr qint64 CapturedMs = 1773500966540; // 2026-03-14T15:09:26.540Z

    SubtitleStream()
    {
        QStandardPaths::setTestModeEnabled(true);
        OrrinSDK::initInstance(QStringLiteral("Orrinworks"), QStringLiteral("test"), nullptr,
                               QStringLiteral("test.log"));
        connector = test::ScriptedConnector::install();
        connector->answer(QStringLiteral("harbour.example:8601"), site());
        ConnectionManager *manager = OrrinSDK::instance()->connectionManager();
        QSignalSpy connected(manager, &ConnectionManager::serverConnected);
        manager->connectToServer(QStringLiteral("anna"), QStringLiteral("secret"),
                                 CorvaneUrl(QStringLiteral("harbour.example"), 8601), false);
        if (!connected.wait())
            return;
        server = manager->servers().front();
        stream = std::make_unique<FakeStreamProcessor>(7);
        stream->channelPointer = server->channelById(2);
    }
    ~SubtitleStream()
    {
        stream.reset();
        OrrinSDK::shutdown();
    }
    SubtitleStream(const SubtitleStream &) = delete;
    SubtitleStream &operator=(const SubtitleStream &) = delete;

    static test::ScriptedSite site(const QString &cameraName = QStringLiteral("Gate 2"))
    {
        test::ScriptedSite description(42);
        description.name(QStringLiteral("Harbour")).camera(2, cameraName);
        return description;
    }

    /*! The frame that docs/subtitle-tags.md speaks of. */
    static VideoFrame frame(quint8 flags = 0x10, const FrameFacts &facts = documentedFacts())
    {
        const VideoFrame plain = makeFrame(QSize(640, 360), Yuv{100});
        Image image = plain.image();
        image.setTime(dateTimeToTime300(QDateTime::fromMSecsSinceEpoch(CapturedMs, QTimeZone::utc())));
        image.setFlags(flags);
        image.setExtension(ImageHeaderExtension::Codec, "H264");
        image.setExtension(FrameFactsExtension, facts.toBytes());
        return VideoFrame(image, 1, 7);
    }

    static constexpr qint64 OffsetMs = 250;
    static constexpr qint64 ServerNowMs = CapturedMs + 83'000;
    static constexpr qint64 ClientNowMs = ServerNowMs - OffsetMs;

    static FrameFacts documentedFacts()
    {
        FrameFacts facts;
        facts.arrivedMs = CapturedMs + 40 - OffsetMs;
        facts.decodedMs = ClientNowMs - 44;
        facts.decodingUs = 3250;
        facts.framesPerSecond = 25;
        return facts;
    }

    test::ScriptedConnector *connector = nullptr;
    Server *server = nullptr;
    std::unique_ptr<FakeStreamProcessor> stream;
    FakeConnection connection;
};

} // namespace orrin
