// SPDX-License-Identifier: GPL-3.0-or-later
#include "zonestore.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/util/channeluid.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int FormatVersion = 1;
constexpr qsizetype LongestName = 200;

/*! The point as it is kept, or null for what is none. */
QJsonValue readPoint(const QJsonValue &value)
{
    const QJsonArray pair = value.toArray();
    if (pair.size() != 2 || !pair.at(0).isDouble() || !pair.at(1).isDouble())
        return {};
    const double x = pair.at(0).toDouble();
    const double y = pair.at(1).toDouble();
    if (!std::isfinite(x) || !std::isfinite(y))
        return {};
    return QJsonArray{std::clamp(x, 0.0, 1.0), std::clamp(y, 0.0, 1.0)};
}

/*! The zones in the form in which they are kept, without what is malformed or too much. */
QJsonArray readZones(const QJsonArray &values)
{
    QJsonArray zones;
    for (const QJsonValue &value : values) {
        if (zones.size() == ZoneStore::MaximumZones)
            break;
        QJsonArray points;
        const QJsonArray wanted = value[u"points"].toArray();
        for (const QJsonValue &point : wanted) {
            const QJsonValue kept = readPoint(point);
            if (kept.isArray() && points.size() < ZoneStore::MaximumPoints)
                points.append(kept);
        }
        if (points.size() >= 3)
            zones.append(QJsonObject{{u"name"_s, value[u"name"].toString().left(LongestName)}, {u"points"_s, points}});
    }
    return zones;
}

} // namespace

ZoneStore::ZoneStore(QObject *parent)
    : QObject(parent)
    , m_file(QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).filePath(u"zones.json"_s))
{
    read();
}

void ZoneStore::setFile(const QString &file)
{
    if (m_file == file)
        return;
    m_file = file;
    read();
    Q_EMIT fileChanged();
}

QString ZoneStore::cameraOf(int serverGroupId, int serverId, int channelId) const
{
    const orrin::OrrinSDK *sdk = orrin::OrrinSDK::instance();
    const orrin::Server *server = sdk ? sdk->connectionManager()->server(serverGroupId, serverId) : nullptr;
    return server && server->channelById(channelId) ? orrin::ChannelUID(server->uniqueId(), channelId).toString() : QString();
}

QVariantList ZoneStore::zones(const QString &camera) const
{
    return m_cameras.value(camera).toVariantList();
}

bool ZoneStore::setZones(const QString &camera, const QVariantList &zones)
{
    if (camera.isEmpty())
        return false;
    const QHash<QString, QJsonArray> before = m_cameras;
    const QJsonArray kept = readZones(QJsonArray::fromVariantList(zones));
    if (kept.isEmpty())
        m_cameras.remove(camera);
    else if (m_cameras.contains(camera) || m_cameras.size() < MaximumCameras)
        m_cameras.insert(camera, kept);
    else
        setErrorText(tr("There are zones for too many cameras."));
    if (m_cameras == before)
        return m_errorText.isEmpty();
    if (!write()) {
        m_cameras = before;
        return false;
    }
    Q_EMIT zonesChanged(camera);
    return true;
}

void ZoneStore::read()
{
    m_cameras.clear();
    setErrorText({});
    QFile file(m_file);
    if (!file.exists())
        return;
    if (!file.open(QIODevice::ReadOnly) || file.size() > MaximumBytes) {
        setErrorText(tr("The zones in %1 cannot be read.").arg(m_file));
        return;
    }
    const QJsonObject root = QJsonDocument::fromJson(file.readAll()).object();
    if (root.value(u"version").toInt() != FormatVersion) {
        setErrorText(tr("The zones in %1 cannot be read.").arg(m_file));
        return;
    }
    const QJsonObject cameras = root.value(u"cameras").toObject();
    for (auto it = cameras.begin(); it != cameras.end() && m_cameras.size() < MaximumCameras; ++it) {
        const QJsonArray zones = readZones(it->toArray());
        if (!it.key().isEmpty() && !zones.isEmpty())
            m_cameras.insert(it.key(), zones);
    }
}

bool ZoneStore::write()
{
    QJsonObject cameras;
    for (auto it = m_cameras.cbegin(); it != m_cameras.cend(); ++it)
        cameras.insert(it.key(), it.value());
    const QJsonObject root{{u"version"_s, FormatVersion}, {u"cameras"_s, cameras}};
    QDir().mkpath(QFileInfo(m_file).absolutePath());
    QSaveFile file(m_file);
    const QByteArray text = QJsonDocument(root).toJson(QJsonDocument::Compact);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit()) {
        setErrorText(tr("The zones cannot be written to %1: %2").arg(m_file, file.errorString()));
        return false;
    }
    setErrorText({});
    return true;
}

void ZoneStore::setErrorText(const QString &text)
{
    if (m_errorText == text)
        return;
    m_errorText = text;
    Q_EMIT errorTextChanged();
}
