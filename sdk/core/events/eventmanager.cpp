// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/eventmanager.h>

namespace orrin {

EventManager::EventManager(QObject *parent)
    : QObject(parent), m_liveEvents(QSharedPointer<EventModel>::create())
{
}

EventManager::~EventManager() = default;

QSharedPointer<EventModel> EventManager::liveEvents() const
{
    return m_liveEvents;
}

} // namespace orrin
