// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/audiodecoder.h"
#include "codecs/audioresampler.h"

#include <contract/util/audioutils.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/channel_layout.h>
}

#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <numbers>

using namespace orrin;
using Status = AudioDecoder::Status;

namespace {

std::span<const std::uint8_t> bytes(const QByteArray &data)
{
    return {reinterpret_cast<const std::uint8_t *>(data.constData()), std::size_t(data.size())};
}

qint16 sampleAt(const Image &image, qsizetype index)
{
    return reinterpret_cast<const qint16 *>(image.audioPayload().constData())[index];
}

/*! A tone of 440 Hz as AAC, and the configuration that goes with it. */
QList<QByteArray> aacTone(int rate, int channels, int frames, QByteArray *config)
{
    AVCodecContext *context = avcodec_alloc_context3(avcodec_find_encoder(AV_CODEC_ID_AAC));
    context->sample_rate = rate;
    context->sample_fmt = AV_SAMPLE_FMT_FLTP;
    context->bit_rate = 96000;
    context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    av_channel_layout_default(&context->ch_layout, channels);
    QList<QByteArray> units;
    if (avcodec_open2(context, nullptr, nullptr) == 0) {
        *config = QByteArray(reinterpret_cast<const char *>(context->extradata), context->extradata_size);
        AVFrame *frame = av_frame_alloc();
        frame->format = AV_SAMPLE_FMT_FLTP;
        frame->sample_rate = rate;
        frame->nb_samples = context->frame_size;
        av_channel_layout_copy(&frame->ch_layout, &context->ch_layout);
        av_frame_get_buffer(frame, 0);
        AVPacket *packet = av_packet_alloc();
        for (int n = 0; n < frames; ++n) {
            av_frame_make_writable(frame);
            for (int channel = 0; channel < channels; ++channel) {
                for (int i = 0; i < frame->nb_samples; ++i)
                    reinterpret_cast<float *>(frame->data[channel])[i] =
                        float(0.5 * std::sin(2 * std::numbers::pi * 440 * (n * frame->nb_samples + i) / rate));
            }
            frame->pts = n * frame->nb_samples;
            avcodec_send_frame(context, frame);
            while (avcodec_receive_packet(context, packet) == 0) {
                units.append(QByteArray(reinterpret_cast<const char *>(packet->data), packet->size));
                av_packet_unref(packet);
            }
        }
        av_packet_free(&packet);
        av_frame_free(&frame);
    }
    avcodec_free_context(&context);
    return units;
}

} // namespace

