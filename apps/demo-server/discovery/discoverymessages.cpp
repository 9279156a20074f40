// SPDX-License-Identifier: GPL-3.0-or-later
#include "discovery/discoverymessages.h"

#include "discovery/discoverynames.h"
#include "onvif/namespaces.h"

#include <QDateTime>
#include <QUuid>
#include <QXmlStreamWriter>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

/*! What every message has around its content. */
class Envelope
{
public:
    Envelope(QLatin1StringView action, const QString &relatesTo, qint64 instance, quint32 number) : m_xml(&m_datagram)
    {
        m_xml.writeStartDocument();
        m_xml.writeNamespace(ns::Envelope, "env"_L1);
        m_xml.writeNamespace(discovery::Addressing, "wsa"_L1);
        m_xml.writeNamespace(discovery::Namespace, "d"_L1);
        m_xml.writeNamespace(discovery::Network, "dn"_L1);
        m_xml.writeNamespace(ns::Device, "tds"_L1);
        m_xml.writeStartElement(ns::Envelope, "Envelope"_L1);
        m_xml.writeStartElement(ns::Envelope, "Header"_L1);
        m_xml.writeTextElement(discovery::Addressing, "MessageID"_L1,
                               "urn:uuid:"_L1 + QUuid::createUuid().toString(QUuid::WithoutBraces));
        if (!relatesTo.isEmpty())
            m_xml.writeTextElement(discovery::Addressing, "RelatesTo"_L1, relatesTo);
        m_xml.writeTextElement(discovery::Addressing, "To"_L1,
                               relatesTo.isEmpty() ? discovery::Everybody : discovery::Anonymous);
        m_xml.writeTextElement(discovery::Addressing, "Action"_L1, discovery::Namespace + u'/' + action);
        m_xml.writeEmptyElement(discovery::Namespace, "AppSequence"_L1);
        m_xml.writeAttribute("InstanceId"_L1, QString::number(instance));
        m_xml.writeAttribute("MessageNumber"_L1, QString::number(number));
        m_xml.writeEndElement();
        m_xml.writeStartElement(ns::Envelope, "Body"_L1);
    }

    QXmlStreamWriter &xml() { return m_xml; }

    void writeIdentity(const DiscoverableDevice &device)
    {
        m_xml.writeStartElement(discovery::Addressing, "EndpointReference"_L1);
        m_xml.writeTextElement(discovery::Addressing, "Address"_L1, "urn:uuid:"_L1 + device.uuid);
        m_xml.writeEndElement();
    }

    void writeDescription(const DiscoverableDevice &device, const QString &host)
    {
        writeIdentity(device);
        m_xml.writeTextElement(discovery::Namespace, "Types"_L1, "dn:NetworkVideoTransmitter tds:Device"_L1);
        m_xml.writeTextElement(discovery::Namespace, "Scopes"_L1, device.scopes.join(u' '));
        m_xml.writeTextElement(discovery::Namespace, "XAddrs"_L1,
                               u"https://%1:%2/onvif/device_service"_s.arg(host, QString::number(device.httpsPort)));
        m_xml.writeTextElement(discovery::Namespace, "MetadataVersion"_L1, "1"_L1);
    }

    QByteArray finish()
    {
        m_xml.writeEndDocument();
        return m_datagram;
    }

private:
    QByteArray m_datagram;
    QXmlStreamWriter m_xml;
};

} // namespace

DiscoveryMessages::DiscoveryMessages() : m_instance(QDateTime::currentSecsSinceEpoch()) {}

QByteArray DiscoveryMessages::probeMatch(const DiscoverableDevice &device, const QString &messageId, const QString &host)
{
    Envelope envelope("ProbeMatches"_L1, messageId, m_instance, ++m_messages);
    envelope.xml().writeStartElement(discovery::Namespace, "ProbeMatches"_L1);
    envelope.xml().writeStartElement(discovery::Namespace, "ProbeMatch"_L1);
    envelope.writeDescription(device, host);
    return envelope.finish();
}

QByteArray DiscoveryMessages::hello(const DiscoverableDevice &device, const QString &host)
{
    Envelope envelope("Hello"_L1, {}, m_instance, ++m_messages);
    envelope.xml().writeStartElement(discovery::Namespace, "Hello"_L1);
    envelope.writeDescription(device, host);
    return envelope.finish();
}

QByteArray DiscoveryMessages::bye(const DiscoverableDevice &device)
{
    Envelope envelope("Bye"_L1, {}, m_instance, ++m_messages);
    envelope.xml().writeStartElement(discovery::Namespace, "Bye"_L1);
    envelope.writeIdentity(device);
    return envelope.finish();
}

} // namespace orrin::demo
