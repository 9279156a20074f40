// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QObject>
#include <QString>

#include <memory>

namespace orrin {

class TrackPrivate;

/*! What a track records. */
class TrackType
{
public:
    enum Flag : int {
        Track1 = 1,
        Track2 = 2,
        Track3 = 4,
        Metadata = 8,
        Events = 16,
        Vmd = 32,
        Audio = 64,
        Talkback = 128,
    };
};

/*! A recorded track of a channel. Main thread; owned by its Channel. */
class ORRINSDK_CORE_EXPORT Track : public QObject
{
    Q_OBJECT
public:
    explicit Track(std::unique_ptr<TrackPrivate> d, QObject *parent = nullptr);
    ~Track() override;

    /*! Unique in the channel, from 1. */
    int id() const;
    QString name() const;
    bool isEnabled() const;
    TrackType::Flag type() const;

    TrackPrivate *d_func() const { return d.get(); }

private:
    std::unique_ptr<TrackPrivate> d;
};

} // namespace orrin
