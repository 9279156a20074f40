// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlaudioframereceiver.h"
#include "video/qmlaudioprovider.h"
#include "video/qmlrendering.h"
#include "video/qmlstreamprovider.h"
#include "video/qmlvideoprovider.h"

#include "support/fakestreamprocessor.h"
#include "support/testsite.h"

#include <contract/core/displayoutput.h>
#include <contract/core/server.h>
#include <contract/core/splinkedfactory.h>
#include <contract/gui/audiospmfactory.h>
#include <contract/gui/guispmfactory.h>
#include <contract/gui/rendererhostinterface.h>
#include <contract/util/logitem.h>
#include <contract/util/logmanager.h>

#include <QSignalSpy>
#include <QTest>

#include <type_traits>

using namespace orrin;

namespace {

/*! What the linked factories were asked for. */
struct Factories
{
    struct Asked
    {
        ChannelUID channel;
        int syncContextId;
        SPMFactory *video;
        SPMFactory *audio;
        SPMFactory *metadata;
        SPMFactory *talkback;
    };

    int made = 0;
    QList<Asked> asked;
    bool refuses = false;
    quint16 lastId = 40;
    QPointer<FakeStreamProcessor> last;
} factories;

} // namespace

// The linked factory of this test hands out fake processors; these definitions take the place of the
// library's.
namespace orrin {

SPLinkedFactory::SPLinkedFactory(QSharedPointer<SPMFactory> video, QSharedPointer<SPMFactory> audio,
                                 QSharedPointer<SPMFactory> metadata, QSharedPointer<SPMFactory> talkback)
    : m_video(video), m_audio(audio), m_metadata(metadata), m_talkback(talkback)
{
    ++factories.made;
}

SPLinkedFactory::~SPLinkedFactory() = default;

void SPLinkedFactory::setVideoFactory(QSharedPointer<SPMFactory> factory)
{
    m_video = factory;
}

void SPLinkedFactory::setAudioFactory(QSharedPointer<SPMFactory> factory)
{
    m_audio = factory;
}

QSharedPointer<AbstractStreamProcessor> SPLinkedFactory::createProcessor(ChannelUID channel,
                                                                         int syncContextId)
{
    factories.asked.append(
        {channel, syncContextId, m_video.data(), m_audio.data(), m_metadata.data(), m_talkback.data()});
    if (factories.refuses)
        return {};
    auto *processor = new FakeStreamProcessor(++factories.lastId);
    factories.last = processor;
    return QSharedPointer<AbstractStreamProcessor>(processor, &QObject::deleteLater);
}

} // namespace orrin

namespace {

class TraceDevice : public olog::LogDevice
{
public:
    void write(const olog::LogItem &item) override { lines.append(item.message()); }
    Type type() const override { return Type::Other; }

    QList<QByteArray> lines;
};

QSharedPointer<SPMFactory> makeVideoFactory()
{
    return QSharedPointer<SPMFactory>(new GuiSPMFactory(nullptr));
}

QSharedPointer<SPMFactory> makeAudioFactory()
{
    return QSharedPointer<SPMFactory>(new AudioSPMFactory(nullptr));
}

/*! The rendering behind the first output that \a factory makes. */
QSharedPointer<ImageRenderingInterface> rendererOf(SPMFactory *factory)
{
    const auto outputs = factory->createOutputs();
    if (outputs.isEmpty())
        return {};
    const auto *output = dynamic_cast<DisplayOutput *>(outputs.first().data());
    if (!output || output->presenter()->displays().isEmpty())
        return {};
    auto *host = dynamic_cast<RendererHostInterface *>(output->presenter()->displays().first().get());
    return host ? host->renderer() : nullptr;
}

} // namespace

