// SPDX-License-Identifier: GPL-3.0-or-later
#include "discovery/proberequest.h"

#include "discovery/discoverynames.h"
#include "onvif/namespaces.h"

#include <QUrl>
#include <QXmlStreamReader>

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr int MaximumDepth = 16;
constexpr qsizetype MaximumWords = 64;

/*! Walks through the envelope and keeps the three texts that matter. */
class Reader
{
public:
    explicit Reader(const QByteArray &datagram) : m_xml(datagram) {}

    std::optional<ProbeRequest> read()
    {
        while (!m_xml.atEnd()) {
            switch (m_xml.readNext()) {
            case QXmlStreamReader::DTD:
                return {};
            case QXmlStreamReader::StartElement:
                if (m_path.size() >= MaximumDepth || !enter())
                    return {};
                break;
            case QXmlStreamReader::EndElement:
                leave();
                break;
            default:
                break;
            }
        }
        if (m_xml.hasError() || !m_isProbe || m_request.messageId.isEmpty())
            return {};
        return m_request;
    }

private:
    bool enter()
    {
        m_path.append(m_xml.name().toString());
        m_scopes.append(m_namespaces.size());
        m_namespaces += m_xml.namespaceDeclarations();
        const QString path = m_path.join(u'/');
        if (path == "Envelope"_L1)
            return m_xml.namespaceUri() == ns::Envelope;
        if (path == "Envelope/Body/Probe"_L1) {
            m_isProbe = m_xml.namespaceUri() == discovery::Namespace;
            return true;
        }
        if (path == "Envelope/Header/MessageID"_L1)
            m_request.messageId = readText().trimmed().left(256);
        else if (path == "Envelope/Body/Probe/Types"_L1)
            readTypes();
        else if (path == "Envelope/Body/Probe/Scopes"_L1)
            readScopes();
        else
            return true;
        // Reading the text went to the end of the element.
        leave();
        return true;
    }

    void leave()
    {
        m_path.removeLast();
        m_namespaces.resize(m_scopes.takeLast());
    }

    QString readText() { return m_xml.readElementText(QXmlStreamReader::SkipChildElements); }

    QStringList readWords()
    {
        return readText().simplified().split(u' ', Qt::SkipEmptyParts).mid(0, MaximumWords);
    }

    void readTypes()
    {
        const QStringList words = readWords();
        for (const QString &word : words) {
            const qsizetype colon = word.indexOf(u':');
            m_request.types.append({namespaceOf(QStringView(word).first(std::max<qsizetype>(colon, 0))), word.sliced(colon + 1)});
        }
    }

    void readScopes()
    {
        m_request.matchBy = m_xml.attributes().value("MatchBy"_L1).toString();
        m_request.scopes = readWords();
    }

    QString namespaceOf(QStringView prefix) const
    {
        const auto found = std::ranges::find(m_namespaces.crbegin(), m_namespaces.crend(), prefix,
                                             &QXmlStreamNamespaceDeclaration::prefix);
        return found == m_namespaces.crend() ? QString() : found->namespaceUri().toString();
    }

    QXmlStreamReader m_xml;
    QXmlStreamNamespaceDeclarations m_namespaces; // those in force
    QList<qsizetype> m_scopes;                    // how many were in force around each element
    QStringList m_path;
    ProbeRequest m_request;
    bool m_isProbe = false;
};

bool isOwnType(const QPair<QString, QString> &type)
{
    return (type.first == discovery::Network && type.second == "NetworkVideoTransmitter"_L1) ||
           (type.first == ns::Device && type.second == "Device"_L1);
}

/*! Whether \a scope is \a wanted or lies below it. */
bool isWithin(const QString &scope, const QString &wanted)
{
    const QUrl own(scope);
    const QUrl other(wanted);
    if (own.scheme() != other.scheme() || own.authority() != other.authority())
        return false;
    const QStringList ownPath = own.path(QUrl::FullyEncoded).split(u'/', Qt::SkipEmptyParts);
    const QStringList otherPath = other.path(QUrl::FullyEncoded).split(u'/', Qt::SkipEmptyParts);
    return otherPath.size() <= ownPath.size() && std::equal(otherPath.cbegin(), otherPath.cend(), ownPath.cbegin());
}

} // namespace

std::optional<ProbeRequest> ProbeRequest::parse(const QByteArray &datagram)
{
    if (datagram.size() > DatagramLimit)
        return {};
    return Reader(datagram).read();
}

bool ProbeRequest::matches(const QStringList &deviceScopes) const
{
    if (!std::ranges::all_of(types, isOwnType))
        return false;
    const bool exact = matchBy.endsWith("/discovery/strcmp0"_L1);
    if (!exact && !matchBy.isEmpty() && !matchBy.endsWith("/discovery/rfc3986"_L1))
        return scopes.isEmpty();
    return std::ranges::all_of(scopes, [&deviceScopes, exact](const QString &wanted) {
        return std::ranges::any_of(deviceScopes, [&wanted, exact](const QString &scope) {
            return exact ? scope == wanted : isWithin(scope, wanted);
        });
    });
}

} // namespace orrin::demo
