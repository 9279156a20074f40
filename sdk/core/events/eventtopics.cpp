// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/events/eventtopics.h"

#include <QStringList>

#include <iterator>

namespace orrin {

namespace {

using Severity = EventDescription::Severity;

constexpr qsizetype SegmentLimit = 16;
constexpr qsizetype TextLimit = 256;

struct KnownTopic
{
    QLatin1StringView path; // a last segment "*" is any one
    QLatin1StringView cause;
    QLatin1StringView ending;
    Severity severity;
};

using L1 = QLatin1StringView;

constexpr KnownTopic KnownTopics[] = {
    {L1("VideoSource/MotionAlarm"), L1("Motion"), L1("Motion ended"), Severity::Warning},
    {L1("RuleEngine/CellMotionDetector/Motion"), L1("Motion"), L1("Motion ended"), Severity::Warning},
    {L1("RuleEngine/MotionRegionDetector/Motion"), L1("Motion"), L1("Motion ended"), Severity::Warning},
    {L1("RuleEngine/FieldDetector/ObjectsInside"), L1("Object in field"), L1("Field empty"),
     Severity::Warning},
    {L1("RuleEngine/LineDetector/Crossed"), L1("Line crossed"), L1("Line crossed ended"), Severity::Warning},
    {L1("RuleEngine/TamperDetector/Tamper"), L1("Tampering"), L1("Tampering ended"), Severity::Alarm},
    {L1("VideoSource/SignalLoss"), L1("Video loss"), L1("Video restored"), Severity::Alarm},
    {L1("VideoSource/GlobalSceneChange/*"), L1("Scene change"), L1("Scene change ended"), Severity::Warning},
    {L1("VideoSource/ImageTooBlurry/*"), L1("Picture blurred"), L1("Picture sharp again"), Severity::Warning},
    {L1("VideoSource/ImageTooDark/*"), L1("Picture too dark"), L1("Picture bright again"), Severity::Warning},
    {L1("VideoSource/ImageTooBright/*"), L1("Picture too bright"), L1("Picture normal again"),
     Severity::Warning},
    {L1("AudioAnalytics/Audio/DetectedSound"), L1("Sound"), L1("Sound ended"), Severity::Warning},
    {L1("Door/State/DoorPhysicalState"), L1("Door open"), L1("Door closed"), Severity::Information},
    {L1("Door/State/DoorAlarm"), L1("Door alarm"), L1("Door alarm ended"), Severity::Alarm},
    {L1("Device/Trigger/DigitalInput"), L1("Input on"), L1("Input off"), Severity::Warning},
    {L1("Device/Trigger/Relay"), L1("Relay on"), L1("Relay off"), Severity::Information},
    {L1("Device/HardwareFailure/StorageFailure"), L1("Storage failure"), L1("Storage repaired"),
     Severity::Alarm},
    {L1("Device/HardwareFailure/FanFailure"), L1("Fan failure"), L1("Fan repaired"), Severity::Alarm},
    {L1("Device/HardwareFailure/PowerSupplyFailure"), L1("Power failure"), L1("Power restored"),
     Severity::Alarm},
    {L1("Device/HardwareFailure/TemperatureCritical"), L1("Temperature critical"), L1("Temperature normal"),
     Severity::Alarm},
    {L1("User/Login"), L1("Login"), L1("Login ended"), Severity::Information},
};

/*! Without prefixes, which each device chooses for itself. */
QStringList segmentsOf(const QString &topic)
{
    QStringList segments;
    for (const QStringView part : QStringView(topic).left(1024).tokenize(u'/', Qt::SkipEmptyParts)) {
        const QStringView segment = part.mid(part.indexOf(u':') + 1).trimmed();
        if (!segment.isEmpty() && segments.size() < SegmentLimit)
            segments.append(segment.toString());
    }
    return segments;
}

bool matches(const KnownTopic &known, const QString &path, const QString &parent)
{
    if (!known.path.endsWith(L1("/*")))
        return path.compare(known.path, Qt::CaseInsensitive) == 0;
    return parent.compare(known.path.chopped(2), Qt::CaseInsensitive) == 0;
}

/*! "ObjectsInside" and "objects_inside" become "Objects inside"; "USBAlarm" becomes "USB alarm". */
QString inWords(const QString &segment)
{
    QString words;
    for (qsizetype i = 0; i < segment.size() && words.size() < TextLimit; ++i) {
        const QChar c = segment.at(i);
        if (c == u'_' || c == u'-' || c.isSpace()) {
            if (!words.isEmpty() && !words.endsWith(u' '))
                words.append(u' ');
            continue;
        }
        const bool afterSmall = i > 0 && (segment.at(i - 1).isLower() || segment.at(i - 1).isDigit());
        const bool beforeSmall = i + 1 < segment.size() && segment.at(i + 1).isLower();
        const bool afterCapital = i > 0 && segment.at(i - 1).isUpper();
        if (c.isUpper() && (afterSmall || (afterCapital && beforeSmall)) && !words.endsWith(u' '))
            words.append(u' ');
        const bool beginsWord = words.isEmpty() || words.endsWith(u' ');
        if (words.isEmpty())
            words.append(c.toUpper());
        else if (beginsWord && beforeSmall)
            words.append(c.toLower());
        else
            words.append(c);
    }
    return words.trimmed().left(TextLimit);
}

} // namespace

EventTopic EventTopic::fromTopic(const QString &topic)
{
    const QStringList segments = segmentsOf(topic);
    const QString path = segments.join(u'/');
    const QString parent = segments.mid(0, segments.size() - 1).join(u'/');
    for (const KnownTopic &known : KnownTopics) {
        if (matches(known, path, parent))
            return {known.cause, known.ending, known.severity};
    }
    const QString words = segments.isEmpty() ? QString() : inWords(segments.last());
    const QString cause = words.isEmpty() ? QStringLiteral("Event") : words;
    return {cause, cause.left(TextLimit - 6) + QStringLiteral(" ended"), Severity::Information};
}

} // namespace orrin
