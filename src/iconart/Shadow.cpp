#include "iconart/Shadow.h"

#include <QPainter>

#include <cmath>
#include <vector>

namespace zelmo {

namespace {

// Three box blurs in a row come close to a Gaussian one. `width` is odd.
void boxBlur(std::vector<int>& line, std::vector<int>& scratch, int width) {
    const int count = static_cast<int>(line.size());
    const int half = width / 2;
    int sum = 0;
    for (int i = -half; i < count; ++i) {
        if (i + half < count)
            sum += line[static_cast<std::size_t>(i + half)];
        if (i - half - 1 >= 0)
            sum -= line[static_cast<std::size_t>(i - half - 1)];
        if (i >= 0)
            scratch[static_cast<std::size_t>(i)] = sum / width;
    }
    std::swap(line, scratch);
}

// The width of each of three boxes that together blur with this standard deviation.
int boxWidth(double deviation) {
    const int width = static_cast<int>(std::lround(std::sqrt(4 * deviation * deviation + 1)));
    return width | 1;
}

} // namespace

int shadowMargin(const ShadowStyle& style) {
    const int reach = 3 * (boxWidth(style.radius / 2) / 2);
    return reach + static_cast<int>(std::ceil(std::abs(style.offset)));
}

QImage withShadow(const QImage& picture, const ShadowStyle& style) {
    const int margin = shadowMargin(style);
    const int width = boxWidth(style.radius / 2);
    const QSize size(picture.width() + 2 * margin, picture.height() + 2 * margin);
    const int drop = static_cast<int>(std::lround(style.offset));

    // Alpha in 16 times finer steps, so that three divisions leave no visible bands.
    constexpr int fine = 16;
    std::vector<std::vector<int>> rows(static_cast<std::size_t>(size.height()),
                                       std::vector<int>(static_cast<std::size_t>(size.width())));
    for (int y = 0; y < picture.height(); ++y) {
        const auto* source = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        auto& target = rows[static_cast<std::size_t>(y + margin + drop)];
        for (int x = 0; x < picture.width(); ++x)
            target[static_cast<std::size_t>(x + margin)] = qAlpha(source[x]) * fine;
    }
    std::vector<int> scratch(static_cast<std::size_t>(size.width()));
    for (auto& line : rows) {
        for (int pass = 0; pass < 3; ++pass)
            boxBlur(line, scratch, width);
    }
    QImage result(size, QImage::Format_ARGB32_Premultiplied);
    std::vector<int> column(static_cast<std::size_t>(size.height()));
    scratch.resize(column.size());
    for (int x = 0; x < size.width(); ++x) {
        for (std::size_t y = 0; y < column.size(); ++y)
            column[y] = rows[y][static_cast<std::size_t>(x)];
        for (int pass = 0; pass < 3; ++pass)
            boxBlur(column, scratch, width);
        for (int y = 0; y < size.height(); ++y) {
            const double alpha = column[static_cast<std::size_t>(y)] * style.opacity / fine;
            reinterpret_cast<QRgb*>(result.scanLine(y))[x] = qRgba(0, 0, 0, static_cast<int>(std::lround(alpha)));
        }
    }
    QPainter painter(&result);
    painter.drawImage(margin, margin, picture);
    return result;
}

} // namespace zelmo
