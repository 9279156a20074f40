// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/image.h>

#include <QLocale>
#include <QSharedData>
#include <QVarLengthArray>

#include <utility>

namespace orrin {

class ImageData : public QSharedData
{
public:
    int width = 0;
    int height = 0;
    Image::Planes planes;
    std::shared_ptr<void> owner;
    QByteArray audioPayload;
    int sampleRate = 0;
    int channels = 0;
    Time300 time = 0;
    std::uint8_t flags = 0;
    QTimeZone zone = QTimeZone::utc();
    QVarLengthArray<std::pair<ImageHeaderExtension, QByteArray>, 4> extensions;
};

namespace {

// All null images share one block: a default-constructed frame allocates nothing.
const QSharedDataPointer<ImageData> &nullData()
{
    static const QSharedDataPointer<ImageData> data(new ImageData);
    return data;
}

} // namespace

Image::Image() : d(nullData()) {}
Image::Image(const Image &other) = default;
Image &Image::operator=(const Image &other) = default;
Image::Image(Image &&other) noexcept : d(nullData()) { d.swap(other.d); }

Image &Image::operator=(Image &&other) noexcept
{
    d.swap(other.d);
    return *this;
}

Image::~Image() = default;

Image Image::fromPlanes(int width, int height, const Planes &planes, std::shared_ptr<void> owner)
{
    Image image;
    if (width < 1 || height < 1 || !planes.y || !planes.u || !planes.v)
        return image;
    image.d->width = width;
    image.d->height = height;
    image.d->planes = planes;
    image.d->owner = std::move(owner);
    return image;
}

Image Image::fromAudio(ImageKind kind, const QByteArray &payload, int sampleRate, int channels)
{
    Image image;
    image.d->flags = std::uint8_t(kind);
    image.d->audioPayload = payload;
    image.d->sampleRate = sampleRate;
    image.d->channels = channels;
    return image;
}

bool Image::isNull() const
{
    return !d->planes.y && d->audioPayload.isEmpty();
}

int Image::width() const
{
    return d->width;
}

int Image::height() const
{
    return d->height;
}

const Image::Planes &Image::planes() const
{
    return d->planes;
}

void Image::setPlanes(const Planes &planes, std::shared_ptr<void> owner)
{
    d->planes = planes;
    d->owner = std::move(owner);
}

const std::shared_ptr<void> &Image::owner() const
{
    return d->owner;
}

const QByteArray &Image::audioPayload() const
{
    return d->audioPayload;
}

int Image::sampleRate() const
{
    return d->sampleRate;
}

int Image::channels() const
{
    return d->channels;
}

Time300 Image::time() const
{
    return d->time;
}

void Image::setTime(Time300 time)
{
    d->time = time;
}

std::uint8_t Image::flags() const
{
    return d->flags;
}

void Image::setFlags(std::uint8_t flags)
{
    d->flags = flags;
}

const QByteArray &Image::extension(ImageHeaderExtension extension) const
{
    static const QByteArray None;
    for (const auto &entry : d->extensions) {
        if (entry.first == extension)
            return entry.second;
    }
    return None;
}

void Image::setExtension(ImageHeaderExtension extension, const QByteArray &value)
{
    for (auto &entry : d->extensions) {
        if (entry.first == extension) {
            entry.second = value;
            return;
        }
    }
    d->extensions.append({extension, value});
}

QDateTime Image::qDateTimeServerTimeZone() const
{
    return time300ToDateTimeUTC(d->time).toTimeZone(d->zone);
}

QTimeZone Image::frameQTimeZone() const
{
    return d->zone;
}

void Image::setTimeZone(const QTimeZone &zone)
{
    d->zone = zone.isValid() ? zone : QTimeZone::utc();
}

std::string Image::dateTime(const char *format) const
{
    const QString text = QLocale::c().toString(qDateTimeServerTimeZone(), QString::fromUtf8(format));
    return text.toStdString();
}

} // namespace orrin
