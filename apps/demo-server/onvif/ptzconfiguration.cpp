// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/ptzconfiguration.h"

#include "onvif/namespaces.h"

namespace orrin::demo::ptzconfiguration {

using namespace Qt::StringLiterals;

QString token(const Camera &camera)
{
    return u"PTZ_%1"_s.arg(camera.id);
}

QString nodeToken(const Camera &camera)
{
    return u"NODE_%1"_s.arg(camera.id);
}

QString panTiltSpace(QLatin1StringView name)
{
    return u"http://www.onvif.org/ver10/tptz/PanTiltSpaces/"_s + name;
}

QString zoomSpace(QLatin1StringView name)
{
    return u"http://www.onvif.org/ver10/tptz/ZoomSpaces/"_s + name;
}

void writeRange(SoapWriter &writer, QLatin1StringView name, double low, double high)
{
    writer.start(ns::Schema, name);
    writer.element(ns::Schema, "Min"_L1, QString::number(low));
    writer.element(ns::Schema, "Max"_L1, QString::number(high));
    writer.end();
}

void write(SoapWriter &writer, QLatin1StringView ns, QLatin1StringView name, const Camera &camera)
{
    writer.start(ns, name, {{"token"_L1, token(camera)}});
    writer.element(ns::Schema, "Name"_L1, camera.name);
    writer.element(ns::Schema, "UseCount"_L1, qint64(camera.profiles.size()));
    writer.element(ns::Schema, "NodeToken"_L1, nodeToken(camera));
    // The missing letter is the schema's.
    writer.element(ns::Schema, "DefaultAbsolutePantTiltPositionSpace"_L1, panTiltSpace("PositionGenericSpace"_L1));
    writer.element(ns::Schema, "DefaultAbsoluteZoomPositionSpace"_L1, zoomSpace("PositionGenericSpace"_L1));
    writer.element(ns::Schema, "DefaultRelativePanTiltTranslationSpace"_L1,
                   panTiltSpace("TranslationGenericSpace"_L1));
    writer.element(ns::Schema, "DefaultRelativeZoomTranslationSpace"_L1, zoomSpace("TranslationGenericSpace"_L1));
    writer.element(ns::Schema, "DefaultContinuousPanTiltVelocitySpace"_L1,
                   panTiltSpace("VelocityGenericSpace"_L1));
    writer.element(ns::Schema, "DefaultContinuousZoomVelocitySpace"_L1, zoomSpace("VelocityGenericSpace"_L1));
    writer.start(ns::Schema, "DefaultPTZSpeed"_L1);
    writer.empty(ns::Schema, "PanTilt"_L1,
                 {{"x"_L1, u"1"_s}, {"y"_L1, u"1"_s}, {"space"_L1, panTiltSpace("GenericSpeedSpace"_L1)}});
    writer.empty(ns::Schema, "Zoom"_L1, {{"x"_L1, u"1"_s}, {"space"_L1, zoomSpace("ZoomGenericSpeedSpace"_L1)}});
    writer.end();
    writer.element(ns::Schema, "DefaultPTZTimeout"_L1, u"PT%1S"_s.arg(DefaultTimeout.count() / 1000));
    writer.end();
}

} // namespace orrin::demo::ptzconfiguration
