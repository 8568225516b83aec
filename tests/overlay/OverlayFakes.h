#pragma once

#include "overlay/KeyboardBuffer.h"
#include "overlay/MainScreen.h"
#include "overlay/OverlayContent.h"
#include "overlay/OverlayWindow.h"
#include "overlay/SystemPresentation.h"
#include "support/FakeMotion.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>

namespace zelmo::test {

class FakeMainScreen : public MainScreen {
public:
    QScreen* mainScreen() const override { return screen; }

    QScreen* screen = QGuiApplication::primaryScreen();
};

class FakeKeyboardBuffer : public KeyboardBuffer {
public:
    void begin() override {}
    void deliverTo(QWindow&) override {}
    void cancel() override {}
};

// Notes what is asked of it, with how the window was meanwhile.
class FakePresentation : public SystemPresentation {
public:
    explicit FakePresentation(QStringList& log) : m_log(log) {}
    PresentationOptions options() const override { return m_options; }
    void setOptions(PresentationOptions options, QWindow& window) override {
        m_options = options;
        m_log.append(QStringLiteral("presentation %1").arg(options.toInt()));
        window.setVisible(options != standard);
    }
    void setFromOutside(PresentationOptions options) { m_options = options; }

    // What the desktop has when the wall is not up.
    PresentationOptions standard;

private:
    QStringList& m_log;
    PresentationOptions m_options;
};

class FakeContent : public OverlayContent {
public:
    explicit FakeContent(QStringList& log) : m_log(log) {}
    void prepare(const QScreen&) override { m_log.append(QStringLiteral("prepare")); }
    void load(OverlayWindow&) override { m_log.append(QStringLiteral("load")); }
    void putAway() override { m_log.append(QStringLiteral("put away")); }

private:
    QStringList& m_log;
};

} // namespace zelmo::test
