// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QList>
#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace orrin {

class Server;
class ServerGroupPrivate;

/*! Servers that belong together: one site. Main thread; owned by the ConnectionManager. */
class ORRINSDK_CORE_EXPORT ServerGroup : public QObject
{
    Q_OBJECT
public:
    explicit ServerGroup(std::unique_ptr<ServerGroupPrivate> d, QObject *parent = nullptr);
    ~ServerGroup() override;

    int id() const;
    /*! The name that the site gives itself; empty when it has none. */
    QString name() const;
    /*! "host:port" of each server, in the order of servers(). */
    QList<QString> hosts() const;
    /*! By server id, ascending. */
    std::vector<Server *> servers() const;
    /*! Null when absent. */
    Server *serverById(int id) const;

    ServerGroupPrivate *d_func() const { return d.get(); }

private:
    std::unique_ptr<ServerGroupPrivate> d;
};

} // namespace orrin
