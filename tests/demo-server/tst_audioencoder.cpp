// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/audioencoder.h"
#include "camera/audiosignal.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/channel_layout.h>
}

#include <QTest>

#include <cmath>
#include <vector>

using namespace orrin::demo;

namespace {

/*! Decodes packets to samples from -1 to 1. */
class Decoder
{
public:
    Decoder(AVCodecID id, int rate, const QByteArray &config)
        : m_context(avcodec_alloc_context3(avcodec_find_decoder(id)))
    {
        m_context->sample_rate = rate;
        av_channel_layout_default(&m_context->ch_layout, 1);
        if (!config.isEmpty()) {
            m_context->extradata =
                static_cast<uint8_t *>(av_mallocz(std::size_t(config.size()) + AV_INPUT_BUFFER_PADDING_SIZE));
            std::copy(config.cbegin(), config.cend(), m_context->extradata);
            m_context->extradata_size = int(config.size());
        }
        m_open = avcodec_open2(m_context, nullptr, nullptr) == 0;
    }

    ~Decoder()
    {
        av_frame_free(&m_frame);
        av_packet_free(&m_packet);
        avcodec_free_context(&m_context);
    }

    Decoder(const Decoder &) = delete;
    Decoder &operator=(const Decoder &) = delete;

    std::vector<double> decode(const QByteArray &data)
    {
        std::vector<double> samples;
        av_packet_unref(m_packet);
        av_new_packet(m_packet, int(data.size()));
        std::copy(data.cbegin(), data.cend(), m_packet->data);
        if (!m_open || avcodec_send_packet(m_context, m_packet) < 0 ||
            avcodec_receive_frame(m_context, m_frame) < 0)
            return samples;
        for (int i = 0; i < m_frame->nb_samples; ++i)
            samples.push_back(m_frame->format == AV_SAMPLE_FMT_S16
                                  ? reinterpret_cast<int16_t *>(m_frame->data[0])[i] / 32768.0
                                  : double(reinterpret_cast<float *>(m_frame->data[0])[i]));
        return samples;
    }

private:
    AVCodecContext *m_context;
    AVFrame *m_frame = av_frame_alloc();
    AVPacket *m_packet = av_packet_alloc();
    bool m_open = false;
};

} // namespace

class TestAudioEncoder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void packets_decodeToTheSignal_data()
    {
        QTest::addColumn<AudioCodec>("codec");
        QTest::addColumn<int>("decoder");
        QTest::addColumn<double>("tolerance");
        QTest::newRow("mu-law") << AudioCodec::Mulaw << int(AV_CODEC_ID_PCM_MULAW) << 0.02;
        QTest::newRow("A-law") << AudioCodec::Alaw << int(AV_CODEC_ID_PCM_ALAW) << 0.02;
        QTest::newRow("AAC") << AudioCodec::Aac << int(AV_CODEC_ID_AAC) << 0.15;
    }

    void packets_decodeToTheSignal()
    {
        QFETCH(AudioCodec, codec);
        QFETCH(int, decoder);
        QFETCH(double, tolerance);
        const int rate = AudioEncoder::rate(codec);
        const int count = AudioEncoder::packetSamples(codec);
        AudioEncoder encoder(codec, 3);
        QVERIFY(encoder.isValid());
        QCOMPARE(encoder.config().isEmpty(), codec != AudioCodec::Aac);
        Decoder decode(static_cast<AVCodecID>(decoder), rate, encoder.config());
        const qint64 first = AudioEncoder::packetAt(codec, 1'790'000'000'000);
        double worst = 0;
        double loudest = 0;
        for (qint64 number = first; number < first + 1200 * rate / 1000 / count; ++number) {
            const auto packet = encoder.packet(number);
            QVERIFY(packet);
            const auto samples = decode.decode(*packet);
            // What the first packet of AAC overlaps with is not there.
            if (number < first + 2)
                continue;
            QCOMPARE(qsizetype(samples.size()), count);
            std::vector<std::int16_t> expected(samples.size());
            audiosignal::fill(expected, number * count, rate, 3);
            for (std::size_t i = 0; i < samples.size(); ++i) {
                worst = std::max(worst, std::abs(samples[i] - expected[i] / 32768.0));
                loudest = std::max(loudest, std::abs(samples[i]));
            }
        }
        QVERIFY2(worst < tolerance, qPrintable(QString::number(worst)));
        QVERIFY(loudest > 0.3);
    }

    void packet_canBeTakenFromAnywhere()
    {
        AudioEncoder encoder(AudioCodec::Aac, 1);
        const qint64 first = AudioEncoder::packetAt(AudioCodec::Aac, 1'790'000'000'000);
        for (const qint64 step : {0, 1, 2, 500, 501, -1000, -999, 0, 0})
            QVERIFY2(encoder.packet(first + step), qPrintable(QString::number(step)));
        QVERIFY(!encoder.packet(-1));
        QVERIFY(!AudioEncoder(AudioCodec::None, 1).isValid());
    }

    void packets_lieOnTheGrid()
    {
        QCOMPARE(AudioEncoder::packetAt(AudioCodec::Mulaw, 1'790'000'000'000), 1'790'000'000LL * 50);
        QCOMPARE(AudioEncoder::timeNsOf(AudioCodec::Mulaw, 1'790'000'000LL * 50 + 1),
                 1'790'000'000'020'000'000LL);
        const qint64 number = AudioEncoder::packetAt(AudioCodec::Aac, 1'790'000'000'000);
        QVERIFY(AudioEncoder::timeNsOf(AudioCodec::Aac, number) <= 1'790'000'000'000'000'000LL);
        QVERIFY(AudioEncoder::timeNsOf(AudioCodec::Aac, number + 1) > 1'790'000'000'000'000'000LL);
        QCOMPARE(AudioEncoder::timeNsOf(AudioCodec::Aac, number + 1) -
                     AudioEncoder::timeNsOf(AudioCodec::Aac, number),
                 64'000'000LL);
    }

    void signal_beepsAtEachSecond()
    {
        std::vector<std::int16_t> samples(16000);
        audiosignal::fill(samples, 1'790'000'001LL * 8000, 8000, 2);
        for (const std::size_t second : {0U, 8000U}) {
            QVERIFY(samples[second] > 10'000);
            for (std::size_t i = 8000U * audiosignal::BeepMs / 1000; i < 8000; ++i)
                QVERIFY(std::abs(samples[second + i]) < 100);
        }
    }
};

QTEST_GUILESS_MAIN(TestAudioEncoder)
#include "tst_audioencoder.moc"
