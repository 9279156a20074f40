// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/httprequest.h"
#include "onvif/soapfault.h"
#include "onvif/soapreply.h"
#include "onvif/soaprequest.h"
#include "onvif/soapwriter.h"
#include "site/accounts.h"
#include "site/deviceclock.h"
#include "site/eventlog.h"
#include "site/site.h"

#include <QHash>
#include <QLatin1StringView>

#include <functional>
#include <memory>
#include <optional>

namespace orrin::demo {

/*! What the services of one recorder know of it. */
struct OnvifContext
{
    const RecorderInfo *recorder = nullptr; //!< outlives the services; may change between calls
    std::shared_ptr<const Accounts> accounts;
    DeviceClock clock;
    EventLog *events = nullptr; //!< outlives the services
    QString address; //!< what the recorder listens on
    bool siteExtension = true;
    bool rtspTls = true;
    std::function<quint16()> httpPort;
    std::function<quint16()> rtspPort;
};

/*! One call of an operation. */
struct OnvifCall
{
    const XmlElement &operation;
    const std::optional<User> &user; //!< empty only in operations that need no login
    const HttpRequest &request;
};

/*! A web service of ONVIF: a namespace, a path and a table of operations. Subclasses fill the table. GUI
 * thread. */
class OnvifService
{
public:
    /*! Who may call an operation. */
    enum class Access { Anyone, Users, Operators, Administrators };

    /*! Writes the operation's response into the envelope; a fault replaces what was written. */
    using Handler = std::function<std::optional<SoapFault>(const OnvifCall &, SoapWriter &)>;

    /*! Answers when it is time to. */
    using LaterHandler = std::function<void(const OnvifCall &, SoapReply)>;

    /*! One of the two handlers is set. */
    struct Operation
    {
        Access access = Access::Users;
        Handler handler = {};
        LaterHandler later = {};
    };

    OnvifService(OnvifContext context, QLatin1StringView ns, QString path, int major, int minor);
    OnvifService(const OnvifService &) = delete;
    OnvifService &operator=(const OnvifService &) = delete;
    virtual ~OnvifService();

    QLatin1StringView ns() const { return m_ns; }
    QString path() const { return m_path; }
    /*! Operations whose element has this namespace are the service's. */
    virtual bool serves(QStringView ns) const { return ns == m_ns; }
    /*! Forgets what clients left behind, as a device that starts anew. */
    virtual void reset() {}
    /*! Subscriptions of clients: those that stand, and those made since the start. */
    virtual std::pair<int, int> subscriptionCounts() const { return {0, 0}; }
    int majorVersion() const { return m_major; }
    int minorVersion() const { return m_minor; }

    /*! The operation with this name, null without one. */
    const Operation *operation(const QString &name) const;

    /*! Writes the service's Capabilities element, as GetServices and GetServiceCapabilities give it. */
    virtual void writeCapabilities(SoapWriter &writer) const = 0;

    /*! The service's address as the client reaches it. */
    QString address(const HttpRequest &request) const;

protected:
    void add(const QString &name, Access access, Handler handler);
    void addLater(const QString &name, Access access, LaterHandler handler);
    const OnvifContext &context() const { return m_context; }
    const RecorderInfo &recorder() const { return *m_context.recorder; }

private:
    OnvifContext m_context;
    QLatin1StringView m_ns;
    QString m_path;
    int m_major;
    int m_minor;
    QHash<QString, Operation> m_operations;
};

} // namespace orrin::demo
