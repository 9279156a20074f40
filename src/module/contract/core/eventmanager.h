// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/eventmodel.h>

#include <QObject>
#include <QSharedPointer>

namespace orrin {

/*! The events of all servers. Main thread; owned by the root object. */
class ORRINSDK_CORE_EXPORT EventManager : public QObject
{
    Q_OBJECT
public:
    ~EventManager() override;

    /*! The live list; the manager keeps it alive. */
    QSharedPointer<EventModel> liveEvents() const;

private:
    friend class OrrinSDKPrivate;
    explicit EventManager(QObject *parent);

    QSharedPointer<EventModel> m_liveEvents;
};

} // namespace orrin
