#include "appearance/LauncherFontStyle.h"

#include <QTest>

#include <array>

using namespace zelmo;
using Style = LauncherFontStyle;

namespace {

// The names for regular, medium, semibold, bold and heavy texts; none for a style of the system's font.
using Faces = QStringList;

Faces faces(const char* regular, const char* medium, const char* semibold, const char* bold, const char* heavy) {
    Faces list;
    for (const char* name : {regular, medium, semibold, bold, heavy})
        list.append(QString::fromLatin1(name));
    return list;
}

Faces family(const char* name) {
    Faces list;
    for (const char* suffix : {"-Regular", "-Medium", "-SemiBold", "-Bold", "-Black"})
        list.append(QString::fromLatin1(name) + QString::fromLatin1(suffix));
    return list;
}

struct Expected {
    Style style;
    const char* rawValue;
    const char* title;
    FontDesign design;
    std::optional<FontWeight> fixedWeight;
    double tracking;
    Faces faces;
};

QList<Expected> expectedStyles() {
    constexpr auto standard = FontDesign::standard;
    constexpr auto rounded = FontDesign::rounded;
    constexpr auto serif = FontDesign::serif;
    constexpr auto monospaced = FontDesign::monospaced;
    constexpr auto any = std::nullopt;
    return {
        {Style::appleDefault, "appleDefault", "Apple Default", standard, any, 0, {}},
        {Style::appleRounded, "appleRounded", "Apple Rounded", rounded, any, 0, {}},
        {Style::newYorkSerif, "newYorkSerif", "New York Serif", serif, any, 0, {}},
        {Style::sfMono, "sfMono", "SF Mono", monospaced, any, 0.4, {}},
        {Style::avenirNext, "avenirNext", "Avenir Next", standard, any, 0,
         faces("AvenirNext-Regular", "AvenirNext-Medium", "AvenirNext-DemiBold", "AvenirNext-Bold",
               "AvenirNext-Heavy")},
        {Style::helveticaNeue, "helveticaNeue", "Helvetica Neue", standard, any, 0,
         faces("HelveticaNeue", "HelveticaNeue-Medium", "HelveticaNeue-Medium", "HelveticaNeue-Bold",
               "HelveticaNeue-CondensedBlack")},
        {Style::optima, "optima", "Optima", standard, any, 0,
         faces("Optima-Regular", "Optima-Regular", "Optima-Bold", "Optima-Bold", "Optima-ExtraBlack")},
        {Style::georgia, "georgia", "Georgia", serif, any, 0,
         faces("Georgia", "Georgia", "Georgia-Bold", "Georgia-Bold", "Georgia-Bold")},
        {Style::palatino, "palatino", "Palatino", serif, any, 0,
         faces("Palatino-Roman", "Palatino-Roman", "Palatino-Bold", "Palatino-Bold", "Palatino-Bold")},
        {Style::futura, "futura", "Futura", standard, any, 0.25,
         faces("Futura-Medium", "Futura-Medium", "Futura-Medium", "Futura-CondensedExtraBold",
               "Futura-CondensedExtraBold")},
        {Style::gillSans, "gillSans", "Gill Sans", standard, any, 0.25,
         faces("GillSans", "GillSans", "GillSans-SemiBold", "GillSans-Bold", "GillSans-Bold")},
        {Style::slate, "slate", "Slate", standard, any, 0, {}},
        {Style::cyber, "cyber", "Cyber", monospaced, FontWeight::bold, 1.4, {}},
        {Style::modernist, "modernist", "Modernist", rounded, any, 0, {}},
        {Style::classicist, "classicist", "Classicist", serif, any, 0, {}},
        {Style::athletic, "athletic", "Athletic", serif, FontWeight::black, 0, {}},
        {Style::architect, "architect", "Architect", standard, FontWeight::ultraLight, 0.6, {}},
        {Style::writer, "writer", "Writer", rounded, any, 0, {}},
        {Style::techno, "techno", "Techno", standard, FontWeight::heavy, 1.4, {}},
        {Style::display, "display", "Display", rounded, FontWeight::black, 1.4, {}},
        {Style::instrumentSans, "instrumentSans", "Instrument Sans", standard, any, 0.4, family("InstrumentSans")},
        {Style::vercetti, "vercetti", "Vercetti", standard, any, 0.6,
         faces("Vercetti-Regular", "Vercetti-Regular", "Vercetti-Regular", "Vercetti-Regular", "Vercetti-Regular")},
        {Style::murecho, "murecho", "Murecho", standard, any, 0, family("Murecho")},
        {Style::petrona, "petrona", "Petrona", serif, any, 0, family("Petrona")},
        {Style::sansitaSwashed, "sansitaSwashed", "Sansita Swashed", rounded, any, 0.2, family("SansitaSwashed")},
        {Style::raleway, "raleway", "Raleway", standard, any, 0, family("Raleway")},
        {Style::lilGrotesk, "lilGrotesk", "Lil Grotesk", standard, any, 0.4,
         faces("LilGrotesk-Regular", "LilGrotesk-Medium", "LilGrotesk-SemiBold", "LilGrotesk-Bold",
               "LilGrotesk-Black")},
        {Style::besley, "besley", "Besley", serif, any, 0, family("Besley")},
        {Style::coconat, "coconat", "Coconat", rounded, any, 0.2,
         faces("Coconat-Regular", "Coconat-Regular", "Coconat-Bold", "Coconat-BoldExt", "Coconat-BoldExt")},
        {Style::syne, "syne", "Syne", standard, any, 1.4, family("Syne")},
    };
}

// Which of a style's five faces a text of each weight prefers, from ultra-light to black.
struct PreferredFace {
    FontWeight weight;
    qsizetype face;
};
constexpr std::array preferredFaces{
    PreferredFace{FontWeight::ultraLight, 0}, PreferredFace{FontWeight::thin, 0},
    PreferredFace{FontWeight::light, 0},      PreferredFace{FontWeight::regular, 0},
    PreferredFace{FontWeight::medium, 1},     PreferredFace{FontWeight::semibold, 2},
    PreferredFace{FontWeight::bold, 3},       PreferredFace{FontWeight::heavy, 4},
    PreferredFace{FontWeight::black, 4},
};

QStringList candidates(Style style, FontWeight weight) {
    const std::vector<QString> names = fontNames(style, weight);
    return QStringList(names.cbegin(), names.cend());
}

} // namespace

class LauncherFontStyleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyStyleHasItsRow_data() {
        QTest::addColumn<qsizetype>("index");
        const QList<Expected> styles = expectedStyles();
        QCOMPARE(styles.size(), 30);
        for (qsizetype i = 0; i < styles.size(); ++i)
            QTest::newRow(styles[i].rawValue) << i;
    }
    void everyStyleHasItsRow() {
        QFETCH(qsizetype, index);
        const Expected expected = expectedStyles().at(index);
        QCOMPARE(qsizetype(expected.style), index);
        QCOMPARE(rawValue(expected.style), QString::fromLatin1(expected.rawValue));
        QCOMPARE(title(expected.style), QString::fromLatin1(expected.title));
        QCOMPARE(design(expected.style), expected.design);
        QCOMPARE(fixedWeight(expected.style), expected.fixedWeight);
        QCOMPARE(tracking(expected.style), expected.tracking);
    }

    void everyStyleIsFoundByItsCaseNameOnly() {
        QCOMPARE(fontStyleCount, 30);
        for (const Expected& expected : expectedStyles()) {
            const QString name = QString::fromLatin1(expected.rawValue);
            QCOMPARE(fontStyleFromRawValue(name), std::optional(expected.style));
            for (const QString& other :
                 {QString::fromLatin1(expected.title), name.toUpper(), QString(name + u' '), name.chopped(1)})
                QCOMPARE(fontStyleFromRawValue(other), std::nullopt);
        }
        for (const QStringView unknown : {u"", u"comicSans", u"0"})
            QCOMPARE(fontStyleFromRawValue(unknown), std::nullopt);
        QCOMPARE(fontStyleFromRawValue(QStringView()), std::nullopt);
    }

    void namedStylesTryTheFaceOfTheWeightAndThenAllFive_data() { everyStyleHasItsRow_data(); }
    void namedStylesTryTheFaceOfTheWeightAndThenAllFive() {
        QFETCH(qsizetype, index);
        const Expected expected = expectedStyles().at(index);
        QCOMPARE(qsizetype(preferredFaces.size()), qsizetype(fontWeightCount));
        for (const PreferredFace& preferred : preferredFaces) {
            QStringList names;
            if (!expected.faces.isEmpty())
                names = QStringList(expected.faces.at(preferred.face)) + expected.faces;
            QCOMPARE(candidates(expected.style, preferred.weight), names);
        }
    }

    void oneListOfEachKindIsExact() {
        QCOMPARE(candidates(Style::slate, FontWeight::regular), QStringList());
        QCOMPARE(candidates(Style::athletic, FontWeight::regular), QStringList());
        QCOMPARE(candidates(Style::avenirNext, FontWeight::semibold),
                 (QStringList{QStringLiteral("AvenirNext-DemiBold"), QStringLiteral("AvenirNext-Regular"),
                              QStringLiteral("AvenirNext-Medium"), QStringLiteral("AvenirNext-DemiBold"),
                              QStringLiteral("AvenirNext-Bold"), QStringLiteral("AvenirNext-Heavy")}));
        QCOMPARE(candidates(Style::petrona, FontWeight::heavy),
                 (QStringList{QStringLiteral("Petrona-Black"), QStringLiteral("Petrona-Regular"),
                              QStringLiteral("Petrona-Medium"), QStringLiteral("Petrona-SemiBold"),
                              QStringLiteral("Petrona-Bold"), QStringLiteral("Petrona-Black")}));
        QCOMPARE(candidates(Style::vercetti, FontWeight::bold), QStringList(6, QStringLiteral("Vercetti-Regular")));
    }

    void weightsWithoutAFaceOfTheirOwnTakeANeighbours() {
        QCOMPARE(candidates(Style::avenirNext, FontWeight::light).value(0), QStringLiteral("AvenirNext-Regular"));
        QCOMPARE(candidates(Style::avenirNext, FontWeight::black).value(0), QStringLiteral("AvenirNext-Heavy"));
        QCOMPARE(candidates(Style::helveticaNeue, FontWeight::semibold).value(0),
                 QStringLiteral("HelveticaNeue-Medium"));
    }

    void cyberIsBoldAndMonospacedAtEveryWeight() {
        QCOMPARE(design(Style::cyber), FontDesign::monospaced);
        QCOMPARE(fixedWeight(Style::cyber), std::optional(FontWeight::bold));
        for (const PreferredFace& preferred : preferredFaces)
            QCOMPARE(candidates(Style::cyber, preferred.weight), QStringList());
    }

    void syneFallsBackToTheStandardDesignAtTheAskedWeight() {
        QCOMPARE(design(Style::syne), FontDesign::standard);
        QCOMPARE(fixedWeight(Style::syne), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(LauncherFontStyleTest)
#include "LauncherFontStyleTest.moc"
