#pragma once

#include <QImage>
#include <QRect>

#include <cstdint>
#include <vector>

namespace zelmo {

// A picture that is blurred, or about to be, and therefore kept `factor` times smaller in each direction. A value.
struct SmallPicture {
    QImage pixels; // RGB32; each the mean of a square of the whole
    QSize size;    // of the whole
    int factor = 1;

    bool isNull() const { return pixels.isNull(); }
    // Of a whole picture.
    static SmallPicture of(const QImage& picture, int factor);
    // An area of it at its full size, evenly from pixel to pixel. Uses a second thread while it lasts.
    QImage part(const QRect& area) const;
};

// Makes a picture smaller while it comes, so that the whole of it need never exist. What is left over at the right and
// the bottom does not count.
class PictureReduction {
public:
    // More would not fit the sums.
    static constexpr int largestFactor = 16;

    // Of a picture that is not empty, by a factor from 1 to the largest.
    PictureReduction(QSize size, int factor);

    // The next rows, from the top, as RGB32 and as wide as the picture.
    void add(const QImage& rows);
    // After the last row.
    SmallPicture take() const { return m_result; }

private:
    void finishRow();

    SmallPicture m_result;
    int m_columns; // of a square
    int m_rows;
    // Of each column, since the last row of squares; two channels to a number, 16 bits each.
    std::vector<std::uint32_t> m_redAndBlue;
    std::vector<std::uint32_t> m_green;
    int m_added = 0; // rows
};

} // namespace zelmo
