// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundrecorders.h"

#include <algorithm>

FoundRecorders::FoundRecorders(QObject *parent) : QAbstractListModel(parent)
{
    connect(&m_finder, &orrin::DeviceFinder::found, this, &FoundRecorders::add);
    connect(&m_finder, &orrin::DeviceFinder::finished, this, &FoundRecorders::searchingChanged);
}

void FoundRecorders::setDuration(int milliseconds)
{
    const int duration = std::clamp(milliseconds, 100, 60000);
    if (m_duration == duration)
        return;
    m_duration = duration;
    Q_EMIT durationChanged();
}

void FoundRecorders::setProbeAddresses(const QStringList &addresses)
{
    const QStringList before = m_finder.probeAddresses();
    m_finder.setProbeAddresses(addresses);
    if (m_finder.probeAddresses() != before)
        Q_EMIT probeAddressesChanged();
}

void FoundRecorders::setMulticast(bool multicast)
{
    if (isMulticast() == multicast)
        return;
    m_finder.setMulticastEnabled(multicast);
    Q_EMIT multicastChanged();
}

void FoundRecorders::search()
{
    const bool searched = isSearching();
    const bool missed = isNetworkMissing();
    forget();
    m_finder.start(std::chrono::milliseconds(m_duration));
    if (!searched || missed != isNetworkMissing())
        Q_EMIT searchingChanged();
}

void FoundRecorders::stop()
{
    if (!isSearching())
        return;
    m_finder.stop();
    Q_EMIT searchingChanged();
}

void FoundRecorders::clear()
{
    stop();
    forget();
}

QString FoundRecorders::address(int row) const
{
    return m_recorders.value(row).address;
}

int FoundRecorders::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant FoundRecorders::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const orrin::FoundDevice &recorder = m_recorders.at(index.row());
    switch (role) {
    case NameRole:
    case Qt::DisplayRole:
        return recorder.name.isEmpty() ? recorder.address : recorder.name;
    case AddressRole:
        return recorder.address;
    case HardwareRole:
        return recorder.hardware;
    default:
        return {};
    }
}

QHash<int, QByteArray> FoundRecorders::roleNames() const
{
    return {{Qt::DisplayRole, "display"}, {NameRole, "name"}, {AddressRole, "address"}, {HardwareRole, "hardware"}};
}

void FoundRecorders::forget()
{
    if (m_recorders.isEmpty())
        return;
    beginResetModel();
    m_recorders.clear();
    endResetModel();
    Q_EMIT countChanged();
}

void FoundRecorders::add(const orrin::FoundDevice &recorder)
{
    beginInsertRows({}, count(), count());
    m_recorders.append(recorder);
    endInsertRows();
    Q_EMIT countChanged();
}
