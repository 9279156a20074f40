// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>

namespace orrin {

class DeviceFinderPrivate;

/*! A device that answered a search. A value.

    All of it is what the device claims about itself: anybody on the network can answer. Name, hardware and
    uuid have neither control nor formatting characters and are cut to 128 characters, but may hold markup: show them as plain text, and
    the address beside the name. */
struct FoundDevice
{
    QString name;       //!< empty when the device tells none
    QString address;    //!< host:port, as a login takes it; an IPv6 host stands in brackets
    QString hardware;   //!< the model; empty when the device tells none
    QStringList scopes; //!< as sent, at most 64
    QString uuid;       //!< the device's identity over restarts, without "urn:uuid:" where it is a UUID

    friend bool operator==(const FoundDevice &, const FoundDevice &) = default;
};

/*! Finds the ONVIF devices of the local network by WS-Discovery, over IPv4. Main thread; nothing blocks.

    A search asks by multicast on each interface that is up, the loopback interface among them, and at the addresses of setProbeAddresses();
    it asks four times with growing pauses, since datagrams get lost. A device is reported once a search however often it answers, and
    only when one of its addresses can be used.

    Of what comes in, answers above 32 KiB, what answers no question of this search, and what goes beyond DeviceLimit, SenderDeviceLimit
    or the bytes that one sender may use up is dropped in silence. */
class ORRINSDK_CORE_EXPORT DeviceFinder : public QObject
{
    Q_OBJECT

public:
    /*! Devices reported by one search. */
    static constexpr int DeviceLimit = 256;
    /*! Of these, devices that answer from one address. */
    static constexpr int SenderDeviceLimit = 64;
    /*! Addresses of setProbeAddresses(); further ones are ignored. */
    static constexpr int ProbeAddressLimit = 64;

    enum class Error {
        NoError,
        NoNetwork, //!< no question could be sent
    };
    Q_ENUM(Error)

    explicit DeviceFinder(QObject *parent = nullptr);
    /*! A search that runs ends without a signal. */
    ~DeviceFinder() override;

    /*! IPv4 addresses to ask directly, "address" or "address:port" (3702 without one), for devices that no multicast reaches. Others are
        ignored. Takes effect with the next start(). */
    void setProbeAddresses(const QStringList &addresses);
    QStringList probeAddresses() const;

    /*! Whether multicast is used; it is unless told otherwise. Takes effect with the next start(). */
    void setMulticastEnabled(bool enabled);
    bool isMulticastEnabled() const;

    /*! Searches for \a duration, brought into the range from 100 ms to 60 s. A search that runs is given up without finished(), and begins anew. */
    void start(std::chrono::milliseconds duration = std::chrono::seconds(4));

    /*! Gives the search up. No signal follows. */
    void stop();

    bool isSearching() const;

    /*! Why the last search ended early. */
    Error error() const;

Q_SIGNALS:
    /*! Another device answered. A slot may call start() and stop() and delete the finder. */
    void found(const orrin::FoundDevice &device);

    /*! The time is over, or nothing could be asked: see error(). Comes once for each start() that is not given up. */
    void finished();

private:
    friend class DeviceFinderPrivate;

    std::unique_ptr<DeviceFinderPrivate> d;
};

} // namespace orrin