class TestAudioDecoder : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void decode_expandsG711_asTheTablesDo_data()
    {
        QTest::addColumn<int>("codec");
        QTest::addColumn<int>("kind");
        QTest::newRow("mu-law") << int(AudioCodec::MuLaw) << int(ImageKind::AudioULaw);
        QTest::newRow("A-law") << int(AudioCodec::ALaw) << int(ImageKind::AudioALaw);
    }

    void decode_expandsG711_asTheTablesDo()
    {
        QFETCH(int, codec);
        QFETCH(int, kind);
        QByteArray all;
        for (int i = 0; i < 256; ++i)
            all += char(i);
        AudioDecoder decoder;
        QCOMPARE(decoder.open({AudioCodec(codec), 8000, 1, {}}), Status::Ok);
        Image image;
        QCOMPARE(decoder.decode(bytes(all), &image), Status::Ok);
        QCOMPARE(image.sampleRate(), 8000);
        QCOMPARE(image.channels(), 1);
        QCOMPARE(ImageKind(image.flags() & 15), ImageKind::AudioPcm16);
        QCOMPARE(image.audioPayload(), AudioUtils::decode(Image::fromAudio(ImageKind(kind), all, 8000, 1)).audioPayload());
    }

    void decode_givesTheTone_ofAac_data()
    {
        QTest::addColumn<int>("rate");
        QTest::addColumn<int>("channels");
        QTest::newRow("16 kHz mono") << 16000 << 1;
        QTest::newRow("48 kHz stereo") << 48000 << 2;
        QTest::newRow("48 kHz, five channels") << 48000 << 5;
    }

    void decode_givesTheTone_ofAac()
    {
        QFETCH(int, rate);
        QFETCH(int, channels);
        QByteArray config;
        const QList<QByteArray> units = aacTone(rate, channels, 20, &config);
        QVERIFY(units.size() >= 16);
        AudioDecoder decoder;
        QCOMPARE(decoder.open({AudioCodec::Aac, rate, channels, config}), Status::Ok);
        int crossings = 0;
        qsizetype samples = 0;
        qint16 last = 0;
        for (qsizetype i = 0; i < units.size(); ++i) {
            Image image;
            QCOMPARE(decoder.decode(bytes(units.at(i)), &image), Status::Ok);
            if (i < 3)
                continue;
            QVERIFY(!image.isNull());
            QCOMPARE(image.sampleRate(), rate);
            QCOMPARE(image.channels(), qMin(2, channels));
            const qsizetype count = image.audioPayload().size() / 2 / image.channels();
            QCOMPARE(count, 1024);
            for (qsizetype at = 0; at < count; ++at) {
                const qint16 value = sampleAt(image, at * image.channels());
                crossings += last < 0 && value >= 0;
                last = value;
            }
            samples += count;
        }
        const double frequency = double(crossings) * rate / double(samples);
        QVERIFY2(qAbs(frequency - 440) < 15, qPrintable(QString::number(frequency)));
    }

    void decode_reportsCorrupt_andTakesFurtherUnits()
    {
        QByteArray config;
        const QList<QByteArray> units = aacTone(16000, 1, 12, &config);
        AudioDecoder decoder;
        QCOMPARE(decoder.open({AudioCodec::Aac, 16000, 1, config}), Status::Ok);
        QRandomGenerator random(7);
        Image image;
        for (int i = 0; i < 200; ++i) {
            QByteArray noise(1 + qsizetype(random.bounded(600)), Qt::Uninitialized);
            for (char &byte : noise)
                byte = char(random.generate());
            decoder.decode(bytes(noise), &image);
        }
        QCOMPARE(decoder.decode({}, &image), Status::Corrupt);
        QCOMPARE(decoder.decode(bytes(QByteArray(70'000, 'x')), &image), Status::Corrupt);
        decoder.flush();
        for (const QByteArray &unit : units)
            QCOMPARE(decoder.decode(bytes(unit), &image), Status::Ok);
        QVERIFY(!image.isNull());
    }

    void open_fails_whenTheFormatIsNotPlayed()
    {
        AudioDecoder decoder;
        Image image;
        QCOMPARE(decoder.decode(bytes(QByteArray(10, 'x')), &image), Status::Unsupported);
        QCOMPARE(decoder.open({}), Status::Unsupported);
        QCOMPARE(decoder.open({AudioCodec::MuLaw, 0, 1, {}}), Status::Unsupported);
        QCOMPARE(decoder.open({AudioCodec::MuLaw, 1'000'000, 1, {}}), Status::Unsupported);
        QCOMPARE(decoder.open({AudioCodec::MuLaw, 8000, 99, {}}), Status::Unsupported);
        QVERIFY(!decoder.isOpen());
    }

    void resampler_keepsTheLength()
    {
        AudioResampler resampler;
        QVERIFY(resampler.setFormats(AudioResampler::pcm16(8000, 1), AudioResampler::pcm16(48000, 2)));
        qsizetype out = 0;
        for (int i = 0; i < 50; ++i)
            out += resampler.convert(QByteArray(320, '\0')).size();
        QVERIFY(qAbs(out - 48000 * 4) < 800);
        QVERIFY(!AudioResampler().setFormats(AudioResampler::pcm16(0, 1), AudioResampler::pcm16(48000, 2)));
        QVERIFY(AudioResampler().convert(QByteArray(320, '\0')).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestAudioDecoder)
#include "tst_audiodecoder.moc"
