// Takes the shortcut whose raw value it reads from a line of its input, and toggles a full-screen window with it; a
// line such as "register 49 256" has it ask for that combination besides. Says on its output how the registration went
// and what it sees.

#include "hotkey/LauncherHotKeyController.h"
#include "platform/linux/x11/X11HotKeyService.h"
#include "platform/linux/x11/X11KeyboardBuffer.h"
#include "preferences/Preferences.h"
#include "preferences/PreferencesStorage.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QRasterWindow>
#include <QSocketNotifier>

#include <cstdio>
#include <unistd.h>

using namespace zelmo;

namespace {

void say(const QString& line) {
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

class EmptyStorage : public PreferencesStorage {
public:
    PreferenceValues read() override { return {}; }
    bool write(const PreferenceValues&) override { return true; }
    void setOutsideChangeHandler(std::function<void()>) override {}
};

// Tells of each key press that the X server sends, before anyone else sees it.
class PressWitness : public QAbstractNativeEventFilter {
public:
    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        if (event->response_type == XCB_KEY_PRESS)
            say(QStringLiteral("event %1").arg(reinterpret_cast<const xcb_key_press_event_t*>(event)->detail));
        return false;
    }
};

class Wall : public QRasterWindow {
public:
    explicit Wall(KeyboardBuffer& keyboardBuffer) : m_keyboardBuffer(keyboardBuffer) {
        setFlags(Qt::Window | Qt::FramelessWindowHint);
        setTitle(QStringLiteral("Wall"));
    }

    void toggle() {
        if (isVisible()) {
            m_keyboardBuffer.cancel();
            hide();
            say(QStringLiteral("hidden"));
            return;
        }
        m_keyboardBuffer.begin();
        showFullScreen();
        requestActivate();
        m_keyboardBuffer.deliverTo(*this);
        say(QStringLiteral("shown"));
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!event->text().isEmpty())
            say(u"typed " + event->text());
    }

private:
    KeyboardBuffer& m_keyboardBuffer;
};

} // namespace

int main(int argc, char* argv[]) {
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    X11KeyboardBuffer keyboardBuffer;
    X11HotKeyService service;
    PressWitness witness;
    application.installNativeEventFilter(&witness);

    EmptyStorage storage;
    Preferences preferences(storage);
    Wall wall(keyboardBuffer);
    LauncherHotKeyController controller(preferences, service, [&wall] {
        say(QStringLiteral("pressed"));
        wall.toggle();
    });

    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QByteArray pending;
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        char buffer[256];
        const ssize_t count = read(STDIN_FILENO, buffer, sizeof buffer);
        if (count <= 0)
            QCoreApplication::quit();
        pending.append(buffer, std::max<ssize_t>(count, 0));
        for (qsizetype end = pending.indexOf('\n'); end >= 0; end = pending.indexOf('\n')) {
            const QStringList words = QString::fromUtf8(pending.left(end)).split(u' ');
            pending.remove(0, end + 1);
            if (words.size() == 3) {
                const auto reference = service.registerHotKey({words[1].toUInt(), words[2].toUInt()}, {});
                say(u"status " + (reference ? QStringLiteral("accepted") : QStringLiteral("refused")));
                continue;
            }
            preferences.setValue<PreferenceKey::launcherKeyboardShortcut>(words[0]);
            controller.configure();
            say(u"status " + preferences.value<PreferenceKey::launcherKeyboardShortcutStatus>());
        }
    });
    return QGuiApplication::exec();
}
