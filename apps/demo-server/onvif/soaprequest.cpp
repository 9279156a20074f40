// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/soaprequest.h"

#include "onvif/namespaces.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr int MaximumDepth = 32;
constexpr int MaximumElements = 10000;

/*! Reads the element that the reader stands at, with all below it. False when the document is refused. */
bool readElement(QXmlStreamReader &xml, XmlElement &element, int depth, int &budget)
{
    if (depth > MaximumDepth || --budget < 0)
        return false;
    element.ns = xml.namespaceUri().toString();
    element.name = xml.name().toString();
    element.attributes = xml.attributes();
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            if (!readElement(xml, element.children.emplaceBack(), depth + 1, budget))
                return false;
            break;
        case QXmlStreamReader::Characters:
            element.text += xml.text();
            break;
        case QXmlStreamReader::EndElement:
            return true;
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::EntityReference:
            return false;
        default:
            break;
        }
    }
    return false;
}

bool readDocument(const QByteArray &body, XmlElement &root)
{
    QXmlStreamReader xml(body);
    int budget = MaximumElements;
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::DTD)
            return false;
        if (token == QXmlStreamReader::StartElement)
            return readElement(xml, root, 0, budget) && !xml.hasError();
    }
    return false;
}

} // namespace

const XmlElement *XmlElement::child(QStringView childName) const
{
    const auto found = std::ranges::find(children, childName, &XmlElement::name);
    return found == children.cend() ? nullptr : &*found;
}

QString XmlElement::childText(QStringView childName) const
{
    const XmlElement *element = child(childName);
    return element ? element->text.trimmed() : QString();
}

SoapRequest SoapRequest::parse(const QByteArray &body)
{
    SoapRequest request;
    request.error = Error::NotWellFormed;
    XmlElement envelope;
    if (!readDocument(body, envelope) || envelope.name != "Envelope"_L1)
        return request;
    if (envelope.ns != ns::Envelope) {
        request.error = Error::WrongVersion;
        return request;
    }
    const XmlElement *content = envelope.child(u"Body");
    if (!content || content->children.isEmpty())
        return request;
    request.operation = content->children.first();
    if (const XmlElement *header = envelope.child(u"Header")) {
        if (const XmlElement *security = header->child(u"Security");
            security && security->ns == ns::Security) {
            if (const XmlElement *token = security->child(u"UsernameToken"))
                request.usernameToken = *token;
        }
    }
    request.error = Error::None;
    return request;
}

} // namespace orrin::demo
