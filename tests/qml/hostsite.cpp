// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostsite.h"

#include "core/events/eventmodel_p.h"

#include <resources/qmleventcausemodel.h>
#include <resources/qmlserverlistmodel.h>

#include <contract/core/connectionmanager.h>
#include <contract/core/eventmanager.h>
#include <contract/core/eventmodel.h>
#include <contract/core/eventspreferences.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QDir>
#include <QFile>
#include <QSettings>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

QByteArrayList namesOf(const QStringList &roles)
{
    QByteArrayList names;
    for (const QString &role : roles)
        names.append(role.toUtf8());
    return names;
}

QList<QVariantList> rowsOf(const QVariantList &rows)
{
    QList<QVariantList> list;
    for (const QVariant &row : rows)
        list.append(row.toList());
    return list;
}

orrin::Server *serverOf(int uid)
{
    for (orrin::Server *server : orrin::OrrinSDK::instance()->connectionManager()->servers()) {
        if (server->uniqueId() == static_cast<quint64>(uid))
            return server;
    }
    return nullptr;
}

} // namespace

bool HostSite::login(int uid, int serverId, const QString &group, int cameras)
{
    orrin::SiteDescription site = orrin::describeServer(static_cast<quint64>(uid), serverId, group);
    for (int id = 1; id <= cameras; ++id) {
        orrin::ChannelDescription camera = orrin::describeCamera(id);
        camera.ptzf = id % 10 == 0 ? 1 : 0;
        site.channels.append(camera);
    }
    m_servers.insert(uid, site);
    return m_site.login(site) != nullptr;
}

void HostSite::nameCameras(int uid, const QStringList &names)
{
    orrin::SiteDescription &site = m_servers[uid];
    site.channels.clear();
    for (const QString &name : names) {
        orrin::ChannelDescription channel = orrin::describeCamera(static_cast<int>(site.channels.size()) + 1, name);
        if (name.startsWith("audio:"_L1))
            channel.kind = orrin::ChannelDescription::Kind::Audio;
        site.channels.append(channel);
    }
    m_site.describe(site);
}

void HostSite::logOut()
{
    m_servers.clear();
    m_site.logOut();
}

int HostSite::serverGroupId(int uid) const
{
    const orrin::Server *server = serverOf(uid);
    return server && server->group() ? server->group()->id() : -1;
}

QObject *HostSite::serverList(int uid) const
{
    const orrin::Server *server = serverOf(uid);
    return new orrin::QmlServerListModel(server ? server->group() : nullptr, nullptr);
}

QObject *HostSite::causes(int uid) const
{
    auto *model = new orrin::QmlEventCauseModel(&m_site.manager(), static_cast<unsigned long long>(uid), false);
    model->requestCauses();
    return model;
}

void HostSite::report(int uid, int count, const QVariantMap &fields)
{
    QList<orrin::EventRecord> batch;
    for (int i = 0; i < count; ++i) {
        orrin::EventRecord record;
        record.serverUid = static_cast<quint64>(uid);
        record.cause = fields.value(u"cause"_s, u"Motion"_s).toString();
        record.serverName = fields.value(u"serverName"_s, u"Recorder"_s).toString();
        record.sourceName = fields.value(u"sourceName"_s, u"Camera %1"_s.arg(i)).toString();
        record.text = fields.value(u"text"_s).toString();
        record.causeColor = QColor::fromString(fields.value(u"color"_s, u"#ff8800"_s).toString());
        record.channelId = fields.value(u"channelId"_s, -1).toInt();
        record.time = QDateTime(QDate(2026, 3, 14), QTime(9, 26, 53), QTimeZone::utc()).addSecs(i);
        batch.append(record);
    }
    orrin::OrrinSDK::instance()->eventManager()->liveEvents()->d_func()->append(batch);
}

void HostSite::maximumEvents(int rows) const
{
    const auto group = orrin::OrrinSDK::instance()->preferences()->preferenceGroup(orrin::EventsPreferences::NAME);
    group->item(orrin::EventsPreferences::MAXIMUM_ROWS, {})->setValue(rows);
}

QObject *HostSite::table(const QStringList &roles, const QVariantList &rows) const
{
    return new orrin::RoleModel(namesOf(roles), rowsOf(rows));
}

QObject *HostSite::largestUid() const
{
    return new orrin::RoleModel({"display", "uid"}, {{u"First"_s, 1}, {u"Largest"_s, std::numeric_limits<quint64>::max()}});
}

void HostSite::resetTable(QObject *table, const QStringList &roles, const QVariantList &rows) const
{
    if (auto *model = qobject_cast<orrin::RoleModel *>(table))
        model->reset(namesOf(roles), rowsOf(rows));
}

QVariant HostSite::timeZone(const QString &id) const
{
    return QVariant::fromValue(QTimeZone(id.toLatin1()));
}

QVariant HostSite::stored(const QString &key) const
{
    const QSettings file(QSettings::IniFormat, QSettings::UserScope, orrin::OrrinSDK::instance()->localConfigOrganisationName(),
                         orrin::OrrinSDK::instance()->localConfigApplicationName());
    return file.value(key);
}

QString HostSite::home() const
{
    return QDir::homePath();
}

bool HostSite::writeFile(const QString &path, const QString &text) const
{
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QString HostSite::readFile(const QString &path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}
