#include "iconart/Symbol.h"
#include "catalog/AppCategory.h"
#include "support/EndsTheProgram.h"

#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <functional>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr int side = 96; // four pixels to a unit of the symbols' grid

QImage canvas(int pixels) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage drawn(const QString& name, FontWeight weight = FontWeight::regular, int pixels = side) {
    QImage image = canvas(pixels);
    QPainter painter(&image);
    paintSymbol(painter, name, image.rect(), Qt::black, weight);
    return image;
}

int alphaAt(const QImage& image, int x, int y) {
    return qAlpha(image.pixel(x, y));
}

qint64 ink(const QImage& image) {
    qint64 sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += alphaAt(image, x, y);
    }
    return sum;
}

// The smallest rectangle that holds everything with some ink in it.
QRect inkBounds(const QImage& image) {
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (alphaAt(image, x, y) > 0)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

// Calls the check for every symbol at every weight.
void forEachDrawing(const std::function<void(const QString&, FontWeight)>& check) {
    for (const QString& name : symbolNames()) {
        for (int weight = 0; weight < fontWeightCount; ++weight)
            check(name, static_cast<FontWeight>(weight));
    }
}

QString label(const QString& name, FontWeight weight) {
    return QStringLiteral("%1 at weight %2").arg(name).arg(static_cast<int>(weight));
}

// The names of symbols in the text of a view or of a source file.
QSet<QString> symbolsUsedIn(const QString& text) {
    // A value may go on over lines that begin with a part of a condition.
    static const QString value = QStringLiteral("([^\\n]*(?:\\n\\s*[?:][^\\n]*)*)");
    static const QList<QRegularExpression> uses{
        QRegularExpression(QStringLiteral("\\bsymbol(?:Name)?\\s*:") + value),
        QRegularExpression(QStringLiteral("\\bSymbolItem\\s*\\{[^{}]*?\\bname\\s*:") + value),
        QRegularExpression(QStringLiteral("\\bpaintSymbol\\(([^;{]*)")),
    };
    static const QRegularExpression literal(QStringLiteral("\"([^\"]*)\""));
    QSet<QString> names;
    for (const QRegularExpression& use : uses) {
        auto match = use.globalMatch(text);
        while (match.hasNext()) {
            auto literals = literal.globalMatch(match.next().captured(1));
            while (literals.hasNext())
                names.insert(literals.next().captured(1));
        }
    }
    return names;
}

} // namespace

class SymbolTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySymbolFillsItsSquareButForAMargin() {
        QVERIFY(symbolNames().size() > 20);
        forEachDrawing([](const QString& name, FontWeight weight) {
            // Room around the square shows what strays out of it.
            QImage image = canvas(2 * side);
            QPainter painter(&image);
            paintSymbol(painter, name, QRectF(side / 2.0, side / 2.0, side, side), Qt::black, weight);
            painter.end();
            const QRect bounds = inkBounds(image);
            constexpr int margin = side / 24;
            const QRect inside = QRect(side / 2, side / 2, side, side).adjusted(margin, margin, -margin, -margin);
            QVERIFY2(inside.contains(bounds), qPrintable(label(name, weight)));
            QVERIFY2(std::max(bounds.width(), bounds.height()) > 0.6 * side, qPrintable(label(name, weight)));
        });
    }

    void everySymbolStandsInTheMiddle() {
        forEachDrawing([](const QString& name, FontWeight weight) {
            const QPointF middle = QRectF(inkBounds(drawn(name, weight))).center();
            const QPointF off = middle - QPointF(side / 2.0, side / 2.0);
            QVERIFY2(std::abs(off.x()) < 0.03 * side, qPrintable(label(name, weight)));
            QVERIFY2(std::abs(off.y()) < 0.03 * side, qPrintable(label(name, weight)));
        });
    }

    void noTwoSymbolsLookTheSame() {
        const QStringList names = symbolNames();
        for (qsizetype i = 0; i < names.size(); ++i) {
            for (qsizetype j = i + 1; j < names.size(); ++j) {
                const QImage one = drawn(names[i]);
                const QImage other = drawn(names[j]);
                qint64 difference = 0;
                for (int y = 0; y < side; ++y) {
                    for (int x = 0; x < side; ++x)
                        difference += std::abs(alphaAt(one, x, y) - alphaAt(other, x, y));
                }
                const qint64 least = std::max(ink(one), ink(other)) / 16;
                QVERIFY2(difference > least, qPrintable(names[i] + u" and " + names[j]));
            }
        }
    }

    void eachWeightIsHeavierThanTheOneBefore() {
        forEachDrawing([](const QString& name, FontWeight weight) {
            if (weight == FontWeight::ultraLight)
                return;
            const auto before = static_cast<FontWeight>(static_cast<int>(weight) - 1);
            QVERIFY2(ink(drawn(name, weight)) > ink(drawn(name, before)), qPrintable(label(name, weight)));
        });
    }

    void withoutAWeightASymbolIsRegular() {
        QImage image = canvas(side);
        QPainter painter(&image);
        paintSymbol(painter, QStringLiteral("circle"), image.rect(), Qt::black);
        painter.end();
        QCOMPARE(image, drawn(QStringLiteral("circle"), FontWeight::regular));
    }

    void holesStayOpenAtTheHeaviestWeight() {
        // The pixels of a symbol at font size 12. A hole is a part of the ground that ink shuts off from the edge.
        constexpr int pixels = 15;
        const auto holes = [](const QImage& image) {
            constexpr int ground = 140;
            QSet<int> seen;
            int areas = 0;
            for (int start = 0; start < pixels * pixels; ++start) {
                if (seen.contains(start) || alphaAt(image, start % pixels, start / pixels) >= ground)
                    continue;
                ++areas;
                QList<int> open{start};
                while (!open.isEmpty()) {
                    const int place = open.takeLast();
                    if (seen.contains(place))
                        continue;
                    seen.insert(place);
                    for (const QPoint& step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
                        const QPoint next = QPoint(place % pixels, place / pixels) + step;
                        if (image.rect().contains(next) && alphaAt(image, next.x(), next.y()) < ground)
                            open << next.y() * pixels + next.x();
                    }
                }
            }
            return areas - 1;
        };
        for (const char* name : {"checkmark.circle.fill", "circle", "gearshape.fill", "magnifyingglass",
                                 "play.circle.fill", "bolt.horizontal.circle.fill", "trash.fill"}) {
            const QString symbol = QString::fromLatin1(name);
            QVERIFY2(holes(drawn(symbol, FontWeight::black, pixels)) > 0, name);
        }
    }

    void twiceTheResolutionShowsTheSame() {
        for (const int points : {12, 20, 34}) {
            const int pixels = static_cast<int>(points * symbolSideRatio);
            forEachDrawing([pixels](const QString& name, FontWeight weight) {
                const QImage coarse = drawn(name, weight, pixels);
                QImage fine = canvas(2 * pixels);
                fine.setDevicePixelRatio(2);
                QPainter painter(&fine);
                paintSymbol(painter, name, QRectF(0, 0, pixels, pixels), Qt::black, weight);
                painter.end();
                for (int y = 0; y < pixels; ++y) {
                    for (int x = 0; x < pixels; ++x) {
                        const int four = alphaAt(fine, 2 * x, 2 * y) + alphaAt(fine, 2 * x + 1, 2 * y) +
                                         alphaAt(fine, 2 * x, 2 * y + 1) + alphaAt(fine, 2 * x + 1, 2 * y + 1);
                        QVERIFY2(std::abs(alphaAt(coarse, x, y) - four / 4) < 16, qPrintable(label(name, weight)));
                    }
                }
            });
        }
    }

    void aTranslucentColourIsLaidOnOnce() {
        forEachDrawing([](const QString& name, FontWeight weight) {
            QImage image = canvas(side);
            QPainter painter(&image);
            paintSymbol(painter, name, image.rect(), QColor(255, 0, 0, 100), weight);
            painter.end();
            int most = 0;
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x)
                    most = std::max(most, alphaAt(image, x, y));
            }
            QVERIFY2(most >= 99 && most <= 101, qPrintable(label(name, weight)));
        });
    }

    void thePainterIsLeftAsItWas() {
        QImage image = canvas(side);
        QPainter painter(&image);
        painter.translate(3, 4);
        const QTransform transform = painter.transform();
        paintSymbol(painter, QStringLiteral("xmark"), QRectF(0, 0, 20, 20), Qt::black);
        QCOMPARE(painter.transform(), transform);
        QVERIFY(!painter.testRenderHint(QPainter::Antialiasing));
    }

    void everySymbolHasATitleOfItsOwn() {
        QSet<QString> titles;
        for (const QString& name : symbolNames()) {
            const QString title = symbolTitle(name);
            QVERIFY2(!title.isEmpty() && title != name && title.front().isUpper(), qPrintable(name));
            titles.insert(title);
        }
        QCOMPARE(titles.size(), symbolNames().size());
        QCOMPARE(symbolTitle(QStringLiteral("magnifyingglass")), QStringLiteral("Magnifying glass"));
    }

    void namesAreInOrderAndOccurOnce() {
        const QStringList names = symbolNames();
        QVERIFY(std::ranges::is_sorted(names));
        QVERIFY(std::ranges::adjacent_find(names) == names.end());
    }

    void anUnknownNameEndsTheProgram() {
        QVERIFY(endsTheProgram([] { drawn(QStringLiteral("no.such.symbol")); }));
        QVERIFY(endsTheProgram([] { drawn(QString()); }));
        QVERIFY(endsTheProgram([] { symbolTitle(QStringLiteral("Circle")); }));
        QVERIFY(!endsTheProgram([] { drawn(QStringLiteral("circle")); }));
    }

    void namesInViewsAreFound() {
        QCOMPARE(symbolsUsedIn(QStringLiteral("EditButton {\n    symbol: \"a.b\"\n    title: \"T\"\n}")),
                 QSet<QString>{QStringLiteral("a.b")});
        QCOMPARE(symbolsUsedIn(QStringLiteral("SymbolItem {\n    width: 3\n    name: c ? \"a\"\n        : \"b\"\n}")),
                 (QSet<QString>{QStringLiteral("a"), QStringLiteral("b")}));
        QCOMPARE(symbolsUsedIn(QStringLiteral("paintSymbol(painter,\n QStringLiteral(\"a\"), square);")),
                 QSet<QString>{QStringLiteral("a")});
    }

    void everySymbolThatTheProgramNamesExists() {
        const QStringList known = symbolNames();
        QSet<QString> used;
        QDirIterator files(QStringLiteral(ZELMO_SOURCE_FOLDER "/src"),
                           {QStringLiteral("*.qml"), QStringLiteral("*.cpp")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QFile::ReadOnly));
            const QSet<QString> names = symbolsUsedIn(QString::fromUtf8(file.readAll()));
            for (const QString& name : names)
                QVERIFY2(known.contains(name), qPrintable(file.fileName() + u" names the symbol " + name));
            used.unite(names);
        }
        for (const char* name : {"checkmark", "checkmark.circle", "circle", "trash.fill"})
            QVERIFY2(used.contains(QLatin1StringView(name)), name);
    }

    void everyCategoryHasASymbol() {
        const QStringList known = symbolNames();
        for (const AppCategory category : allCategories) {
            const std::string_view name = glassStyle(category).symbolName;
            QVERIFY2(known.contains(QLatin1StringView(name.data(), static_cast<qsizetype>(name.size()))),
                     qPrintable(rawValue(category)));
        }
    }
};

QTEST_GUILESS_MAIN(SymbolTest)
#include "SymbolTest.moc"
