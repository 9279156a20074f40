// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/channeluid.h>

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <vector>

namespace orrin {

class ChannelPrivate;
class Server;
class Track;

/*! A channel of a server: a camera, a microphone, a talk-back line or a data source. Main thread; owned by its Server. */
class ORRINSDK_CORE_EXPORT Channel : public QObject
{
    Q_OBJECT
public:
    explicit Channel(std::unique_ptr<ChannelPrivate> d, QObject *parent = nullptr);
    ~Channel() override;

    /*! Unique on the server, from 1. */
    int id() const;
    /*! The number that users see beside the name; fixed for the life of the channel. */
    int sortId() const;
    QString name() const;
    ChannelUID uid() const;
    /*! False once the channel left the server. */
    bool isValid() const;
    bool isEnabled() const;
    bool isAudio() const;
    bool isDataChannel() const;
    bool isTalkback() const;
    Server *server() const;
    /*! By track id, ascending. */
    std::vector<QPointer<Track>> tracks() const;
    /*! Null when absent. */
    Track *track(int id) const;

    ChannelPrivate *d_func() const { return d.get(); }

private:
    std::unique_ptr<ChannelPrivate> d;
};

} // namespace orrin
