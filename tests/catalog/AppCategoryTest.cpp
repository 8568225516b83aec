#include "catalog/AppCategory.h"
#include "catalog/LaunchableApp.h"

#include <QTest>

using namespace zelmo;

class AppCategoryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyCategoryHasItsTitleAndLook_data() {
        QTest::addColumn<AppCategory>("category");
        QTest::addColumn<QString>("title");
        QTest::addColumn<StyleColor>("first");
        QTest::addColumn<StyleColor>("second");
        QTest::addColumn<StyleColor>("accent");
        QTest::addColumn<QByteArray>("symbol");
        QTest::addColumn<QByteArray>("label");
        const auto row = [](AppCategory category, const char* title, StyleColor first, StyleColor second,
                            StyleColor accent, const char* symbol, const char* label) {
            QTest::newRow(title) << category << QString::fromLatin1(title) << first << second << accent
                                 << QByteArray(symbol) << QByteArray(label);
        };
        row(AppCategory::all, "All Apps", {0.53, 0.73, 1.0}, {0.55, 0.88, 0.8}, {0.62, 0.79, 1.0},
            "square.grid.2x2.fill", "All");
        row(AppCategory::productivity, "Productivity & Finance", {0.46, 0.62, 1.0}, {0.32, 0.83, 0.84},
            {0.53, 0.74, 1.0}, "bolt.horizontal.circle.fill", "Productive");
        row(AppCategory::utilities, "Utilities", {0.42, 0.84, 0.78}, {0.39, 0.61, 1.0}, {0.42, 0.84, 0.78}, "sparkles",
            "Utility");
        row(AppCategory::developer, "Developer Tools", {0.67, 0.57, 1.0}, {0.38, 0.56, 1.0}, {0.72, 0.63, 1.0},
            "chevron.left.forwardslash.chevron.right", "Builder");
        row(AppCategory::social, "Social", {0.99, 0.55, 0.62}, {0.86, 0.46, 0.9}, {0.98, 0.57, 0.7},
            "bubble.left.and.bubble.right.fill", "Social");
        row(AppCategory::entertainment, "Entertainment", {0.98, 0.63, 0.42}, {0.94, 0.38, 0.49}, {0.99, 0.68, 0.43},
            "play.circle.fill", "Play");
        row(AppCategory::creativity, "Creativity", {0.98, 0.72, 0.43}, {0.57, 0.84, 0.78}, {0.96, 0.75, 0.43},
            "paintbrush.pointed.fill", "Creative");
        row(AppCategory::reading, "Information & Reading", {0.67, 0.8, 1.0}, {0.84, 0.72, 0.97}, {0.73, 0.81, 1.0},
            "book.closed.fill", "Reading");
        row(AppCategory::other, "Other", {1, 1, 1, 0.3}, {0.72, 0.78, 0.88}, {1, 1, 1, 0.82}, "circle.hexagongrid.fill",
            "Other");
    }
    void everyCategoryHasItsTitleAndLook() {
        QFETCH(AppCategory, category);
        QFETCH(QString, title);
        QFETCH(StyleColor, first);
        QFETCH(StyleColor, second);
        QFETCH(StyleColor, accent);
        QFETCH(QByteArray, symbol);
        QFETCH(QByteArray, label);
        QCOMPARE(rawValue(category), title);
        QCOMPARE(categoryFromRawValue(title), std::optional(category));
        const AppCategoryGlassStyle& style = glassStyle(category);
        QVERIFY(style.gradientColors[0] == first);
        QVERIFY(style.gradientColors[1] == second);
        QVERIFY(style.accentColor == accent);
        QCOMPARE(QByteArray(style.symbolName.data(), static_cast<qsizetype>(style.symbolName.size())), symbol);
        QCOMPARE(QByteArray(style.shortLabel.data(), static_cast<qsizetype>(style.shortLabel.size())), label);
    }

    void categoriesStandInTheOrderOfTheBar() {
        QStringList titles;
        for (const AppCategory category : allCategories)
            titles.append(rawValue(category));
        const QStringList expected{QStringLiteral("All Apps"),   QStringLiteral("Productivity & Finance"),
                                   QStringLiteral("Utilities"),  QStringLiteral("Developer Tools"),
                                   QStringLiteral("Social"),     QStringLiteral("Entertainment"),
                                   QStringLiteral("Creativity"), QStringLiteral("Information & Reading"),
                                   QStringLiteral("Other")};
        QCOMPARE(titles, expected);
        for (std::size_t i = 0; i < allCategories.size(); ++i)
            QCOMPARE(static_cast<std::size_t>(allCategories[i]), i);
    }

    void onlyAnExactTitleIsARawValue() {
        for (const AppCategory category : allCategories) {
            const QString title = rawValue(category);
            for (const QString& other : {title.toUpper(), title.toLower(), QString(title + u' '), title.chopped(1)})
                QCOMPARE(categoryFromRawValue(other), std::nullopt);
        }
        for (const char* text : {"Reading", "reading", "utilities", "UTILITIES", "Utilities ", "Utility", "", "All"})
            QCOMPARE(categoryFromRawValue(QString::fromLatin1(text)), std::nullopt);
    }

    void applicationsAreEqualWhenAllFieldsAre() {
        const FileUrl url = FileUrl::fromPath(QStringLiteral("/Applications/Notes.app"));
        const FileUrl otherUrl = FileUrl::fromPath(QStringLiteral("/Applications/Note.app"));
        const LaunchableApp app{.id = url,
                                .name = QStringLiteral("Notes"),
                                .url = url,
                                .icon = {.name = QStringLiteral("notes"), .bundlePath = url.path()},
                                .category = AppCategory::productivity};
        const LaunchableApp same = app;
        QVERIFY(app == same);
        QCOMPARE(qHash(app), qHash(same));
        LaunchableApp other = app;
        other.id = otherUrl;
        QVERIFY(app != other);
        other = app;
        other.url = otherUrl;
        QVERIFY(app != other);
        other = app;
        other.name = QStringLiteral("notes");
        QVERIFY(app != other);
        other = app;
        other.icon.name = QStringLiteral("note");
        QVERIFY(app != other);
        other = app;
        other.category = AppCategory::other;
        QVERIFY(app != other);
    }
};

QTEST_GUILESS_MAIN(AppCategoryTest)
#include "AppCategoryTest.moc"
