// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/onvifservice.h"
#include "ptz/ptzcamera.h"

#include <map>
#include <memory>

namespace orrin::demo {

/*! The PTZ service: moves the cameras that can be moved. Whoever may see a camera may ask about it; to move it takes an operator. GUI
    thread. */
class PtzService : public OnvifService
{
public:
    explicit PtzService(const OnvifContext &context);
    ~PtzService() override;

    void writeCapabilities(SoapWriter &writer) const override;

private:
    using Fault = std::optional<SoapFault>;
    using Call = Fault (PtzService::*)(const OnvifCall &, SoapWriter &);

    void addCall(const QString &name, Access access, Call call);
    void addConfigurationCalls();
    void addMoveCalls();
    void addPresetCalls();
    void addTourCalls();

    Fault writeNodes(const OnvifCall &call, SoapWriter &writer);
    Fault writeOneNode(const OnvifCall &call, SoapWriter &writer);
    void writeNode(SoapWriter &writer, const Camera &camera) const;
    void writeSpaces(SoapWriter &writer) const;
    Fault writeConfigurations(const OnvifCall &call, SoapWriter &writer);
    Fault writeConfiguration(const OnvifCall &call, SoapWriter &writer);
    Fault writeOptions(const OnvifCall &call, SoapWriter &writer);
    Fault writeStatus(const OnvifCall &call, SoapWriter &writer);

    Fault continuousMove(const OnvifCall &call, SoapWriter &writer);
    Fault absoluteMove(const OnvifCall &call, SoapWriter &writer);
    Fault relativeMove(const OnvifCall &call, SoapWriter &writer);
    Fault stop(const OnvifCall &call, SoapWriter &writer);
    Fault goHome(const OnvifCall &call, SoapWriter &writer);
    Fault setHome(const OnvifCall &call, SoapWriter &writer);

    Fault writePresets(const OnvifCall &call, SoapWriter &writer);
    Fault setPreset(const OnvifCall &call, SoapWriter &writer);
    Fault removePreset(const OnvifCall &call, SoapWriter &writer);
    Fault goToPreset(const OnvifCall &call, SoapWriter &writer);

    Fault writeTours(const OnvifCall &call, SoapWriter &writer);
    Fault writeOneTour(const OnvifCall &call, SoapWriter &writer);
    void writeTour(SoapWriter &writer, QLatin1StringView name, const PtzCamera &camera, const PtzTour &tour) const;
    Fault createTour(const OnvifCall &call, SoapWriter &writer);
    Fault modifyTour(const OnvifCall &call, SoapWriter &writer);
    Fault removeTour(const OnvifCall &call, SoapWriter &writer);
    Fault operateTour(const OnvifCall &call, SoapWriter &writer);

    /*! The camera of the call's profile; null, with \a fault set, when there is none that moves. */
    PtzCamera *cameraOf(const OnvifCall &call, Fault &fault);
    QList<const Camera *> camerasFor(const User &user) const;

    std::map<int, std::unique_ptr<PtzCamera>> m_cameras;
};

} // namespace orrin::demo
