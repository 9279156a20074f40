// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/corvane4negotiation.h>

#include <QString>

namespace orrin {

/*! The circumstances of a login. A value; holds no password. */
class LoginData
{
public:
    LoginData() = default;
    explicit LoginData(const QString &targetAndPort) : m_targetAndPort(targetAndPort) {}

    /*! The text key of the server, under which its public key is trusted: "host:port". */
    QString targetAndPort() const { return m_targetAndPort; }

    Corvane4Negotiation &negotiationData() { return m_negotiation; }
    const Corvane4Negotiation &negotiationData() const { return m_negotiation; }

private:
    QString m_targetAndPort;
    Corvane4Negotiation m_negotiation;
};

} // namespace orrin
