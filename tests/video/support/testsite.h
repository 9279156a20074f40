// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/sspermission.h>

#include <QSet>

#include <memory>

namespace orrin {

class Channel;
class Server;

/*! A root object with one server, logged in to, which has the cameras 1 and 2. Ends with the object. */
class TestSite
{
public:
    /*! \a permissions are the user's rights, values of SSPermission. */
    explicit TestSite(const QSet<int> &permissions = {});
    ~TestSite();

    /*! Null when the login did not come about. */
    Server *server() const { return m_server; }
    Channel *channel(int id) const;
    int groupId() const;

private:
    Server *m_server = nullptr;
};

} // namespace orrin
