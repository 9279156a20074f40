// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/sspermission.h>
#include <contract/core/userid.h>
#include <contract/core/userlevel.h>

#include <QObject>
#include <QString>

#include <memory>
#include <variant>

namespace orrin {

class CurrentUserPrivate;

/*! The user who is logged in to a server. Main thread. */
class ORRINSDK_CORE_EXPORT CurrentUser : public QObject
{
    Q_OBJECT
public:
    explicit CurrentUser(std::unique_ptr<CurrentUserPrivate> d);
    ~CurrentUser() override;

    /*! In place of a server's id, which is never 0: the first server of the group on which somebody is logged in. */
    static constexpr int FirstLogin = 0;

    /*! Null when nobody is logged in there. The pointer is borrowed for the call. */
    static CurrentUser *currentUser(int group, int server);

    QString name() const;
    UserLevel level() const;
    std::variant<UserId, UserLId> id() const;
    bool isPermitted(SSPermission permission) const;

    CurrentUserPrivate *d_func() const { return d.get(); }

private:
    std::unique_ptr<CurrentUserPrivate> d;
};

} // namespace orrin
