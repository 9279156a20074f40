// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/eventdescription.h"
#include "core/session/onvif/xmlelement.h"

#include <contract/core/export.h>

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

/*! Reading the answers of a device's event service. Plain functions over parsed XML. */
namespace orrin::eventservice {

/*! What is read of one answer at most. */
inline constexpr qsizetype MessageLimit = 512;
inline constexpr qsizetype CauseLimit = 256;
inline constexpr qsizetype TextLimit = 256;

/*! How long a subscription stands, by an answer's own clock. A value. */
using Lifetime = std::optional<std::chrono::milliseconds>;

struct PullPoint
{
    QString path; //!< with the query; empty when the answer names none
    Lifetime lifetime;
};

/*! Answer of CreatePullPointSubscription. Only the path of the address is kept. */
ORRINSDK_CORE_EXPORT PullPoint readPullPoint(const XmlElement &answer);

/*! Time between CurrentTime and TerminationTime; nothing when one is missing or they make no sense. */
ORRINSDK_CORE_EXPORT Lifetime readLifetime(const XmlElement &answer);

/*! Answer of PullMessages, oldest first. What tells a state that has been there before, as devices do to each
    new subscription, is no event and left out. \a channels are the channels by the tokens of their sources. */
ORRINSDK_CORE_EXPORT QList<EventDescription> readMessages(const XmlElement &answer,
                                                          const QHash<QString, int> &channels);

/*! Answer of GetEventProperties: the causes of all topics in words, each once, in the order of the device. */
ORRINSDK_CORE_EXPORT QStringList readCauses(const XmlElement &answer);

} // namespace orrin::eventservice
