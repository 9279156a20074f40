// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/onvifservice.h"
#include "onvif/pullpoints.h"

namespace orrin::demo {

/*! The ONVIF event service with its pull points. */
class EventService : public OnvifService
{
public:
    /*! The context's event log is set, and outlives the service. */
    explicit EventService(const OnvifContext &context);

    bool serves(QStringView ns) const override;
    void reset() override { m_points.reset(); }
    std::pair<int, int> subscriptionCounts() const override
    {
        return {int(m_points.count()), m_points.madeCount()};
    }
    void writeCapabilities(SoapWriter &writer) const override;

private:
    void addManagement();
    void writeEventProperties(SoapWriter &writer) const;
    std::optional<SoapFault> create(const OnvifCall &call, SoapWriter &writer);
    void pull(const OnvifCall &call, SoapReply reply);
    void answerPull(SoapReply reply, const QList<PullPoints::Message> &messages,
                    PullPoints::Milliseconds lifetime) const;
    void writeMessage(SoapWriter &writer, const PullPoints::Message &message) const;
    void writeTimes(SoapWriter &writer, QLatin1StringView ns, PullPoints::Milliseconds lifetime) const;
    bool isPermitted(const Event &event, const QString &user) const;
    /*! How long a duration or a point in time asks for; nothing when it is neither. */
    std::optional<PullPoints::Milliseconds> lifetime(const QString &text) const;

    PullPoints m_points;
};

} // namespace orrin::demo
