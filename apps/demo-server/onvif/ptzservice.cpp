// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/ptzservice.h"

#include "onvif/mediatokens.h"
#include "onvif/namespaces.h"
#include "onvif/ptzconfiguration.h"
#include "onvif/ptzvalues.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;
using ptzconfiguration::panTiltSpace;
using ptzconfiguration::writeRange;
using ptzconfiguration::zoomSpace;

PtzService::PtzService(const OnvifContext &context)
    : OnvifService(context, ns::Ptz, u"/onvif/ptz_service"_s, 2, 60)
{
    add(u"GetServiceCapabilities"_s, Access::Anyone, [this](const OnvifCall &, SoapWriter &writer) -> Fault {
        writer.start(ns::Ptz, "GetServiceCapabilitiesResponse"_L1);
        writeCapabilities(writer);
        writer.end();
        return std::nullopt;
    });
    addConfigurationCalls();
    addMoveCalls();
    addPresetCalls();
    addTourCalls();
}

PtzService::~PtzService() = default;

void PtzService::addCall(const QString &name, Access access, Call function)
{
    add(name, access, [this, function](const OnvifCall &call, SoapWriter &writer) {
        return (this->*function)(call, writer);
    });
}

void PtzService::addConfigurationCalls()
{
    addCall(u"GetNodes"_s, Access::Users, &PtzService::writeNodes);
    addCall(u"GetNode"_s, Access::Users, &PtzService::writeOneNode);
    addCall(u"GetConfigurations"_s, Access::Users, &PtzService::writeConfigurations);
    addCall(u"GetConfiguration"_s, Access::Users, &PtzService::writeConfiguration);
    addCall(u"GetConfigurationOptions"_s, Access::Users, &PtzService::writeOptions);
    addCall(u"GetStatus"_s, Access::Users, &PtzService::writeStatus);
}

void PtzService::addMoveCalls()
{
    addCall(u"ContinuousMove"_s, Access::Operators, &PtzService::continuousMove);
    addCall(u"AbsoluteMove"_s, Access::Operators, &PtzService::absoluteMove);
    addCall(u"RelativeMove"_s, Access::Operators, &PtzService::relativeMove);
    addCall(u"Stop"_s, Access::Operators, &PtzService::stop);
    addCall(u"GotoHomePosition"_s, Access::Operators, &PtzService::goHome);
    addCall(u"SetHomePosition"_s, Access::Operators, &PtzService::setHome);
}

void PtzService::writeCapabilities(SoapWriter &writer) const
{
    writer.empty(ns::Ptz, "Capabilities"_L1,
                 {{"EFlip"_L1, u"false"_s},
                  {"Reverse"_L1, u"false"_s},
                  {"GetCompatibleConfigurations"_L1, u"false"_s},
                  {"MoveStatus"_L1, u"true"_s},
                  {"StatusPosition"_L1, u"true"_s}});
}

QList<const Camera *> PtzService::camerasFor(const User &user) const
{
    QList<const Camera *> cameras;
    for (const Camera &camera : recorder().cameras) {
        if (camera.motor && camera.enabled && camera.permittedFor(user.name))
            cameras.append(&camera);
    }
    return cameras;
}

PtzCamera *PtzService::cameraOf(const OnvifCall &call, Fault &fault)
{
    const mediatokens::ProfileRef profile =
        mediatokens::profileFor(recorder(), *call.user, call.operation.childText(u"ProfileToken"));
    if (!profile) {
        fault = SoapFault::invalidArgument(u"NoProfile"_s, u"There is no such profile."_s);
        return nullptr;
    }
    if (!profile.camera->motor) {
        fault = SoapFault::invalidArgument(u"NoPTZProfile"_s, u"The camera of the profile does not move."_s);
        return nullptr;
    }
    std::unique_ptr<PtzCamera> &camera = m_cameras[profile.camera->id];
    // A camera with the id of one that is gone is another.
    if (!camera || !camera->isFor(profile.camera->motor))
        camera = std::make_unique<PtzCamera>(profile.camera->motor, context().clock);
    return camera.get();
}

PtzService::Fault PtzService::writeNodes(const OnvifCall &call, SoapWriter &writer)
{
    writer.start(ns::Ptz, "GetNodesResponse"_L1);
    const auto cameras = camerasFor(*call.user);
    for (const Camera *camera : cameras)
        writeNode(writer, *camera);
    writer.end();
    return std::nullopt;
}

PtzService::Fault PtzService::writeOneNode(const OnvifCall &call, SoapWriter &writer)
{
    const QString token = call.operation.childText(u"NodeToken");
    const auto cameras = camerasFor(*call.user);
    const auto found = std::ranges::find(cameras, token, [](const Camera *each) {
        return ptzconfiguration::nodeToken(*each);
    });
    if (found == cameras.cend())
        return SoapFault::invalidArgument(u"NoEntity"_s, u"There is no such node."_s);
    writer.start(ns::Ptz, "GetNodeResponse"_L1);
    writeNode(writer, **found);
    writer.end();
    return std::nullopt;
}

