// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the PTZ service that deals with stored positions and tours.
#include "onvif/ptzservice.h"

#include "onvif/namespaces.h"
#include "onvif/ptzconfiguration.h"
#include "onvif/ptzvalues.h"

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

SoapFault noToken()
{
    return SoapFault::invalidArgument(u"NoToken"_s, u"There is no such preset."_s);
}

SoapFault noTour()
{
    return SoapFault::invalidArgument(u"NoToken"_s, u"There is no such tour."_s);
}

} // namespace

void PtzService::addPresetCalls()
{
    addCall(u"GetPresets"_s, Access::Users, &PtzService::writePresets);
    addCall(u"SetPreset"_s, Access::Operators, &PtzService::setPreset);
    addCall(u"RemovePreset"_s, Access::Operators, &PtzService::removePreset);
    addCall(u"GotoPreset"_s, Access::Operators, &PtzService::goToPreset);
}

void PtzService::addTourCalls()
{
    addCall(u"GetPresetTours"_s, Access::Users, &PtzService::writeTours);
    addCall(u"GetPresetTour"_s, Access::Users, &PtzService::writeOneTour);
    addCall(u"CreatePresetTour"_s, Access::Operators, &PtzService::createTour);
    addCall(u"ModifyPresetTour"_s, Access::Operators, &PtzService::modifyTour);
    addCall(u"RemovePresetTour"_s, Access::Operators, &PtzService::removeTour);
    addCall(u"OperatePresetTour"_s, Access::Operators, &PtzService::operateTour);
}

PtzService::Fault PtzService::writePresets(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    const PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    writer.start(ns::Ptz, "GetPresetsResponse"_L1);
    for (const PtzPreset &preset : camera->presets()) {
        writer.start(ns::Ptz, "Preset"_L1, {{"token"_L1, preset.token}});
        writer.element(ns::Schema, "Name"_L1, preset.name);
        writer.start(ns::Schema, "PTZPosition"_L1);
        writer.empty(ns::Schema, "PanTilt"_L1,
                     {{"x"_L1, QString::number(preset.view.pan, 'f', 5)},
                      {"y"_L1, QString::number(preset.view.tilt, 'f', 5)}});
        writer.empty(ns::Schema, "Zoom"_L1, {{"x"_L1, QString::number(preset.view.zoom, 'f', 5)}});
        writer.end();
        writer.end();
    }
    writer.end();
    return std::nullopt;
}

PtzService::Fault PtzService::setPreset(const OnvifCall &call, SoapWriter &writer)
{
    constexpr qsizetype NameLimit = 64;
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const QString token = call.operation.childText(u"PresetToken");
    if (!token.isEmpty() && !camera->preset(token))
        return noToken();
    const QString stored = camera->setPreset(token, call.operation.childText(u"PresetName").left(NameLimit));
    if (stored.isEmpty())
        return SoapFault{u"env:Receiver"_s,
                         {u"ter:Action"_s, u"ter:TooManyPresets"_s},
                         u"There is no place for another preset."_s,
                         500};
    writer.start(ns::Ptz, "SetPresetResponse"_L1);
    writer.element(ns::Ptz, "PresetToken"_L1, stored);
    writer.end();
    return std::nullopt;
}

PtzService::Fault PtzService::removePreset(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    if (!camera->removePreset(call.operation.childText(u"PresetToken")))
        return noToken();
    writer.empty(ns::Ptz, "RemovePresetResponse"_L1);
    return std::nullopt;
}

PtzService::Fault PtzService::goToPreset(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const QString token = call.operation.childText(u"PresetToken");
    if (!camera->preset(token))
        return noToken();
    camera->stopTour();
    camera->goToPreset(token, ptzvalues::readSpeed(call.operation));
    writer.empty(ns::Ptz, "GotoPresetResponse"_L1);
    return std::nullopt;
}

