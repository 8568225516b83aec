#include "platform/linux/fonts/FontconfigFaces.h"
#include "TemporaryFolder.h"

#include <QTest>

#include <fontconfig/fontconfig.h>

using namespace zelmo;

namespace {

// As long as it lives, fontconfig knows the fonts of these families alone, of those that are installed. `rules` are
// what a user may write into a configuration of it.
class KnownFonts {
public:
    KnownFonts(std::initializer_list<const char*> families, const QByteArray& rules) {
        m_folder.makeFolders("fonts");
        for (const char* family : families)
            linkFontsOf(family);
        const QByteArray text = "<fontconfig><dir>" + m_folder.path("fonts") + "</dir><cachedir>" +
                                m_folder.path("cache") + "</cachedir>" + rules + "</fontconfig>";
        FcConfig* configuration = FcConfigCreate();
        if (!FcConfigParseAndLoadFromMemory(configuration, reinterpret_cast<const FcChar8*>(text.constData()),
                                            FcTrue) ||
            !FcConfigBuildFonts(configuration) || !FcConfigSetCurrent(configuration))
            qFatal("fontconfig does not take the test's configuration");
        FcConfigDestroy(configuration);
    }
    ~KnownFonts() {
        FcConfigSetCurrent(m_before);
        FcConfigDestroy(m_before);
    }
    KnownFonts(const KnownFonts&) = delete;
    KnownFonts& operator=(const KnownFonts&) = delete;

private:
    void linkFontsOf(const char* family) const {
        FcPattern* pattern = FcPatternCreate();
        FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
        FcObjectSet* wanted = FcObjectSetBuild(FC_FILE, nullptr);
        FcFontSet* fonts = FcFontList(nullptr, pattern, wanted);
        for (int i = 0; i < fonts->nfont; ++i) {
            FcChar8* file = nullptr;
            if (FcPatternGetString(fonts->fonts[i], FC_FILE, 0, &file) == FcResultMatch) {
                const QByteArray path(reinterpret_cast<const char*>(file));
                m_folder.link("fonts/" + QByteArray(family) + QByteArray::number(i) + path.mid(path.lastIndexOf('.')),
                              path);
            }
        }
        FcFontSetDestroy(fonts);
        FcObjectSetDestroy(wanted);
        FcPatternDestroy(pattern);
    }

    TemporaryFolder m_folder;
    FcConfig* m_before = FcConfigReference(nullptr);
};

} // namespace

class FontconfigFacesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFaceIsFoundByItsExactNameOnly() {
        const FontconfigFaces faces({});
        const auto face = faces.faceNamed(QStringLiteral("Inter-SemiBold"));
        QVERIFY(face);
        QCOMPARE(face->family, QStringLiteral("Inter"));
        QCOMPARE(face->weight, 600);
        QVERIFY(!face->isSlanted);
        QVERIFY(faces.faceNamed(QStringLiteral("Inter-SemiBoldItalic"))->isSlanted);
        for (const char* name : {"inter-semibold", "Inter SemiBold", "Inter-Semi", "Inter", "", "Inter-SemiBold "})
            QVERIFY2(!faces.faceNamed(QString::fromLatin1(name)), name);
    }

    void eachDesignHasAFamilyOfItsOwn() {
        const FontconfigFaces faces({});
        QCOMPARE(faces.systemFamily(FontDesign::standard), QStringLiteral("Inter"));
        QCOMPARE(faces.systemFamily(FontDesign::rounded), QStringLiteral("Dosis"));
        QCOMPARE(faces.systemFamily(FontDesign::serif), QStringLiteral("Vollkorn"));
        QCOMPARE(faces.systemFamily(FontDesign::monospaced), QStringLiteral("JetBrains Mono"));
    }

    // It is taken where it has all weights.
    void theDesktopsOwnFamilyIsTakenWhereItHasAllWeights() {
        QCOMPARE(FontconfigFaces(QStringLiteral("Inter")).systemFamily(FontDesign::standard), QStringLiteral("Inter"));
        QCOMPARE(FontconfigFaces(QStringLiteral("DejaVu Sans")).systemFamily(FontDesign::standard),
                 QStringLiteral("Inter"));
    }

    void withoutTheFamiliesOfADesignFontconfigChooses() {
        const KnownFonts fonts({"Dosis", "Vollkorn"},
                               "<alias><family>monospace</family><prefer><family>Dosis</family></prefer></alias>"
                               "<alias><family>sans-serif</family><prefer><family>Vollkorn</family></prefer></alias>");
        const FontconfigFaces faces({});
        QCOMPARE(faces.systemFamily(FontDesign::serif), QStringLiteral("Vollkorn"));
        QCOMPARE(faces.systemFamily(FontDesign::monospaced), QStringLiteral("Dosis"));
        QCOMPARE(faces.systemFamily(FontDesign::standard), QStringLiteral("Vollkorn"));
        // What the desktop asked for comes closer than just any letters.
        QCOMPARE(FontconfigFaces(QStringLiteral("Dosis")).systemFamily(FontDesign::standard), QStringLiteral("Dosis"));
    }
};

QTEST_GUILESS_MAIN(FontconfigFacesTest)
#include "FontconfigFacesTest.moc"
