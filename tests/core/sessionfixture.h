// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakeonvifdevice.h"

#include "core/session/onvif/onvifconnector.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

namespace orrin::test {

/*! An ONVIF session to a fake device with everything that a test watches, and settings and logs of its own.
 * One thread. */
class SessionFixture
{
public:
    SessionFixture();
    ~SessionFixture();

    /*! Short times, so that tests need no patience. */
    static OnvifTimings timings();

    /*! A session to \a target, opened; "host:port". */
    void open(const QString &target, const QString &password = QStringLiteral("Secret-Pa55"));
    /*! Opens a session to the device and waits until it stands. */
    bool logIn(const FakeOnvifDevice &device);
    /*! Opens a session and waits for the error; its code, or 0 when there is none. */
    int failToLogIn(const QString &target, const QString &password = QStringLiteral("Secret-Pa55"));

    SiteDescription site() const;
    LoginError loginError() const;
    /*! All bytes in the files that the process wrote. */
    QByteArray everythingWritten() const;

    OnvifTimings times = timings();
    QTemporaryDir folder;
    std::unique_ptr<Session> session;
    std::unique_ptr<QSignalSpy> described;
    std::unique_ptr<QSignalSpy> opened;
    std::unique_ptr<QSignalSpy> failed;
    std::unique_ptr<QSignalSpy> lost;
    std::unique_ptr<QSignalSpy> restored;
};

} // namespace orrin::test
