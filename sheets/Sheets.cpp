#include "Sheets.h"

#include "appearance/LauncherBackgroundStyle.h"
#include "iconart/DiagonalGradient.h"
#include "iconart/Symbol.h"
#include "iconart/ZelmoGlyph.h"
#include "iconart/ZelmoIconCanvas.h"
#include "preferences/Preferences.h"
#include "preferences/PreferencesStorage.h"
#include "ui/FontResolver.h"

#include <QPainter>

#include <array>
#include <cmath>

namespace zelmo {

namespace {

constexpr double scale = 2;
const QColor paper(0xf2, 0xf3, 0xf7);
const QColor night(0x1f, 0x21, 0x2e);

// A user who has chosen nothing.
class NoPreferences : public PreferencesStorage {
public:
    PreferenceValues read() override { return {}; }
    bool write(const PreferenceValues&) override { return true; }
    void setOutsideChangeHandler(std::function<void()>) override {}
};

QImage sheet(int width, int height, const QColor& ground) {
    QImage image(QSize(width, height) * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(ground);
    return image;
}

QColor color(const StyleColor& value) {
    return QColor::fromRgbF(static_cast<float>(value.red), static_cast<float>(value.green),
                            static_cast<float>(value.blue), static_cast<float>(value.opacity));
}

} // namespace

QImage backgroundSheet() {
    constexpr QSize cell(320, 180);
    constexpr int columns = 4;
    NoPreferences storage;
    const Preferences preferences(storage);
    const int rows = (backgroundStyleCount + columns - 1) / columns;
    QImage image = sheet(columns * cell.width(), rows * cell.height(), paper);
    QPainter painter(&image);
    for (int i = 0; i < backgroundStyleCount; ++i) {
        QList<QColor> stops;
        for (const StyleColor& stop : colors(static_cast<LauncherBackgroundStyle>(i), preferences))
            stops.append(color(stop));
        // Nothing is painted for the desktop, which shows through.
        if (stops.first().alpha() == 0)
            continue;
        const DiagonalGradient gradient(stops, cell * scale);
        QImage band = gradient.band();
        band.setDevicePixelRatio(1);
        painter.save();
        painter.translate(QPoint(i % columns * cell.width(), i / columns * cell.height()));
        painter.scale(1 / scale, 1 / scale);
        const int height = static_cast<int>(cell.height() * scale);
        for (int y = 0; y < height; y += DiagonalGradient::bandHeight) {
            const int rowsLeft = std::min(DiagonalGradient::bandHeight, height - y);
            painter.drawImage(QPoint(0, y), band,
                              QRect(gradient.bandStart(y), 0, static_cast<int>(cell.width() * scale), rowsLeft));
        }
        painter.restore();
    }
    return image;
}

QImage fontSheet(const FontFaces& faces) {
    constexpr int rowHeight = 40;
    constexpr std::array weights{FontWeight::light, FontWeight::regular, FontWeight::semibold, FontWeight::heavy};
    constexpr int column = 250;
    FontResolver resolver(faces);
    QImage image = sheet(30 + static_cast<int>(weights.size()) * column, fontStyleCount * rowHeight + 20, paper);
    QPainter painter(&image);
    painter.setPen(night);
    for (int i = 0; i < fontStyleCount; ++i) {
        const auto style = static_cast<LauncherFontStyle>(i);
        for (std::size_t weight = 0; weight < weights.size(); ++weight) {
            QFont font = resolver.font(style, 22, weights[weight]);
            font.setLetterSpacing(QFont::AbsoluteSpacing, tracking(style));
            painter.setFont(font);
            const QRect place(20 + static_cast<int>(weight) * column, 10 + i * rowHeight, column, rowHeight);
            painter.drawText(place, Qt::AlignVCenter, title(style));
        }
    }
    return image;
}

QImage iconSheet() {
    constexpr std::array sides{16, 32, 64, 128, 256};
    constexpr int gap = 24;
    QImage image = sheet(640, appIconStyleCount * (256 + gap) + gap, paper);
    QPainter painter(&image);
    for (int i = 0; i < appIconStyleCount; ++i) {
        int x = gap;
        for (const int side : sides) {
            ZelmoIconCanvas(static_cast<AppIconStyle>(i))
                .paint(painter, QRectF(x, gap + i * (256 + gap) + (256 - side) / 2.0, side, side));
            x += side + gap;
        }
    }
    return image;
}

QImage glyphSheet() {
    constexpr std::array sides{18, 36, 144};
    constexpr int row = 160;
    QImage image = sheet(920, 2 * row, paper);
    QPainter painter(&image);
    for (int panel = 0; panel < 2; ++panel) {
        painter.fillRect(0, panel * row, 920, row, panel == 0 ? paper : night);
        int x = 8;
        for (const GlyphState state : {GlyphState::inactive, GlyphState::active}) {
            for (const int side : sides) {
                ZelmoGlyph(state).paint(painter, QRectF(x, panel * row + (row - side) / 2.0, side, side));
                x += side + 8;
            }
            for (const int side : sides) {
                ZelmoBareGlyph(state).paint(painter, QRectF(x, panel * row + (row - side) / 2.0, side, side));
                x += side + 8;
            }
        }
    }
    return image;
}

QImage symbolSheet() {
    constexpr std::array weights{FontWeight::light, FontWeight::semibold, FontWeight::black};
    constexpr std::array sizes{12, 20, 34};
    constexpr int cell = 60;
    constexpr int columns = 2;
    constexpr int groupWidth = static_cast<int>(weights.size() * sizes.size()) * cell;
    const QStringList names = symbolNames();
    const int rows = (static_cast<int>(names.size()) + columns - 1) / columns;
    QImage image = sheet(columns * groupWidth, rows * cell, night);
    QPainter painter(&image);
    for (int i = 0; i < names.size(); ++i) {
        QPointF middle = QPoint(i % columns * groupWidth, i / columns * cell) + QPointF(cell, cell) / 2;
        for (const FontWeight weight : weights) {
            for (const int size : sizes) {
                const QSizeF square = QSizeF(size, size) * symbolSideRatio;
                paintSymbol(painter, names[i], QRectF(middle - QPointF(square.width(), square.height()) / 2, square),
                            Qt::white, weight);
                middle.rx() += cell;
            }
        }
    }
    return image;
}

} // namespace zelmo
