// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/ptzvalues.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace orrin::demo::ptzvalues {

using namespace Qt::StringLiterals;

namespace {

/*! False when the attribute is no number of the range. */
bool readAxis(const XmlElement &element, QLatin1StringView name, Range range, std::optional<double> &value)
{
    bool ok = false;
    const double number = element.attributes.value(name).toDouble(&ok);
    if (!ok || !std::isfinite(number) || number < range.first || number > range.second)
        return false;
    value = number;
    return true;
}

} // namespace

std::optional<Vector> read(const XmlElement *element, Range panTilt, Range zoom)
{
    if (!element)
        return {};
    Vector vector;
    if (const XmlElement *axes = element->child(u"PanTilt")) {
        if (!readAxis(*axes, "x"_L1, panTilt, vector.pan) || !readAxis(*axes, "y"_L1, panTilt, vector.tilt))
            return {};
    }
    if (const XmlElement *axis = element->child(u"Zoom")) {
        if (!readAxis(*axis, "x"_L1, zoom, vector.zoom))
            return {};
    }
    return vector.pan || vector.zoom ? std::optional(vector) : std::nullopt;
}

double readSpeed(const XmlElement &operation)
{
    const std::optional<Vector> speed = read(operation.child(u"Speed"), {0, 1}, {0, 1});
    if (!speed)
        return 1.0;
    return std::max({speed->pan.value_or(0.0), speed->tilt.value_or(0.0), speed->zoom.value_or(0.0)});
}

std::optional<std::chrono::milliseconds> readDuration(const QString &text)
{
    static const QRegularExpression pattern(
        u"^PT(?:(\\d{1,4})H)?(?:(\\d{1,4})M)?(?:(\\d{1,6}(?:\\.\\d{1,9})?)S)?$"_s);
    const QRegularExpressionMatch match = pattern.match(text.trimmed().left(64));
    if (!match.hasMatch())
        return {};
    const double seconds = match.captured(1).toDouble() * 3600 + match.captured(2).toDouble() * 60 +
                           match.captured(3).toDouble();
    return std::chrono::milliseconds(std::llround(seconds * 1000));
}

} // namespace orrin::demo::ptzvalues
