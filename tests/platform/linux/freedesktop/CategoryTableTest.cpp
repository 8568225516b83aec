#include "platform/linux/freedesktop/CategoryTable.h"

#include "catalog/AppCategoryMapper.h"

#include <QTest>

using namespace zelmo;

class CategoryTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void entriesStandWhereAPersonLooks_data() {
        QTest::addColumn<QByteArray>("categories");
        QTest::addColumn<QString>("title");
        const auto row = [](const char* name, const QByteArray& categories, AppCategory category) {
            QTest::newRow(name) << categories << rawValue(category);
        };
        row("browser", "GNOME;GTK;Network;WebBrowser", AppCategory::productivity);
        row("mail", "Network;Email", AppCategory::productivity);
        row("mail with a calendar", "GNOME;GTK;Office;Email;Calendar;ContactManagement", AppCategory::productivity);
        row("word processor", "Office;WordProcessor", AppCategory::productivity);
        row("terminal", "System;TerminalEmulator", AppCategory::utilities);
        row("file manager", "System;FileTools;FileManager", AppCategory::utilities);
        row("settings", "Qt;KDE;Settings;HardwareSettings;Printing", AppCategory::utilities);
        row("accessory", "Utility", AppCategory::utilities);
        row("development environment", "Development;IDE", AppCategory::developer);
        row("development environment for games", "Game;Development;IDE", AppCategory::developer);
        row("editor for developers", "Utility;TextEditor;Development;IDE", AppCategory::developer);
        row("editor", "Utility;TextEditor", AppCategory::utilities);
        row("chat", "Network;InstantMessaging", AppCategory::social);
        row("relay chat", "Network;IRCClient;Chat", AppCategory::social);
        row("video call", "Network;VideoConference;AudioVideo", AppCategory::social);
        row("music player", "AudioVideo;Audio;Player", AppCategory::entertainment);
        row("video", "AudioVideo;Video", AppCategory::entertainment);
        row("game that teaches", "Game;Education", AppCategory::entertainment);
        row("emulator of a console", "Emulator;Game", AppCategory::entertainment);
        row("virtual machine", "Emulator;System", AppCategory::utilities);
        row("painting", "Graphics;2DGraphics;RasterGraphics", AppCategory::creativity);
        row("modelling", "Graphics;3DGraphics", AppCategory::creativity);
        row("photographs", "Graphics;Viewer;Photography", AppCategory::creativity);
        row("typesetting", "Office;Publishing", AppCategory::creativity);
        row("document viewer", "GTK;Office;Viewer;Graphics;2DGraphics;VectorGraphics", AppCategory::reading);
        row("dictionary", "Office;Dictionary", AppCategory::reading);
        row("news", "Network;Feed", AppCategory::reading);
        row("mathematics", "Education;Science;Math", AppCategory::reading);
    }
    void entriesStandWhereAPersonLooks() {
        QFETCH(QByteArray, categories);
        QFETCH(QString, title);
        const auto type = CategoryTable::categoryType(categories.split(';'));
        QCOMPARE(rawValue(AppCategoryMapper::map(type)), title);
    }

    void orderInTheEntryDoesNotMatter() {
        const auto type = CategoryTable::categoryType({"Network", "WebBrowser", "Development"});
        QCOMPARE(CategoryTable::categoryType({"Development", "WebBrowser", "Network"}), type);
        QCOMPARE(CategoryTable::categoryType({"WebBrowser"}), type);
    }

    void everyMainCategoryHasItsPlace() {
        for (const char* category : {"AudioVideo", "Audio", "Video", "Development", "Education", "Game", "Graphics",
                                     "Network", "Office", "Science", "Settings", "System", "Utility"}) {
            const auto type = CategoryTable::categoryType({QByteArray(category)});
            QVERIFY2(type, category);
            QVERIFY2(AppCategoryMapper::map(type) != AppCategory::other, category);
        }
    }

    void unknownCategoriesSayNothing() {
        QCOMPARE(CategoryTable::categoryType({}), std::nullopt);
        QCOMPARE(CategoryTable::categoryType({"GTK", "X-Vendor-Thing", "game", "", "Games"}), std::nullopt);
    }
};

QTEST_APPLESS_MAIN(CategoryTableTest)
#include "CategoryTableTest.moc"
