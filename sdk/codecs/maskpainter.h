// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/codecs/export.h>
#include <contract/codecs/videoframe.h>

#include <QPointF>

#include <vector>

namespace orrin {

/*! Paints polygons into planes.

    \a polygons have their points as fractions of the picture. Each is filled by the odd-even rule, each one by itself, so that
    overlapping ones do not uncover each other. A pixel is inside when its centre is; a chroma sample is painted when any of its
    four pixels is. \a y, \a u, \a v are the values to paint. */
class ORRINSDK_CODECS_EXPORT MaskPainter
{
public:
    struct Colour
    {
        std::uint8_t y = 16;
        std::uint8_t u = 128;
        std::uint8_t v = 128;
    };

    MaskPainter(const VideoFrame::WritablePlanes &planes, int width, int height, Colour colour);

    void fill(const std::vector<QPointF> &polygon);

private:
    struct Edge
    {
        int firstLine;
        int endLine;
        double x;
        double step;
    };

    void collectEdges(const std::vector<QPointF> &polygon);
    void fillLine(int line);
    void fillSpan(int line, double from, double to);

    VideoFrame::WritablePlanes m_planes;
    int m_width;
    int m_height;
    Colour m_colour;
    std::vector<Edge> m_edges;
    std::vector<Edge> m_active;
    std::vector<double> m_crossings;
};

} // namespace orrin
