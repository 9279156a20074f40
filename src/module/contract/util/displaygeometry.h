// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>
#include <contract/util/ndcrect.h>

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace orrin {

/*! Where an image lies in its container after fitting, zoom and pan.

    Plain arithmetic, no thread of its own; one object belongs to one item. Lengths are in container pixels. */
class ORRINSDK_UTIL_EXPORT DisplayGeometry
{
public:
    static constexpr double MaximumZoom = 32.0;

    DisplayGeometry() = default;
    virtual ~DisplayGeometry() = default;
    DisplayGeometry(const DisplayGeometry &) = default;
    DisplayGeometry &operator=(const DisplayGeometry &) = default;

    /*! Sizes that are not positive and finite leave the geometry undefined: zoomRect() is null until both are. */
    void setContainerSize(QSizeF size);
    void setImageSize(QSizeF size);

    /*! True (the default) fits the image inside the container; false stretches it to the container. */
    void setPreserveAspectRatio(bool preserve);
    bool preserveAspectRatio() const { return m_preserveAspectRatio; }

    /*! Multiplies the zoom by \a factor, holding fast the point (\a x, \a y) of the container; both run from -1.0 at the
        left and top to 1.0 at the right and bottom. The zoom stays between 1 and MaximumZoom, and the image is kept in
        view: an axis on which it is larger than the container has no gap, on the other it is centred. A factor that is not
        positive and finite does nothing. */
    void zoom(double factor, double x, double y);

    /*! Moves the image by (\a x, \a y) container pixels, within the same limits. */
    void addOffsetPixels(double x, double y);

    /*! Back to zoom 1 and no offset. */
    void resetZoom();
    /*! Centres the image; the zoom stays. */
    void resetZoomOffset();

    double zoomFactor() const { return m_zoom; }

    /*! The rectangle, in container pixels, at which the image lies; null while there is no geometry yet. */
    QRectF zoomRect() const;

private:
    QSizeF fittedSize() const;
    bool isDefined() const;
    void clampOffset();

    QSizeF m_container;
    QSizeF m_image;
    QPointF m_offset; // of the image's centre from the container's, as a fraction of the container
    double m_zoom = 1.0;
    bool m_preserveAspectRatio = true;
};

/*! Maps \a rect, in a container of \a size, to normalised device coordinates. A rectangle equal to the container gives
    x1 -1, y1 1, x2 1, y2 -1. A container without area gives an all-zero result. */
ORRINSDK_UTIL_EXPORT NDCRect zoomRectToNdcRect(const QRectF &rect, const QSizeF &size);

} // namespace orrin
