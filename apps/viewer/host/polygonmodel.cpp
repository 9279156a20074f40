// SPDX-License-Identifier: GPL-3.0-or-later
#include "polygonmodel.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

Q_LOGGING_CATEGORY(polygonLog, "orrin.viewer.polygon", QtInfoMsg)

bool isNumber(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

double squaredDistance(QPointF point, QPointF from, QPointF to)
{
    const QPointF edge = to - from;
    const double length = QPointF::dotProduct(edge, edge);
    const double along = length > 0 ? std::clamp(QPointF::dotProduct(point - from, edge) / length, 0.0, 1.0) : 0;
    const QPointF distance = point - (from + along * edge);
    return QPointF::dotProduct(distance, distance);
}

} // namespace

int PolygonModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || m_corners.isEmpty() ? 0 : static_cast<int>(m_corners.size()) + 1;
}

QVariant PolygonModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const QPointF corner = m_corners.at(index.row() % m_corners.size());
    switch (role) {
    case XRole:
        return corner.x();
    case YRole:
        return corner.y();
    default:
        return {};
    }
}

QHash<int, QByteArray> PolygonModel::roleNames() const
{
    return {{XRole, QByteArrayLiteral("x")}, {YRole, QByteArrayLiteral("y")}};
}

void PolygonModel::setCorners(const QList<QPointF> &corners)
{
    QList<QPointF> taken;
    std::copy_if(corners.begin(), corners.end(), std::back_inserter(taken), isNumber);
    if (taken.size() > MaximumCorners)
        taken.resize(MaximumCorners);
    if (taken == m_corners)
        return;
    beginResetModel();
    m_corners = taken;
    endResetModel();
    Q_EMIT startChanged();
    setContainsCursor(false);
    Q_EMIT cornersChanged();
}

bool PolygonModel::contains(QPointF position) const
{
    bool inside = false;
    for (qsizetype i = 0, before = m_corners.size() - 1; i < m_corners.size(); before = i++) {
        const QPointF from = m_corners.at(before);
        const QPointF to = m_corners.at(i);
        if ((from.y() > position.y()) == (to.y() > position.y()))
            continue;
        const double crossing = from.x() + (position.y() - from.y()) / (to.y() - from.y()) * (to.x() - from.x());
        if (position.x() < crossing)
            inside = !inside;
    }
    return inside;
}

void PolygonModel::updateCursorPosition(QPointF position)
{
    setContainsCursor(contains(position));
}

void PolygonModel::addPoint(QPointF position)
{
    if (!isNumber(position) || m_corners.size() >= MaximumCorners)
        return;
    if (m_corners.isEmpty()) {
        setCorners({position});
        return;
    }
    const qsizetype place = edgeNearest(position) + 1;
    beginInsertRows({}, static_cast<int>(place), static_cast<int>(place));
    m_corners.insert(place, position);
    endInsertRows();
    Q_EMIT cornersChanged();
}

void PolygonModel::removePointAtIndex(int index)
{
    if (index < 0 || index > m_corners.size() || m_corners.size() <= FewestCorners)
        return;
    const int corner = index % static_cast<int>(m_corners.size());
    beginRemoveRows({}, corner, corner);
    m_corners.removeAt(corner);
    endRemoveRows();
    if (corner == 0) {
        const int closing = rowCount() - 1;
        Q_EMIT startChanged();
        Q_EMIT dataChanged(this->index(closing), this->index(closing));
    }
    Q_EMIT cornersChanged();
}

void PolygonModel::moveVertex(int index, double x_diff, double y_diff)
{
    const QPointF difference(x_diff, y_diff);
    if (index < 0 || index > m_corners.size() || m_corners.isEmpty() || !isNumber(difference))
        return;
    const int corner = index % static_cast<int>(m_corners.size());
    m_corners[corner] += difference;
    tellMoved(corner, corner);
}

void PolygonModel::moveAllVertices(double x_diff, double y_diff)
{
    const QPointF difference(x_diff, y_diff);
    if (m_corners.isEmpty() || !isNumber(difference))
        return;
    for (QPointF &corner : m_corners)
        corner += difference;
    tellMoved(0, static_cast<int>(m_corners.size()));
}

void PolygonModel::printCorvanePoints(QQuickItem *parentScene) const
{
    if (!polygonLog().isDebugEnabled() || !parentScene || parentScene->width() <= 0 || parentScene->height() <= 0)
        return;
    for (const QPointF &corner : m_corners)
        qCDebug(polygonLog) << corner.x() / parentScene->width() << corner.y() / parentScene->height();
}

qsizetype PolygonModel::edgeNearest(QPointF position) const
{
    qsizetype nearest = 0;
    double least = std::numeric_limits<double>::infinity();
    for (qsizetype i = 0; i < m_corners.size(); ++i) {
        const double distance = squaredDistance(position, m_corners.at(i), m_corners.at((i + 1) % m_corners.size()));
        if (distance < least) {
            least = distance;
            nearest = i;
        }
    }
    return nearest;
}

void PolygonModel::setContainsCursor(bool contains)
{
    if (m_containsCursor == contains)
        return;
    m_containsCursor = contains;
    Q_EMIT shapeContainsCursorChanged();
}

void PolygonModel::tellMoved(int first, int last)
{
    Q_EMIT dataChanged(index(first), index(last), {XRole, YRole});
    if (first == 0) {
        const int closing = rowCount() - 1;
        if (last < closing)
            Q_EMIT dataChanged(index(closing), index(closing), {XRole, YRole});
        Q_EMIT startChanged();
    }
    Q_EMIT cornersChanged();
}
