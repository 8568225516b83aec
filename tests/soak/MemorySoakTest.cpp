#include "soak/ResourceUse.h"
#include "soak/SoakDesktop.h"
#include "soak/SoakLength.h"

#include <array>

using namespace zelmo::test;

namespace {

// What the wall's left edge shows, where no card is.
QColor edgeOf(const DesktopSession& session) {
    const QImage screen = session.display().screenshot();
    return screen.pixelColor(12, screen.height() / 2);
}

// A background of one colour, another one for each number up to 50.
QColor colorOf(int number) {
    return {40 + 4 * (number % 50), 200 - 3 * (number % 50), 90};
}

bool areNear(QColor one, QColor other) {
    return std::abs(one.red() - other.red()) <= 2 && std::abs(one.green() - other.green()) <= 2 &&
           std::abs(one.blue() - other.blue()) <= 2;
}

// Everything that the wall shows differently.
QByteArray preferencesOf(int number) {
    static constexpr std::array layouts{"grid", "list", "minimal", "tiles"};
    static constexpr std::array fonts{"appleDefault", "newYorkSerif", "sfMono", "appleRounded", "writer"};
    const auto at = [number](const auto& names) { return names[static_cast<std::size_t>(number) % names.size()]; };
    const QColor color = colorOf(number);
    return stringPreference("launcherBackgroundStyle", "customColor") +
           realPreference("launcherBackgroundRed", color.redF()) +
           realPreference("launcherBackgroundGreen", color.greenF()) +
           realPreference("launcherBackgroundBlue", color.blueF()) +
           realPreference("launcherTextRed", number % 3 / 2.0) + realPreference("titleFontSize", 26 + number % 12) +
           stringPreference("launcherInterfaceStyle", at(layouts)) + stringPreference("launcherFontStyle", at(fonts));
}

} // namespace

// The program does the same thing many times and needs no more for it in the end than in the beginning.
class MemorySoakTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        m_desktop = std::make_unique<SoakDesktop>(DesktopOptions{.screen = {1280, 800}});
        for (int i = 0; i < applicationCount; ++i)
            m_desktop->session->installEntry(QStringLiteral("App %1").arg(i));
        m_desktop->startProgram();
        QVERIFY(m_desktop->wall->waitUntilPainted());
    }
    void cleanup() { QVERIFY(m_desktop->isRunning()); }
    void cleanupTestCase() { m_desktop.reset(); }

    void showingAndHidingLeavesNothingBehind() {
        const int presses = soakCount(40, 10'000);
        QVERIFY(toggle(20));
        FlatUse use(m_desktop->process());
        QVERIFY(toggle(presses / 2));
        use.noteMiddle();
        QVERIFY(toggle(presses - presses / 2));
        QCOMPARE(use.growthAfter("presses of the shortcut", presses), QString());
    }

    void scansLeaveNothingBehind() {
        const int changes = soakCount(16, 1'000);
        QVERIFY(installAndRemove(6));
        FlatUse use(m_desktop->process());
        QVERIFY(installAndRemove(changes / 2));
        use.noteMiddle();
        QVERIFY(installAndRemove(changes - changes / 2));
        QCOMPARE(use.growthAfter("applications installed or removed", changes), QString());
    }

    void changedSettingsLeaveNothingBehind() {
        const int changes = soakCount(40, 1'000);
        // Until all has been there: each layout, each font in each size, and each colour. After 300 they come again.
        QVERIFY(changeSettings(300));
        FlatUse use(m_desktop->process());
        QVERIFY(changeSettings(changes / 2));
        use.noteMiddle();
        QVERIFY(changeSettings(changes - changes / 2));
        QCOMPARE(use.growthAfter("settings changed from outside", changes), QString());
    }

private:
    // Begins and ends with the wall shown when the number is even.
    bool toggle(int presses) const {
        for (int i = 0; i < presses; ++i) {
            const bool isDone = i % 2 == 0 ? m_desktop->hide() : m_desktop->show();
            if (!isDone)
                return false;
        }
        return m_desktop->wall->waitUntilPainted();
    }
    bool installAndRemove(int changes) const {
        for (int i = 0; i < changes; ++i) {
            if (i % 2 == 0)
                m_desktop->session->installEntry(QStringLiteral("New"));
            else
                m_desktop->removeEntry(QStringLiteral("New"));
            if (!m_desktop->waitForScanThatFinds(applicationCount + 1 - i % 2))
                return false;
        }
        return m_desktop->wall->waitUntilPainted();
    }
    bool changeSettings(int changes) {
        for (int i = 0; i < changes; ++i) {
            ++m_setting;
            m_desktop->writePreferences(preferencesOf(m_setting));
            if (!DesktopSession::waitFor([&] { return areNear(edgeOf(*m_desktop->session), colorOf(m_setting)); }))
                return false;
        }
        return m_desktop->wall->waitUntilPainted();
    }

    static constexpr int applicationCount = 40;
    std::unique_ptr<SoakDesktop> m_desktop;
    int m_setting = 0;
};

QTEST_GUILESS_MAIN(MemorySoakTest)
#include "MemorySoakTest.moc"
