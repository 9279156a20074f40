// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ptz/ptzservice.h"
#include "core/ptz/ptztarget.h"
#include "core/ptz/storednumbers.h"
#include "core/session/onvif/onviftimings.h"
#include "core/session/onvif/soapclient.h"
#include "core/session/ptzrequest.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>

namespace orrin {

class DeviceLink;

/*! Carries out requests to one camera, each as one or a few calls of the device's PTZ and imaging services. Main thread.

    What the camera is able to is read once and kept, and read anew when its capabilities are asked for. */
class PtzDevice : public QObject
{
    Q_OBJECT
public:
    using Done = std::function<void(const PtzAnswer &)>;

    /*! \a link must outlive the device, or its end must end the calls. */
    PtzDevice(DeviceLink *link, const PtzTarget &target, const OnvifTimings &timings, QObject *parent = nullptr);

    /*! \a done is called once, by the event loop, unless the device or the link ends before. One request at a time. */
    void perform(const PtzRequest &request, Done done);

    /*! After which a motion ends by itself. */
    std::chrono::milliseconds moveTimeout() const;

private:
    using Next = std::function<void()>;
    using Arguments = QList<KDSoapValue>;
    using Handler = std::function<void(const SoapAnswer &)>;

    void askCapabilities();
    void needNode(Next next);
    void needTimeouts(Next next);
    void needFocus(Next next);
    void move();
    void stop();
    void focus();
    void withPresets(std::function<void(const StoredNumbers &)> next);
    void goToPreset(bool listIsFresh);
    void setPreset();
    void removePreset();
    void withTours(std::function<void(const QList<ptzservice::Stored> &)> next);
    void startTour();
    void stopTour();
    void operateTour(const QString &token, const QString &operation);

    void callPtz(const QString &method, const Arguments &arguments, Handler handler);
    void callImaging(const QString &method, const Arguments &arguments, Handler handler);
    void call(const SoapClient::Request &request, Handler handler);
    /*! Ends the request with the error that \a answer is, or with success. */
    void finish(const SoapAnswer &answer, int missing = PtzfError::Refused);
    void finish(const PtzAnswer &answer);
    void fail(int code);
    QList<PtzfCommand> commands() const;

    QPointer<DeviceLink> m_link;
    const PtzTarget m_target;
    const OnvifTimings m_timings;
    PtzRequest m_request;
    Done m_done;
    std::optional<ptzservice::Node> m_node;
    std::optional<ptzservice::TimeoutRange> m_timeouts;
    std::optional<ptzservice::Range> m_focus;
    bool m_focusKnown = false;
    std::optional<StoredNumbers> m_presets;
    QString m_tour; // the one that was started last
};

} // namespace orrin