void PtzService::writeNode(SoapWriter &writer, const Camera &camera) const
{
    writer.start(ns::Ptz, "PTZNode"_L1,
                 {{"token"_L1, ptzconfiguration::nodeToken(camera)}, {"FixedHomePosition"_L1, u"false"_s}});
    writer.element(ns::Schema, "Name"_L1, camera.name);
    writer.start(ns::Schema, "SupportedPTZSpaces"_L1);
    writeSpaces(writer);
    writer.end();
    writer.element(ns::Schema, "MaximumNumberOfPresets"_L1, qint64(PtzCamera::MaximumPresets));
    writer.element(ns::Schema, "HomeSupported"_L1, true);
    writer.start(ns::Schema, "Extension"_L1);
    writer.start(ns::Schema, "SupportedPresetTour"_L1);
    writer.element(ns::Schema, "MaximumNumberOfPresetTours"_L1, qint64(PtzCamera::MaximumTours));
    writer.element(ns::Schema, "PTZPresetTourOperation"_L1, u"Start"_s);
    writer.element(ns::Schema, "PTZPresetTourOperation"_L1, u"Stop"_s);
    writer.end();
    writer.end();
    writer.end();
}

void PtzService::writeSpaces(SoapWriter &writer) const
{
    const auto writeSpace = [&writer](QLatin1StringView name, const QString &uri, double low, bool twoAxes) {
        writer.start(ns::Schema, name);
        writer.element(ns::Schema, "URI"_L1, uri);
        writeRange(writer, "XRange"_L1, low, 1);
        if (twoAxes)
            writeRange(writer, "YRange"_L1, low, 1);
        writer.end();
    };
    writeSpace("AbsolutePanTiltPositionSpace"_L1, panTiltSpace("PositionGenericSpace"_L1), -1, true);
    writeSpace("AbsoluteZoomPositionSpace"_L1, zoomSpace("PositionGenericSpace"_L1), 0, false);
    writeSpace("RelativePanTiltTranslationSpace"_L1, panTiltSpace("TranslationGenericSpace"_L1), -1, true);
    writeSpace("RelativeZoomTranslationSpace"_L1, zoomSpace("TranslationGenericSpace"_L1), -1, false);
    writeSpace("ContinuousPanTiltVelocitySpace"_L1, panTiltSpace("VelocityGenericSpace"_L1), -1, true);
    writeSpace("ContinuousZoomVelocitySpace"_L1, zoomSpace("VelocityGenericSpace"_L1), -1, false);
    writeSpace("PanTiltSpeedSpace"_L1, panTiltSpace("GenericSpeedSpace"_L1), 0, false);
    writeSpace("ZoomSpeedSpace"_L1, zoomSpace("ZoomGenericSpeedSpace"_L1), 0, false);
}

PtzService::Fault PtzService::writeConfigurations(const OnvifCall &call, SoapWriter &writer)
{
    writer.start(ns::Ptz, "GetConfigurationsResponse"_L1);
    const auto cameras = camerasFor(*call.user);
    for (const Camera *camera : cameras)
        ptzconfiguration::write(writer, ns::Ptz, "PTZConfiguration"_L1, *camera);
    writer.end();
    return std::nullopt;
}

PtzService::Fault PtzService::writeConfiguration(const OnvifCall &call, SoapWriter &writer)
{
    const QString token = call.operation.childText(u"PTZConfigurationToken");
    const auto cameras = camerasFor(*call.user);
    const auto found =
        std::ranges::find(cameras, token, [](const Camera *each) { return ptzconfiguration::token(*each); });
    if (found == cameras.cend())
        return SoapFault::invalidArgument(u"NoConfig"_s, u"There is no such configuration."_s);
    writer.start(ns::Ptz, "GetConfigurationResponse"_L1);
    ptzconfiguration::write(writer, ns::Ptz, "PTZConfiguration"_L1, **found);
    writer.end();
    return std::nullopt;
}

PtzService::Fault PtzService::writeOptions(const OnvifCall &call, SoapWriter &writer)
{
    const QString token = call.operation.childText(u"ConfigurationToken");
    const auto cameras = camerasFor(*call.user);
    if (std::ranges::none_of(cameras,
                             [&token](const Camera *each) { return ptzconfiguration::token(*each) == token; }))
        return SoapFault::invalidArgument(u"NoConfig"_s, u"There is no such configuration."_s);
    writer.start(ns::Ptz, "GetConfigurationOptionsResponse"_L1);
    writer.start(ns::Ptz, "PTZConfigurationOptions"_L1);
    writer.start(ns::Schema, "Spaces"_L1);
    writeSpaces(writer);
    writer.end();
    writer.start(ns::Schema, "PTZTimeout"_L1);
    writer.element(ns::Schema, "Min"_L1, u"PT0.1S"_s);
    writer.element(ns::Schema, "Max"_L1, u"PT%1S"_s.arg(ptzconfiguration::LongestTimeout.count() / 1000));
    writer.end();
    writer.end();
    writer.end();
    return std::nullopt;
}

