// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/soapwriter.h"

#include "onvif/namespaces.h"

namespace orrin::demo {

using namespace Qt::StringLiterals;

SoapWriter::SoapWriter() : m_xml(&m_document)
{
    m_xml.writeStartDocument();
    m_xml.writeNamespace(ns::Envelope, "env"_L1);
    m_xml.writeNamespace(ns::Device, "tds"_L1);
    m_xml.writeNamespace(ns::Media, "trt"_L1);
    m_xml.writeNamespace(ns::Media2, "tr2"_L1);
    m_xml.writeNamespace(ns::Recording, "trc"_L1);
    m_xml.writeNamespace(ns::Search, "tse"_L1);
    m_xml.writeNamespace(ns::Replay, "trp"_L1);
    m_xml.writeNamespace(ns::Events, "tev"_L1);
    m_xml.writeNamespace(ns::Ptz, "tptz"_L1);
    m_xml.writeNamespace(ns::Imaging, "timg"_L1);
    m_xml.writeNamespace(ns::Notification, "wsnt"_L1);
    m_xml.writeNamespace(ns::TopicExpressions, "wstop"_L1);
    m_xml.writeNamespace(ns::Topics, "tns1"_L1);
    m_xml.writeNamespace(ns::Addressing, "wsa"_L1);
    m_xml.writeNamespace(ns::Schema, "tt"_L1);
    m_xml.writeNamespace(ns::Error, "ter"_L1);
    m_xml.writeNamespace(ns::Site, "site"_L1);
    m_xml.writeStartElement(ns::Envelope, "Envelope"_L1);
    m_xml.writeStartElement(ns::Envelope, "Body"_L1);
}

void SoapWriter::start(QLatin1StringView ns, QLatin1StringView name,
                       std::initializer_list<Attribute> attributes)
{
    m_xml.writeStartElement(ns, name);
    for (const auto &[key, value] : attributes)
        m_xml.writeAttribute(key, value);
}

void SoapWriter::end()
{
    m_xml.writeEndElement();
}

void SoapWriter::text(const QString &text)
{
    m_xml.writeCharacters(text);
}

void SoapWriter::element(QLatin1StringView ns, QLatin1StringView name, const QString &text)
{
    m_xml.writeTextElement(ns, name, text);
}

void SoapWriter::element(QLatin1StringView ns, QLatin1StringView name, qint64 value)
{
    m_xml.writeTextElement(ns, name, QString::number(value));
}

void SoapWriter::element(QLatin1StringView ns, QLatin1StringView name, bool value)
{
    m_xml.writeTextElement(ns, name, value ? "true"_L1 : "false"_L1);
}

void SoapWriter::empty(QLatin1StringView ns, QLatin1StringView name,
                       std::initializer_list<Attribute> attributes)
{
    start(ns, name, attributes);
    end();
}

QByteArray SoapWriter::finish()
{
    m_xml.writeEndDocument();
    return m_document;
}

} // namespace orrin::demo
