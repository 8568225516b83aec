#include "iconart/ZelmoGlyph.h"

#include <QImage>
#include <QPainter>
#include <QTest>

using namespace zelmo;

namespace {

constexpr std::array states{GlyphState::inactive, GlyphState::active};

QColor srgb(double red, double green, double blue, double opacity = 1) {
    return QColor::fromRgbF(float(red), float(green), float(blue), float(opacity));
}

template <typename Glyph>
QImage drawn(const Glyph& glyph, int side, const QColor& ground) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(ground);
    QPainter painter(&image);
    glyph.paint(painter, image.rect());
    return image;
}

// How much the middle of the cell differs from the ground.
int contrast(const QImage& image, int row, int column, const QColor& ground) {
    const double side = image.width();
    const auto place = [&](int i) { return static_cast<int>(side * (0.06 + 0.12 + i * 0.32)); };
    const QColor seen = image.pixelColor(place(column), place(row));
    return std::abs(seen.red() - ground.red()) + std::abs(seen.green() - ground.green()) +
           std::abs(seen.blue() - ground.blue());
}

} // namespace

class ZelmoGlyphTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachCellHasItsColor() {
        const std::array<QColor, 9> active{srgb(0.96, 0.94, 0.90), srgb(0.43, 0.61, 1.00), srgb(0.59, 0.87, 0.79),
                                           srgb(0.96, 0.58, 0.46), srgb(0.95, 0.75, 0.37), srgb(1, 1, 1, 0.82),
                                           srgb(0.72, 0.62, 1.00), srgb(0.35, 0.82, 0.77), srgb(1, 1, 1, 0.42)};
        std::array<QColor, 9> inactive = active;
        inactive[5] = srgb(1, 1, 1, 0.58);
        inactive[8] = srgb(1, 1, 1, 0.26);
        std::array<QColor, 9> bareActive = active;
        bareActive[5] = srgb(1, 1, 1, 0.9);
        bareActive[8] = srgb(1, 1, 1, 0.58);
        std::array<QColor, 9> bareInactive = active;
        bareInactive[5] = srgb(1, 1, 1, 0.72);
        bareInactive[8] = srgb(1, 1, 1, 0.42);
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column) {
                const auto cell = static_cast<std::size_t>(row * 3 + column);
                QCOMPARE(ZelmoGlyph(GlyphState::active).tileColor(row, column), active[cell]);
                QCOMPARE(ZelmoGlyph(GlyphState::inactive).tileColor(row, column), inactive[cell]);
                QCOMPARE(ZelmoBareGlyph(GlyphState::active).tileColor(row, column), bareActive[cell]);
                QCOMPARE(ZelmoBareGlyph(GlyphState::inactive).tileColor(row, column), bareInactive[cell]);
            }
        }
    }

    void whatIsOutsideHasTheLastCellsColor() {
        for (const GlyphState state : states) {
            for (const auto& [row, column] : {std::pair(3, 0), {0, 3}, {-1, 1}, {1, -1}, {100, 100}}) {
                QCOMPARE(ZelmoGlyph(state).tileColor(row, column), ZelmoGlyph(state).tileColor(2, 2));
                QCOMPARE(ZelmoBareGlyph(state).tileColor(row, column), ZelmoBareGlyph(state).tileColor(2, 2));
            }
        }
    }

    void theBareGlyphSpansItsPartOfTheSquareInTheMiddle() {
        QImage image(300, 200, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        {
            QPainter painter(&image);
            ZelmoBareGlyph(GlyphState::active).paint(painter, image.rect());
        }
        QRect ink;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).alpha() > 0)
                    ink |= QRect(x, y, 1, 1);
            }
        }
        // 0.88 of 200, in the middle.
        QCOMPARE(ink, QRect(62, 12, 176, 176));
        // A cell of 48 and a gap of 16.
        QCOMPARE(image.pixelColor(62 + 47, 36).alpha(), 255);
        QCOMPARE(image.pixelColor(62 + 49, 36).alpha(), 0);
        QCOMPARE(image.pixelColor(62 + 65, 36).alpha(), 255);
    }

    void everyColoredCellIsSeenAtEighteenPoints_data() {
        QTest::addColumn<QColor>("ground");
        QTest::addColumn<int>("side");
        for (const int side : {18, 36}) {
            QTest::addRow("light, %d pixels", side) << QColor(0xf2, 0xf3, 0xf7) << side;
            QTest::addRow("dark, %d pixels", side) << QColor(0x1f, 0x21, 0x2e) << side;
        }
    }
    void everyColoredCellIsSeenAtEighteenPoints() {
        QFETCH(QColor, ground);
        QFETCH(int, side);
        for (const GlyphState state : states) {
            const QImage image = drawn(ZelmoGlyph(state), side, ground);
            for (int cell = 0; cell < 9; ++cell) {
                // White ones can only be told from a dark panel.
                const bool isPale = cell == 0 || cell == 5 || cell == 8;
                if (!isPale || ground.lightness() < 128)
                    QVERIFY2(contrast(image, cell / 3, cell % 3, ground) > 90, qPrintable(QString::number(cell)));
            }
        }
    }

    void theActiveGlyphLooksDifferent() {
        for (const QColor& ground : {QColor(0xf2, 0xf3, 0xf7), QColor(0x1f, 0x21, 0x2e)})
            QVERIFY(drawn(ZelmoGlyph(GlyphState::active), 18, ground) !=
                    drawn(ZelmoGlyph(GlyphState::inactive), 18, ground));
    }
};

QTEST_GUILESS_MAIN(ZelmoGlyphTest)
#include "ZelmoGlyphTest.moc"
