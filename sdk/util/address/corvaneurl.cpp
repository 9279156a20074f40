// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/corvaneurl.h>

#include <algorithm>

namespace orrin {

namespace {

constexpr qsizetype MaximumHostLength = 253;

bool isIpv6Text(QStringView text)
{
    // The zone behind a percent sign is a name of the local machine; only what stands before is the address.
    const qsizetype zone = text.indexOf(u'%');
    const QStringView address = zone < 0 ? text : text.first(zone);
    if (address.count(u':') < 2)
        return false;
    return std::all_of(address.begin(), address.end(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F') ||
               c == u':' || c == u'.';
    });
}

// Of the whole text: "http://host" is no host named http with a port that is no number.
bool holdsMoreThanAnAddress(QStringView text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) {
        return c.isSpace() || c.category() == QChar::Other_Control || c == u'/' || c == u'\\' || c == u'@';
    });
}

bool canBeHost(QStringView text)
{
    if (text.isEmpty() || text.size() > MaximumHostLength)
        return false;
    static constexpr QStringView Forbidden = u"/\\@?#[]<>\"'|^`{},;&=+*()!$";
    return std::none_of(text.begin(), text.end(), [](QChar c) {
        return c.isSpace() || c.category() == QChar::Other_Control || c.category() == QChar::Other_Format ||
               Forbidden.contains(c);
    });
}

int portFromText(QStringView text, int defaultPort)
{
    // QStringView::toInt() takes signs and blanks too, which no port has.
    const bool digits = !text.isEmpty() && text.size() <= 5 &&
                        std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    const int port = digits ? text.toInt() : 0;
    return port >= 1 && port <= 65535 ? port : defaultPort;
}

} // namespace

CorvaneUrl::CorvaneUrl(const QString &hostAndPort, int defaultPort) : m_port(defaultPort)
{
    const QStringView text = QStringView(hostAndPort).trimmed();
    QStringView host = text;
    QStringView port;
    if (holdsMoreThanAnAddress(text))
        return;
    if (text.startsWith(u'[')) {
        const qsizetype end = text.indexOf(u']');
        if (end < 0)
            return;
        host = text.sliced(1, end - 1);
        const QStringView rest = text.sliced(end + 1);
        if (!isIpv6Text(host) || (!rest.isEmpty() && !rest.startsWith(u':')))
            return;
        port = rest.isEmpty() ? rest : rest.sliced(1);
    } else if (const qsizetype colon = text.indexOf(u':'); colon >= 0) {
        if (text.indexOf(u':', colon + 1) < 0) {
            host = text.first(colon);
            port = text.sliced(colon + 1);
        } else if (!isIpv6Text(text)) {
            return;
        }
    }
    if (!canBeHost(host))
        return;
    m_host = host.toString();
    m_port = portFromText(port, defaultPort);
}

QString CorvaneUrl::hostAndPort() const
{
    if (m_host.isEmpty())
        return {};
    const QString port = QString::number(m_port);
    return m_host.contains(u':') ? u'[' + m_host + QLatin1StringView("]:") + port : m_host + u':' + port;
}

} // namespace orrin
