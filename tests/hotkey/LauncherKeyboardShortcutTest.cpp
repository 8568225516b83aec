#include "hotkey/LauncherKeyboardShortcut.h"

#include <QTest>

using namespace zelmo;
using Shortcut = LauncherKeyboardShortcut;

class LauncherKeyboardShortcutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theShortcutsStandInTheirOrder() {
        QStringList rawValues;
        QStringList titles;
        for (const auto& row : launcherKeyboardShortcutTable) {
            rawValues.append(rawValue(row.shortcut));
            titles.append(title(row.shortcut));
        }
        QCOMPARE(rawValues.join(u' '), QStringLiteral("optionSpace controlSpace commandSpace off"));
        QCOMPARE(titles.join(u'|'), QStringLiteral("Option + Space|Control + Space|Command + Space|Off"));
    }

    void eachIsSpaceWithOneModifierAndOffIsNothing() {
        QCOMPARE(combination(Shortcut::optionSpace), (HotKeyCombination{49, 2048}));
        QCOMPARE(combination(Shortcut::controlSpace), (HotKeyCombination{49, 4096}));
        QCOMPARE(combination(Shortcut::commandSpace), (HotKeyCombination{49, 256}));
        QVERIFY(!combination(Shortcut::off));
    }

    void eachIsFoundByItsRawValue() {
        for (const auto& row : launcherKeyboardShortcutTable)
            QCOMPARE(keyboardShortcutFromRawValue(rawValue(row.shortcut)), row.shortcut);
    }

    void anyOtherTextMeansOptionSpace() {
        for (const char* text : {"", "OFF", "off ", "Control + Space", "shiftSpace"})
            QCOMPARE(keyboardShortcutFromRawValue(QString::fromLatin1(text)), Shortcut::optionSpace);
    }
};

QTEST_GUILESS_MAIN(LauncherKeyboardShortcutTest)
#include "LauncherKeyboardShortcutTest.moc"
