// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ptz/ptzdevice.h"

#include "core/session/onvif/devicelink.h"
#include "core/session/onvif/onvifnames.h"

#include <algorithm>

namespace orrin {

namespace {

using ptzservice::Stored;

const QString PresetWord = QStringLiteral("Preset");
const QString TourWord = QStringLiteral("Tour");

KDSoapValue ptz(const QString &name, const QVariant &value)
{
    return SoapClient::argument(name, value, onvif::PtzNamespace);
}

KDSoapValue imaging(const QString &name, const QVariant &value)
{
    return SoapClient::argument(name, value, onvif::ImagingNamespace);
}

QString numberText(double value)
{
    return QString::number(value, 'f', 5);
}

KDSoapValue vector(const QString &name, std::initializer_list<std::pair<QString, QString>> attributes)
{
    KDSoapValueList content;
    for (const auto &[key, value] : attributes)
        content.attributes().append(KDSoapValue(key, value));
    return SoapClient::argument(name, content, onvif::SchemaNamespace);
}

PtzfError errorOf(const SoapAnswer &answer, int missing)
{
    constexpr qsizetype ReasonLimit = 200;
    if (answer.isAnswer())
        return {};
    if (answer.isNotAuthorised() || answer.refusal)
        return PtzfError(PtzfError::NotPermitted);
    if (answer.kind == SoapAnswer::Kind::NoAnswer)
        return PtzfError(PtzfError::NoAnswer);
    if (answer.hasSubcode(u"NoToken"))
        return PtzfError(missing);
    if (answer.hasSubcode(u"ActionNotSupported") || answer.hasSubcode(u"PTZNotSupported"))
        return PtzfError(PtzfError::NotSupported);
    return PtzfError(PtzfError::Refused, answer.reason.left(ReasonLimit));
}

} // namespace

PtzDevice::PtzDevice(DeviceLink *link, const PtzTarget &target, const OnvifTimings &timings, QObject *parent)
    : QObject(parent), m_link(link), m_target(target), m_timings(timings)
{
}

void PtzDevice::perform(const PtzRequest &request, Done done)
{
    m_request = request;
    m_done = std::move(done);
    using Kind = PtzRequest::Kind;
    switch (request.kind) {
    case Kind::Capabilities:
        askCapabilities();
        break;
    case Kind::Move:
        // A stop needs to know nothing, and shall not wait.
        if (request.isStill())
            stop();
        else
            needNode([this] { needTimeouts([this] { move(); }); });
        break;
    case Kind::Focus:
        focus();
        break;
    case Kind::Presets:
        withPresets([this](const StoredNumbers &numbers) { finish({{}, {}, numbers.presets()}); });
        break;
    case Kind::GoToPreset:
        goToPreset(false);
        break;
    case Kind::SetPreset:
        setPreset();
        break;
    case Kind::RemovePreset:
        removePreset();
        break;
    case Kind::StartTour:
        startTour();
        break;
    case Kind::StopTour:
        stopTour();
        break;
    }
}

void PtzDevice::askCapabilities()
{
    m_node.reset();
    m_timeouts.reset();
    m_focusKnown = false;
    needNode([this] {
        needTimeouts([this] { needFocus([this] { finish({{}, commands(), {}}); }); });
    });
}

QList<PtzfCommand> PtzDevice::commands() const
{
    QList<PtzfCommand> commands;
    if (m_node->panTilt)
        commands.append(PtzfCommand::PanTilt);
    if (m_node->zoom)
        commands.append(PtzfCommand::Zoom);
    if (m_focus)
        commands.append(PtzfCommand::Focus);
    if (m_node->maximumPresets > 0)
        commands.append(PtzfCommand::Presets);
    if (m_node->maximumTours > 0)
        commands.append(PtzfCommand::Tours);
    return commands;
}

void PtzDevice::needNode(Next next)
{
    if (m_node) {
        next();
        return;
    }
    callPtz(QStringLiteral("GetNodes"), {}, [this, next = std::move(next)](const SoapAnswer &answer) {
        if (answer.isAnswer())
            m_node = ptzservice::readNode(answer.body, m_target.node);
        if (m_node)
            next();
        else if (answer.isAnswer())
            fail(PtzfError::NotSupported);
        else
            finish(answer);
    });
}

void PtzDevice::needTimeouts(Next next)
{
    if (m_timeouts || m_target.configuration.isEmpty()) {
        next();
        return;
    }
    callPtz(QStringLiteral("GetConfigurationOptions"),
            {ptz(QStringLiteral("ConfigurationToken"), m_target.configuration)},
            [this, next = std::move(next)](const SoapAnswer &answer) {
                // Not every device tells; it then takes what it is asked for.
                m_timeouts =
                    answer.isAnswer() ? ptzservice::readTimeouts(answer.body) : ptzservice::TimeoutRange();
                next();
            });
}

void PtzDevice::needFocus(Next next)
{
    if (m_focusKnown || !m_link || m_link->services.imaging.isEmpty()) {
        next();
        return;
    }
    callImaging(QStringLiteral("GetMoveOptions"), {imaging(QStringLiteral("VideoSourceToken"), m_target.source)},
                [this, next = std::move(next)](const SoapAnswer &answer) {
                    m_focus = answer.isAnswer() ? ptzservice::readFocus(answer.body) : std::nullopt;
                    m_focusKnown = answer.kind != SoapAnswer::Kind::NoAnswer;
                    next();
                });
}

std::chrono::milliseconds PtzDevice::moveTimeout() const
{
    const ptzservice::TimeoutRange range = m_timeouts.value_or(ptzservice::TimeoutRange());
    return std::clamp(m_timings.ptzTimeout, range.shortest, range.longest);
}

void PtzDevice::move()
{
    if (!m_node->panTilt && !m_node->zoom) {
        fail(PtzfError::NotSupported);
        return;
    }
    KDSoapValueList velocity;
    if (const auto &space = m_node->panTilt) {
        // Down is positive for the user, up for the device.
        velocity.append(vector(QStringLiteral("PanTilt"),
                               {{QStringLiteral("x"), numberText(space->x.speed(m_request.pan))},
                                {QStringLiteral("y"), numberText(space->y.speed(-m_request.tilt))},
                                {QStringLiteral("space"), space->uri}}));
    }
    if (const auto &space = m_node->zoom) {
        velocity.append(vector(QStringLiteral("Zoom"),
                               {{QStringLiteral("x"), numberText(space->x.speed(m_request.zoom))},
                                {QStringLiteral("space"), space->uri}}));
    }
    callPtz(QStringLiteral("ContinuousMove"),
            {ptz(QStringLiteral("ProfileToken"), m_target.profile),
             SoapClient::argument(QStringLiteral("Velocity"), velocity, onvif::PtzNamespace),
             ptz(QStringLiteral("Timeout"), ptzservice::writeDuration(moveTimeout()))},
            [this](const SoapAnswer &answer) { finish(answer); });
}

void PtzDevice::stop()
{
    callPtz(QStringLiteral("Stop"),
            {ptz(QStringLiteral("ProfileToken"), m_target.profile),
             ptz(QStringLiteral("PanTilt"), QStringLiteral("true")),
             ptz(QStringLiteral("Zoom"), QStringLiteral("true"))},
            [this](const SoapAnswer &answer) { finish(answer); });
}

void PtzDevice::focus()
{
    if (m_request.focus == 0) {
        callImaging(QStringLiteral("Stop"), {imaging(QStringLiteral("VideoSourceToken"), m_target.source)},
                    [this](const SoapAnswer &answer) { finish(answer); });
        return;
    }
    needFocus([this] {
        if (!m_focus) {
            fail(PtzfError::NotSupported);
            return;
        }
        KDSoapValueList continuous;
        continuous.append(SoapClient::argument(QStringLiteral("Speed"),
                                               numberText(m_focus->speed(m_request.focus)),
                                               onvif::SchemaNamespace));
        KDSoapValueList move;
        move.append(SoapClient::argument(QStringLiteral("Continuous"), continuous, onvif::SchemaNamespace));
        callImaging(QStringLiteral("Move"),
                    {imaging(QStringLiteral("VideoSourceToken"), m_target.source),
                     SoapClient::argument(QStringLiteral("Focus"), move, onvif::ImagingNamespace)},
                    [this](const SoapAnswer &answer) { finish(answer); });
    });
}

void PtzDevice::withPresets(std::function<void(const StoredNumbers &)> next)
{
    callPtz(QStringLiteral("GetPresets"), {ptz(QStringLiteral("ProfileToken"), m_target.profile)},
            [this, next = std::move(next)](const SoapAnswer &answer) {
                if (!answer.isAnswer()) {
                    finish(answer);
                    return;
                }
                m_presets = StoredNumbers(ptzservice::readPresets(answer.body), PresetWord);
                next(*m_presets);
            });
}

void PtzDevice::goToPreset(bool listIsFresh)
{
    const QString token = m_presets ? m_presets->token(m_request.number) : QString();
    if (token.isEmpty()) {
        // It may have been stored since the list was read.
        if (listIsFresh)
            fail(PtzfError::NoSuchPreset);
        else
            withPresets([this](const StoredNumbers &) { goToPreset(true); });
        return;
    }
    callPtz(QStringLiteral("GotoPreset"),
            {ptz(QStringLiteral("ProfileToken"), m_target.profile), ptz(QStringLiteral("PresetToken"), token)},
            [this, listIsFresh](const SoapAnswer &answer) {
                const bool gone = answer.kind == SoapAnswer::Kind::Fault && answer.hasSubcode(u"NoToken");
                if (!gone || listIsFresh) {
                    finish(answer, PtzfError::NoSuchPreset);
                    return;
                }
                m_presets.reset();
                goToPreset(false);
            });
}

void PtzDevice::setPreset()
{
    if (m_request.number < 1) {
        fail(PtzfError::NoSuchPreset);
        return;
    }
    withPresets([this](const StoredNumbers &numbers) {
        const QString token = numbers.token(m_request.number);
        const QString name = m_request.name.isEmpty() ? StoredNumbers::defaultName(PresetWord, m_request.number)
                                                      : m_request.name;
        Arguments arguments{ptz(QStringLiteral("ProfileToken"), m_target.profile),
                                  ptz(QStringLiteral("PresetName"), name)};
        if (!token.isEmpty())
            arguments.append(ptz(QStringLiteral("PresetToken"), token));
        m_presets.reset();
        callPtz(QStringLiteral("SetPreset"), arguments,
                [this](const SoapAnswer &answer) { finish(answer, PtzfError::NoSuchPreset); });
    });
}

void PtzDevice::removePreset()
{
    withPresets([this](const StoredNumbers &numbers) {
        const QString token = numbers.token(m_request.number);
        if (token.isEmpty()) {
            fail(PtzfError::NoSuchPreset);
            return;
        }
        m_presets.reset();
        callPtz(QStringLiteral("RemovePreset"),
                {ptz(QStringLiteral("ProfileToken"), m_target.profile),
                 ptz(QStringLiteral("PresetToken"), token)},
                [this](const SoapAnswer &answer) { finish(answer, PtzfError::NoSuchPreset); });
    });
}

void PtzDevice::withTours(std::function<void(const QList<Stored> &)> next)
{
    callPtz(QStringLiteral("GetPresetTours"), {ptz(QStringLiteral("ProfileToken"), m_target.profile)},
            [this, next = std::move(next)](const SoapAnswer &answer) {
                if (answer.isAnswer())
                    next(ptzservice::readTours(answer.body));
                else
                    finish(answer);
            });
}

void PtzDevice::startTour()
{
    withTours([this](const QList<Stored> &tours) {
        const QString token = StoredNumbers(tours, TourWord).token(m_request.number);
        if (token.isEmpty()) {
            fail(PtzfError::NoSuchTour);
            return;
        }
        m_tour = token;
        operateTour(token, QStringLiteral("Start"));
    });
}

void PtzDevice::stopTour()
{
    if (!m_tour.isEmpty()) {
        operateTour(std::exchange(m_tour, QString()), QStringLiteral("Stop"));
        return;
    }
    withTours([this](const QList<Stored> &tours) {
        const auto running = std::find_if(tours.begin(), tours.end(), [](const Stored &tour) { return tour.running; });
        if (running == tours.end())
            finish(PtzAnswer());
        else
            operateTour(running->token, QStringLiteral("Stop"));
    });
}

void PtzDevice::operateTour(const QString &token, const QString &operation)
{
    callPtz(QStringLiteral("OperatePresetTour"),
            {ptz(QStringLiteral("ProfileToken"), m_target.profile),
             ptz(QStringLiteral("PresetTourToken"), token), ptz(QStringLiteral("Operation"), operation)},
            [this](const SoapAnswer &answer) { finish(answer, PtzfError::NoSuchTour); });
}

void PtzDevice::callPtz(const QString &method, const Arguments &arguments, Handler handler)
{
    if (!m_link || m_link->services.ptz.isEmpty()) {
        fail(PtzfError::NotSupported);
        return;
    }
    SoapClient::Request request{m_link->serviceUrl(m_link->services.ptz), onvif::PtzNamespace, method};
    request.arguments.append(arguments);
    call(request, std::move(handler));
}

void PtzDevice::callImaging(const QString &method, const Arguments &arguments, Handler handler)
{
    if (!m_link || m_link->services.imaging.isEmpty()) {
        fail(PtzfError::NotSupported);
        return;
    }
    SoapClient::Request request{m_link->serviceUrl(m_link->services.imaging), onvif::ImagingNamespace, method};
    request.arguments.append(arguments);
    call(request, std::move(handler));
}

void PtzDevice::call(const SoapClient::Request &request, Handler handler)
{
    SoapClient::Request timed = request;
    timed.timeout = m_timings.ptzAnswer;
    m_link->soap.call(timed, [guard = QPointer<PtzDevice>(this),
                              handler = std::move(handler)](const SoapAnswer &answer) {
        if (guard)
            handler(answer);
    });
}

void PtzDevice::finish(const SoapAnswer &answer, int missing)
{
    PtzAnswer result;
    result.error = errorOf(answer, missing);
    finish(result);
}

void PtzDevice::finish(const PtzAnswer &answer)
{
    // By the event loop also where nothing had to be asked.
    QMetaObject::invokeMethod(
        this, [done = std::exchange(m_done, nullptr), answer] {
            if (done)
                done(answer);
        },
        Qt::QueuedConnection);
}

void PtzDevice::fail(int code)
{
    finish(PtzAnswer{PtzfError(code), {}, {}});
}

} // namespace orrin
