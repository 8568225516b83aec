#pragma once

#include "hotkey/LauncherHotKeyController.h"
#include "overlay/MainScreen.h"
#include "settings/AppSettingsWindowController.h"
#include "settings/ColorScheme.h"
#include "settings/ProgramActivation.h"
#include "support/CatalogFakes.h"
#include "support/FakeHotKeyService.h"
#include "support/FakeMotion.h"
#include "support/FakeSharedApplication.h"

#include <QGuiApplication>
#include <QImage>
#include <QWindow>

namespace zelmo::test {

class FakeColorScheme : public ColorScheme {
public:
    void start() override { ++starts; }
    SchemeWish wish() const override { return scheme; }
    std::optional<QColor> accent() const override { return accentColor; }
    void setChangeHandler(std::function<void()> handler) override { m_handler = std::move(handler); }

    void change(SchemeWish wish, const std::optional<QColor>& color = std::nullopt) {
        scheme = wish;
        accentColor = color;
        if (m_handler)
            m_handler();
    }

    SchemeWish scheme = SchemeWish::light;
    std::optional<QColor> accentColor;
    int starts = 0;

private:
    std::function<void()> m_handler;
};

class FirstScreen : public MainScreen {
public:
    QScreen* mainScreen() const override { return QGuiApplication::primaryScreen(); }
};

class CountedActivation : public ProgramActivation {
public:
    void activateIgnoringOtherApps(QWindow& window) override {
        ++count;
        window.requestActivate();
    }

    int count = 0;
};

inline QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}

// All that the settings change, on fakes.
struct SettingsFixture {
    explicit SettingsFixture(const PreferenceValues& values = {}) : catalog({}, values) {}

    SettingsServices services() {
        return {.preferences = *catalog.preferences,
                .store = *catalog.store,
                .hotKeyController = hotKeyController,
                .application = application};
    }
    SettingsWindowServices windowServices() {
        return {.mainScreen = screen, .activation = activation, .colorScheme = scheme, .motion = motion};
    }
    template <PreferenceKey key>
    PreferenceType<key> value() const {
        return catalog.preferences->value<key>();
    }
    template <PreferenceKey key>
    void set(const PreferenceType<key>& value) {
        catalog.preferences->setValue<key>(value);
    }

    StoreFixture catalog;
    QStringList hotKeyLog;
    FakeHotKeyService hotKeyService{hotKeyLog};
    LauncherHotKeyController hotKeyController{*catalog.preferences, hotKeyService, [] {}};
    FakeSharedApplication application;
    FakeColorScheme scheme;
    FirstScreen screen;
    CountedActivation activation;
    FakeMotion motion;
};

} // namespace zelmo::test
