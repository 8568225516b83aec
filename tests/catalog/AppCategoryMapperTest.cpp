#include "catalog/AppCategoryMapper.h"

#include <QTest>

using namespace zelmo;

class AppCategoryMapperTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTypeHasItsCategory_data() {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("title");
        const auto rows = [](const char* title, std::initializer_list<const char*> types) {
            for (const char* type : types)
                QTest::newRow(type) << QString(QLatin1StringView("public.app-category.") + QLatin1StringView(type))
                                    << QString::fromLatin1(title);
        };
        rows("Productivity & Finance", {"productivity", "finance", "business"});
        rows("Utilities", {"utilities", "reference"});
        rows("Developer Tools", {"developer-tools"});
        rows("Social", {"social-networking"});
        rows("Entertainment", {"entertainment", "games", "music", "video"});
        rows("Creativity", {"graphics-design", "photography", "lifestyle"});
        rows("Information & Reading", {"education", "news", "books"});
        rows("Other", {"action-games", "puzzle-games", "weather", "medical", "Utilities", "utilities ", ""});
    }
    void everyTypeHasItsCategory() {
        QFETCH(QString, type);
        QFETCH(QString, title);
        QCOMPARE(rawValue(AppCategoryMapper::map(type)), title);
    }

    void whatDeclaresNoTypeIsOther() {
        QVERIFY(AppCategoryMapper::map(std::nullopt) == AppCategory::other);
        QVERIFY(AppCategoryMapper::map(QString()) == AppCategory::other);
        QVERIFY(AppCategoryMapper::map(QStringLiteral("utilities")) == AppCategory::other);
    }
};

QTEST_GUILESS_MAIN(AppCategoryMapperTest)
#include "AppCategoryMapperTest.moc"