PtzService::Fault PtzService::writeStatus(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const std::int64_t now = camera->nowMs();
    const View view = camera->motor().viewAt(now);
    const QString state = camera->motor().isMoving(now) ? u"MOVING"_s : u"IDLE"_s;
    writer.start(ns::Ptz, "GetStatusResponse"_L1);
    writer.start(ns::Ptz, "PTZStatus"_L1);
    writer.start(ns::Schema, "Position"_L1);
    writer.empty(ns::Schema, "PanTilt"_L1,
                 {{"x"_L1, QString::number(view.pan, 'f', 5)},
                  {"y"_L1, QString::number(view.tilt, 'f', 5)},
                  {"space"_L1, panTiltSpace("PositionGenericSpace"_L1)}});
    writer.empty(
        ns::Schema, "Zoom"_L1,
        {{"x"_L1, QString::number(view.zoom, 'f', 5)}, {"space"_L1, zoomSpace("PositionGenericSpace"_L1)}});
    writer.end();
    writer.start(ns::Schema, "MoveStatus"_L1);
    writer.element(ns::Schema, "PanTilt"_L1, state);
    writer.element(ns::Schema, "Zoom"_L1, state);
    writer.end();
    writer.element(ns::Schema, "UtcTime"_L1,
                   QDateTime::fromMSecsSinceEpoch(now, QTimeZone::UTC).toString(Qt::ISODateWithMs));
    writer.end();
    writer.end();
    return std::nullopt;
}

PtzService::Fault PtzService::continuousMove(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const std::optional<ptzvalues::Vector> velocity =
        ptzvalues::read(call.operation.child(u"Velocity"), {-1, 1}, {-1, 1});
    if (!velocity)
        return SoapFault::invalidArgument(u"InvalidVelocity"_s, u"The velocity is out of range."_s);
    std::chrono::milliseconds timeout = ptzconfiguration::DefaultTimeout;
    if (const XmlElement *element = call.operation.child(u"Timeout")) {
        const auto told = ptzvalues::readDuration(element->text);
        if (!told || told->count() <= 0)
            return SoapFault::invalidArgument(u"TimeoutNotSupported"_s, u"The time-out is out of range."_s);
        timeout = std::min(*told, ptzconfiguration::LongestTimeout);
    }
    camera->stopTour();
    camera->motor().move(camera->nowMs(), {velocity->pan, velocity->tilt, velocity->zoom}, timeout.count());
    writer.empty(ns::Ptz, "ContinuousMoveResponse"_L1);
    return std::nullopt;
}

PtzService::Fault PtzService::absoluteMove(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const std::optional<ptzvalues::Vector> position =
        ptzvalues::read(call.operation.child(u"Position"), {-1, 1}, {0, 1});
    if (!position)
        return SoapFault::invalidArgument(u"InvalidPosition"_s, u"The position is out of range."_s);
    camera->stopTour();
    camera->motor().goTo(camera->nowMs(), {position->pan, position->tilt, position->zoom},
                         ptzvalues::readSpeed(call.operation));
    writer.empty(ns::Ptz, "AbsoluteMoveResponse"_L1);
    return std::nullopt;
}

PtzService::Fault PtzService::relativeMove(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const std::optional<ptzvalues::Vector> way =
        ptzvalues::read(call.operation.child(u"Translation"), {-1, 1}, {-1, 1});
    if (!way)
        return SoapFault::invalidArgument(u"InvalidTranslation"_s, u"The translation is out of range."_s);
    camera->stopTour();
    const std::int64_t now = camera->nowMs();
    const View view = camera->motor().viewAt(now);
    PtzMotor::Position target;
    // A position unit is as long in the translation space; the motor keeps within its ends.
    if (way->pan)
        target.pan = view.pan + *way->pan;
    if (way->tilt)
        target.tilt = view.tilt + *way->tilt;
    if (way->zoom)
        target.zoom = view.zoom + *way->zoom;
    camera->motor().goTo(now, target, ptzvalues::readSpeed(call.operation));
    writer.empty(ns::Ptz, "RelativeMoveResponse"_L1);
    return std::nullopt;
}

PtzService::Fault PtzService::stop(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    // Left out, an axis is stopped too.
    const auto wanted = [&call](QStringView name) {
        const XmlElement *element = call.operation.child(name);
        return !element || (element->text.trimmed() != "false"_L1 && element->text.trimmed() != "0"_L1);
    };
    camera->stopTour();
    camera->motor().stop(camera->nowMs(), wanted(u"PanTilt"), wanted(u"Zoom"));
    writer.empty(ns::Ptz, "StopResponse"_L1);
    return std::nullopt;
}

PtzService::Fault PtzService::goHome(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    camera->stopTour();
    camera->goHome(ptzvalues::readSpeed(call.operation));
    writer.empty(ns::Ptz, "GotoHomePositionResponse"_L1);
    return std::nullopt;
}

PtzService::Fault PtzService::setHome(const OnvifCall &call, SoapWriter &writer)
{
    Fault fault;
    PtzCamera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    camera->setHome();
    writer.empty(ns::Ptz, "SetHomePositionResponse"_L1);
    return std::nullopt;
}

} // namespace orrin::demo
