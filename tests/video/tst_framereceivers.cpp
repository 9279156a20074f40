// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlaudioframereceiver.h"
#include "video/qmlvideoframereceiver.h"

#include "support/testframes.h"

#include <contract/util/audioutils.h>

#include <QSignalSpy>
#include <QTest>

using namespace orrin;

namespace {

QStringList parsedMasks;
QStringList paintedMasks;

VideoFrame makeMasked(const QByteArray &mask)
{
    Image header;
    header.setExtension(ImageHeaderExtension::PrivacyMask, mask);
    return makeFrame(QSize(8, 8), [](int, int) { return Yuv{200}; }, header);
}

VideoFrame makeSound(std::uint8_t flags, const QByteArray &payload = QByteArrayLiteral("\x00\x01\x02\x03"))
{
    Image image = Image::fromAudio(ImageKind(flags & 0x0F), payload, 8000, 1);
    image.setFlags(flags);
    return VideoFrame(image, 5, 6);
}

} // namespace

// The masks of this test only note what is asked of them; these definitions take the place of the library's.
namespace orrin {

Mask::Mask(const QString &encoded, MaskType type) : m_encoded(encoded), m_type(type)
{
    parsedMasks.append(QStringLiteral("%1 %2").arg(encoded).arg(int(type)));
}

void Mask::applyMaskToVideoFrame(VideoFrame &frame) const
{
    paintedMasks.append(m_encoded);
    frame = VideoFrame(frame.imageRef(), frame.id() + 100, frame.streamId());
}

} // namespace orrin

class tst_FrameReceivers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        parsedMasks.clear();
        paintedMasks.clear();
    }

    void video_keepsFrameBeforeItSignals()
    {
        QmlVideoFrameReceiver receiver;
        QVERIFY(!receiver.parent());
        QVERIFY(!receiver.currentFrame().isValid());
        std::uint64_t seen = 0;
        connect(&receiver, &QmlAbstractFrameReceiver::frameChanged, this,
                [&] { seen = receiver.currentFrame().id(); });
        receiver.setVideoFrame(makeFrame(QSize(8, 8), [](int, int) { return Yuv{1}; }, Image(), 42));
        QCOMPARE(seen, 42u);
    }

    void video_dropsFrameSilently_whenItIsInvalid()
    {
        QmlVideoFrameReceiver receiver;
        receiver.setVideoFrame(makeFrame(QSize(8, 8), Yuv{1}));
        QSignalSpy changed(&receiver, &QmlAbstractFrameReceiver::frameChanged);
        receiver.setVideoFrame(VideoFrame());
        QCOMPARE(changed.count(), 0);
        QVERIFY(receiver.currentFrame().isValid());
    }

    void audio_takesFrame_whenKindIs_data()
    {
        QTest::addColumn<int>("kind");
        for (int kind = 0; kind < 16; ++kind)
            QTest::addRow("%d", kind) << kind;
    }

    void audio_takesFrame_whenKindIs()
    {
        QFETCH(int, kind);
        QmlAudioFrameReceiver receiver;
        receiver.setVideoFrame(makeSound(1, QByteArrayLiteral("before")));
        QSignalSpy changed(&receiver, &QmlAbstractFrameReceiver::frameChanged);

        // The bits above the low four say nothing about the kind.
        const VideoFrame sound = makeSound(std::uint8_t(0xF0 | kind));
        receiver.setVideoFrame(sound);
        QCOMPARE(changed.count(), 1);
        const QByteArray payload = receiver.currentFrame().imageRef().audioPayload();
        if (kind == 1 || kind == 2)
            QCOMPARE(payload, sound.imageRef().audioPayload());
        else if (kind == 3 || kind == 4)
            QCOMPARE(payload, AudioUtils::decode(sound.imageRef()).audioPayload());
        else
            QCOMPARE(payload, QByteArrayLiteral("before"));
    }

    void audio_decodes_whenSoundIsCoded()
    {
        QmlAudioFrameReceiver receiver;
        receiver.setVideoFrame(makeSound(3));
        QCOMPARE(receiver.currentFrame().imageRef().audioPayload().size(), 8); // 16 bits a sample
        QCOMPARE(int(receiver.currentFrame().imageRef().flags() & 0x0F), 1);
    }

    void mask_paintsNothing_whenNoFrameCarriedOne()
    {
        QmlVideoFrameReceiver receiver;
        receiver.setVideoFrame(makeMasked(QByteArray()));
        receiver.applyPrivacyMaskToCurrentFrame();
        QVERIFY(parsedMasks.isEmpty());
        QVERIFY(paintedMasks.isEmpty());
        QCOMPARE(receiver.currentFrame().id(), 1u);
    }

    void mask_isPaintedIntoTheKeptFrame()
    {
        QmlVideoFrameReceiver receiver;
        receiver.setVideoFrame(makeMasked("1;a"));
        QSignalSpy changed(&receiver, &QmlAbstractFrameReceiver::frameChanged);
        receiver.applyPrivacyMaskToCurrentFrame();
        QCOMPARE(parsedMasks, QStringList(QStringLiteral("1;a 2")));
        QCOMPARE(paintedMasks, QStringList(QStringLiteral("1;a")));
        QCOMPARE(receiver.currentFrame().id(), 101u);
        QCOMPARE(changed.count(), 0);
    }

    void mask_isParsedOnChangeOnly_andStaysInForce()
    {
        QmlVideoFrameReceiver receiver;
        for (const char *mask : {"1;a", "1;a", "", "1;b", "", "1;a"}) {
            receiver.setVideoFrame(makeMasked(mask));
            receiver.applyPrivacyMaskToCurrentFrame();
        }
        const auto list = [](const char *texts) { return QString::fromLatin1(texts).split(u'|'); };
        QCOMPARE(parsedMasks, list("1;a 2|1;b 2|1;a 2"));
        QCOMPARE(paintedMasks, list("1;a|1;a|1;a|1;b|1;b|1;a"));
    }
};

QTEST_GUILESS_MAIN(tst_FrameReceivers)
#include "tst_framereceivers.moc"
