#include "ui/SymbolItem.h"
#include "iconart/Symbol.h"

#include <QImage>
#include <QPainter>
#include <QTest>

using namespace zelmo;

namespace {

constexpr int side = 20;

QImage canvas() {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage painted(SymbolItem& item) {
    QImage image = canvas();
    QPainter painter(&image);
    item.paint(&painter);
    return image;
}

QImage circle(FontWeight weight) {
    QImage image = canvas();
    QPainter painter(&image);
    paintSymbol(painter, QStringLiteral("circle"), image.rect(), Qt::red, weight);
    return image;
}

} // namespace

class SymbolItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFontsWeightIsTheSymbols() {
        SymbolItem item;
        item.setSize(QSizeF(side, side));
        item.setProperty("name", QStringLiteral("circle"));
        item.setProperty("color", QColor(Qt::red));
        QCOMPARE(painted(item), circle(FontWeight::regular));
        const QList<std::pair<int, FontWeight>> weights{
            {QFont::Thin, FontWeight::ultraLight},
            {QFont::ExtraLight, FontWeight::thin},
            {QFont::Light, FontWeight::light},
            {QFont::Normal, FontWeight::regular},
            {QFont::Medium, FontWeight::medium},
            {QFont::DemiBold, FontWeight::semibold},
            {QFont::Bold, FontWeight::bold},
            {QFont::ExtraBold, FontWeight::heavy},
            {QFont::Black, FontWeight::black},
            {1, FontWeight::ultraLight},
            {1000, FontWeight::black},
        };
        for (const auto& [weight, expected] : weights) {
            item.setProperty("weight", weight);
            QCOMPARE(painted(item), circle(expected));
        }
    }

    void withoutANameNothingIsDrawn() {
        SymbolItem item;
        item.setSize(QSizeF(side, side));
        QCOMPARE(painted(item), canvas());
    }
};

QTEST_MAIN(SymbolItemTest)
#include "SymbolItemTest.moc"
