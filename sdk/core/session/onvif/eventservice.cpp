// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/eventservice.h"

#include "core/events/eventtopics.h"

#include <QTimeZone>
#include <QUrl>

#include <algorithm>

namespace orrin::eventservice {

namespace {

using Items = QList<QPair<QString, QString>>;

constexpr qsizetype ItemLimit = 32;
constexpr int TopicDepthLimit = 16;

QString cut(const QString &text)
{
    return text.trimmed().left(TextLimit);
}

QDateTime timeFrom(const QString &text)
{
    if (text.size() > 64)
        return {};
    QDateTime time = QDateTime::fromString(text, Qt::ISODateWithMs);
    if (time.isValid() && time.timeSpec() == Qt::LocalTime)
        time.setTimeZone(QTimeZone::utc());
    return time.toUTC();
}

void appendItems(Items &items, const XmlElement &parent)
{
    for (const XmlElement *item : parent.all(u"SimpleItem")) {
        if (items.size() >= ItemLimit)
            return;
        items.append({cut(item->attribute(u"Name")), cut(item->attribute(u"Value"))});
    }
}

/*! What a value says of a state; nothing when it is no state. */
std::optional<bool> stateFrom(const QString &name, const QString &value)
{
    const auto is = [&value](QLatin1StringView text) {
        return value.compare(text, Qt::CaseInsensitive) == 0;
    };
    if (is(QLatin1StringView("true")) || is(QLatin1StringView("open")) || is(QLatin1StringView("active")))
        return true;
    if (is(QLatin1StringView("false")) || is(QLatin1StringView("closed")) ||
        is(QLatin1StringView("inactive")))
        return false;
    const bool isNumber = value == u"1" || value == u"0";
    const bool isState = name.contains(QLatin1StringView("State"), Qt::CaseInsensitive) ||
                         name.startsWith(QLatin1StringView("Is"), Qt::CaseInsensitive);
    return isNumber && isState ? std::optional(value == u"1") : std::nullopt;
}

QString textOf(const Items &source, const Items &data)
{
    QStringList parts;
    for (const Items *items : {&source, &data}) {
        for (const auto &[name, value] : *items)
            parts.append(name + u'=' + value);
    }
    return parts.join(QLatin1StringView(", ")).left(TextLimit);
}

std::optional<EventDescription> readMessage(const XmlElement &notification,
                                            const QHash<QString, int> &channels)
{
    const XmlElement &message = notification.at({u"Message", u"Message"});
    const QString operation = message.attribute(u"PropertyOperation");
    const QString topic = notification.child(u"Topic").value();
    // A property that is deleted went with its source, and nothing happened.
    if (message.isNull() || topic.isEmpty() || operation == QLatin1StringView("Initialized") ||
        operation == QLatin1StringView("Deleted"))
        return {};
    Items source;
    Items data;
    appendItems(source, message.child(u"Source"));
    appendItems(data, message.child(u"Data"));
    const EventTopic meaning = EventTopic::fromTopic(topic);
    EventDescription event;
    event.cause = meaning.cause;
    event.ending = meaning.ending;
    event.severity = meaning.severity;
    event.time = timeFrom(message.attribute(u"UtcTime"));
    event.text = textOf(source, data);
    for (const auto &[name, value] : std::as_const(source)) {
        if (event.source.isEmpty())
            event.source = value;
        if (const auto channel = channels.constFind(value); channel != channels.cend()) {
            event.source = value;
            event.channelId = *channel;
            break;
        }
    }
    for (const auto &[name, value] : std::as_const(data)) {
        if (const auto state = stateFrom(name, value)) {
            event.state = *state ? EventDescription::State::Began : EventDescription::State::Ended;
            break;
        }
    }
    return event;
}

void collectCauses(QStringList &causes, const XmlElement &element, const QString &path, int depth)
{
    if (depth > TopicDepthLimit)
        return;
    for (const XmlElement &child : element.children) {
        if (causes.size() >= CauseLimit)
            return;
        if (child.name == u"MessageDescription" || child.name == u"documentation")
            continue;
        const QString name = path.isEmpty() ? child.name : path + u'/' + child.name;
        const QString mark = child.attribute(u"topic");
        if (mark == u"true" || mark == u"1" || !child.child(u"MessageDescription").isNull()) {
            const QString cause = EventTopic::fromTopic(name).cause;
            if (!causes.contains(cause))
                causes.append(cause);
        }
        collectCauses(causes, child, name, depth + 1);
    }
}

} // namespace

PullPoint readPullPoint(const XmlElement &answer)
{
    PullPoint point;
    const QString address = answer.at({u"SubscriptionReference", u"Address"}).value();
    const QUrl url(address.size() <= 2048 ? address : QString());
    if (url.path().startsWith(u'/'))
        point.path = url.toString(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment |
                                  QUrl::FullyEncoded);
    point.lifetime = readLifetime(answer);
    return point;
}

Lifetime readLifetime(const XmlElement &answer)
{
    const QDateTime now = timeFrom(answer.child(u"CurrentTime").value());
    const QDateTime end = timeFrom(answer.child(u"TerminationTime").value());
    if (!now.isValid() || !end.isValid() || end <= now)
        return {};
    return std::chrono::milliseconds(now.msecsTo(end));
}

QList<EventDescription> readMessages(const XmlElement &answer, const QHash<QString, int> &channels)
{
    QList<EventDescription> events;
    for (const XmlElement *notification : answer.all(u"NotificationMessage")) {
        if (events.size() >= MessageLimit)
            break;
        if (const auto event = readMessage(*notification, channels))
            events.append(*event);
    }
    return events;
}

QStringList readCauses(const XmlElement &answer)
{
    QStringList causes;
    collectCauses(causes, answer.child(u"TopicSet"), {}, 0);
    return causes;
}

} // namespace orrin::eventservice
