// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QPointF>
#include <QString>

#include <vector>

namespace orrin {

class VideoFrame;

/*! How an encoded mask is to be used. */
enum class MaskType : int { Motion = 1, Privacy = 2 };

/*! A set of polygons over a picture.

    The encoded form is text: "1" for the version, then for each polygon a semicolon and its points, separated by
    blanks, each as two integers with a comma between, in ten-thousandths of the picture's width and height from the top left, 0 to
    10000: "1;0,0 5000,0 5000,5000;…". A reader drops polygons of fewer than 3 points, clamps coordinates, and refuses (as an empty
    mask) texts of another version, with anything unreadable, above 64 KiB, with more than 256 polygons or 4096 points. */
class ORRINSDK_CORE_EXPORT Mask
{
public:
    using Polygon = std::vector<QPointF>; //!< points as fractions of the picture

    Mask(const QString &encoded, MaskType type);

    /*! The text given to the constructor. */
    const QString &encodedMaskString() const { return m_encoded; }
    MaskType type() const { return m_type; }
    const std::vector<Polygon> &polygons() const { return m_polygons; }

    /*! Paints the inside of the polygons (odd-even rule) black. The frame gets its own copy of the pixels first; copies made
        before keep the picture. A frame without a picture or an empty mask is left as it is. */
    void applyMaskToVideoFrame(VideoFrame &frame) const;

    /*! The encoded form of \a polygons. */
    static QString encode(const std::vector<Polygon> &polygons);

private:
    QString m_encoded;
    MaskType m_type;
    std::vector<Polygon> m_polygons;
};

} // namespace orrin
