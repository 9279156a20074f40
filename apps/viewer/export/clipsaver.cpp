// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/clipsaver.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

ClipSaver::ClipSaver(QObject *parent) : QObject(parent)
{
    connect(&m_export, &orrin::ClipExport::progressChanged, this, &ClipSaver::progressChanged);
    connect(&m_export, &orrin::ClipExport::finished, this, [this](const QString &file) {
        Q_EMIT runningChanged();
        Q_EMIT finished(QUrl::fromLocalFile(file));
    });
    connect(&m_export, &orrin::ClipExport::failed, this, [this](const QString &reason) {
        Q_EMIT runningChanged();
        Q_EMIT failed(reason);
    });
}

void ClipSaver::start(int serverGroupId, int serverId, int channelId, qint64 from, qint64 to, const QUrl &file)
{
    orrin::OrrinSDK *sdk = orrin::OrrinSDK::instance();
    const orrin::Server *server = sdk ? sdk->connectionManager()->server(serverGroupId, serverId) : nullptr;
    orrin::ClipExport::Request request;
    // An address that is none any more is answered as one without a connection.
    request.channel = orrin::ChannelUID(server ? server->uniqueId() : 0, channelId);
    request.fromMs = from;
    request.toMs = to;
    request.fileName = file.toLocalFile();
    m_export.start(request);
    Q_EMIT runningChanged();
}

void ClipSaver::cancel()
{
    m_export.cancel();
    Q_EMIT runningChanged();
}

QUrl ClipSaver::suggestedFile(const QString &camera, const QString &moment)
{
    QString name = u"%1 %2"_s.arg(camera, moment).simplified();
    // What no file system takes, or what would lead to another folder.
    for (QChar &letter : name) {
        if (!letter.isLetterOrNumber() && !u" -_."_s.contains(letter))
            letter = u'-';
    }
    name = name.left(120);
    QString folder = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    if (folder.isEmpty() || !QDir().mkpath(folder))
        folder = QDir::homePath();
    QString path = u"%1/%2.mp4"_s.arg(folder, name);
    for (int number = 2; QFileInfo::exists(path) && number < 1000; ++number)
        path = u"%1/%2 (%3).mp4"_s.arg(folder, name).arg(number);
    return QUrl::fromLocalFile(path);
}

QString ClipSaver::pathOf(const QUrl &file)
{
    return QDir::toNativeSeparators(file.toLocalFile());
}
