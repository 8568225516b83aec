#include "platform/linux/fonts/FontconfigFaces.h"
#include "ui/FontResolver.h"

#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QRawFont>
#include <QSet>
#include <QTest>

using namespace zelmo;

namespace {

// As it looks, black on white.
QImage rendered(const QFont& font) {
    QImage image(900, 80, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(10, 60, QStringLiteral("Zelmo Rag 0123 filmstrip"));
    return image;
}

qint64 inkOf(const QImage& image) {
    qint64 ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ink += 255 - image.constScanLine(y)[x];
    }
    return ink;
}

} // namespace

// The styles of letters in the fonts that the program is installed with, as they come out on the screen.
class FontRenderingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFourDesignsLookDifferent() {
        QList<QImage> seen;
        for (const auto style : {LauncherFontStyle::appleDefault, LauncherFontStyle::appleRounded,
                                 LauncherFontStyle::newYorkSerif, LauncherFontStyle::sfMono}) {
            const QImage image = rendered(m_resolver.font(style, 40, FontWeight::regular));
            QVERIFY2(!seen.contains(image), qPrintable(rawValue(style)));
            seen.append(image);
        }
    }

    // Where a family lacks a weight, its nearest one stands in.
    void theNineWeightsGetHeavier_data() {
        QTest::addColumn<LauncherFontStyle>("style");
        QTest::addColumn<int>("faces");
        QTest::newRow("default") << LauncherFontStyle::appleDefault << 9;
        QTest::newRow("rounded") << LauncherFontStyle::appleRounded << 7;
        QTest::newRow("serif") << LauncherFontStyle::newYorkSerif << 6;
        QTest::newRow("monospaced") << LauncherFontStyle::sfMono << 8;
    }
    void theNineWeightsGetHeavier() {
        QFETCH(LauncherFontStyle, style);
        QSet<qint64> different;
        qint64 last = 0;
        for (int i = 0; i < fontWeightCount; ++i) {
            const qint64 ink = inkOf(rendered(m_resolver.font(style, 40, static_cast<FontWeight>(i))));
            QVERIFY2(ink >= last, qPrintable(QString::number(i)));
            different.insert(ink);
            last = ink;
        }
        QTEST(int(different.size()), "faces");
    }

    void everyStyleHasEachLetter() {
        for (int i = 0; i < fontStyleCount; ++i) {
            const QFont font = m_resolver.font(static_cast<LauncherFontStyle>(i), 20, FontWeight::semibold);
            QVERIFY(!QFontInfo(font).family().isEmpty());
            QCOMPARE(font.pixelSize(), 20);
        }
    }

    // Each face of the installed families, asked for by its own name alone.
    void aFaceThatIsFoundByNameIsTheOneThatIsDrawn_data() {
        QTest::addColumn<QString>("styleName");
        for (const char* name :
             {"Thin", "ExtraLight", "Light", "Regular", "Medium", "SemiBold", "Bold", "ExtraBold", "Black"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void aFaceThatIsFoundByNameIsTheOneThatIsDrawn() {
        QFETCH(QString, styleName);
        const auto face = FontconfigFaces({}).faceNamed(QStringLiteral("Inter-") + styleName);
        QVERIFY(face);
        QFont font(face->family);
        font.setStyleName(face->styleName);
        font.setWeight(static_cast<QFont::Weight>(face->weight));
        font.setPixelSize(40);
        const QRawFont raw = QRawFont::fromFont(font);
        QVERIFY(raw.isValid());
        QCOMPARE(raw.styleName().remove(u' '), styleName);
    }

private:
    const FontconfigFaces m_faces{{}};
    FontResolver m_resolver{m_faces};
};

QTEST_MAIN(FontRenderingTest)
#include "FontRenderingTest.moc"
