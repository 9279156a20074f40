// SPDX-License-Identifier: GPL-3.0-or-later
#include "servercauses.h"

#include <resources/qmleventcausemodel.h>

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

using namespace Qt::StringLiterals;

namespace {

orrin::ConnectionManager *manager()
{
    const orrin::OrrinSDK *sdk = orrin::OrrinSDK::instance();
    return sdk ? sdk->connectionManager() : nullptr;
}

} // namespace

ServerCauses::ServerCauses(QObject *parent) : QObject(parent), m_model(std::make_unique<orrin::QmlEventCauseModel>())
{
    if (const orrin::ConnectionManager *connections = manager()) {
        connect(connections, &orrin::ConnectionManager::serverConnected, this, &ServerCauses::serversChanged);
        connect(connections, &orrin::ConnectionManager::allServersDisconnected, this, &ServerCauses::serversChanged);
    }
}

ServerCauses::~ServerCauses() = default;

void ServerCauses::setServerUid(const QString &uid)
{
    if (m_serverUid == uid)
        return;
    m_serverUid = uid;
    bool isNumber = false;
    const qulonglong number = uid.toULongLong(&isNumber);
    auto next = isNumber ? std::make_unique<orrin::QmlEventCauseModel>(manager(), number, true)
                         : std::make_unique<orrin::QmlEventCauseModel>();
    next->requestCauses();
    m_model.swap(next);
    Q_EMIT serverUidChanged();
    Q_EMIT modelChanged();
}

QAbstractItemModel *ServerCauses::model() const
{
    return m_model.get();
}

QVariantMap ServerCauses::address(const QString &serverUid) const
{
    if (!manager())
        return {};
    for (orrin::Server *server : manager()->servers()) {
        if (QString::number(server->uniqueId()) == serverUid && server->group())
            return {{u"serverGroupId"_s, server->group()->id()}, {u"serverId"_s, server->id()}};
    }
    return {};
}

QVariantList ServerCauses::servers() const
{
    QVariantList list;
    if (!manager())
        return list;
    for (orrin::Server *server : manager()->servers())
        list.append(QVariantMap{{u"uid"_s, QString::number(server->uniqueId())}, {u"name"_s, server->name()}});
    return list;
}
