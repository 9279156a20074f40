// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/statsmodelproxy.h"

#include <contract/core/irangeinfo.h>

#include <QPointer>

#include <memory>
#include <utility>

namespace orrin {

class ORRINSDKQML_EXPORT StatsModelProxyPrivate
{
public:
    explicit StatsModelProxyPrivate(StatsModelProxy *q);

    /*! The ends of an axis that shows values from \a minimum to \a maximum with some room. */
    static std::pair<double, double> padded(double minimum, double maximum);
    static bool areEqual(double first, double second);

    void updateBounds();

    StatsModelProxy *q;
    QPointer<StatsModel> model;
    std::unique_ptr<IRangeInfo> rangeInfo; // never null
};

} // namespace orrin
