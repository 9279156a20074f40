// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QByteArray>
#include <QString>

namespace orrin::discovery {

/*! The question "who is there?" of WS-Discovery. A value; safe on any thread. */
class ORRINSDK_CORE_EXPORT ProbeMessage
{
public:
    /*! The kinds of devices to ask for; devices of either age know one of them at least. */
    enum class Type { NetworkVideoTransmitter, Device };

    /*! A question with an id of its own. */
    explicit ProbeMessage(Type type);

    /*! What answers refer to, in the form of normalisedId(). */
    const QString &id() const { return m_id; }
    /*! The envelope, in UTF-8. */
    const QByteArray &datagram() const { return m_datagram; }

    /*! \a messageId without "urn:" and "uuid:" in front and in lower case: devices are not careful with these when they answer. */
    static QString normalisedId(const QString &messageId);

private:
    QString m_id;
    QByteArray m_datagram;
};

} // namespace orrin::discovery
