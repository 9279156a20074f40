// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/onvifservice.h"
#include "onvif/searches.h"
#include "recordings/recordings.h"

namespace orrin::demo {

/*!
    The ONVIF recording search service: what is recorded, from when to when, and, as events of the recordings
   and their tracks, the gaps in between. A search is complete as soon as it has begun; its results are fetched in
   portions. Filters other than by source, recording and topic are refused.
*/
class SearchService : public OnvifService
{
public:
    explicit SearchService(const OnvifContext &context);

    void reset() override { m_searches.reset(); }
    void writeCapabilities(SoapWriter &writer) const override;

private:
    using Refs = QList<recordings::Ref>;

    void addCall(const QString &name,
                 std::optional<SoapFault> (SearchService::*write)(const OnvifCall &, SoapWriter &));
    std::optional<SoapFault> writeSummary(const OnvifCall &call, SoapWriter &writer);
    std::optional<SoapFault> writeInformation(const OnvifCall &call, SoapWriter &writer);
    std::optional<SoapFault> writeMediaAttributes(const OnvifCall &call, SoapWriter &writer);
    std::optional<SoapFault> findRecordings(const OnvifCall &call, SoapWriter &writer);
    std::optional<SoapFault> writeRecordingResults(const OnvifCall &call, SoapWriter &writer);
    std::optional<SoapFault> findEvents(const OnvifCall &call, SoapWriter &writer);
    std::optional<SoapFault> writeEventResults(const OnvifCall &call, SoapWriter &writer);
    std::optional<SoapFault> endSearch(const OnvifCall &call, SoapWriter &writer);

    Refs scope(const OnvifCall &call) const;
    std::optional<SoapFault> begin(const OnvifCall &call, Searches::Search search, SoapWriter &writer,
                                   QLatin1StringView response);

    Searches m_searches;
};

} // namespace orrin::demo
