// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/imagingservice.h"

#include "onvif/mediatokens.h"
#include "onvif/namespaces.h"
#include "onvif/ptzconfiguration.h"
#include "ptz/ptzmotor.h"

#include <algorithm>
#include <cmath>

namespace orrin::demo {

using namespace Qt::StringLiterals;
using ptzconfiguration::writeRange;

namespace {

SoapFault noFocus()
{
    return SoapFault::invalidArgument(u"SettingsInvalid"_s, u"The focus can't be moved so."_s);
}

/*! Nothing when it is no number of the range. */
std::optional<double> numberOf(const XmlElement &element, QStringView name, double low, double high)
{
    bool ok = false;
    const double value = element.childText(name).toDouble(&ok);
    return ok && std::isfinite(value) && value >= low && value <= high ? std::optional(value) : std::nullopt;
}

} // namespace

ImagingService::ImagingService(const OnvifContext &context)
    : OnvifService(context, ns::Imaging, u"/onvif/imaging_service"_s, 2, 60)
{
    add(u"GetServiceCapabilities"_s, Access::Anyone, [this](const OnvifCall &, SoapWriter &writer) -> Fault {
        writer.start(ns::Imaging, "GetServiceCapabilitiesResponse"_L1);
        writeCapabilities(writer);
        writer.end();
        return std::nullopt;
    });
    addCall(u"GetMoveOptions"_s, Access::Users, &ImagingService::writeOptions);
    addCall(u"GetStatus"_s, Access::Users, &ImagingService::writeStatus);
    addCall(u"GetImagingSettings"_s, Access::Users, &ImagingService::writeSettings);
    addCall(u"Move"_s, Access::Operators, &ImagingService::move);
    addCall(u"Stop"_s, Access::Operators, &ImagingService::stop);
}

void ImagingService::addCall(const QString &name, Access access, Call function)
{
    add(name, access, [this, function](const OnvifCall &call, SoapWriter &writer) {
        return (this->*function)(call, writer);
    });
}

void ImagingService::writeCapabilities(SoapWriter &writer) const
{
    writer.empty(ns::Imaging, "Capabilities"_L1, {{"ImageStabilization"_L1, u"false"_s}, {"Presets"_L1, u"false"_s}});
}

const Camera *ImagingService::cameraOf(const OnvifCall &call, Fault &fault) const
{
    const QString token = call.operation.childText(u"VideoSourceToken");
    const auto found = std::ranges::find_if(recorder().cameras, [&](const Camera &camera) {
        return mediatokens::source(camera) == token && camera.enabled && camera.permittedFor(call.user->name);
    });
    if (found == recorder().cameras.cend()) {
        fault = SoapFault::invalidArgument(u"NoSource"_s, u"There is no such source."_s);
        return nullptr;
    }
    if (!found->motor) {
        fault = SoapFault{u"env:Receiver"_s,
                          {u"ter:ActionNotSupported"_s, u"ter:NoImagingForSource"_s},
                          u"The camera's focus is fixed."_s,
                          500};
        return nullptr;
    }
    return &*found;
}

ImagingService::Fault ImagingService::writeOptions(const OnvifCall &call, SoapWriter &writer) const
{
    Fault fault;
    if (!cameraOf(call, fault))
        return fault;
    writer.start(ns::Imaging, "GetMoveOptionsResponse"_L1);
    writer.start(ns::Imaging, "MoveOptions"_L1);
    writer.start(ns::Schema, "Absolute"_L1);
    writeRange(writer, "Position"_L1, 0, 1);
    writer.end();
    writer.start(ns::Schema, "Continuous"_L1);
    writeRange(writer, "Speed"_L1, -1, 1);
    writer.end();
    writer.end();
    writer.end();
    return std::nullopt;
}

ImagingService::Fault ImagingService::writeStatus(const OnvifCall &call, SoapWriter &writer) const
{
    Fault fault;
    const Camera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const std::int64_t now = context().clock.nowMs();
    writer.start(ns::Imaging, "GetStatusResponse"_L1);
    writer.start(ns::Imaging, "Status"_L1);
    writer.start(ns::Schema, "FocusStatus20"_L1);
    writer.element(ns::Schema, "Position"_L1, QString::number(camera->motor->focusAt(now), 'f', 5));
    writer.element(ns::Schema, "MoveStatus"_L1, camera->motor->isFocusMoving(now) ? u"MOVING"_s : u"IDLE"_s);
    writer.end();
    writer.end();
    writer.end();
    return std::nullopt;
}

ImagingService::Fault ImagingService::writeSettings(const OnvifCall &call, SoapWriter &writer) const
{
    Fault fault;
    if (!cameraOf(call, fault))
        return fault;
    writer.start(ns::Imaging, "GetImagingSettingsResponse"_L1);
    writer.start(ns::Imaging, "ImagingSettings"_L1);
    writer.start(ns::Schema, "Focus"_L1);
    writer.element(ns::Schema, "AutoFocusMode"_L1, u"MANUAL"_s);
    writer.end();
    writer.end();
    writer.end();
    return std::nullopt;
}

ImagingService::Fault ImagingService::move(const OnvifCall &call, SoapWriter &writer) const
{
    Fault fault;
    const Camera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    const XmlElement *focus = call.operation.child(u"Focus");
    const XmlElement *continuous = focus ? focus->child(u"Continuous") : nullptr;
    const XmlElement *absolute = focus ? focus->child(u"Absolute") : nullptr;
    const std::int64_t now = context().clock.nowMs();
    if (continuous) {
        const std::optional<double> speed = numberOf(*continuous, u"Speed", -1, 1);
        if (!speed)
            return noFocus();
        camera->motor->moveFocus(now, *speed);
    } else if (absolute) {
        const std::optional<double> position = numberOf(*absolute, u"Position", 0, 1);
        if (!position)
            return noFocus();
        camera->motor->focusTo(now, *position);
    } else {
        return noFocus();
    }
    writer.empty(ns::Imaging, "MoveResponse"_L1);
    return std::nullopt;
}

ImagingService::Fault ImagingService::stop(const OnvifCall &call, SoapWriter &writer) const
{
    Fault fault;
    const Camera *camera = cameraOf(call, fault);
    if (!camera)
        return fault;
    camera->motor->moveFocus(context().clock.nowMs(), 0);
    writer.empty(ns::Imaging, "StopResponse"_L1);
    return std::nullopt;
}

} // namespace orrin::demo
