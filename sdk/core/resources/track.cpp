// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/track.h>

#include "core/resources/track_p.h"

namespace orrin {

Track::Track(std::unique_ptr<TrackPrivate> d, QObject *parent) : QObject(parent), d(std::move(d)) {}

Track::~Track() = default;

int Track::id() const
{
    return d->description.id;
}

QString Track::name() const
{
    return d->description.name;
}

bool Track::isEnabled() const
{
    return d->description.enabled;
}

TrackType::Flag Track::type() const
{
    return d->description.type;
}

} // namespace orrin
