// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/eventdescription.h"

#include <contract/core/export.h>

#include <QString>

namespace orrin {

/*! What a topic of ONVIF means in words. A value. */
struct EventTopic
{
    QString cause;
    QString ending; //!< for topics that have a beginning and an end
    EventDescription::Severity severity = EventDescription::Severity::Information;

    /*!
        The meaning of \a topic, such as "tns1:VideoSource/MotionAlarm"; prefixes and letter case do not
        matter. The known ones:

        | Topic | Cause | End | Severity |
        |---|---|---|---|
        | VideoSource/MotionAlarm | Motion | Motion ended | warning |
        | RuleEngine/CellMotionDetector/Motion | Motion | Motion ended | warning |
        | RuleEngine/MotionRegionDetector/Motion | Motion | Motion ended | warning |
        | RuleEngine/FieldDetector/ObjectsInside | Object in field | Field empty | warning |
        | RuleEngine/LineDetector/Crossed | Line crossed | Line crossed ended | warning |
        | RuleEngine/TamperDetector/Tamper | Tampering | Tampering ended | alarm |
        | VideoSource/SignalLoss | Video loss | Video restored | alarm |
        | VideoSource/GlobalSceneChange/… | Scene change | Scene change ended | warning |
        | VideoSource/ImageTooBlurry/… | Picture blurred | Picture sharp again | warning |
        | VideoSource/ImageTooDark/… | Picture too dark | Picture bright again | warning |
        | VideoSource/ImageTooBright/… | Picture too bright | Picture normal again | warning |
        | AudioAnalytics/Audio/DetectedSound | Sound | Sound ended | warning |
        | Door/State/DoorPhysicalState | Door open | Door closed | information |
        | Door/State/DoorAlarm | Door alarm | Door alarm ended | alarm |
        | Device/Trigger/DigitalInput | Input on | Input off | warning |
        | Device/Trigger/Relay | Relay on | Relay off | information |
        | Device/HardwareFailure/StorageFailure | Storage failure | Storage repaired | alarm |
        | Device/HardwareFailure/FanFailure | Fan failure | Fan repaired | alarm |
        | Device/HardwareFailure/PowerSupplyFailure | Power failure | Power restored | alarm |
        | Device/HardwareFailure/TemperatureCritical | Temperature critical | Temperature normal | alarm |
        | User/Login | Login | Login ended | information |

        The cause of any other topic is its last segment in words ("ObjectsInside": "Objects inside"), of
        severity information. The causes and their ends are in the language of the application.
    */
    ORRINSDK_CORE_EXPORT static EventTopic fromTopic(const QString &topic);
};

} // namespace orrin
