// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlvideoplaybackcontroller.h"

#include "video/qmlrendering.h"
#include "video/qmlvideoplaybackcontroller_p.h"
#include "video/qmlvideoprovider.h"
#include "video/renderinglookup.h"
#include "video/snapshotfile.h"

#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QPainter>
#include <QStandardPaths>

namespace orrin {

namespace {

constexpr int HighStream = 1;
constexpr int LowStream = 3;

QString picturesFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

/*! Where a snapshot goes that nobody chose a place for; empty when that folder can't be made. */
QString defaultPath(const QString &fileName)
{
    const QDir folder(picturesFolder());
    if (!folder.exists() && !folder.mkpath(QStringLiteral(".")))
        return {};
    return folder.path() + u'/' + fileName + QStringLiteral(".jpeg");
}

QString targetPath(const QString &path, const QString &fileName)
{
    if (path.isEmpty())
        return defaultPath(fileName);
    const QFileInfo info(path);
    return info.isDir() ? info.filePath() + QDir::separator() + fileName + QStringLiteral(".jpeg") : path;
}

void paintOverlay(QImage &image, const QString &text)
{
    QPainter painter(&image);
    painter.fillRect(QRectF(0, 0, image.width(), 26.0), QColor(QStringLiteral("#552b2e36")));
    painter.setPen(Qt::white);
    painter.setFont(QFont(QStringLiteral("Roboto"), 12, QFont::Bold, false));
    painter.drawText(10, 20, text);
}

} // namespace

QPointer<QmlRendering> QmlVideoPlaybackControllerPrivate::findRendering() const
{
    const QPointer<AbstractStreamProcessor> processor = provider->getStreamProcessor(
        unsigned(serverGroupId), unsigned(serverId), unsigned(channelId), streamId);
    return processor ? renderingOf(*processor) : nullptr;
}

QmlVideoPlaybackController::QmlVideoPlaybackController(QObject *parent)
    : QmlVideoPlaybackController(&QmlVideoProvider::instance(), parent)
{
}

QmlVideoPlaybackController::QmlVideoPlaybackController(QmlAbstractStreamProvider *provider, QObject *parent)
    : QmlPlaybackControllerInterface(PrivatePointer(new QmlVideoPlaybackControllerPrivate(provider),
                                                    [](QmlPlaybackControllerInterfacePrivate *d) {
                                                        delete static_cast<QmlVideoPlaybackControllerPrivate *>(d);
                                                    }),
                                     parent)
{
    // The pointer needs the QObject, which is made after the private object.
    d_func()->q = this;
}

QmlVideoPlaybackController::~QmlVideoPlaybackController() = default;

QmlVideoPlaybackControllerPrivate *QmlVideoPlaybackController::d_func() const
{
    return static_cast<QmlVideoPlaybackControllerPrivate *>(d_ptr.get());
}

bool QmlVideoPlaybackController::textOverlay() const
{
    return d_func()->textOverlay;
}

void QmlVideoPlaybackController::setTextOverlay(bool overlay)
{
    if (d_func()->textOverlay == overlay)
        return;
    d_func()->textOverlay = overlay;
    Q_EMIT textOverlayChanged();
}

bool QmlVideoPlaybackController::highStream() const
{
    return d_func()->highStream;
}

void QmlVideoPlaybackController::setHighStream(bool high)
{
    const QPointer<SPAbstractInputControl> control = d_func()->inputControl();
    if (!control)
        return;
    control->setStreamPreference(high ? HighStream : LowStream);
    d_func()->highStream = high;
    Q_EMIT highStreamChanged();
}

void QmlVideoPlaybackController::refreshHighStream()
{
    if (const auto control = d_func()->inputControl())
        control->setStreamPreference(d_func()->highStream ? HighStream : LowStream);
}

bool QmlVideoPlaybackController::snapshot()
{
    return snapshot(QString());
}

bool QmlVideoPlaybackController::snapshot(const QString &path)
{
    const QString error = tr("Couldn't save image");
    const QPointer<QmlRendering> rendering = d_func()->findRendering();
    if (!rendering)
        return fail(error);
    QmlRendering::Snapshot picture = rendering->generateSnapshot();
    if (!picture.valid)
        return fail(error);
    if (d_func()->textOverlay)
        paintOverlay(picture.image, picture.fileName);

    const QString file = targetPath(path, picture.fileName);
    if (file.isEmpty())
        return fail(error);
    if (!writeSnapshotFile(picture.image, file)) {
        // Names the pictures folder, wherever the file was to go.
        return fail(tr("Couldn't write file to ", "Example: Couldn't write file to c:\\images\\") + picturesFolder());
    }
    Q_EMIT snapshotSaved(picture.fileName);
    return true;
}

bool QmlVideoPlaybackController::fail(const QString &error)
{
    Q_EMIT snapshotFailed(error);
    return false;
}

} // namespace orrin
