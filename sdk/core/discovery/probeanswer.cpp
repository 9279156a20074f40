// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/discovery/probeanswer.h"

#include "core/discovery/discoverynames.h"
#include "core/discovery/probemessage.h"
#include "core/session/onvif/xmlelement.h"

#include <QUrl>

#include <algorithm>

namespace orrin::discovery {

using namespace Qt::StringLiterals;

namespace {

/*! One line of printable text. Formatting characters go too: they would turn round what stands beside the text. */
QString printable(const QString &text)
{
    QString kept;
    for (const QChar character : text) {
        const bool unseen = character.category() == QChar::Other_Control || character.category() == QChar::Other_Format;
        kept += unseen ? QChar(u' ') : character;
    }
    kept = kept.simplified();
    if (kept.size() > ProbeAnswer::TextLength) {
        kept.truncate(ProbeAnswer::TextLength);
        if (kept.back().isHighSurrogate())
            kept.chop(1);
    }
    return kept;
}

/*! Words between blanks, those above \a length left out, at most \a limit. */
QStringList wordsOf(const QString &text, qsizetype limit, qsizetype length)
{
    QStringList words;
    for (const QStringView word : QStringView(text).tokenize(u' ', Qt::SkipEmptyParts)) {
        if (words.size() >= limit)
            break;
        if (word.size() <= length)
            words.append(word.toString());
    }
    return words;
}

/*! What the scopes say under \a key, such as "name"; several of them are one text, for devices that send a word each. */
QString scopeText(const QStringList &scopes, QLatin1StringView key)
{
    const QString prefix = ScopeRoot + key + u'/';
    QStringList texts;
    for (const QString &scope : scopes) {
        if (!scope.startsWith(prefix, Qt::CaseInsensitive))
            continue;
        const QString text = printable(QUrl::fromPercentEncoding(QStringView(scope).sliced(prefix.size()).toUtf8()));
        if (!text.isEmpty() && !texts.contains(text))
            texts.append(text);
    }
    return printable(texts.join(u' '));
}

bool isOnvifDevice(const QString &types, const QStringList &scopes)
{
    return types.contains("NetworkVideo"_L1) || std::ranges::any_of(scopes, [](const QString &scope) {
               return scope.startsWith(ScopeRoot, Qt::CaseInsensitive);
           });
}

std::optional<ProbeMatch> readMatch(const XmlElement &element)
{
    ProbeMatch match;
    match.uuid = printable(ProbeMessage::normalisedId(element.at({u"EndpointReference", u"Address"}).value()));
    match.scopes = wordsOf(element.child(u"Scopes").text.simplified(), ProbeAnswer::ScopeLimit, ProbeAnswer::ScopeLength);
    match.addresses = wordsOf(element.child(u"XAddrs").text.simplified(), ProbeAnswer::AddressLimit, ProbeAnswer::AddressLength);
    if (match.uuid.isEmpty() || match.addresses.isEmpty() || !isOnvifDevice(element.child(u"Types").text, match.scopes))
        return {};
    match.name = scopeText(match.scopes, "name"_L1);
    match.hardware = scopeText(match.scopes, "hardware"_L1);
    return match;
}

} // namespace

std::optional<ProbeAnswer> ProbeAnswer::read(const QByteArray &datagram)
{
    if (datagram.isEmpty() || datagram.size() > DatagramLimit)
        return {};
    const std::optional<XmlElement> envelope = XmlElement::parse(datagram);
    if (!envelope || envelope->name != "Envelope"_L1)
        return {};
    const XmlElement &matches = envelope->at({u"Body", u"ProbeMatches"});
    if (matches.isNull() || matches.namespaceUri != DiscoveryNamespace)
        return {};
    ProbeAnswer answer;
    answer.relatesTo = ProbeMessage::normalisedId(envelope->at({u"Header", u"RelatesTo"}).value());
    if (answer.relatesTo.isEmpty())
        return {};
    for (const XmlElement *element : matches.all(u"ProbeMatch")) {
        if (answer.matches.size() >= MatchLimit)
            break;
        if (const std::optional<ProbeMatch> match = readMatch(*element))
            answer.matches.append(*match);
    }
    return answer;
}

} // namespace orrin::discovery
