// Answers each line of its input with one line of output:
// "screens" with the name and the place of each screen; "main" with the name of the main one;
// "capture NAME FILE" with the size of that screen's picture, which it writes to the file, or "null".

#include "platform/linux/x11/X11DesktopCapture.h"
#include "platform/linux/x11/X11MainScreen.h"
#include "support/WholePicture.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSocketNotifier>

#include <cstdio>
#include <unistd.h>

using namespace zelmo;
using namespace zelmo::test;

namespace {

QScreen* screenNamed(const QString& name) {
    for (QScreen* screen : QGuiApplication::screens()) {
        if (screen->name() == name)
            return screen;
    }
    return nullptr;
}

QString screenList() {
    QStringList list;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect area = screen->geometry();
        list.append(QString::asprintf("%s:%dx%d%+d%+d", qPrintable(screen->name()), area.width(), area.height(),
                                      area.x(), area.y()));
    }
    return list.join(u' ');
}

QString capture(const QString& name, const QString& file) {
    const QScreen* screen = screenNamed(name);
    const QImage picture = screen ? wholePicture([&](const DesktopCapture::TakeRows& take) {
        return X11DesktopCapture().read(*screen, take);
    })
                                  : QImage();
    if (picture.isNull() || !picture.save(file, "png"))
        return QStringLiteral("null");
    return QStringLiteral("%1x%2").arg(picture.width()).arg(picture.height());
}

QString answer(const QStringList& words) {
    if (words.first() == QLatin1StringView("screens"))
        return screenList();
    if (words.first() == QLatin1StringView("main")) {
        const QScreen* screen = X11MainScreen().mainScreen();
        return screen ? screen->name() : QStringLiteral("none");
    }
    return words.size() == 3 ? capture(words[1], words[2]) : QStringLiteral("what?");
}

} // namespace

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QByteArray pending;
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        char buffer[256];
        const ssize_t count = read(STDIN_FILENO, buffer, sizeof buffer);
        if (count <= 0)
            QCoreApplication::quit();
        pending.append(buffer, std::max<ssize_t>(count, 0));
        for (qsizetype end = pending.indexOf('\n'); end >= 0; end = pending.indexOf('\n')) {
            const QString line = answer(QString::fromUtf8(pending.left(end)).split(u' '));
            pending.remove(0, end + 1);
            std::puts(line.toUtf8().constData());
            std::fflush(stdout);
        }
    });
    return QGuiApplication::exec();
}
