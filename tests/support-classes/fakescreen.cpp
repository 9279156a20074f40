// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakescreen.h"

#include <qpa/qwindowsysteminterface.h>

#include <QCoreApplication>
#include <QScreen>

namespace orrin {

FakeScreen::FakeScreen(const QString &name, QSize size, double dotsPerInch)
    : m_name(name)
    , m_geometry(QPoint(), size)
    , m_available(m_geometry)
    , m_dotsPerInch(dotsPerInch)
{
}

void FakeScreen::addAsPrimary()
{
    QWindowSystemInterface::handleScreenAdded(this, true);
}

void FakeScreen::remove()
{
    QWindowSystemInterface::handleScreenRemoved(this);
}

void FakeScreen::setGeometry(const QRect &geometry, const QRect &available)
{
    m_geometry = geometry;
    m_available = available;
    QWindowSystemInterface::handleScreenGeometryChange(screen(), geometry, available);
    QCoreApplication::processEvents();
}

void FakeScreen::setDotsPerInch(double dotsPerInch)
{
    m_dotsPerInch = dotsPerInch;
}

void FakeScreen::setOrientation(Qt::ScreenOrientation orientation)
{
    m_orientation = orientation;
    QWindowSystemInterface::handleScreenOrientationChange(screen(), orientation);
    QCoreApplication::processEvents();
}

QSizeF FakeScreen::physicalSize() const
{
    return QSizeF(m_geometry.size()) / m_dotsPerInch * 25.4;
}

} // namespace orrin
