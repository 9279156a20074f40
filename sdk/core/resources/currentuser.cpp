// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/currentuser.h>

#include "core/resources/currentuser_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

namespace orrin {

CurrentUser::CurrentUser(std::unique_ptr<CurrentUserPrivate> d) : d(std::move(d)) {}

CurrentUser::~CurrentUser() = default;

CurrentUser *CurrentUser::currentUser(int group, int server)
{
    const OrrinSDK *sdk = OrrinSDK::instance();
    const ServerGroup *found = sdk ? sdk->connectionManager()->serverGroup(group) : nullptr;
    if (!found)
        return nullptr;
    if (server != FirstLogin) {
        const Server *one = found->serverById(server);
        return one ? one->currentUser().data() : nullptr;
    }
    for (const Server *one : found->servers()) {
        if (CurrentUser *user = one->currentUser().data())
            return user;
    }
    return nullptr;
}

QString CurrentUser::name() const
{
    return d->description.name;
}

UserLevel CurrentUser::level() const
{
    return d->description.level;
}

std::variant<UserId, UserLId> CurrentUser::id() const
{
    return d->description.id;
}

bool CurrentUser::isPermitted(SSPermission permission) const
{
    return d->description.permissions.contains(permission.value());
}

} // namespace orrin
