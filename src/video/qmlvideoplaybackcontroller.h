// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlplaybackcontrollerinterface.h"

#include <QtQml/qqmlregistration.h>

namespace orrin {

class QmlVideoPlaybackControllerPrivate;

/*! The remote control of a stream of pictures: playback, snapshots and the choice of the stream. Main thread. */
class ORRINSDKQML_EXPORT QmlVideoPlaybackController : public QmlPlaybackControllerInterface
{
    Q_OBJECT
    QML_NAMED_ELEMENT(PlaybackController)

    /*! Whether a snapshot carries its name across the top. */
    Q_PROPERTY(bool textOverlay READ textOverlay WRITE setTextOverlay NOTIFY textOverlayChanged FINAL)
    /*! Whether the stream of high quality is asked for. Keeps its value, and is not stored, while there is no stream to tell;
        each setting is sent, also of the same value. */
    Q_PROPERTY(bool highStream READ highStream WRITE setHighStream NOTIFY highStreamChanged FINAL)

public:
    explicit QmlVideoPlaybackController(QObject *parent = nullptr);
    ~QmlVideoPlaybackController() override;

    bool textOverlay() const;
    void setTextOverlay(bool overlay);
    bool highStream() const;
    void setHighStream(bool high);

    /*! Saves the picture that is shown as "screenshot-…" in the user's pictures folder. Ends in snapshotSaved() and true, or
        snapshotFailed() and false. */
    Q_INVOKABLE bool snapshot();
    /*! Saves it as \a path, in the format of its suffix, or under the name above as JPEG when \a path is a folder. No file is left
        behind when that fails. */
    Q_INVOKABLE bool snapshot(const QString &path);
    /*! Sends highStream again, as for a stream that started anew. */
    Q_INVOKABLE void refreshHighStream();

Q_SIGNALS:
    void textOverlayChanged();
    void highStreamChanged();
    /*! \a filename is the name made for the picture, without folder and suffix, also where it was saved under another. */
    void snapshotSaved(const QString &filename);
    /*! \a error is for the user. */
    void snapshotFailed(const QString &error);

protected:
    /*! A controller of streams from \a provider, which is borrowed for the life of the object. */
    QmlVideoPlaybackController(QmlAbstractStreamProvider *provider, QObject *parent);

private:
    Q_DISABLE_COPY_MOVE(QmlVideoPlaybackController)

    QmlVideoPlaybackControllerPrivate *d_func() const;
    bool fail(const QString &error);
};

} // namespace orrin
