// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <qpa/qplatformscreen.h>

namespace orrin {

/*! A screen of the platform whose facts a test sets. Owned by the application once it is added. */
class FakeScreen : public QPlatformScreen
{
public:
    FakeScreen(const QString &name, QSize size, double dotsPerInch);

    /*! Makes it a screen of the application, and the primary one. */
    void addAsPrimary();
    /*! Takes it away and deletes it. */
    void remove();

    void setGeometry(const QRect &geometry, const QRect &available);
    void setDotsPerInch(double dotsPerInch);
    void setOrientation(Qt::ScreenOrientation orientation);
    void setDevicePixelRatio(qreal ratio) { m_devicePixelRatio = ratio; }

    QRect geometry() const override { return m_geometry; }
    QRect availableGeometry() const override { return m_available; }
    int depth() const override { return 32; }
    QImage::Format format() const override { return QImage::Format_RGB32; }
    QSizeF physicalSize() const override;
    QString name() const override { return m_name; }
    qreal devicePixelRatio() const override { return m_devicePixelRatio; }
    Qt::ScreenOrientation orientation() const override { return m_orientation; }

private:
    QString m_name;
    QRect m_geometry;
    QRect m_available;
    double m_dotsPerInch;
    qreal m_devicePixelRatio = 1.0;
    Qt::ScreenOrientation m_orientation = Qt::LandscapeOrientation;
};

} // namespace orrin
