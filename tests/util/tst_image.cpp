// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/image.h>

#include <QTest>

#include <array>

using namespace orrin;

class TestImage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void defaultImage_isNull();
    void fromPlanes_isNull_whenSizeOrPlaneIsMissing();
    void copies_shareThePlanesAndTheOwner();
    void setters_leaveCopiesAlone();
    void setPlanes_keepsTheHeader();
    void extension_isEmpty_whenNeverSet();
    void extension_isReplaced_whenSetAgain();
    void dateTime_isInServerZone_andCLocale();
    void setTimeZone_fallsBackToUtc_whenInvalid();
    void audio_keepsItsFormat();
    void movedFrom_canBeAssigned();

private:
    Image picture();

    std::array<std::uint8_t, 64> m_memory{};
};

Image TestImage::picture()
{
    return Image::fromPlanes(4, 4, {m_memory.data(), m_memory.data() + 16, m_memory.data() + 32, 4, 4}, {});
}

void TestImage::defaultImage_isNull()
{
    const Image image;
    QVERIFY(image.isNull());
    QCOMPARE(image.width(), 0);
    QCOMPARE(image.planes().y, nullptr);
    QCOMPARE(image.time(), 0);
    QCOMPARE(image.flags(), 0);
}

void TestImage::fromPlanes_isNull_whenSizeOrPlaneIsMissing()
{
    std::uint8_t *bytes = m_memory.data();
    QVERIFY(Image::fromPlanes(0, 4, {bytes, bytes, bytes, 4, 4}, {}).isNull());
    QVERIFY(Image::fromPlanes(4, -1, {bytes, bytes, bytes, 4, 4}, {}).isNull());
    QVERIFY(Image::fromPlanes(4, 4, {bytes, nullptr, bytes, 4, 4}, {}).isNull());
    QVERIFY(!picture().isNull());
}

void TestImage::copies_shareThePlanesAndTheOwner()
{
    auto owner = std::make_shared<int>(1);
    std::weak_ptr<int> watch = owner;
    std::uint8_t *bytes = m_memory.data();
    Image image = Image::fromPlanes(4, 4, {bytes, bytes, bytes, 4, 4}, std::move(owner));
    const Image copy = image;
    image = Image();
    QCOMPARE(copy.planes().y, bytes);
    QVERIFY(!watch.expired());
}

void TestImage::setters_leaveCopiesAlone()
{
    Image image = picture();
    image.setTime(1);
    const Image copy = image;
    image.setTime(2);
    image.setFlags(16);
    image.setExtension(ImageHeaderExtension::Codec, "H264");
    QCOMPARE(copy.time(), 1);
    QCOMPARE(copy.flags(), 0);
    QVERIFY(copy.extension(ImageHeaderExtension::Codec).isEmpty());
    QCOMPARE(copy.planes().y, image.planes().y);
}

void TestImage::setPlanes_keepsTheHeader()
{
    Image image = picture();
    image.setTime(7);
    image.setExtension(ImageHeaderExtension::PrivacyMask, "1");
    std::array<std::uint8_t, 64> other{};
    image.setPlanes({other.data(), other.data(), other.data(), 4, 4}, {});
    QCOMPARE(image.planes().y, other.data());
    QCOMPARE(image.width(), 4);
    QCOMPARE(image.time(), 7);
    QCOMPARE(image.extension(ImageHeaderExtension::PrivacyMask), QByteArray("1"));
}

void TestImage::extension_isEmpty_whenNeverSet()
{
    QVERIFY(picture().extension(ImageHeaderExtension::PrivacyMask).isEmpty());
}

void TestImage::extension_isReplaced_whenSetAgain()
{
    Image image = picture();
    image.setExtension(ImageHeaderExtension::Codec, "H264");
    image.setExtension(ImageHeaderExtension::PrivacyMask, "mask");
    image.setExtension(ImageHeaderExtension::Codec, "H265");
    QCOMPARE(image.extension(ImageHeaderExtension::Codec), QByteArray("H265"));
    QCOMPARE(image.extension(ImageHeaderExtension::PrivacyMask), QByteArray("mask"));
    QCOMPARE(int(ImageHeaderExtension::PrivacyMask), 6);
}

void TestImage::dateTime_isInServerZone_andCLocale()
{
    Image image = picture();
    const QDateTime moment(QDate(2026, 3, 4), QTime(22, 6, 7, 500), QTimeZone::utc());
    image.setTime(dateTimeToTime300(moment));
    image.setTimeZone(QTimeZone::fromSecondsAheadOfUtc(2 * 3600));
    QCOMPARE(image.dateTime("dd-MMM-yyyy-hh-mm-ss-zzz"), std::string("05-Mar-2026-00-06-07-500"));
    QCOMPARE(image.qDateTimeServerTimeZone().toUTC(), moment);
    QCOMPARE(image.frameQTimeZone().offsetFromUtc(moment), 7200);
}

void TestImage::setTimeZone_fallsBackToUtc_whenInvalid()
{
    Image image = picture();
    image.setTimeZone(QTimeZone());
    QCOMPARE(image.frameQTimeZone(), QTimeZone::utc());
}

void TestImage::audio_keepsItsFormat()
{
    const Image image = Image::fromAudio(ImageKind::AudioALaw, "abc", 8000, 1);
    QVERIFY(!image.isNull());
    QCOMPARE(image.flags() & 15, 4);
    QCOMPARE(image.audioPayload(), QByteArray("abc"));
    QCOMPARE(image.sampleRate(), 8000);
    QCOMPARE(image.channels(), 1);
    QCOMPARE(image.width(), 0);
}

void TestImage::movedFrom_canBeAssigned()
{
    Image image = picture();
    const Image taken = std::move(image);
    image = picture();
    QVERIFY(!taken.isNull());
    QVERIFY(!image.isNull());
}

QTEST_APPLESS_MAIN(TestImage)
#include "tst_image.moc"
