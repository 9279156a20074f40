// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/discovery/probemessage.h"

#include "core/discovery/discoverynames.h"

#include <QUuid>
#include <QXmlStreamWriter>

namespace orrin::discovery {

using namespace Qt::StringLiterals;

namespace {

QByteArray write(const QString &id, ProbeMessage::Type type)
{
    const bool transmitter = type == ProbeMessage::Type::NetworkVideoTransmitter;
    QByteArray datagram;
    QXmlStreamWriter xml(&datagram);
    xml.writeStartDocument();
    xml.writeNamespace(EnvelopeNamespace, "e"_L1);
    xml.writeNamespace(AddressingNamespace, "w"_L1);
    xml.writeNamespace(DiscoveryNamespace, "d"_L1);
    // The prefixes that everybody uses: some devices compare the type as text.
    if (transmitter)
        xml.writeNamespace(NetworkNamespace, "dn"_L1);
    else
        xml.writeNamespace(DeviceNamespace, "tds"_L1);
    xml.writeStartElement(EnvelopeNamespace, "Envelope"_L1);
    xml.writeStartElement(EnvelopeNamespace, "Header"_L1);
    xml.writeTextElement(AddressingNamespace, "MessageID"_L1, "urn:uuid:"_L1 + id);
    xml.writeTextElement(AddressingNamespace, "To"_L1, Everybody);
    xml.writeTextElement(AddressingNamespace, "Action"_L1, ProbeAction);
    xml.writeEndElement();
    xml.writeStartElement(EnvelopeNamespace, "Body"_L1);
    xml.writeStartElement(DiscoveryNamespace, "Probe"_L1);
    xml.writeTextElement(DiscoveryNamespace, "Types"_L1, transmitter ? "dn:NetworkVideoTransmitter"_L1 : "tds:Device"_L1);
    xml.writeEndDocument();
    return datagram;
}

} // namespace

ProbeMessage::ProbeMessage(Type type)
    : m_id(QUuid::createUuid().toString(QUuid::WithoutBraces)), m_datagram(write(m_id, type))
{
}

QString ProbeMessage::normalisedId(const QString &messageId)
{
    QString id = messageId.trimmed().toLower();
    if (id.startsWith("urn:"_L1))
        id.remove(0, 4);
    if (id.startsWith("uuid:"_L1))
        id.remove(0, 5);
    return id;
}

} // namespace orrin::discovery
