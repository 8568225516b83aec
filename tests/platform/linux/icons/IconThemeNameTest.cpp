#include "IconTestFiles.h"

#include "platform/linux/icons/IconThemeName.h"

#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

class IconThemeNameTest : public QObject {
    Q_OBJECT

    std::unique_ptr<IconTestFolder> m_folder;

    std::optional<QByteArray> chosen(const QByteArray& desktops) const {
        return IconThemeName::chosen({{}, {}, {m_folder->path("own"), m_folder->path("shared")}, desktops.split(':')});
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<IconTestFolder>(); }

    void kdeSettingsCountOnKdeOnly() {
        m_folder->write("own/kdeglobals", "[General]\nTheme=no\n[Icons]\nTheme=breeze-dark\n");
        m_folder->write("own/gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name = Papirus\n");
        QCOMPARE(chosen("KDE"), std::optional<QByteArray>("breeze-dark"));
        QCOMPARE(chosen("X-Custom:KDE"), std::optional<QByteArray>("breeze-dark"));
        QCOMPARE(chosen("GNOME"), std::optional<QByteArray>("Papirus"));
        QCOMPARE(chosen(""), std::optional<QByteArray>("Papirus"));
    }

    void lookOfTheWholeDesktopCountsAfterTheUsersChoice() {
        m_folder->write("own/kdedefaults/kdeglobals", "[Icons]\nTheme=from-look\n");
        m_folder->write("shared/kdeglobals", "[Icons]\nTheme=shared\n");
        QCOMPARE(chosen("KDE"), std::optional<QByteArray>("from-look"));
        m_folder->write("own/kdeglobals", "[Icons]\nTheme[$i]=own\n");
        QCOMPARE(chosen("KDE"), std::optional<QByteArray>("own"));
    }

    void newerToolkitComesFirstAndSharedSettingsLast() {
        m_folder->write("shared/gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=Shared\n");
        QCOMPARE(chosen("XFCE"), std::optional<QByteArray>("Shared"));
        m_folder->write("own/gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=\"Three\"\n");
        QCOMPARE(chosen("XFCE"), std::optional<QByteArray>("Three"));
        m_folder->write("own/gtk-4.0/settings.ini", "[Settings]\ngtk-icon-theme-name=Four\n");
        QCOMPARE(chosen("XFCE"), std::optional<QByteArray>("Four"));
    }

    void namesThatAreNoFolderAreIgnored_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"", "..", "a/b", "/etc", ".hidden"})
            QTest::newRow(*name ? name : "empty") << QByteArray(name);
    }
    void namesThatAreNoFolderAreIgnored() {
        QFETCH(QByteArray, name);
        m_folder->write("own/gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=" + name + "\n");
        QCOMPARE(chosen("KDE"), std::nullopt);
    }

    void foldersAreTakenFromTheEnvironment() {
        const IconEnvironment environment = IconEnvironment::read([](const char* name) {
            const QHash<QByteArray, QByteArray> variables{
                {"HOME", "/home/u"},
                {"XDG_DATA_DIRS", "/opt/share/:relative:/usr/share:/opt/share"},
                {"XDG_CONFIG_HOME", "/cfg"},
                {"XDG_CURRENT_DESKTOP", "ubuntu:GNOME"}};
            return variables.value(name);
        });
        const IconFolders folders = IconFolders::of(environment);
        QCOMPARE(folders.themed, (QList<QByteArray>{"/home/u/.icons", "/home/u/.local/share/icons", "/opt/share/icons",
                                                    "/usr/share/icons"}));
        QCOMPARE(folders.plain,
                 (QList<QByteArray>{"/home/u/.local/share/pixmaps", "/opt/share/pixmaps", "/usr/share/pixmaps"}));
        QCOMPARE(environment.configFolders, (QList<QByteArray>{"/cfg", "/etc/xdg"}));
        QCOMPARE(environment.desktops, (QList<QByteArray>{"ubuntu", "GNOME"}));
    }

    void emptyEnvironmentGivesTheStandardFolders() {
        const IconEnvironment environment = IconEnvironment::read([](const char*) { return QByteArray(); });
        QCOMPARE(IconFolders::of(environment).themed,
                 (QList<QByteArray>{"/usr/local/share/icons", "/usr/share/icons"}));
    }

    void theSystemsIconsOutsideOfThemesCountInAnyEnvironment() {
        const IconEnvironment environment = IconEnvironment::read([](const char* name) {
            return qstrcmp(name, "XDG_DATA_DIRS") == 0 ? QByteArray("/opt/share") : QByteArray();
        });
        QCOMPARE(IconFolders::of(environment).plain, (QList<QByteArray>{"/opt/share/pixmaps", "/usr/share/pixmaps"}));
    }
};

QTEST_GUILESS_MAIN(IconThemeNameTest)
#include "IconThemeNameTest.moc"
