// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/statstype.h>

#include <QString>

#include <optional>

namespace orrin {

/*! What a heading of the statistics means, and the range in which its values are shown. Main thread; belongs to whoever asked for it.

    The order of the operations is part of the interface. */
class IRangeInfo
{
public:
    /*! How a bound comes about. */
    enum BoundKind : int { Computed = 0, Fixed = 1 };

    virtual ~IRangeInfo() = default;

    /*! The heading's long name, translated. */
    virtual QString description() const = 0;
    /*! The unit as text, empty without one. */
    virtual QString units() const = 0;
    virtual StatsType statsType() const = 0;

    /*! A BoundKind; 0 means that the bound is computed from the data. */
    virtual int lowerBoundKind() const = 0;
    virtual int upperBoundKind() const = 0;

    /*! The smallest and the largest value of the data; nothing before they are set. */
    virtual void setMinimumValue(double value) = 0;
    virtual std::optional<double> minimumValue() const = 0;
    virtual void setMaximumValue(double value) = 0;
    virtual std::optional<double> maximumValue() const = 0;

    /*! The ends of the axis; 0 and 100 until they are set. */
    virtual void setLowerBound(double bound) = 0;
    virtual double lowerBound() const = 0;
    virtual void setUpperBound(double bound) = 0;
    virtual double upperBound() const = 0;

    /*! Digits after the decimal point with which a value is written out, 0 or more. */
    virtual int decimals() const = 0;

    /*! The heading itself, as it was asked for. */
    virtual QString heading() const = 0;

    /*! Whether an axis whose lower bound is not computed begins at 0. */
    virtual bool lowerBoundStartsAtZero() const = 0;

protected:
    IRangeInfo() = default;
    IRangeInfo(const IRangeInfo &) = default;
    IRangeInfo &operator=(const IRangeInfo &) = default;
};

} // namespace orrin
