// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/statisticstable.h"

#include <support/statsqmlhelper.h>

#include <contract/core/rangeinfofactory.h>

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>

#include <vector>

using namespace Qt::StringLiterals;
using namespace orrin;

namespace {

QString quoted(QString text)
{
    static constexpr QStringView Formulas = u"=+-@\t\r";
    bool isNumber = false;
    text.toDouble(&isNumber);
    if (!text.isEmpty() && Formulas.contains(text.front()) && !isNumber)
        text.prepend(u'\'');
    if (!text.contains(u',') && !text.contains(u'"') && !text.contains(u'\n') && !text.contains(u'\r'))
        return text;
    return u'"' + text.replace(u'"', u"\"\""_s) + u'"';
}

} // namespace

StatisticsTable::StatisticsTable(StatsModel *model, const QString &heading)
    : m_model(model)
    , m_proxy(std::make_unique<StatsModelProxy>())
    , m_info(RangeInfoFactory::create(heading))
    , m_column(model->columnForHeading(heading))
{
    m_proxy->setSourceModel(model);
    m_proxy->updateRangeInfo(heading);
}

QString StatisticsTable::title() const
{
    return m_info->units().isEmpty() ? m_info->description() : u"%1 (%2)"_s.arg(m_info->description(), m_info->units());
}

int StatisticsTable::rowCount() const
{
    return m_model->rowCount();
}

qint64 StatisticsTable::timeMs(int row) const
{
    return m_model->index(row, 1).data().toLongLong();
}

bool StatisticsTable::isState() const
{
    return m_info->statsType() != StatsType::FLOAT && m_info->statsType() != StatsType::INTEGER;
}

QString StatisticsTable::plainText(int row) const
{
    const double value = m_proxy->index(row, m_column).data().toDouble();
    switch (m_info->statsType()) {
    case StatsType::ENUM_SYSTEM_STATUS:
        return StatsQmlHelper::valueToSystemStatusText(value);
    case StatsType::ENUM_DISK_STATUS:
        return StatsQmlHelper::valueToDiskStatusText(value);
    case StatsType::ENUM_CAMERA_STATUS:
        return StatsQmlHelper::valueToCameraStatusText(value);
    case StatsType::FLOAT:
    case StatsType::INTEGER:
        break;
    }
    return QString::number(value, 'f', m_info->decimals());
}

QString StatisticsTable::text(int row) const
{
    if (isState())
        return plainText(row);
    const double value = m_proxy->index(row, m_column).data().toDouble();
    const QString number = QLocale().toString(value, 'f', m_info->decimals());
    return m_info->units().isEmpty() ? number : number + u' ' + m_info->units();
}

int StatisticsTable::nearestRow(qint64 timeMs) const
{
    int begin = 0;
    int end = rowCount();
    if (end == 0)
        return -1;
    // Rows are in the order of time.
    while (end - begin > 1) {
        const int middle = begin + (end - begin) / 2;
        if (this->timeMs(middle) <= timeMs)
            begin = middle;
        else
            end = middle;
    }
    const bool isNextNearer = begin + 1 < rowCount() && this->timeMs(begin + 1) - timeMs < timeMs - this->timeMs(begin);
    return isNextNearer ? begin + 1 : begin;
}

QByteArray StatisticsTable::csv(StatsModel *model, const QStringList &headings)
{
    std::vector<StatisticsTable> tables;
    QString text = u"Time"_s;
    for (const QString &heading : headings) {
        tables.emplace_back(model, heading);
        text += u',' + quoted(tables.back().title());
    }
    text += "\r\n"_L1;
    for (int row = 0; row < model->rowCount(); ++row) {
        const qint64 time = model->index(row, 1).data().toLongLong();
        text += QDateTime::fromMSecsSinceEpoch(time, QTimeZone::UTC).toString(Qt::ISODateWithMs);
        for (const StatisticsTable &table : tables)
            text += u',' + quoted(table.plainText(row));
        text += "\r\n"_L1;
    }
    return text.toUtf8();
}
