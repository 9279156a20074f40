// SPDX-License-Identifier: GPL-3.0-or-later
#include "tiles/layoutstore.h"

#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isLayout(const QStringList &cameras)
{
    return !cameras.isEmpty() && cameras.size() <= LayoutStore::MaxCameras;
}

QString cleanName(const QString &name)
{
    return name.simplified().left(LayoutStore::MaxNameLength);
}

} // namespace

LayoutStore::LayoutStore(QObject *parent)
    : LayoutStore(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + u"/layouts.ini"_s, parent)
{
}

LayoutStore::LayoutStore(const QString &file, QObject *parent) : QObject(parent), m_file(file, QSettings::IniFormat)
{
    read();
}

void LayoutStore::setCycleSeconds(int seconds)
{
    seconds = std::clamp(seconds, ShortestCycle, LongestCycle);
    if (m_cycleSeconds == seconds)
        return;
    m_cycleSeconds = seconds;
    write();
    Q_EMIT cycleSecondsChanged();
}

void LayoutStore::setCycling(bool cycling)
{
    if (m_cycling == cycling)
        return;
    m_cycling = cycling;
    write();
    Q_EMIT cyclingChanged();
}

void LayoutStore::setLastCameras(const QStringList &cameras)
{
    if (m_lastCameras == cameras || !isLayout(cameras))
        return;
    m_lastCameras = cameras;
    write();
    Q_EMIT lastCamerasChanged();
}

bool LayoutStore::save(const QString &name, const QStringList &cameras)
{
    const QString clean = cleanName(name);
    const bool known = m_names.contains(clean);
    if (clean.isEmpty() || !isLayout(cameras) || (!known && m_names.size() >= MaxLayouts))
        return false;
    m_cameras.insert(clean, cameras);
    if (!known)
        m_names.append(clean);
    write();
    if (!known)
        Q_EMIT namesChanged();
    return true;
}

void LayoutStore::remove(const QString &name)
{
    if (!m_names.removeOne(name))
        return;
    m_cameras.remove(name);
    write();
    Q_EMIT namesChanged();
}

bool LayoutStore::rename(const QString &name, const QString &newName)
{
    const QString clean = cleanName(newName);
    const qsizetype at = m_names.indexOf(name);
    if (at < 0 || clean.isEmpty() || m_names.contains(clean))
        return false;
    m_names[at] = clean;
    m_cameras.insert(clean, m_cameras.take(name));
    write();
    Q_EMIT namesChanged();
    return true;
}

QStringList LayoutStore::cameras(const QString &name) const
{
    return m_cameras.value(name);
}

QString LayoutStore::next(const QString &name) const
{
    return m_names.isEmpty() ? QString() : m_names.at((m_names.indexOf(name) + 1) % m_names.size());
}

void LayoutStore::read()
{
    m_cycleSeconds = std::clamp(m_file.value(u"cycleSeconds"_s, m_cycleSeconds).toInt(), ShortestCycle, LongestCycle);
    m_cycling = m_file.value(u"cycling"_s, false).toBool();
    if (const QStringList last = m_file.value(u"lastCameras"_s).toStringList(); isLayout(last))
        m_lastCameras = last;
    const int count = std::min(m_file.beginReadArray(u"layouts"_s), MaxLayouts);
    for (int i = 0; i < count; ++i) {
        m_file.setArrayIndex(i);
        const QString name = cleanName(m_file.value(u"name"_s).toString());
        const QStringList cameras = m_file.value(u"cameras"_s).toStringList();
        if (name.isEmpty() || !isLayout(cameras) || m_names.contains(name))
            continue;
        m_names.append(name);
        m_cameras.insert(name, cameras);
    }
    m_file.endArray();
}

void LayoutStore::write()
{
    m_file.setValue(u"cycleSeconds"_s, m_cycleSeconds);
    m_file.setValue(u"cycling"_s, m_cycling);
    if (!m_lastCameras.isEmpty())
        m_file.setValue(u"lastCameras"_s, m_lastCameras);
    m_file.remove(u"layouts"_s);
    m_file.beginWriteArray(u"layouts"_s, int(m_names.size()));
    for (int i = 0; i < m_names.size(); ++i) {
        m_file.setArrayIndex(i);
        m_file.setValue(u"name"_s, m_names.at(i));
        m_file.setValue(u"cameras"_s, m_cameras.value(m_names.at(i)));
    }
    m_file.endArray();
    m_file.sync();
}
