// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/events/eventtopics.h"

#include <QCoreApplication>
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
    const char *cause;
    const char *ending;
    Severity severity;
};

using L1 = QLatin1StringView;

constexpr KnownTopic KnownTopics[] = {
    {L1("VideoSource/MotionAlarm"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Motion"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Motion ended"), Severity::Warning},
    {L1("RuleEngine/CellMotionDetector/Motion"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Motion"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Motion ended"), Severity::Warning},
    {L1("RuleEngine/MotionRegionDetector/Motion"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Motion"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Motion ended"), Severity::Warning},
    {L1("RuleEngine/FieldDetector/ObjectsInside"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Object in field"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Field empty"), Severity::Warning},
    {L1("RuleEngine/LineDetector/Crossed"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Line crossed"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Line crossed ended"), Severity::Warning},
    {L1("RuleEngine/TamperDetector/Tamper"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Tampering"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Tampering ended"), Severity::Alarm},
    {L1("VideoSource/SignalLoss"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Video loss"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Video restored"), Severity::Alarm},
    {L1("VideoSource/GlobalSceneChange/*"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Scene change"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Scene change ended"), Severity::Warning},
    {L1("VideoSource/ImageTooBlurry/*"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Picture blurred"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Picture sharp again"), Severity::Warning},
    {L1("VideoSource/ImageTooDark/*"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Picture too dark"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Picture bright again"), Severity::Warning},
    {L1("VideoSource/ImageTooBright/*"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Picture too bright"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Picture normal again"), Severity::Warning},
    {L1("AudioAnalytics/Audio/DetectedSound"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Sound"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Sound ended"), Severity::Warning},
    {L1("Door/State/DoorPhysicalState"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Door open"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Door closed"), Severity::Information},
    {L1("Door/State/DoorAlarm"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Door alarm"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Door alarm ended"), Severity::Alarm},
    {L1("Device/Trigger/DigitalInput"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Input on"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Input off"), Severity::Warning},
    {L1("Device/Trigger/Relay"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Relay on"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Relay off"), Severity::Information},
    {L1("Device/HardwareFailure/StorageFailure"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Storage failure"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Storage repaired"), Severity::Alarm},
    {L1("Device/HardwareFailure/FanFailure"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Fan failure"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Fan repaired"), Severity::Alarm},
    {L1("Device/HardwareFailure/PowerSupplyFailure"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Power failure"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Power restored"), Severity::Alarm},
    {L1("Device/HardwareFailure/TemperatureCritical"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Temperature critical"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Temperature normal"), Severity::Alarm},
    {L1("User/Login"), QT_TRANSLATE_NOOP("orrin::EventTopic", "Login"),
     QT_TRANSLATE_NOOP("orrin::EventTopic", "Login ended"), Severity::Information},
};

QString translated(const char *text)
{
    return QCoreApplication::translate("orrin::EventTopic", text);
}

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
            return {translated(known.cause), translated(known.ending), known.severity};
    }
    const QString words = segments.isEmpty() ? QString() : inWords(segments.last());
    const QString cause = words.isEmpty() ? translated(QT_TRANSLATE_NOOP("orrin::EventTopic", "Event")) : words;
    //: %1 is what an event is called
    const QString ending = translated(QT_TRANSLATE_NOOP("orrin::EventTopic", "%1 ended"));
    return {cause, ending.arg(cause.left(TextLimit - ending.size())), Severity::Information};
}

} // namespace orrin
