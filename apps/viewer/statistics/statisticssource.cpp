// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/statisticssource.h"

#include "statistics/statisticstable.h"

#include <QSaveFile>

using namespace Qt::StringLiterals;
using orrin::StatsModel;

namespace {

// A file of a page is not worth a full disk.
constexpr qsizetype MostHeadings = 64;

QString pathOf(const QUrl &file)
{
    return file.isLocalFile() ? file.toLocalFile() : file.isRelative() ? file.path() : QString();
}

} // namespace

StatisticsSource::StatisticsSource(QObject *parent)
    : QObject(parent)
{
    connect(&m_model, &StatsModel::fromChanged, this, &StatisticsSource::spanChanged);
    connect(&m_model, &StatsModel::toChanged, this, &StatisticsSource::spanChanged);
    connect(&m_model, &StatsModel::statusChanged, this, &StatisticsSource::statusChanged);
}

StatisticsSource::~StatisticsSource() = default;

QAbstractItemModel *StatisticsSource::samples()
{
    return &m_model;
}

QAbstractItemModel *StatisticsSource::headings() const
{
    return m_model.headings();
}

QDateTime StatisticsSource::from() const
{
    return m_model.getFrom();
}

QDateTime StatisticsSource::to() const
{
    return m_model.getTo();
}

bool StatisticsSource::isRunning() const
{
    return m_model.isRunning();
}

bool StatisticsSource::isReady() const
{
    return m_model.getStatus() == StatsModel::Ready;
}

QString StatisticsSource::statusText() const
{
    return StatsModel::getStatusDescription(m_model.getStatus());
}

void StatisticsSource::setServer(int serverGroupId, int serverId)
{
    m_model.setServer(serverGroupId, serverId);
}

bool StatisticsSource::setSpan(const QDateTime &from, const QDateTime &to)
{
    if (!from.isValid() || !to.isValid() || from >= to)
        return false;
    m_model.setSpan(from, to);
    Q_EMIT runningChanged();
    return true;
}

void StatisticsSource::setRunningSpan(qlonglong milliseconds)
{
    m_model.setRunningSpan(milliseconds);
    Q_EMIT runningChanged();
}

QVariantMap StatisticsSource::nearest(const QString &heading, double timeMs)
{
    if (!(timeMs > -1e15 && timeMs < 1e15) || m_model.rowCount() == 0)
        return {};
    const StatisticsTable table(&m_model, heading);
    const int row = table.nearestRow(static_cast<qint64>(timeMs));
    if (row < 0)
        return {};
    return {{u"time"_s, double(table.timeMs(row))}, {u"text"_s, table.text(row)}};
}

QString StatisticsSource::saveTable(const QUrl &file, const QStringList &headings)
{
    QSaveFile out(pathOf(file));
    if (!out.open(QIODevice::WriteOnly))
        return out.errorString();
    const QByteArray text = StatisticsTable::csv(&m_model, headings.first(std::min(headings.size(), MostHeadings)));
    if (out.write(text) != text.size() || !out.commit())
        return out.errorString();
    return {};
}

QString StatisticsSource::savePicture(const QUrl &file, const QVariant &picture)
{
    const auto image = picture.value<QImage>();
    if (image.isNull())
        return tr("There is no picture.");
    QSaveFile out(pathOf(file));
    if (!out.open(QIODevice::WriteOnly))
        return out.errorString();
    if (!image.save(&out, "PNG"))
        return tr("The picture could not be written.");
    return out.commit() ? QString() : out.errorString();
}
