// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/maskpainter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <utility>

namespace orrin {

MaskPainter::MaskPainter(const VideoFrame::WritablePlanes &planes, int width, int height, Colour colour)
    : m_planes(planes)
    , m_width(width)
    , m_height(height)
    , m_colour(colour)
{
}

void MaskPainter::fill(const std::vector<QPointF> &polygon)
{
    if (!m_planes.y || polygon.size() < 3)
        return;
    collectEdges(polygon);
    if (m_edges.empty())
        return;
    std::sort(m_edges.begin(), m_edges.end(), [](const Edge &a, const Edge &b) { return a.firstLine < b.firstLine; });

    m_active.clear();
    std::size_t next = 0;
    for (int line = m_edges.front().firstLine; line < m_height; ++line) {
        std::erase_if(m_active, [line](const Edge &edge) { return edge.endLine <= line; });
        while (next < m_edges.size() && m_edges[next].firstLine == line)
            m_active.push_back(m_edges[next++]);
        if (m_active.empty() && next == m_edges.size())
            break;
        fillLine(line);
    }
}

// An edge covers the lines whose centre lies between its ends, the upper one included: shared corners count once.
void MaskPainter::collectEdges(const std::vector<QPointF> &polygon)
{
    m_edges.clear();
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        QPointF top = polygon[i];
        QPointF bottom = polygon[(i + 1) % polygon.size()];
        top = {std::clamp(top.x(), 0.0, 1.0) * m_width, std::clamp(top.y(), 0.0, 1.0) * m_height};
        bottom = {std::clamp(bottom.x(), 0.0, 1.0) * m_width, std::clamp(bottom.y(), 0.0, 1.0) * m_height};
        if (top.y() > bottom.y())
            std::swap(top, bottom);
        const int first = int(std::ceil(top.y() - 0.5));
        const int end = int(std::ceil(bottom.y() - 0.5));
        if (first >= end)
            continue;
        const double step = (bottom.x() - top.x()) / (bottom.y() - top.y());
        m_edges.push_back({first, end, top.x() + (first + 0.5 - top.y()) * step, step});
    }
}

void MaskPainter::fillLine(int line)
{
    m_crossings.clear();
    for (const Edge &edge : m_active)
        m_crossings.push_back(edge.x + (line - edge.firstLine) * edge.step);
    std::sort(m_crossings.begin(), m_crossings.end());
    for (std::size_t i = 0; i + 1 < m_crossings.size(); i += 2)
        fillSpan(line, m_crossings[i], m_crossings[i + 1]);
}

void MaskPainter::fillSpan(int line, double from, double to)
{
    const int begin = std::clamp(int(std::ceil(from - 0.5)), 0, m_width);
    const int end = std::clamp(int(std::ceil(to - 0.5)), 0, m_width);
    if (begin >= end)
        return;
    std::memset(m_planes.y + std::ptrdiff_t(line) * m_planes.strideY + begin, m_colour.y, std::size_t(end - begin));

    const int chromaLine = line / 2;
    const int chromaBegin = begin / 2;
    const int chromaEnd = std::min((end + 1) / 2, m_width / 2);
    if (chromaLine >= m_height / 2 || chromaBegin >= chromaEnd)
        return;
    const std::ptrdiff_t offset = std::ptrdiff_t(chromaLine) * m_planes.strideUV + chromaBegin;
    std::memset(m_planes.u + offset, m_colour.u, std::size_t(chromaEnd - chromaBegin));
    std::memset(m_planes.v + offset, m_colour.v, std::size_t(chromaEnd - chromaBegin));
}

} // namespace orrin