void PtzService::writeTour(SoapWriter &writer, QLatin1StringView name, const PtzCamera &camera,
                           const PtzTour &tour) const
{
    writer.start(ns::Ptz, name, {{"token"_L1, tour.token}});
    writer.element(ns::Schema, "Name"_L1, tour.name);
    writer.start(ns::Schema, "Status"_L1);
    writer.element(ns::Schema, "State"_L1, camera.runningTour() == tour.token ? u"Touring"_s : u"Idle"_s);
    writer.end();
    writer.element(ns::Schema, "AutoStart"_L1, false);
    writer.start(ns::Schema, "StartingCondition"_L1);
    writer.end();
    for (const PtzTourSpot &spot : tour.spots) {
        writer.start(ns::Schema, "TourSpot"_L1);
        writer.start(ns::Schema, "PresetDetail"_L1);
        writer.element(ns::Schema, "PresetToken"_L1, spot.preset);
        writer.end();
        writer.element(ns::Schema, "StayTime"_L1, u"PT%1S"_s.arg(double(spot.stayMs) / 1000));
        writer.end();
    }
    writer.end();
}

PtzService::Fault PtzService::writeTours(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    const PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    writer.start(ns::Ptz, "GetPresetToursResponse"_L1);
    for (const PtzTour &tour : camera->tours())
        writeTour(writer, "PresetTour"_L1, *camera, tour);
    writer.end();
    return std::nullopt;
}

PtzService::Fault PtzService::writeOneTour(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const PtzTour *tour = camera->tour(call.operation.childText(u"PresetTourToken"));
    if (!tour)
        return noTour();
    writer.start(ns::Ptz, "GetPresetTourResponse"_L1);
    writeTour(writer, "PresetTour"_L1, *camera, *tour);
    writer.end();
    return std::nullopt;
}

PtzService::Fault PtzService::createTour(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const QString token = camera->addTour();
    if (token.isEmpty())
        return SoapFault{u"env:Receiver"_s,
                         {u"ter:Action"_s, u"ter:TooManyPresetTours"_s},
                         u"There is no place for another tour."_s,
                         500};
    writer.start(ns::Ptz, "CreatePresetTourResponse"_L1);
    writer.element(ns::Ptz, "PresetTourToken"_L1, token);
    writer.end();
    return std::nullopt;
}

PtzService::Fault PtzService::modifyTour(const OnvifCall &call, SoapWriter &writer)
{
    constexpr qsizetype NameLimit = 64;
    constexpr std::chrono::milliseconds LongestStay{3600000};
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const XmlElement *element = call.operation.child(u"PresetTour");
    PtzTour *tour = element ? camera->tour(element->attributes.value("token"_L1).toString()) : nullptr;
    if (!tour)
        return noTour();
    QList<PtzTourSpot> spots;
    for (const XmlElement &child : element->children) {
        if (child.name != "TourSpot"_L1)
            continue;
        const XmlElement *detail = child.child(u"PresetDetail");
        const auto stay = ptzvalues::readDuration(child.childText(u"StayTime")).value_or(std::chrono::milliseconds(2000));
        const QString preset = detail ? detail->childText(u"PresetToken") : QString();
        if (!camera->preset(preset) || spots.size() >= PtzCamera::MaximumSpots)
            return SoapFault::invalidArgument(u"InvalidPresetTour"_s, u"The tour can't be taken."_s);
        spots.append({preset, 1.0, int(std::min(stay, LongestStay).count())});
    }
    if (const QString name = element->childText(u"Name"); !name.isEmpty())
        tour->name = name.left(NameLimit);
    tour->spots = spots;
    writer.empty(ns::Ptz, "ModifyPresetTourResponse"_L1);
    return std::nullopt;
}

PtzService::Fault PtzService::removeTour(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    if (!camera->removeTour(call.operation.childText(u"PresetTourToken")))
        return noTour();
    writer.empty(ns::Ptz, "RemovePresetTourResponse"_L1);
    return std::nullopt;
}

PtzService::Fault PtzService::operateTour(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const QString token = call.operation.childText(u"PresetTourToken");
    const QString operation = call.operation.childText(u"Operation");
    if (!camera->tour(token))
        return noTour();
    if (operation == "Start"_L1) {
        if (!camera->startTour(token))
            return SoapFault{u"env:Receiver"_s,
                             {u"ter:Action"_s, u"ter:ActivationFailed"_s},
                             u"The tour has no place to go to."_s,
                             500};
    } else if (operation == "Stop"_L1) {
        if (camera->runningTour() == token)
            camera->stopTour();
    } else {
        return SoapFault::invalidArgument(u"InvalidArgVal"_s, u"There is no such operation."_s);
    }
    writer.empty(ns::Ptz, "OperatePresetTourResponse"_L1);
    return std::nullopt;
}

} // namespace orrin::demo
