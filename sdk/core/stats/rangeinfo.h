// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/irangeinfo.h>

namespace orrin {

/*! What is told of a heading: its texts, its type, its axis. A value. */
struct HeadingFacts
{
    QString description;
    QString units;
    StatsType type = StatsType::FLOAT;
    IRangeInfo::BoundKind lowerBound = IRangeInfo::Computed;
    bool startsAtZero = false;
    int decimals = 2;
};

/*! The facts of one heading, with the values and bounds of a chart. One thread at a time. */
class RangeInfo : public IRangeInfo
{
public:
    RangeInfo(const QString &heading, const HeadingFacts &facts);

    QString description() const override { return m_facts.description; }
    QString units() const override { return m_facts.units; }
    StatsType statsType() const override { return m_facts.type; }
    int lowerBoundKind() const override { return m_facts.lowerBound; }
    int upperBoundKind() const override { return Computed; }
    void setMinimumValue(double value) override { m_minimum = value; }
    std::optional<double> minimumValue() const override { return m_minimum; }
    void setMaximumValue(double value) override { m_maximum = value; }
    std::optional<double> maximumValue() const override { return m_maximum; }
    void setLowerBound(double bound) override { m_lower = bound; }
    double lowerBound() const override { return m_lower; }
    void setUpperBound(double bound) override { m_upper = bound; }
    double upperBound() const override { return m_upper; }
    int decimals() const override { return m_facts.decimals; }
    QString heading() const override { return m_heading; }
    bool lowerBoundStartsAtZero() const override { return m_facts.startsAtZero; }

private:
    const QString m_heading;
    const HeadingFacts m_facts;
    std::optional<double> m_minimum;
    std::optional<double> m_maximum;
    double m_lower = 0.0;
    double m_upper = 100.0;
};

} // namespace orrin
