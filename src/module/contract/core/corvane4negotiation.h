// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace orrin {

/*! What a server and the client agreed on while connecting. A value. */
class Corvane4Negotiation
{
public:
    /*! The server's public key as offered in this negotiation: DER, SubjectPublicKeyInfo (RFC 5280); empty without TLS. */
    QByteArray &derKey() { return m_derKey; }
    const QByteArray &derKey() const { return m_derKey; }

private:
    QByteArray m_derKey;
};

} // namespace orrin
