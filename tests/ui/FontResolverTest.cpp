#include "ui/FontResolver.h"

#include "ui/FontFaces.h"

#include <QTest>

using namespace zelmo;

namespace {

// Has the faces that it is given, and counts what it is asked.
class FakeFaces : public FontFaces {
public:
    explicit FakeFaces(const QStringList& installed) : m_installed(installed) {}

    std::optional<FontFace> faceNamed(const QString& name) const override {
        ++questions;
        if (!m_installed.contains(name))
            return std::nullopt;
        return FontFace{.family = name.section(u'-', 0, 0), .styleName = name.section(u'-', 1), .weight = 350};
    }
    QString systemFamily(FontDesign design) const override {
        ++questions;
        return QStringLiteral("system %1").arg(static_cast<int>(design));
    }

    mutable int questions = 0;

private:
    QStringList m_installed;
};

} // namespace

class FontResolverTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aStyleOfTheSystemHasTheWeightThatIsAskedFor() {
        const FakeFaces faces({});
        FontResolver resolver(faces);
        const QFont font = resolver.font(LauncherFontStyle::newYorkSerif, 17.6, FontWeight::semibold);
        QCOMPARE(font.family(), QStringLiteral("system 2"));
        QCOMPARE(font.weight(), QFont::DemiBold);
        QCOMPARE(font.pixelSize(), 18);
        const std::array weights{QFont::Thin,     QFont::ExtraLight, QFont::Light,     QFont::Normal, QFont::Medium,
                                 QFont::DemiBold, QFont::Bold,       QFont::ExtraBold, QFont::Black};
        for (int i = 0; i < fontWeightCount; ++i)
            QCOMPARE(resolver.font(LauncherFontStyle::slate, 12, static_cast<FontWeight>(i)).weight(),
                     weights[static_cast<std::size_t>(i)]);
    }

    void aFixedWeightStandsWhateverIsAskedFor() {
        const FakeFaces faces({});
        FontResolver resolver(faces);
        for (int i = 0; i < fontWeightCount; ++i) {
            const QFont font = resolver.font(LauncherFontStyle::cyber, 12, static_cast<FontWeight>(i));
            QCOMPARE(font.family(), QStringLiteral("system 3"));
            QCOMPARE(font.weight(), QFont::Bold);
        }
        QCOMPARE(resolver.font(LauncherFontStyle::architect, 12, FontWeight::black).weight(), QFont::Thin);
    }

    void aNamedFaceKeepsItsOwnWeight() {
        const FakeFaces faces({QStringLiteral("HelveticaNeue-Medium"), QStringLiteral("HelveticaNeue-Bold")});
        FontResolver resolver(faces);
        const QFont font = resolver.font(LauncherFontStyle::helveticaNeue, 12, FontWeight::semibold);
        QCOMPARE(font.family(), QStringLiteral("HelveticaNeue"));
        QCOMPARE(font.styleName(), QStringLiteral("Medium"));
        QCOMPARE(static_cast<int>(font.weight()), 350);
        // The next ones in the order of the roles when its own is missing.
        QCOMPARE(resolver.font(LauncherFontStyle::helveticaNeue, 12, FontWeight::black).styleName(),
                 QStringLiteral("Medium"));
    }

    void withoutTheNamedFacesTheSystemsOwnStandIn() {
        const FakeFaces faces({});
        FontResolver resolver(faces);
        const QFont font = resolver.font(LauncherFontStyle::syne, 12, FontWeight::heavy);
        QCOMPARE(font.family(), QStringLiteral("system 0"));
        QCOMPARE(font.weight(), QFont::ExtraBold);
        QCOMPARE(resolver.font(LauncherFontStyle::georgia, 12, FontWeight::light).family(), QStringLiteral("system 2"));
    }

    void nothingIsLookedUpTwice() {
        const FakeFaces faces({QStringLiteral("Raleway-Bold")});
        FontResolver resolver(faces);
        for (int i = 0; i < fontStyleCount; ++i)
            resolver.font(static_cast<LauncherFontStyle>(i), 12, FontWeight::bold);
        const int questions = faces.questions;
        QVERIFY(questions > 0);
        for (int i = 0; i < fontStyleCount; ++i)
            resolver.font(static_cast<LauncherFontStyle>(i), 30, FontWeight::bold);
        QCOMPARE(faces.questions, questions);
    }

    void noSizeIsTooSmall() {
        const FakeFaces faces({});
        FontResolver resolver(faces);
        for (const double size : {0.0, -3.0, 0.4})
            QCOMPARE(resolver.font(LauncherFontStyle::slate, size, FontWeight::bold).pixelSize(), 1);
    }
};

QTEST_GUILESS_MAIN(FontResolverTest)
#include "FontResolverTest.moc"
