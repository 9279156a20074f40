// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ptz/cameraptz.h"

#include <QCoreApplication>

#include <algorithm>

namespace orrin {

namespace {

using Kind = PtzRequest::Kind;

constexpr int StopTries = 5;

bool isSpeed(const PtzRequest &request)
{
    return request.kind == Kind::Move || request.kind == Kind::Focus;
}

/*! The camera then goes where nobody steers it. */
bool takesCamera(const PtzRequest &request)
{
    return request.kind == Kind::GoToPreset || request.kind == Kind::StartTour ||
           request.kind == Kind::StopTour;
}

bool isQuestion(const PtzRequest &request)
{
    return request.kind == Kind::Capabilities || request.kind == Kind::Presets;
}

} // namespace

CameraPtz::CameraPtz(DeviceLink *link, const PtzTarget &target, const OnvifTimings &timings, QObject *parent)
    : QObject(parent), m_target(target), m_timings(timings), m_device(link, target, timings)
{
    m_wanted.kind = Kind::Move;
    m_renewal.setSingleShot(true);
    m_stopAgain.setSingleShot(true);
    connect(&m_renewal, &QTimer::timeout, this, &CameraPtz::renew);
    connect(&m_stopAgain, &QTimer::timeout, this, &CameraPtz::repeatStop);
}

void CameraPtz::request(const PtzRequest &request, QObject *context, Session::PtzCallback callback)
{
    Job job{request, context, context != nullptr, std::move(callback)};
    if (request.kind == Kind::Move) {
        m_wanted = request;
        m_renewal.stop();
        m_stopAgain.stop();
        m_stopTries = 0;
        if (request.isStill() && !m_mayMove) {
            // Nobody here moves the camera: a tour that another client runs goes on.
            answerLater(job, {});
            return;
        }
        m_mayMove = true;
    } else if (takesCamera(request)) {
        m_wanted = {Kind::Move};
        m_renewal.stop();
    }
    if (replaceWaiting(job))
        return;
    if (m_commands.size() + m_questions.size() >= QueueLimit && !isSpeed(request)) {
        answerLater(job, {PtzfError(PtzfError::Busy), {}, {}});
        return;
    }
    enqueue(std::move(job));
}

bool CameraPtz::replaceWaiting(Job &job)
{
    if (!isSpeed(job.request))
        return false;
    // Only as far back as nothing else was asked for.
    for (auto waiting = m_commands.rbegin(); waiting != m_commands.rend() && isSpeed(waiting->request); ++waiting) {
        if (waiting->request.kind != job.request.kind)
            continue;
        answerLater(*waiting, {});
        *waiting = std::move(job);
        return true;
    }
    return false;
}

void CameraPtz::enqueue(Job job)
{
    (isQuestion(job.request) ? m_questions : m_commands).push_back(std::move(job));
    next();
}

void CameraPtz::next()
{
    if (m_running || m_ended)
        return;
    std::deque<Job> &queue = m_commands.empty() ? m_questions : m_commands;
    if (queue.empty())
        return;
    m_running = std::move(queue.front());
    queue.pop_front();
    m_device.perform(m_running->request, [this](const PtzAnswer &answer) { onDone(answer); });
}

void CameraPtz::onDone(const PtzAnswer &result)
{
    if (!m_running || m_ended)
        return;
    const Job done = std::move(*m_running);
    m_running.reset();
    if (done.request.kind == Kind::Move)
        afterMove(done.request, result);
    const QPointer<CameraPtz> alive(this);
    next();
    if (alive)
        answer(done, result);
}

void CameraPtz::afterMove(const PtzRequest &request, const PtzAnswer &result)
{
    const bool noAnswer = result.error.errorId() == PtzfError::NoAnswer;
    // Speeds that came meanwhile are on their way already.
    if (!(request == m_wanted))
        return;
    if (!request.isStill()) {
        if (!result.error.hasError() || noAnswer)
            m_renewal.start(std::min(m_timings.ptzRenewal, m_device.moveTimeout() / 2));
        return;
    }
    if (!noAnswer) {
        m_mayMove = result.error.hasError();
        return;
    }
    if (++m_stopTries < StopTries)
        m_stopAgain.start(m_timings.ptzStopAgain * (1 << (m_stopTries - 1)));
}

void CameraPtz::renew()
{
    if (!m_wanted.isStill())
        enqueue({m_wanted, nullptr, false, nullptr});
}

void CameraPtz::repeatStop()
{
    if (m_wanted.isStill())
        enqueue({m_wanted, nullptr, false, nullptr});
}

void CameraPtz::end(bool tell)
{
    m_ended = true;
    m_renewal.stop();
    m_stopAgain.stop();
    if (m_running)
        m_commands.push_front(std::move(*m_running));
    m_running.reset();
    for (std::deque<Job> *queue : {&m_commands, &m_questions}) {
        if (tell) {
            for (const Job &job : *queue)
                answerLater(job, {PtzfError(PtzfError::NotConnected), {}, {}});
        }
        queue->clear();
    }
}

void CameraPtz::answer(const Job &job, const PtzAnswer &answer)
{
    if (job.callback && (!job.hasContext || job.context))
        job.callback(answer);
}

void CameraPtz::answerLater(const Job &job, const PtzAnswer &result)
{
    if (!job.callback || (job.hasContext && !job.context))
        return;
    QObject *receiver = job.hasContext ? job.context.data() : QCoreApplication::instance();
    QMetaObject::invokeMethod(
        receiver, [callback = job.callback, result] { callback(result); }, Qt::QueuedConnection);
}

} // namespace orrin
