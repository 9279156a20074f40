// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>

#include <array>
#include <cstdint>
#include <vector>

class QImage;

namespace orrin::demo {

/*!
    A picture in I420: luma and two chroma planes of half width and height, in one block of memory. Lines are
   padded to 32 bytes. A plain value; copying it copies the pixels.
*/
class Picture
{
public:
    enum class Range { Limited, Full };

    Picture() = default;
    explicit Picture(QSize size);

    /*! \a image converted with the BT.601 matrix in the given range. */
    static Picture fromImage(const QImage &image, Range range);

    QSize size() const { return m_size; }
    int width() const { return m_size.width(); }
    int height() const { return m_size.height(); }

    /*! Plane 0 is luma, 1 and 2 are the chroma planes Cb and Cr. */
    std::uint8_t *plane(int index) { return m_data.data() + m_offsets[std::size_t(index)]; }
    const std::uint8_t *plane(int index) const { return m_data.data() + m_offsets[std::size_t(index)]; }
    int stride(int index) const { return m_strides[std::size_t(index)]; }

    bool operator==(const Picture &other) const;

private:
    QSize m_size;
    std::array<int, 3> m_strides{};
    std::array<std::size_t, 3> m_offsets{};
    std::vector<std::uint8_t> m_data;
};

} // namespace orrin::demo
