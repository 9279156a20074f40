// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/displaygeometry.h>

#include <algorithm>
#include <cmath>

namespace orrin {

namespace {

bool isUsable(const QSizeF &size)
{
    return std::isfinite(size.width()) && std::isfinite(size.height()) && size.width() > 0.0 &&
           size.height() > 0.0;
}

} // namespace

void DisplayGeometry::setContainerSize(QSizeF size)
{
    m_container = size;
    clampOffset();
}

void DisplayGeometry::setImageSize(QSizeF size)
{
    m_image = size;
    clampOffset();
}

void DisplayGeometry::setPreserveAspectRatio(bool preserve)
{
    m_preserveAspectRatio = preserve;
    clampOffset();
}

void DisplayGeometry::zoom(double factor, double x, double y)
{
    if (!std::isfinite(factor) || factor <= 0.0 || !std::isfinite(x) || !std::isfinite(y))
        return;
    const double zoom = std::clamp(m_zoom * factor, 1.0, MaximumZoom);
    const double change = zoom / m_zoom;
    const QPointF fixed(x / 2.0, y / 2.0);
    m_offset = fixed - (fixed - m_offset) * change;
    m_zoom = zoom;
    clampOffset();
}

void DisplayGeometry::addOffsetPixels(double x, double y)
{
    if (!isDefined() || !std::isfinite(x) || !std::isfinite(y))
        return;
    m_offset += QPointF(x / m_container.width(), y / m_container.height());
    clampOffset();
}

void DisplayGeometry::resetZoom()
{
    m_zoom = 1.0;
    m_offset = {};
}

void DisplayGeometry::resetZoomOffset()
{
    m_offset = {};
}

QRectF DisplayGeometry::zoomRect() const
{
    if (!isDefined())
        return {};
    const QSizeF size = fittedSize() * m_zoom;
    const QPointF centre(m_container.width() * (0.5 + m_offset.x()),
                         m_container.height() * (0.5 + m_offset.y()));
    return QRectF(centre - QPointF(size.width() / 2.0, size.height() / 2.0), size);
}

QSizeF DisplayGeometry::fittedSize() const
{
    return m_preserveAspectRatio ? m_image.scaled(m_container, Qt::KeepAspectRatio) : m_container;
}

bool DisplayGeometry::isDefined() const
{
    return isUsable(m_container) && isUsable(m_image);
}

void DisplayGeometry::clampOffset()
{
    if (!isDefined())
        return;
    const QSizeF size = fittedSize() * m_zoom;
    const double limitX = std::max(0.0, (size.width() / m_container.width() - 1.0) / 2.0);
    const double limitY = std::max(0.0, (size.height() / m_container.height() - 1.0) / 2.0);
    m_offset = QPointF(std::clamp(m_offset.x(), -limitX, limitX), std::clamp(m_offset.y(), -limitY, limitY));
}

NDCRect zoomRectToNdcRect(const QRectF &rect, const QSizeF &size)
{
    if (!isUsable(size))
        return {};
    return {rect.left() / size.width() * 2.0 - 1.0, 1.0 - rect.top() / size.height() * 2.0,
            rect.right() / size.width() * 2.0 - 1.0, 1.0 - rect.bottom() / size.height() * 2.0};
}

} // namespace orrin
