// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlServerGroupPrivate;

/*! A view of a server group, named by its id. Looks the group up on each read, caches nothing and listens to nothing, so that it
    may exist before the group does. Main thread. */
class ORRINSDKQML_EXPORT QmlServerGroup : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ServerGroup)

    /*! -1 is unset. */
    Q_PROPERTY(int serverGroupId READ serverGroupId WRITE setServerGroupId NOTIFY serverGroupIdChanged FINAL)
    /*! The hosts of the group's servers, joined with ", "; empty while the group is absent. */
    Q_PROPERTY(QString hosts READ hosts NOTIFY hostsChanged FINAL)

public:
    explicit QmlServerGroup(QObject *parent = nullptr);
    ~QmlServerGroup() override;

    int serverGroupId() const;
    void setServerGroupId(int id);
    QString hosts() const;

Q_SIGNALS:
    void serverGroupIdChanged();
    void hostsChanged();

private:
    Q_DISABLE_COPY_MOVE(QmlServerGroup)

    QmlServerGroupPrivate *d_func() const { return d_ptr.get(); }

    std::unique_ptr<QmlServerGroupPrivate> d_ptr;
};

} // namespace orrin
