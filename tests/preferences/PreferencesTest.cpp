#include "preferences/Preferences.h"
#include "preferences/PreferencesStorage.h"

#include <QSignalSpy>
#include <QTest>

using namespace zelmo;
using Key = PreferenceKey;

namespace {

class FakeStorage : public PreferencesStorage {
public:
    PreferenceValues read() override { return values; }
    bool write(const PreferenceValues& changes) override {
        ++writes;
        lastChanges = changes;
        if (!writable)
            return false;
        for (auto it = changes.cbegin(); it != changes.cend(); ++it)
            values.insert(it.key(), it.value());
        return true;
    }
    void setOutsideChangeHandler(std::function<void()> handler) override { outsideChange = std::move(handler); }

    PreferenceValues values;
    PreferenceValues lastChanges;
    std::function<void()> outsideChange;
    int writes = 0;
    bool writable = true;
};

} // namespace

class PreferencesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void freshPreferencesReadTheirDefaults() {
        FakeStorage storage;
        const Preferences preferences(storage);
        QCOMPARE(preferences.value<Key::launcherBackgroundStyle>(), QStringLiteral("desktopBlur"));
        QCOMPARE(preferences.value<Key::launcherFontStyle>(), QStringLiteral("appleDefault"));
        QCOMPARE(preferences.value<Key::launcherInterfaceStyle>(), QStringLiteral("grid"));
        QCOMPARE(preferences.value<Key::launcherKeyboardShortcut>(), QStringLiteral("optionSpace"));
        QCOMPARE(preferences.value<Key::launcherKeyboardShortcutStatus>(),
                 QStringLiteral("Option + Space is assigned to Zelmo."));
        QCOMPARE(preferences.value<Key::appIconStyle>(), QStringLiteral("mosaic"));
        QCOMPARE(preferences.value<Key::launcherBackgroundRed>(), 0.05);
        QCOMPARE(preferences.value<Key::launcherBackgroundGreen>(), 0.08);
        QCOMPARE(preferences.value<Key::launcherBackgroundBlue>(), 0.14);
        QCOMPARE(preferences.value<Key::launcherTextRed>(), 1.0);
        QCOMPARE(preferences.value<Key::launcherTextGreen>(), 0.98);
        QCOMPARE(preferences.value<Key::launcherTextBlue>(), 0.92);
        QCOMPARE(preferences.value<Key::titleFontSize>(), 32.0);
        QCOMPARE(preferences.value<Key::subtitleFontSize>(), 12.0);
        QCOMPARE(preferences.value<Key::appNameFontSize>(), 15.0);
        QCOMPARE(preferences.value<Key::appCategoryFontSize>(), 11.0);
        QCOMPARE(preferences.value<Key::searchFontSize>(), 18.0);
        QCOMPARE(preferences.value<Key::categoryChipFontSize>(), 14.0);
        QCOMPARE(preferences.value<Key::showAppTileBackground>(), false);
        QCOMPARE(preferences.value<Key::openAtLoginLater>(), false);
        QCOMPARE(preferences.value<Key::appUsageRecords>(), QByteArray());
        QCOMPARE(preferences.value<Key::hiddenAppPaths>(), QStringList());
        QCOMPARE(preferenceCount, std::size_t{22});
    }

    void aValueOfAnotherTypeReadsAsAbsent() {
        FakeStorage storage;
        storage.values = {{QStringLiteral("titleFontSize"), QStringLiteral("40")},
                          {QStringLiteral("launcherBackgroundRed"), QStringLiteral("0.9")},
                          {QStringLiteral("launcherBackgroundGreen"), 0.5},
                          {QStringLiteral("appIconStyle"), 3.0},
                          {QStringLiteral("showAppTileBackground"), QStringLiteral("true")}};
        const Preferences preferences(storage);
        QVERIFY(!preferences.stored<Key::titleFontSize>());
        QCOMPARE(preferences.value<Key::titleFontSize>(), 32.0);
        QCOMPARE(preferences.value<Key::launcherBackgroundRed>(), 0.05);
        QCOMPARE(preferences.value<Key::launcherBackgroundGreen>(), 0.5);
        QCOMPARE(preferences.value<Key::launcherBackgroundBlue>(), 0.14);
        QCOMPARE(preferences.value<Key::appIconStyle>(), QStringLiteral("mosaic"));
        QCOMPARE(preferences.value<Key::showAppTileBackground>(), false);
    }

    void aWriteIsSeenByEveryReaderAtOnce() {
        FakeStorage storage;
        Preferences preferences(storage);
        QList<Key> seen;
        connect(&preferences, &Preferences::changed, this, [&](Key key) {
            seen.append(key);
            QCOMPARE(preferences.value<Key::titleFontSize>(), 36.0);
        });
        preferences.setValue<Key::titleFontSize>(36.0);
        QCOMPARE(seen, QList<Key>{Key::titleFontSize});
        preferences.setValue<Key::titleFontSize>(36.0);
        QCOMPARE(seen.size(), 1);
    }

    void aStreamOfWritesIsStoredTogether() {
        FakeStorage storage;
        Preferences preferences(storage);
        for (int i = 0; i < 100; ++i)
            preferences.setValue<Key::titleFontSize>(24 + i * 0.1);
        preferences.setValue<Key::appIconStyle>(QStringLiteral("spark"));
        QCOMPARE(storage.writes, 0);
        QTRY_COMPARE(storage.writes, 1);
        QCOMPARE(storage.lastChanges.size(), 2);
        QCOMPARE(std::get<double>(storage.values.value(QStringLiteral("titleFontSize"))), 24 + 99 * 0.1);
    }

    void whatWaitsIsStoredAtTheEnd() {
        FakeStorage storage;
        {
            Preferences preferences(storage);
            preferences.setValue<Key::hiddenAppPaths>({QStringLiteral("/Applications/Chess.app")});
        }
        QCOMPARE(storage.writes, 1);
        QCOMPARE(std::get<QStringList>(storage.values.value(QStringLiteral("hiddenAppPaths"))),
                 QStringList{QStringLiteral("/Applications/Chess.app")});
    }

    void refusedWritesStayInForceAndAreTriedWithTheNextChange() {
        FakeStorage storage;
        Preferences preferences(storage);
        storage.writable = false;
        preferences.setValue<Key::titleFontSize>(40.0);
        QVERIFY(!preferences.flush());
        QCOMPARE(preferences.value<Key::titleFontSize>(), 40.0);
        storage.writable = true;
        preferences.setValue<Key::subtitleFontSize>(14.0);
        QVERIFY(preferences.flush());
        QCOMPARE(storage.lastChanges.size(), 2);
        QCOMPARE(std::get<double>(storage.values.value(QStringLiteral("titleFontSize"))), 40.0);
    }

    void aChangeFromOutsideIsTakenOver() {
        FakeStorage storage;
        storage.values = {{QStringLiteral("titleFontSize"), 30.0}, {QStringLiteral("searchFontSize"), 20.0}};
        Preferences preferences(storage);
        preferences.setValue<Key::subtitleFontSize>(16.0);
        QList<Key> seen;
        connect(&preferences, &Preferences::changed, this, [&](Key key) { seen.append(key); });
        storage.values = {{QStringLiteral("titleFontSize"), 28.0}, {QStringLiteral("subtitleFontSize"), 10.0}};
        storage.outsideChange();
        QCOMPARE(seen, (QList<Key>{Key::titleFontSize, Key::searchFontSize}));
        QCOMPARE(preferences.value<Key::titleFontSize>(), 28.0);
        QCOMPARE(preferences.value<Key::searchFontSize>(), 18.0);
        // Not stored yet, so the newer of the two is the one made here.
        QCOMPARE(preferences.value<Key::subtitleFontSize>(), 16.0);
    }
};

QTEST_GUILESS_MAIN(PreferencesTest)
#include "PreferencesTest.moc"
