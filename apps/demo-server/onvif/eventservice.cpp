// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/eventservice.h"

#include "onvif/namespaces.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTimeZone>

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;
using Milliseconds = PullPoints::Milliseconds;

namespace {

/*! How an event of each kind is told. */
struct Topic
{
    EventKind kind;
    QLatin1StringView prefix;
    QStringList path;
    QLatin1StringView sourceName;
    QLatin1StringView sourceType;
    QLatin1StringView dataName; // empty: it has no state
    QLatin1StringView dataType;

    QString text() const { return prefix + u':' + path.join(u'/'); }
};

const QList<Topic> &topics()
{
    static const QList<Topic> table{
        {EventKind::Motion, "tns1"_L1, {u"VideoSource"_s, u"MotionAlarm"_s}, "Source"_L1,
         "tt:ReferenceToken"_L1, "State"_L1, "xs:boolean"_L1},
        {EventKind::VideoLoss, "tns1"_L1, {u"VideoSource"_s, u"SignalLoss"_s}, "Source"_L1,
         "tt:ReferenceToken"_L1, "State"_L1, "xs:boolean"_L1},
        {EventKind::Door, "tns1"_L1, {u"Door"_s, u"State"_s, u"DoorPhysicalState"_s}, "DoorToken"_L1,
         "tt:ReferenceToken"_L1, "State"_L1, "xs:string"_L1},
        {EventKind::Disk, "tns1"_L1, {u"Device"_s, u"HardwareFailure"_s, u"StorageFailure"_s}, "Token"_L1,
         "tt:ReferenceToken"_L1, "Failed"_L1, "xs:boolean"_L1},
        // ONVIF has no topic for logins.
        {EventKind::Login, "site"_L1, {u"User"_s, u"Login"_s}, "User"_L1, "xs:string"_L1, ""_L1, ""_L1},
    };
    return table;
}

const Topic &topicOf(EventKind kind)
{
    return *std::ranges::find(topics(), kind, &Topic::kind);
}

QString stateText(const Event &event)
{
    if (event.kind == EventKind::Door)
        return event.active ? u"Open"_s : u"Closed"_s;
    return event.active ? u"true"_s : u"false"_s;
}

QString timeText(qint64 timeMs)
{
    return QDateTime::fromMSecsSinceEpoch(timeMs, QTimeZone::UTC).toString(Qt::ISODateWithMs);
}

std::optional<Milliseconds> duration(const QString &text)
{
    static const QRegularExpression form(
        u"^PT(?:([0-9]{1,6})H)?(?:([0-9]{1,6})M)?(?:([0-9]{1,6}(?:\\.[0-9]{1,6})?)S)?$"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const double seconds = match.captured(1).toDouble() * 3600 + match.captured(2).toDouble() * 60 +
                           match.captured(3).toDouble();
    return Milliseconds(qint64(seconds * 1000));
}

QString subscriptionId(const HttpRequest &request)
{
    return request.path.section(u'/', -1);
}

SoapFault noSubscription()
{
    return SoapFault::invalidArgument(u"ResourceUnknown"_s, u"There is no such subscription."_s);
}

SoapFault badTime()
{
    return SoapFault::invalidArgument(u"UnacceptableTerminationTime"_s, u"The time cannot be read."_s);
}

} // namespace

EventService::EventService(const OnvifContext &context)
    : OnvifService(context, ns::Events, u"/onvif/event_service"_s, 2, 60)
    , m_points(
          *context.events,
          [this](const Event &event, const QString &user) { return isPermitted(event, user); },
          [this](SoapReply reply, const QList<PullPoints::Message> &messages, Milliseconds time) {
              answerPull(std::move(reply), messages, time);
          })
{
    add(u"GetServiceCapabilities"_s, Access::Anyone,
        [this](const OnvifCall &, SoapWriter &writer) -> std::optional<SoapFault> {
            writer.start(ns::Events, "GetServiceCapabilitiesResponse"_L1);
            writeCapabilities(writer);
            writer.end();
            return std::nullopt;
        });
    add(u"GetEventProperties"_s, Access::Users,
        [this](const OnvifCall &, SoapWriter &writer) -> std::optional<SoapFault> {
            writeEventProperties(writer);
            return std::nullopt;
        });
    add(u"CreatePullPointSubscription"_s, Access::Users,
        [this](const OnvifCall &call, SoapWriter &writer) { return create(call, writer); });
    addLater(u"PullMessages"_s, Access::Users,
             [this](const OnvifCall &call, SoapReply reply) { pull(call, std::move(reply)); });
    addManagement();
}

void EventService::addManagement()
{
    add(u"SetSynchronizationPoint"_s, Access::Users,
        [this](const OnvifCall &call, SoapWriter &writer) -> std::optional<SoapFault> {
            if (!m_points.synchronise(subscriptionId(call.request), call.user->name))
                return noSubscription();
            writer.empty(ns::Events, "SetSynchronizationPointResponse"_L1);
            return std::nullopt;
        });
    add(u"Renew"_s, Access::Users,
        [this](const OnvifCall &call, SoapWriter &writer) -> std::optional<SoapFault> {
            const auto time = lifetime(call.operation.childText(u"TerminationTime"));
            if (!time)
                return badTime();
            if (!m_points.renew(subscriptionId(call.request), call.user->name, *time))
                return noSubscription();
            writer.start(ns::Notification, "RenewResponse"_L1);
            const auto granted =
                std::clamp(*time, PullPoints::ShortestLifetime, PullPoints::LongestLifetime);
            writer.element(ns::Notification, "TerminationTime"_L1,
                           timeText(context().clock.nowMs() + granted.count()));
            writer.element(ns::Notification, "CurrentTime"_L1, timeText(context().clock.nowMs()));
            writer.end();
            return std::nullopt;
        });
    add(u"Unsubscribe"_s, Access::Users,
        [this](const OnvifCall &call, SoapWriter &writer) -> std::optional<SoapFault> {
            if (!m_points.remove(subscriptionId(call.request), call.user->name))
                return noSubscription();
            writer.empty(ns::Notification, "UnsubscribeResponse"_L1);
            return std::nullopt;
        });
}

bool EventService::serves(QStringView ns) const
{
    return ns == ns::Events || ns == ns::Notification;
}

void EventService::writeCapabilities(SoapWriter &writer) const
{
    writer.empty(ns::Events, "Capabilities"_L1,
                 {{"WSSubscriptionPolicySupport"_L1, u"false"_s},
                  {"WSPausableSubscriptionManagerInterfaceSupport"_L1, u"false"_s},
                  {"MaxNotificationProducers"_L1, u"0"_s},
                  {"MaxPullPoints"_L1, QString::number(PullPoints::MaximumCount)},
                  {"PersistentNotificationStorage"_L1, u"false"_s}});
}

void EventService::writeEventProperties(SoapWriter &writer) const
{
    writer.start(ns::Events, "GetEventPropertiesResponse"_L1);
    writer.element(ns::Events, "TopicNamespaceLocation"_L1,
                   u"http://www.onvif.org/onvif/ver10/topics/topicns.xml"_s);
    writer.element(ns::Notification, "FixedTopicSet"_L1, true);
    writer.start(ns::TopicExpressions, "TopicSet"_L1);
    for (const Topic &topic : topics()) {
        for (qsizetype depth = 0; depth < topic.path.size(); ++depth) {
            const QByteArray name = topic.path.at(depth).toLatin1();
            const QLatin1StringView space =
                depth > 0 ? QLatin1StringView() : (topic.prefix == "site"_L1 ? ns::Site : ns::Topics);
            if (depth + 1 == topic.path.size())
                writer.start(space, QLatin1StringView(name), {{"wstop:topic"_L1, u"true"_s}});
            else
                writer.start(space, QLatin1StringView(name));
        }
        const bool hasState = !topic.dataName.isEmpty();
        writer.start(ns::Schema, "MessageDescription"_L1,
                     {{"IsProperty"_L1, hasState ? u"true"_s : u"false"_s}});
        writer.start(ns::Schema, "Source"_L1);
        writer.empty(ns::Schema, "SimpleItemDescription"_L1,
                     {{"Name"_L1, topic.sourceName}, {"Type"_L1, topic.sourceType}});
        writer.end();
        if (hasState) {
            writer.start(ns::Schema, "Data"_L1);
            writer.empty(ns::Schema, "SimpleItemDescription"_L1,
                         {{"Name"_L1, topic.dataName}, {"Type"_L1, topic.dataType}});
            writer.end();
        }
        writer.end();
        for (qsizetype depth = 0; depth < topic.path.size(); ++depth)
            writer.end();
    }
    writer.end();
    writer.element(ns::Notification, "TopicExpressionDialect"_L1,
                   u"http://www.onvif.org/ver10/tev/topicExpression/ConcreteSet"_s);
    writer.element(ns::Events, "MessageContentFilterDialect"_L1,
                   u"http://www.onvif.org/ver10/tev/messageContentFilter/ItemFilter"_s);
    writer.element(ns::Events, "MessageContentSchemaLocation"_L1,
                   u"http://www.onvif.org/onvif/ver10/schema/onvif.xsd"_s);
    writer.end();
}

std::optional<SoapFault> EventService::create(const OnvifCall &call, SoapWriter &writer)
{
    const XmlElement *filter = call.operation.child(u"Filter");
    if (filter && !filter->children.isEmpty())
        return SoapFault::invalidArgument(u"InvalidFilter"_s, u"Filters are not supported."_s);
    const QString wanted = call.operation.childText(u"InitialTerminationTime");
    const std::optional<Milliseconds> time = wanted.isEmpty() ? std::nullopt : lifetime(wanted);
    if (!wanted.isEmpty() && !time)
        return badTime();
    const std::optional<QString> id = m_points.create(call.user->name, *time);
    if (!id)
        return SoapFault{u"env:Receiver"_s,
                         {u"ter:Action"_s, u"ter:MaxPullPoints"_s},
                         u"There are too many subscriptions."_s,
                         500};
    writer.start(ns::Events, "CreatePullPointSubscriptionResponse"_L1);
    writer.start(ns::Events, "SubscriptionReference"_L1);
    writer.element(
        ns::Addressing, "Address"_L1,
        u"https://%1/onvif/subscription/%2"_s.arg(QString::fromLatin1(call.request.host), *id));
    writer.end();
    writeTimes(writer, ns::Notification,
               std::clamp(time.value_or(PullPoints::DefaultLifetime), PullPoints::ShortestLifetime,
                          PullPoints::LongestLifetime));
    writer.end();
    return std::nullopt;
}

void EventService::pull(const OnvifCall &call, SoapReply reply)
{
    const auto wait = duration(call.operation.childText(u"Timeout"));
    const int limit = call.operation.childText(u"MessageLimit").toInt();
    if (!wait || limit <= 0)
        return reply.sendFault(SoapFault::invalidArgument(
            u"PullMessagesFaultResponse"_s, u"Timeout and MessageLimit are needed."_s));
    if (!m_points.pull(subscriptionId(call.request), call.user->name, *wait, limit, reply))
        reply.sendFault(noSubscription());
}

void EventService::answerPull(SoapReply reply, const QList<PullPoints::Message> &messages,
                              Milliseconds time) const
{
    SoapWriter writer;
    writer.start(ns::Events, "PullMessagesResponse"_L1);
    writeTimes(writer, ns::Events, time);
    for (const PullPoints::Message &message : messages)
        writeMessage(writer, message);
    writer.end();
    reply.send(writer);
}

void EventService::writeMessage(SoapWriter &writer, const PullPoints::Message &message) const
{
    const Event &event = message.event;
    const Topic &topic = topicOf(event.kind);
    writer.start(ns::Notification, "NotificationMessage"_L1);
    writer.start(ns::Notification, "Topic"_L1,
                 {{"Dialect"_L1, u"http://www.onvif.org/ver10/tev/topicExpression/ConcreteSet"_s}});
    writer.text(topic.text());
    writer.end();
    writer.start(ns::Notification, "Message"_L1);
    if (topic.dataName.isEmpty())
        writer.start(ns::Schema, "Message"_L1, {{"UtcTime"_L1, timeText(event.timeMs)}});
    else
        writer.start(ns::Schema, "Message"_L1,
                     {{"UtcTime"_L1, timeText(event.timeMs)},
                      {"PropertyOperation"_L1, message.isState ? u"Initialized"_s : u"Changed"_s}});
    writer.start(ns::Schema, "Source"_L1);
    writer.empty(ns::Schema, "SimpleItem"_L1, {{"Name"_L1, topic.sourceName}, {"Value"_L1, event.source}});
    writer.end();
    if (!topic.dataName.isEmpty()) {
        writer.start(ns::Schema, "Data"_L1);
        writer.empty(ns::Schema, "SimpleItem"_L1,
                     {{"Name"_L1, topic.dataName}, {"Value"_L1, stateText(event)}});
        writer.end();
    }
    writer.end();
    writer.end();
    writer.end();
}

void EventService::writeTimes(SoapWriter &writer, QLatin1StringView ns, Milliseconds time) const
{
    const qint64 now = context().clock.nowMs();
    writer.element(ns, "CurrentTime"_L1, timeText(now));
    writer.element(ns, "TerminationTime"_L1, timeText(now + time.count()));
}

bool EventService::isPermitted(const Event &event, const QString &user) const
{
    const Camera *camera = event.camera > 0 ? recorder().camera(event.camera) : nullptr;
    return event.camera == 0 || (camera && camera->permittedFor(user));
}

std::optional<Milliseconds> EventService::lifetime(const QString &text) const
{
    if (const auto time = duration(text))
        return time;
    const QDateTime end = QDateTime::fromString(text, Qt::ISODateWithMs);
    if (!end.isValid())
        return std::nullopt;
    return Milliseconds(end.toMSecsSinceEpoch() - context().clock.nowMs());
}

} // namespace orrin::demo
