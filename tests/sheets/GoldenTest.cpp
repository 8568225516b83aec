#include "Sheets.h"

#include "ui/FontFaces.h"

#include <QFontDatabase>
#include <QTest>

using namespace zelmo;

namespace {

// Every design in the one font that the test has loaded.
class LoadedFont : public FontFaces {
public:
    LoadedFont() {
        const int font =
            QFontDatabase::addApplicationFont(QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"));
        if (font < 0)
            qFatal("the font of the golden pictures is missing");
        m_family = QFontDatabase::applicationFontFamilies(font).constFirst();
    }
    std::optional<FontFace> faceNamed(const QString&) const override { return std::nullopt; }
    QString systemFamily(FontDesign) const override { return m_family; }

private:
    QString m_family;
};

// Half as large, which is enough to see what has changed.
QImage reduced(QImage sheet) {
    sheet.setDevicePixelRatio(1);
    return sheet.scaled(sheet.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

int distance(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

} // namespace

// What is drawn looks as it did when somebody last looked at it. To take a new look over, run this with
// ZELMO_UPDATE_GOLDEN set, and look at the pictures.
class GoldenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itLooksAsItDid_data() {
        QTest::addColumn<QImage>("sheet");
        // How many pixels of a thousand may differ to the eye: rasterizers of letters do between versions.
        QTest::addColumn<int>("tolerance");
        const LoadedFont font;
        QTest::newRow("backgrounds") << backgroundSheet() << 0;
        QTest::newRow("fonts") << fontSheet(font) << 5;
        QTest::newRow("icons") << iconSheet() << 1;
        QTest::newRow("glyphs") << glyphSheet() << 1;
        QTest::newRow("symbols") << symbolSheet() << 1;
    }
    void itLooksAsItDid() {
        QFETCH(QImage, sheet);
        QFETCH(int, tolerance);
        constexpr int visible = 24;
        const QString path =
            QStringLiteral(ZELMO_GOLDEN_FOLDER "/%1.png").arg(QLatin1StringView(QTest::currentDataTag()));
        const QImage seen = reduced(sheet);
        if (qEnvironmentVariableIsSet("ZELMO_UPDATE_GOLDEN"))
            QVERIFY(seen.save(path));
        const QImage golden = QImage(path).convertToFormat(QImage::Format_RGB32);
        QCOMPARE(seen.size(), golden.size());
        qint64 different = 0;
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x)
                different += distance(seen.pixel(x, y), golden.pixel(x, y)) > visible;
        }
        const qint64 allowed = qint64{seen.width()} * seen.height() * tolerance / 1000;
        QVERIFY2(different <= allowed, qPrintable(QStringLiteral("%1 pixels differ").arg(different)));
    }
};

QTEST_MAIN(GoldenTest)
#include "GoldenTest.moc"
