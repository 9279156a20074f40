// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/clipexport.h>

#include "core/export/cliprecorder.h"
#include "core/session/session.h"
#include "core/session/sessionlookup.h"
#include "core/stream/processor/streamthreads.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>

#include <filesystem>
#include <system_error>
#include <utility>

namespace orrin {

class ClipExportPrivate : public QObject
{
public:
    explicit ClipExportPrivate(ClipExport *q) : q(q)
    {
        connect(&StreamThreads::instance(), &StreamThreads::aboutToShutDown, this, [this] { drop(); });
    }
    ~ClipExportPrivate() override { drop(); }

    void begin();
    void endpointKnown(const MediaEndpointResult &result);
    void ended(const QString &reason);
    /*! Ends whatever is under way and removes the unfinished file. */
    void drop();
    void fail(const QString &reason);
    QString partName() const { return request.fileName + QStringLiteral(".part"); }

    ClipExport *q;
    ClipExport::Request request;
    bool running = false;
    quint64 number = 0; // answers to an earlier export count for nothing
    double progress = 0.0;
    ClipRecorder *recorder = nullptr; // on its thread; deleted there
    QThread *thread = nullptr;
    bool partMade = false;
};

void ClipExportPrivate::begin()
{
    const QFileInfo file(request.fileName);
    if (request.toMs <= request.fromMs || request.toMs - request.fromMs > ClipExport::LongestMs) {
        fail(ClipExport::tr("The span is empty or longer than a day."));
        return;
    }
    if (!file.isAbsolute() || file.isDir() || !file.absoluteDir().exists()) {
        fail(ClipExport::tr("There is no such folder: %1").arg(file.absolutePath()));
        return;
    }
    Session *session = sessionForServer(request.channel.serverUid);
    if (!session) {
        fail(ClipExport::tr("There is no connection to the recorder."));
        return;
    }
    session->requestReplayEndpoint(request.channel.channelId, request.trackId, StreamQuality::High, this,
                                   [this, mine = number](const MediaEndpointResult &result) {
                                       if (running && mine == number)
                                           endpointKnown(result);
                                   });
}

void ClipExportPrivate::endpointKnown(const MediaEndpointResult &result)
{
    if (const auto *error = std::get_if<PlaybackError>(&result)) {
        fail(error->formattedHTMLString());
        return;
    }
    thread = StreamThreads::instance().acquire();
    recorder = new ClipRecorder(partName(), request.fromMs, request.toMs);
    recorder->moveToThread(thread);
    partMade = true;
    connect(recorder, &ClipRecorder::progressed, this, [this](double part) {
        progress = part;
        Q_EMIT q->progressChanged();
    });
    connect(recorder, &ClipRecorder::ended, this, &ClipExportPrivate::ended);
    QMetaObject::invokeMethod(
        recorder, [worker = recorder, endpoint = std::get<MediaEndpoint>(result)] { worker->start(endpoint); },
        Qt::QueuedConnection);
}

void ClipExportPrivate::ended(const QString &reason)
{
    if (!reason.isEmpty()) {
        fail(reason);
        return;
    }
    partMade = false;
    std::error_code error;
    // One step, also over a file of that name.
    std::filesystem::rename(QFile::encodeName(partName()).toStdString(), QFile::encodeName(request.fileName).toStdString(), error);
    if (error) {
        partMade = true;
        fail(ClipExport::tr("The file cannot be written: %1").arg(QString::fromStdString(error.message())));
        return;
    }
    drop();
    progress = 1.0;
    Q_EMIT q->progressChanged();
    Q_EMIT q->finished(request.fileName);
}

void ClipExportPrivate::drop()
{
    running = false;
    ++number;
    if (recorder) {
        recorder->disconnect(this);
        ClipRecorder *worker = std::exchange(recorder, nullptr);
        const QString unfinished = partMade ? partName() : QString();
        // The file goes when nobody writes it any more.
        QObject::connect(worker, &QObject::destroyed, worker, [unfinished] {
            if (!unfinished.isEmpty())
                QFile::remove(unfinished);
        });
        worker->deleteLater();
        StreamThreads::instance().release(std::exchange(thread, nullptr));
    }
    partMade = false;
}

void ClipExportPrivate::fail(const QString &reason)
{
    drop();
    const quint64 mine = number;
    QMetaObject::invokeMethod(
        this,
        [this, mine, reason] {
            if (mine == number)
                Q_EMIT q->failed(reason);
        },
        Qt::QueuedConnection);
}

ClipExport::ClipExport(QObject *parent) : QObject(parent), d(std::make_unique<ClipExportPrivate>(this)) {}

ClipExport::~ClipExport() = default;

void ClipExport::start(const Request &request)
{
    if (d->running)
        return;
    d->request = request;
    d->running = true;
    d->progress = 0.0;
    ++d->number;
    Q_EMIT progressChanged();
    d->begin();
}

void ClipExport::cancel()
{
    d->drop();
}

bool ClipExport::isRunning() const
{
    return d->running;
}

double ClipExport::progress() const
{
    return d->progress;
}

} // namespace orrin
