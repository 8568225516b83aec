#include "platform/linux/fonts/FontconfigFaces.h"

#include <QTest>

using namespace zelmo;

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
};

QTEST_GUILESS_MAIN(FontconfigFacesTest)
#include "FontconfigFacesTest.moc"
