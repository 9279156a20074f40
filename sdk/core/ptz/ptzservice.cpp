// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ptz/ptzservice.h"

#include <contract/core/ptzfcontrol.h>

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace orrin::ptzservice {

namespace {

constexpr qsizetype TextLimit = 256;

/*! The standard's own spaces end in this. */
constexpr QStringView GenericSpace = u"GenericSpace";

QString cut(const QString &text)
{
    return text.trimmed().left(TextLimit);
}

std::optional<double> numberOf(const XmlElement &element)
{
    bool ok = false;
    const double value = element.value().toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<Range> rangeOf(const XmlElement &element)
{
    const std::optional<double> low = numberOf(element.child(u"Min"));
    const std::optional<double> high = numberOf(element.child(u"Max"));
    if (!low || !high || *low >= *high || *high <= 0)
        return {};
    return Range{*low, *high};
}

/*! A space of this name, the generic one first; a device that tells no usable range has the generic one. */
std::optional<Space> spaceOf(const XmlElement &spaces, QStringView name)
{
    std::optional<Space> found;
    for (const XmlElement *element : spaces.all(name)) {
        Space space;
        space.uri = cut(element->child(u"URI").value());
        space.x = rangeOf(element->child(u"XRange")).value_or(Range());
        space.y = rangeOf(element->child(u"YRange")).value_or(Range());
        const bool generic = space.uri.endsWith(GenericSpace);
        if (!found || generic)
            found = space;
        if (generic)
            break;
    }
    return found;
}

int countOf(const XmlElement &element)
{
    return std::clamp(element.value().toInt(), 0, int(ListLimit));
}

QList<Stored> readList(const XmlElement &answer, QStringView name)
{
    QList<Stored> list;
    for (const XmlElement *element : answer.all(name)) {
        if (list.size() >= ListLimit)
            break;
        Stored stored;
        stored.token = cut(element->attribute(u"token"));
        stored.name = cut(element->child(u"Name").value());
        stored.running = element->at({u"Status", u"State"}).value() == QLatin1StringView("Touring");
        if (!stored.token.isEmpty())
            list.append(stored);
    }
    return list;
}

} // namespace

double Range::speed(int speed) const
{
    const double part =
        std::clamp(double(speed) / PtzfControl::FullSpeed, -1.0, 1.0);
    // A space that begins at 0 has no backwards.
    return part < 0 ? part * -std::min(low, 0.0) : part * high;
}

std::optional<Node> readNode(const XmlElement &answer, const QString &token)
{
    const auto nodes = answer.all(u"PTZNode");
    if (nodes.empty())
        return {};
    const auto named = std::find_if(nodes.begin(), nodes.end(), [&token](const XmlElement *node) {
        return !token.isEmpty() && node->attribute(u"token") == token;
    });
    const XmlElement &element = named == nodes.end() ? *nodes.front() : **named;
    const XmlElement &spaces = element.child(u"SupportedPTZSpaces");
    Node node;
    node.token = cut(element.attribute(u"token"));
    node.panTilt = spaceOf(spaces, u"ContinuousPanTiltVelocitySpace");
    node.zoom = spaceOf(spaces, u"ContinuousZoomVelocitySpace");
    node.maximumPresets = countOf(element.child(u"MaximumNumberOfPresets"));
    node.maximumTours =
        countOf(element.at({u"Extension", u"SupportedPresetTour", u"MaximumNumberOfPresetTours"}));
    return node;
}

TimeoutRange readTimeouts(const XmlElement &answer)
{
    const XmlElement &element = answer.at({u"PTZConfigurationOptions", u"PTZTimeout"});
    TimeoutRange range;
    const auto shortest = readDuration(element.child(u"Min").value());
    const auto longest = readDuration(element.child(u"Max").value());
    if (shortest)
        range.shortest = std::min(*shortest, range.longest);
    if (longest && *longest > std::chrono::milliseconds(0))
        range.longest = std::clamp(*longest, range.shortest, range.longest);
    return range;
}

QList<Stored> readPresets(const XmlElement &answer)
{
    return readList(answer, u"Preset");
}

QList<Stored> readTours(const XmlElement &answer)
{
    return readList(answer, u"PresetTour");
}

std::optional<Range> readFocus(const XmlElement &answer)
{
    const XmlElement &continuous = answer.at({u"MoveOptions", u"Continuous"});
    if (continuous.isNull())
        return {};
    return rangeOf(continuous.child(u"Speed")).value_or(Range());
}

std::optional<std::chrono::milliseconds> readDuration(const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^PT(?:(\\d{1,6})H)?(?:(\\d{1,6})M)?(?:(\\d{1,6}(?:\\.\\d{1,9})?)S)?$"));
    if (text.size() > 64)
        return {};
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch())
        return {};
    const double seconds = match.captured(1).toDouble() * 3600 + match.captured(2).toDouble() * 60 +
                           match.captured(3).toDouble();
    return std::chrono::milliseconds(std::llround(seconds * 1000));
}

QString writeDuration(std::chrono::milliseconds time)
{
    return QStringLiteral("PT%1S").arg(QString::number(double(time.count()) / 1000, 'g', 10));
}

} // namespace orrin::ptzservice
