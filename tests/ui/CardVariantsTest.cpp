#include "ui/WallFixture.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

PreferenceValues layout(const char* name, const PreferenceValues& more = {}) {
    PreferenceValues values = more;
    // Neither the first text colour nor all of one component.
    values.insert({{QStringLiteral("launcherInterfaceStyle"), QString::fromLatin1(name)},
                   {QStringLiteral("launcherTextRed"), 0.2},
                   {QStringLiteral("launcherTextGreen"), 0.8},
                   {QStringLiteral("launcherTextBlue"), 0.4}});
    return values;
}

QString green(double opacity) {
    return said(rgb(0.2, 0.8, 0.4, opacity));
}

// As texts and symbols have them.
QString developer(double opacity) {
    return said(rgb(184 / 255.0, 161 / 255.0, 1, opacity));
}

QQuickItem* iconOf(QQuickItem* card) {
    return WallFixture::part(card, "zelmo::AppIconItem");
}

QQuickItem* nameOf(QQuickItem* card) {
    return WallFixture::textIn(card, card->property("name").toString());
}

QQuickItem* labelOf(QQuickItem* card) {
    return WallFixture::textIn(card, card->property("categoryLabel").toString());
}

// A symbol of the category, not the one in a badge.
QQuickItem* symbolOf(QQuickItem* card) {
    for (QQuickItem* child : card->childItems()) {
        if (child->inherits("zelmo::SymbolItem"))
            return child;
    }
    return nullptr;
}

QStringList cardTexts(QQuickItem* card) {
    QList<QQuickItem*> texts;
    collect(card, "QQuickText", texts);
    QStringList list;
    for (const QQuickItem* text : texts)
        list.append(text->property("text").toString());
    return list;
}

} // namespace

class CardVariantsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cardsStandInColumnsInTheMiddle_data() {
        QTest::addColumn<int>("columns");
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("columnStep");
        QTest::addColumn<double>("rowGap");
        QTest::newRow("grid") << 6 << 154.0 << 176.0 << 24.0;
        QTest::newRow("list") << 1 << 760.0 << 0.0 << 10.0;
        QTest::newRow("minimal") << 8 << 96.0 << 114.0 << 20.0;
        QTest::newRow("tiles") << 7 << 154.0 << 154.0 << 0.0;
    }
    void cardsStandInColumnsInTheMiddle() {
        QFETCH(int, columns);
        QFETCH(double, width);
        QFETCH(double, columnStep);
        QFETCH(double, rowGap);
        WallFixture fixture(3 * columns, layout(QTest::currentDataTag()));
        QVERIFY(fixture.waitForCards(3 * columns));
        const QRectF first = fixture.place(fixture.card(0));
        QCOMPARE(first.width(), width);
        QCOMPARE(first.top(), fixture.place(fixture.panel()).bottom() + 22 + 4);
        for (int i = 0; i < 3 * columns; ++i) {
            const QRectF place = fixture.place(fixture.card(i));
            const int line = i / columns;
            QCOMPARE(place.size(), first.size());
            QCOMPARE(place.left(), first.left() + i % columns * columnStep);
            QCOMPARE(place.top(), first.top() + line * (first.height() + rowGap));
        }
        QCOMPARE(first.left() + fixture.place(fixture.card(columns - 1)).right(), 1920.0);
    }

    void thereIsRoomBelowTheLastCard_data() {
        QTest::addColumn<int>("count");
        QTest::newRow("grid") << 60;
        QTest::newRow("tiles") << 70;
    }
    void thereIsRoomBelowTheLastCard() {
        QFETCH(int, count);
        WallFixture fixture(count, layout(QTest::currentDataTag()));
        QVERIFY(QTest::qWaitFor([&] { return fixture.card(0); }));
        QQuickItem* area = fixture.area();
        area->setProperty("contentY", number(area, "contentHeight") - area->height());
        fixture.settle();
        // The lower end of the area is 24 above that of the wall.
        QCOMPARE(fixture.place(fixture.card(count - 1)).bottom(), 1080.0 - 24 - 42);
    }

    void aGridCardIsIconAndCentredLabels() {
        WallFixture fixture(2, layout("grid"));
        QVERIFY(fixture.waitForCards(2));
        QQuickItem* card = fixture.card(1);
        const QRectF place = fixture.place(card);
        const QRectF icon = fixture.place(iconOf(card));
        const QRectF name = fixture.place(nameOf(card));
        const QRectF label = fixture.place(labelOf(card));
        QVERIFY(place.height() >= 166);
        QCOMPARE(icon.size(), QSizeF(104, 104));
        QCOMPARE(icon.center(), QPointF(place.center().x(), place.top() + 14 + 54));
        QCOMPARE(name.left(), place.left() + 14);
        QCOMPARE(name.right(), place.right() - 14);
        QCOMPARE(name.top(), place.top() + 14 + 108 + 12);
        QCOMPARE(label.top(), name.bottom() + 5);
        QVERIFY(label.bottom() <= place.bottom() - 14);
        for (const QQuickItem* text : {nameOf(card), labelOf(card)})
            QCOMPARE(text->property("horizontalAlignment").toInt(), int(Qt::AlignHCenter));
        QCOMPARE(cardTexts(card), (QStringList{QStringLiteral("App 00001"), QStringLiteral("Builder")}));
        QVERIFY(!symbolOf(card));
    }

    void aListRowIsIconLabelsAndSymbol() {
        WallFixture fixture(2, layout("list"));
        QVERIFY(fixture.waitForCards(2));
        QQuickItem* card = fixture.card(1);
        const QRectF place = fixture.place(card);
        const QRectF icon = fixture.place(iconOf(card));
        const QRectF name = fixture.place(nameOf(card));
        const QRectF label = fixture.place(labelOf(card));
        const QQuickItem* symbol = symbolOf(card);
        QVERIFY(symbol);
        const QRectF symbolPlace = fixture.place(symbol);
        QVERIFY(place.height() >= 70);
        QCOMPARE(icon.size(), QSizeF(46, 46));
        QCOMPARE(icon.left(), place.left() + 16);
        QVERIFY(icon.top() >= place.top() + 12);
        QVERIFY(isCentred(QRectF(place.left(), icon.top(), place.width(), icon.height()), place));
        QCOMPARE(name.left(), icon.right() + 14);
        QCOMPARE(label.left(), name.left());
        QCOMPARE(label.top(), name.bottom() + 5);
        QVERIFY(name.top() >= place.top() + 12 && label.bottom() <= place.bottom() - 12);
        QVERIFY(std::abs((name.top() + label.bottom()) / 2 - place.center().y()) <= 0.5);
        for (const QQuickItem* text : {nameOf(card), labelOf(card)})
            QCOMPARE(text->property("horizontalAlignment").toInt(), int(Qt::AlignLeft));
        QCOMPARE(symbolPlace.right(), place.right() - 16);
        QVERIFY(name.right() <= symbolPlace.left() - 14);
        QVERIFY(std::abs(symbolPlace.center().y() - place.center().y()) <= 0.5);
        QCOMPARE(symbol->property("name").toString(), QStringLiteral("chevron.left.forwardslash.chevron.right"));
        QCOMPARE(letters(symbol), QStringLiteral("14 700"));
        QCOMPARE(ink(symbol), said(rgb(0.72, 0.63, 1, 0.86)));
    }

    void anIconThrowsAShadowDownwards() {
        WallFixture fixture(1,
                            layout("grid", {{QStringLiteral("launcherBackgroundStyle"), QStringLiteral("customColor")},
                                            {QStringLiteral("launcherBackgroundRed"), 1.0},
                                            {QStringLiteral("launcherBackgroundGreen"), 1.0},
                                            {QStringLiteral("launcherBackgroundBlue"), 1.0}}));
        QVERIFY(fixture.waitForCards(1));
        const QRect icon = fixture.place(iconOf(fixture.card(0))).toRect();
        QTRY_COMPARE(fixture.settle().pixelColor(icon.center()), QColor(Qt::blue));
        const QImage wall = fixture.settle();
        const auto gray = [&](int x, int y) { return wall.pixelColor(x, y).red(); };
        // Half of it is left where its edge is: three points lower than the icon's, and nowhere to a side of it.
        const int y = icon.center().y();
        const int below = (gray(icon.center().x(), icon.bottom() + 3) + gray(icon.center().x(), icon.bottom() + 4)) / 2;
        QVERIFY2(std::abs(below - 237) <= 1, qPrintable(QString::number(below)));
        QCOMPARE(gray(icon.left() - 1, y), gray(icon.right() + 1, y));
        // Of 0.14, 0.42 are left half a point from the edge of a shadow whose deviation is half of its radius.
        QVERIFY(std::abs(gray(icon.right() + 1, y) - 240) <= 1);
        QCOMPARE(gray(icon.right() + 12, y), 255);
    }

    void aListRowIsAsWideAsThereIsRoom() {
        WallFixture fixture(2, layout("list"), {700, 700});
        QVERIFY(fixture.waitForCards(2));
        // 34 on either side of everything, and another 4 around the cards.
        QCOMPARE(fixture.place(fixture.card(0)).left(), 38.0);
        QCOMPARE(fixture.place(fixture.card(0)).width(), 624.0);
    }

    void aMinimalCardIsIconAndName() {
        WallFixture fixture(2, layout("minimal"));
        QVERIFY(fixture.waitForCards(2));
        QQuickItem* card = fixture.card(1);
        const QRectF place = fixture.place(card);
        const QRectF icon = fixture.place(iconOf(card));
        const QRectF name = fixture.place(nameOf(card));
        QCOMPARE(place.size(), QSizeF(96, 98));
        QCOMPARE(icon.size(), QSizeF(64, 64));
        QCOMPARE(icon.center().x(), place.center().x());
        QCOMPARE(name.top(), icon.bottom() + 8);
        QVERIFY(std::abs((icon.top() + name.bottom()) / 2 - place.center().y()) <= 1);
        QCOMPARE(name.center().x(), place.center().x());
        QCOMPARE(nameOf(card)->property("horizontalAlignment").toInt(), int(Qt::AlignHCenter));
        QCOMPARE(letters(nameOf(card)), QStringLiteral("12 600"));
        QCOMPARE(ink(nameOf(card)), green(0.92));
        QCOMPARE(cardTexts(card), QStringList{QStringLiteral("App 00001")});
        QVERIFY(!symbolOf(card));
    }

    void aTileIsAColoredSquare() {
        WallFixture fixture(2, layout("tiles"));
        QVERIFY(fixture.waitForCards(2));
        QQuickItem* card = fixture.card(1);
        const QRectF place = fixture.place(card);
        const QRectF icon = fixture.place(iconOf(card));
        const QRectF name = fixture.place(nameOf(card));
        const QRectF label = fixture.place(labelOf(card));
        const QQuickItem* symbol = symbolOf(card);
        QCOMPARE(place.size(), QSizeF(154, 154));
        QCOMPARE(icon.size(), QSizeF(58, 58));
        QCOMPARE(icon.left(), place.left() + 12);
        QVERIFY(icon.top() >= place.top() + 12);
        QCOMPARE(name.left(), place.left() + 12);
        QCOMPARE(name.right(), place.right() - 12);
        QVERIFY(name.top() >= icon.bottom());
        QCOMPARE(label.left(), place.left() + 12);
        QVERIFY(label.top() >= name.bottom());
        QCOMPARE(label.bottom(), place.bottom() - 12);
        QCOMPARE(letters(nameOf(card)), QStringLiteral("15 600"));
        QCOMPARE(letters(labelOf(card)), QStringLiteral("10 700"));
        QCOMPARE(ink(labelOf(card)), said(whiteAt(0.62)));
        QCOMPARE(fontOf(labelOf(card)).capitalization(), QFont::AllUppercase);
        QVERIFY(hasLetterSpacing(labelOf(card), 1.1));
        QVERIFY(symbol);
        QCOMPARE(symbol->property("name").toString(), QStringLiteral("chevron.left.forwardslash.chevron.right"));
        QCOMPARE(letters(symbol), QStringLiteral("17 600"));
        QCOMPARE(opacityOf(symbol), 0.32);
        // Another 4 to the 12 around everything.
        QVERIFY(place.adjusted(16, 16, -16, -16).contains(fixture.place(symbol)));
        // The letters are as far apart in each style.
        fixture.store.preferences->setValue<PreferenceKey::launcherFontStyle>(QStringLiteral("techno"));
        QVERIFY(hasLetterSpacing(labelOf(card), 1.1));
    }

    void aTileHasAVeilOverOneOfSevenGradients() {
        const QList<QList<QColor>> palette{
            {rgb(0.18, 0.55, 0.58), rgb(0.1, 0.42, 0.49)},  {rgb(0.43, 0.39, 0.72), rgb(0.31, 0.29, 0.58)},
            {rgb(0.31, 0.62, 0.47), rgb(0.22, 0.5, 0.38)},  {rgb(0.72, 0.34, 0.49), rgb(0.58, 0.24, 0.42)},
            {rgb(0.78, 0.48, 0.28), rgb(0.66, 0.36, 0.22)}, {rgb(0.25, 0.57, 0.67), rgb(0.16, 0.45, 0.58)},
            {rgb(0.54, 0.34, 0.65), rgb(0.43, 0.26, 0.55)}};
        WallFixture fixture(35, layout("tiles"));
        QVERIFY(fixture.waitForCards(35));
        const QImage wall = fixture.settle();
        QSet<qsizetype> used;
        for (int i = 0; i < 35; ++i) {
            const auto colors = fixture.card(i)->property("tileColors").value<QList<QColor>>();
            const qsizetype index = palette.indexOf(colors);
            QVERIFY(index >= 0);
            used.insert(index);
            const QRect place = fixture.place(fixture.card(i)).toRect();
            // Beside the seam, in the two corners that the gradient joins.
            QVERIFY(isNear(wall.pixelColor(place.topLeft() + QPoint(2, 2)), over(colors[0], whiteAt(0.035)), 2));
            QVERIFY(isNear(wall.pixelColor(place.bottomRight() - QPoint(2, 2)), over(colors[1], whiteAt(0.035)), 2));
        }
        QVERIFY(used.size() > 1);
    }

    void labelsAreInTheColorsOfTextAndCategory_data() {
        QTest::addColumn<QString>("categoryLetters");
        QTest::newRow("grid") << QStringLiteral("11 700");
        QTest::newRow("list") << QStringLiteral("11 700");
    }
    void labelsAreInTheColorsOfTextAndCategory() {
        WallFixture fixture(2, layout(QTest::currentDataTag()));
        QVERIFY(fixture.waitForCards(2));
        QQuickItem* card = fixture.card(1);
        QCOMPARE(letters(nameOf(card)), QStringLiteral("15 600"));
        QCOMPARE(ink(nameOf(card)), green(0.94));
        QTEST(letters(labelOf(card)), "categoryLetters");
        QCOMPARE(ink(labelOf(card)), developer(0.76));
        QCOMPARE(fontOf(labelOf(card)).capitalization(), QFont::AllUppercase);
        QVERIFY(hasLetterSpacing(labelOf(card), 1.1));
        // The label of what has no category lets what lies behind come through twice.
        const double accent = qRound(0.82 * 255) / 255.0;
        QCOMPARE(ink(labelOf(fixture.card(0))), said(whiteAt(accent * 0.76)));
        fixture.store.preferences->setValue<PreferenceKey::launcherFontStyle>(QStringLiteral("techno"));
        QVERIFY(hasLetterSpacing(labelOf(card), 1.4));
    }

    void eachCategoryHasItsShortName_data() {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("symbol");
        QTest::addColumn<QColor>("accent");
        const auto row = [](const char* type, const char* label, const char* symbol, const QColor& accent) {
            QTest::newRow(type) << QString::fromLatin1(label) << QString::fromLatin1(symbol) << accent;
        };
        row("productivity", "Productive", "bolt.horizontal.circle.fill", rgb(0.53, 0.74, 1));
        row("utilities", "Utility", "sparkles", rgb(0.42, 0.84, 0.78));
        row("developer-tools", "Builder", "chevron.left.forwardslash.chevron.right", rgb(0.72, 0.63, 1));
        row("social-networking", "Social", "bubble.left.and.bubble.right.fill", rgb(0.98, 0.57, 0.7));
        row("entertainment", "Play", "play.circle.fill", rgb(0.99, 0.68, 0.43));
        row("graphics-design", "Creative", "paintbrush.pointed.fill", rgb(0.96, 0.75, 0.43));
        row("news", "Reading", "book.closed.fill", rgb(0.73, 0.81, 1));
        row("none", "Other", "circle.hexagongrid.fill", whiteAt(0.82));
    }
    void eachCategoryHasItsShortName() {
        QFETCH(QString, symbol);
        QFETCH(QColor, accent);
        WallFixture fixture(0, layout("list"));
        const QByteArray type = QByteArray("public.app-category.") + QTest::currentDataTag();
        fixture.store.installed.set({found(QStringLiteral("Qqq"), type.constData())});
        fixture.store.store->refresh();
        QVERIFY(fixture.waitForCards(1));
        QQuickItem* card = fixture.card(QStringLiteral("Qqq"));
        QTEST(cardTexts(card).last(), "label");
        QCOMPARE(symbolOf(card)->property("name").toString(), symbol);
        QCOMPARE(said(symbolOf(card)->property("color").value<QColor>()), said(accent));
    }
};

QTEST_MAIN(CardVariantsTest)
#include "CardVariantsTest.moc"
