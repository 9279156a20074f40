// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/devicelink.h"
#include "core/session/onvif/loginfailure.h"
#include "core/session/onvif/onviftimings.h"
#include "core/session/onvif/tlsprobe.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

namespace orrin {

class DescriptionReader;

/*! One attempt to log in to a device, from the name of its host to the whole description of its site. Main
    thread.

    The steps: find the host and look at its public key; stop when it is not the one trusted, before any
    credentials leave; read the clock, without credentials; prove the credentials; find the services; open a
    session of the site extension where there is one; read the description. One sequence, one use. The callback
    comes by the event loop, once, before the deadline, unless the sequence is deleted first. */
class LoginSequence : public QObject
{
    Q_OBJECT
public:
    struct Target
    {
        CorvaneUrl url;
        SharedCredentials credentials;
        QByteArray trustedKey;   //!< empty: any key will do
        bool requireTls = false; //!< true: a device that now speaks no TLS is refused
    };
    /*! One of the two is set. */
    struct Outcome
    {
        DeviceLinkPtr link;
        std::optional<LoginFailure> failure;
    };
    using Callback = std::function<void(Outcome)>;

    LoginSequence(const Target &target, const OnvifTimings &timings, Callback callback,
                  QObject *parent = nullptr);
    ~LoginSequence() override;

    void start();

private:
    void onProbed(TlsProbe::Outcome outcome);
    void readClock();
    void onClock(const SoapAnswer &answer);
    void readInformation();
    void readServices();
    void readCapabilities();
    void openSession();
    void readDescription();
    void onDeadline();
    void succeed();
    void fail(const LoginFailure &failure);
    /*! A call that does nothing once the sequence is over. */
    template <typename Answer>
    std::function<void(const Answer &)> step(void (LoginSequence::*next)(const Answer &));

    void onInformation(const SoapAnswer &answer);
    void onServices(const SoapAnswer &answer);
    void onCapabilities(const SoapAnswer &answer);
    void onSession(const SiteAnswer &answer);

    const Target m_target;
    const OnvifTimings m_timings;
    Callback m_callback;
    TlsProbe m_probe;
    QTimer m_deadline;
    DeviceLinkPtr m_link;
    std::unique_ptr<DescriptionReader> m_reader;
};

} // namespace orrin
