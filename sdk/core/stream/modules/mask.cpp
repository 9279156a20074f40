// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/mask.h>

#include "codecs/maskpainter.h"

#include <contract/codecs/videoframe.h>

#include <QStringView>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <optional>

namespace orrin {

namespace {

constexpr qsizetype MaxBytes = 64 * 1024;
constexpr std::size_t MaxPolygons = 256;
constexpr std::size_t MaxPoints = 4096;
constexpr int Scale = 10000;

std::optional<double> readCoordinate(QStringView text)
{
    const bool negative = text.startsWith(u'-');
    const QStringView digits = negative ? text.sliced(1) : text;
    if (digits.isEmpty() || !std::all_of(digits.begin(), digits.end(), [](QChar c) { return c >= u'0' && c <= u'9'; }))
        return std::nullopt;
    if (negative)
        return 0.0;
    bool ok = false;
    const int value = digits.toInt(&ok);
    // What does not fit an int is far beyond the edge and clamped like it.
    return ok ? double(std::min(value, Scale)) / Scale : 1.0;
}

std::optional<Mask::Polygon> readPolygon(QStringView text, std::size_t *points)
{
    Mask::Polygon polygon;
    for (const QStringView pair : text.tokenize(u' ', Qt::SkipEmptyParts)) {
        const qsizetype comma = pair.indexOf(u',');
        if (comma < 0 || ++*points > MaxPoints)
            return std::nullopt;
        const auto x = readCoordinate(pair.first(comma));
        const auto y = readCoordinate(pair.sliced(comma + 1));
        if (!x || !y)
            return std::nullopt;
        polygon.emplace_back(*x, *y);
    }
    return polygon;
}

std::vector<Mask::Polygon> readPolygons(QStringView encoded)
{
    if (encoded.size() > MaxBytes)
        return {};
    std::vector<Mask::Polygon> polygons;
    std::size_t count = 0;
    std::size_t points = 0;
    bool version = true;
    for (const QStringView part : encoded.tokenize(u';')) {
        if (std::exchange(version, false)) {
            if (part != u"1")
                return {};
            continue;
        }
        auto polygon = readPolygon(part, &points);
        if (!polygon || ++count > MaxPolygons)
            return {};
        if (polygon->size() >= 3)
            polygons.push_back(std::move(*polygon));
    }
    return polygons;
}

QString encodedCoordinate(double fraction)
{
    // A coordinate that is no number has no place; the edge is as good as any.
    const double value = std::isfinite(fraction) ? std::clamp(fraction, 0.0, 1.0) : 0.0;
    return QString::number(std::lround(value * Scale));
}

} // namespace

Mask::Mask(const QString &encoded, MaskType type) : m_encoded(encoded), m_type(type), m_polygons(readPolygons(encoded)) {}

void Mask::applyMaskToVideoFrame(VideoFrame &frame) const
{
    if (m_polygons.empty() || !frame.isValidImage())
        return;
    const VideoFrame::WritablePlanes planes = frame.detachPlanes();
    if (!planes.y) {
        // Without memory for a masked copy nothing may be shown of the picture.
        frame = VideoFrame();
        return;
    }
    MaskPainter painter(planes, frame.width(), frame.height(), {});
    for (const Polygon &polygon : m_polygons)
        painter.fill(polygon);
}

QString Mask::encode(const std::vector<Polygon> &polygons)
{
    QString text = QStringLiteral("1");
    for (const Polygon &polygon : polygons) {
        text += u';';
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            if (i > 0)
                text += u' ';
            text += encodedCoordinate(polygon[i].x()) + u',' + encodedCoordinate(polygon[i].y());
        }
    }
    return text;
}

} // namespace orrin
