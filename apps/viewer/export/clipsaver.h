// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/clipexport.h>

#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

/*! Saves a span of a camera's recording to a file, for QML. GUI thread. */
class ClipSaver : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool running READ isRunning NOTIFY runningChanged FINAL)
    /*! 0 to 1. */
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged FINAL)

public:
    explicit ClipSaver(QObject *parent = nullptr);

    bool isRunning() const { return m_export.isRunning(); }
    double progress() const { return m_export.progress(); }

    /*! Times in milliseconds since the epoch. finished() or failed() follows. */
    Q_INVOKABLE void start(int serverGroupId, int serverId, int channelId, qint64 from, qint64 to, const QUrl &file);
    Q_INVOKABLE void cancel();
    /*! A file in the user's folder for videos that does not exist yet, named after the camera and the moment. */
    Q_INVOKABLE QUrl suggestedFile(const QString &camera, const QString &moment);
    /*! The file as the user knows it. */
    Q_INVOKABLE QString pathOf(const QUrl &file);

Q_SIGNALS:
    void runningChanged();
    void progressChanged();
    void finished(const QUrl &file);
    void failed(const QString &reason);

private:
    orrin::ClipExport m_export;
};