class tst_StreamProviders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        factories = Factories();
        site = std::make_unique<TestSite>();
        QVERIFY(site->server());
        group = site->groupId();
        server = site->server()->id();
        trace = QSharedPointer<TraceDevice>::create();
        olog::LogManager::instance()->addLogDevice(trace);
        olog::LogManager::instance()->setLogLevel(olog::LL_Trace);
        olog::LogManager::instance()->setEnabledSubmodules(0x20000, 0xFFFFFFFF);
    }

    void cleanup()
    {
        olog::LogManager::instance()->removeLogDevice(trace);
        site.reset();
    }

    void create_givesAStartedProcessor_andKnowsIt()
    {
        QmlStreamProvider provider;
        provider.setVideoFactory(makeVideoFactory());
        const auto processor = provider.createStreamProcessor(group, server, 2, 7);
        QVERIFY(processor);
        QCOMPARE(factories.last->calls, QStringList(QStringLiteral("start")));
        QCOMPARE(factories.asked.size(), 1);
        QCOMPARE(factories.asked.first().channel, ChannelUID(0x1234, 2));
        QCOMPARE(factories.asked.first().syncContextId, 7);
        QCOMPARE(provider.getStreamProcessor(group, server, 2, processor->requestId()).data(),
                 processor.data());
    }

    void create_givesNull_whenSomethingIsUnknown_data()
    {
        QTest::addColumn<int>("groupOffset");
        QTest::addColumn<int>("serverOffset");
        QTest::addColumn<int>("channel");
        QTest::newRow("group") << 100 << 0 << 1;
        QTest::newRow("server") << 0 << 100 << 1;
        QTest::newRow("channel") << 0 << 0 << 3;
    }

    void create_givesNull_whenSomethingIsUnknown()
    {
        QFETCH(int, groupOffset);
        QFETCH(int, serverOffset);
        QFETCH(int, channel);
        QmlStreamProvider provider;
        provider.setVideoFactory(makeVideoFactory());
        QVERIFY(!provider.createStreamProcessor(group + groupOffset, server + serverOffset, channel, -1));
        QVERIFY(factories.asked.isEmpty());
        QVERIFY(traceOf("created").isEmpty());
    }

    void create_givesNull_withoutRootObject()
    {
        QmlStreamProvider provider;
        provider.setVideoFactory(makeVideoFactory());
        site.reset();
        QVERIFY(!provider.createStreamProcessor(group, server, 1, -1));
    }

    void create_givesNull_whenTheFactoryRefuses()
    {
        QmlStreamProvider provider;
        provider.setVideoFactory(makeVideoFactory());
        factories.refuses = true;
        QVERIFY(!provider.createStreamProcessor(group, server, 1, -1));
        QVERIFY(traceOf("created").isEmpty());
    }

    void get_needsAllFourKeys()
    {
        QmlStreamProvider provider;
        provider.setVideoFactory(makeVideoFactory());
        const auto processor = provider.createStreamProcessor(group, server, 1, -1);
        const RequestId id = processor->requestId();
        QVERIFY(provider.getStreamProcessor(group, server, 1, id));
        QVERIFY(!provider.getStreamProcessor(group + 1, server, 1, id));
        QVERIFY(!provider.getStreamProcessor(group, server + 1, 1, id));
        QVERIFY(!provider.getStreamProcessor(group, server, 2, id));
        QVERIFY(!provider.getStreamProcessor(group, server, 1, RequestId{quint16(id.value + 1)}));
        QVERIFY(!provider.getStreamProcessor(group, server, 1, RequestId{0}));
    }

    void get_tellsProcessorsOfOneChannelApart()
    {
        QmlStreamProvider provider;
        provider.setVideoFactory(makeVideoFactory());
        const auto first = provider.createStreamProcessor(group, server, 1, -1);
        const auto second = provider.createStreamProcessor(group, server, 1, -1);
        QVERIFY(first->requestId() != second->requestId());
        QCOMPARE(provider.getStreamProcessor(group, server, 1, first->requestId()).data(), first.data());
        QCOMPARE(provider.getStreamProcessor(group, server, 1, second->requestId()).data(), second.data());
    }

    void get_givesNull_onceTheOwnerLetGo()
    {
        QmlStreamProvider provider;
        provider.setVideoFactory(makeVideoFactory());
        auto processor = provider.createStreamProcessor(group, server, 1, -1);
        const RequestId id = processor->requestId();
        processor.clear();
        QVERIFY(!provider.getStreamProcessor(group, server, 1, id));
    }

    void remove_leavesTheEntry_whileSomebodyHoldsTheProcessor()
    {
        QmlStreamProvider provider;
        provider.setVideoFactory(makeVideoFactory());
        auto processor = provider.createStreamProcessor(group, server, 1, -1);
        const RequestId id = processor->requestId();
        provider.removeStreamProcessorIfNoReference(group, server, 1, id);
        QVERIFY(provider.getStreamProcessor(group, server, 1, id));
        QVERIFY(traceOf("removed").isEmpty());

        processor.clear();
        provider.removeStreamProcessorIfNoReference(group, server, 2, id);
        QVERIFY(traceOf("removed").isEmpty());
        provider.removeStreamProcessorIfNoReference(group, server, 1, id);
        QCOMPARE(traceOf("removed").size(), 1);
        provider.removeStreamProcessorIfNoReference(group, server, 1, id);
        QCOMPARE(traceOf("removed").size(), 1);
    }

    void entries_stayAsRecords_untilTheyAreRemoved()
    {
        QmlStreamProvider provider;
        provider.setVideoFactory(makeVideoFactory());
        provider.createStreamProcessor(group, server, 1, -1).clear();
        const auto second = provider.createStreamProcessor(group, server, 1, -1);
        QVERIFY(traceOf("created").last().endsWith("2 known"));
    }

    void move_transfersTheProcessors()
    {
        static_assert(!std::is_copy_constructible_v<QmlStreamProvider>);
        static_assert(std::is_nothrow_move_constructible_v<QmlVideoProvider>);
        static_assert(std::is_nothrow_move_assignable_v<QmlAudioProvider>);
        static_assert(!std::is_copy_constructible_v<QmlVideoProvider>);
        static_assert(!std::is_default_constructible_v<QmlVideoProvider>);
        QmlStreamProvider source;
        source.setVideoFactory(makeVideoFactory());
        const auto processor = source.createStreamProcessor(group, server, 1, -1);
        QmlStreamProvider target(std::move(source));
        QVERIFY(target.getStreamProcessor(group, server, 1, processor->requestId()));
        QmlStreamProvider assigned;
        assigned = std::move(target);
        QVERIFY(assigned.getStreamProcessor(group, server, 1, processor->requestId()));
    }

    void setFactories_makesOneLinkedFactory_withTheOthersNull()
    {
        QmlStreamProvider provider;
        const auto video = makeVideoFactory();
        const auto audio = makeAudioFactory();
        const auto otherVideo = makeVideoFactory();
        provider.setVideoFactory(video);
        provider.createStreamProcessor(group, server, 1, -1);
        provider.setAudioFactory(audio);
        provider.createStreamProcessor(group, server, 1, -1);
        provider.setVideoFactory(otherVideo);
        provider.createStreamProcessor(group, server, 1, -1);
        QCOMPARE(factories.made, 1);
        QCOMPARE(factories.asked.at(0).video, video.data());
        QCOMPARE(factories.asked.at(0).audio, nullptr);
        QCOMPARE(factories.asked.at(1).video, video.data());
        QCOMPARE(factories.asked.at(1).audio, audio.data());
        QCOMPARE(factories.asked.at(2).video, otherVideo.data());
        for (const Factories::Asked &asked : std::as_const(factories.asked)) {
            QCOMPARE(asked.metadata, nullptr);
            QCOMPARE(asked.talkback, nullptr);
        }

        QmlStreamProvider sound;
        sound.setAudioFactory(audio);
        sound.createStreamProcessor(group, server, 1, -1);
        QCOMPARE(factories.made, 2);
        QCOMPARE(factories.asked.last().video, nullptr);
        QCOMPARE(factories.asked.last().audio, audio.data());
        const auto otherAudio = makeAudioFactory();
        sound.setAudioFactory(otherAudio);
        sound.createStreamProcessor(group, server, 1, -1);
        QCOMPARE(factories.made, 2);
        QCOMPARE(factories.asked.last().audio, otherAudio.data());
    }

    void videoProvider_hasAVideoFactoryOnly_andCallsNothingFurther()
    {
        QmlVideoProvider &provider = QmlVideoProvider::instance();
        QCOMPARE(&provider, &QmlVideoProvider::instance());
        auto processor = provider.createStreamProcessor(unsigned(group), unsigned(server), 1, 3);
        QVERIFY(processor);
        QCOMPARE(factories.last->calls, QStringList(QStringLiteral("start")));
        QCOMPARE(factories.asked.last().syncContextId, 3);
        QVERIFY(dynamic_cast<GuiSPMFactory *>(factories.asked.last().video));
        QCOMPARE(factories.asked.last().audio, nullptr);
        QVERIFY(rendererOf(factories.asked.last().video).dynamicCast<QmlRendering>());

        const RequestId id = processor->requestId();
        QVERIFY(provider.getStreamProcessor(unsigned(group), unsigned(server), 1, id));
        processor.clear();
        provider.removeStreamProcessorIfNoReference(unsigned(group), unsigned(server), 1, id);
        QCOMPARE(traceOf("removed").size(), 1);
        QVERIFY(!provider.createStreamProcessor(unsigned(group), unsigned(server), 99, -1));
    }

    void audioProvider_hasAnAudioFactoryOnly_andSetsPresentationMode2()
    {
        QmlAudioProvider &provider = QmlAudioProvider::instance();
        QCOMPARE(&provider, &QmlAudioProvider::instance());
        auto processor = provider.createStreamProcessor(unsigned(group), unsigned(server), 1, -1);
        QVERIFY(processor);
        QCOMPARE(factories.last->calls,
                 QStringList({QStringLiteral("start"), QStringLiteral("setPresentationMode 2")}));
        QVERIFY(dynamic_cast<AudioSPMFactory *>(factories.asked.last().audio));
        QCOMPARE(factories.asked.last().video, nullptr);

        const RequestId id = processor->requestId();
        QVERIFY(provider.getStreamProcessor(unsigned(group), unsigned(server), 1, id));
        processor.clear();
        provider.removeStreamProcessorIfNoReference(unsigned(group), unsigned(server), 1, id);
        QCOMPARE(traceOf("removed").size(), 1);
        QVERIFY(!provider.createStreamProcessor(unsigned(group), unsigned(server), 99, -1));
    }

private:
    QList<QByteArray> traceOf(const QByteArray &word) const
    {
        QList<QByteArray> found;
        for (const QByteArray &line : std::as_const(trace->lines)) {
            if (line.contains(word))
                found.append(line);
        }
        return found;
    }

    std::unique_ptr<TestSite> site;
    QSharedPointer<TraceDevice> trace;
    int group = 0;
    int server = 0;
};

QTEST_GUILESS_MAIN(tst_StreamProviders)
#include "tst_streamproviders.moc"
