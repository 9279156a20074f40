// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/xmlelement.h"

#include <QXmlStreamReader>

namespace orrin {

namespace {

class Builder
{
public:
    explicit Builder(const QByteArray &xml) : m_reader(xml) {}

    std::optional<XmlElement> build()
    {
        while (!m_reader.atEnd()) {
            const auto token = m_reader.readNext();
            if (token == QXmlStreamReader::DTD)
                return {};
            if (token != QXmlStreamReader::StartElement)
                continue;
            XmlElement root;
            if (!readElement(root, 1))
                return {};
            return root;
        }
        return {};
    }

private:
    bool readElement(XmlElement &element, int depth)
    {
        if (depth > XmlElement::DepthLimit || ++m_count > XmlElement::ElementLimit)
            return false;
        element.name = m_reader.name().toString();
        element.namespaceUri = m_reader.namespaceUri().toString();
        const QXmlStreamAttributes attributes = m_reader.attributes();
        for (const QXmlStreamAttribute &attribute : attributes)
            element.attributes.append({attribute.name().toString(), attribute.value().toString()});
        const qsizetype scope = m_namespaces.size();
        m_namespaces += m_reader.namespaceDeclarations();
        const bool complete = readContent(element, depth);
        element.textNamespace = namespaceOf(element.text);
        m_namespaces.resize(scope);
        return complete;
    }

    bool readContent(XmlElement &element, int depth)
    {
        for (;;) {
            switch (m_reader.readNext()) {
            case QXmlStreamReader::StartElement:
                element.children.emplace_back();
                if (!readElement(element.children.back(), depth + 1))
                    return false;
                break;
            case QXmlStreamReader::Characters:
                element.text += m_reader.text();
                break;
            case QXmlStreamReader::EndElement:
                return true;
            case QXmlStreamReader::Comment:
            case QXmlStreamReader::ProcessingInstruction:
                break;
            default:
                return false;
            }
        }
    }

    QString namespaceOf(const QString &text) const
    {
        constexpr qsizetype LongestPrefix = 64;
        const QStringView trimmed = QStringView(text).trimmed();
        const qsizetype colon = trimmed.indexOf(u':');
        if (colon <= 0 || colon > LongestPrefix)
            return {};
        const QStringView prefix = trimmed.first(colon);
        for (auto it = m_namespaces.crbegin(); it != m_namespaces.crend(); ++it) {
            if (it->prefix() == prefix)
                return it->namespaceUri().toString();
        }
        return {};
    }

    QXmlStreamReader m_reader;
    QXmlStreamNamespaceDeclarations m_namespaces;
    int m_count = 0;
};

const XmlElement &nullElement()
{
    static const XmlElement element;
    return element;
}

} // namespace

std::optional<XmlElement> XmlElement::parse(const QByteArray &xml)
{
    return Builder(xml).build();
}

const XmlElement &XmlElement::child(QStringView localName) const
{
    for (const XmlElement &candidate : children) {
        if (candidate.name == localName)
            return candidate;
    }
    return nullElement();
}

const XmlElement &XmlElement::at(std::initializer_list<QStringView> path) const
{
    const XmlElement *element = this;
    for (const QStringView step : path)
        element = &element->child(step);
    return *element;
}

std::vector<const XmlElement *> XmlElement::all(QStringView localName) const
{
    std::vector<const XmlElement *> found;
    for (const XmlElement &candidate : children) {
        if (candidate.name == localName)
            found.push_back(&candidate);
    }
    return found;
}

QString XmlElement::attribute(QStringView localName) const
{
    for (const auto &[name, value] : attributes) {
        if (name == localName)
            return value;
    }
    return {};
}

} // namespace orrin
