#include "bench/Resident.h"

#include "support/ProcFile.h"

#include <QDir>
#include <QPainter>

namespace zelmo::bench {

void installApplications(const test::DesktopSession& session, int count) {
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        session.writeFile(QStringLiteral(".local/share/applications/app%1.desktop").arg(i),
                          "[Desktop Entry]\nType=Application\nName=Application " + number +
                              "\nComment=One of many\nExec=true %U\nCategories=Utility;\nIcon=app" + number + "\n");
        QImage icon(128, 128, QImage::Format_ARGB32);
        icon.fill(Qt::transparent);
        QPainter painter(&icon);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor::fromHsv(i * 37 % 360, 160, 220));
        painter.drawRoundedRect(4, 4, 120, 120, 28, 28);
        painter.setPen(Qt::white);
        for (int line = 0; line < 8; ++line)
            painter.drawLine(20, 24 + line * 11, 40 + (i * 7 + line * 13) % 70, 24 + line * 11);
        painter.end();
        const QString path = QStringLiteral(".local/share/icons/hicolor/128x128/apps/app%1.png").arg(i);
        session.writeFile(path, {});
        icon.save(session.home() + u'/' + path);
    }
    session.writeFile(QStringLiteral(".local/share/icons/hicolor/index.theme"),
                      "[Icon Theme]\nName=Hicolor\nDirectories=128x128/apps\n[128x128/apps]\nSize=128\nType=Fixed\n");
}

Effort effortOf(qint64 process) {
    Effort effort;
    const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
    for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const auto file = [&](const char* name) {
            return test::procFile(process, QStringLiteral("task/%1/%2").arg(thread, QLatin1StringView(name)));
        };
        // In nanoseconds.
        effort.processorMilliseconds += file("schedstat").split(' ').first().toDouble() / 1e6;
        effort.pauses += test::procNumber(file("status"), "voluntary_ctxt_switches:");
    }
    return effort;
}

void pressShortcut(const test::XDisplay& display) {
    display.holdKey(test::altKey);
    display.typeKey(test::spaceKey);
    display.releaseKey(test::altKey);
}

bool hideWall(const test::DesktopSession& session) {
    session.display().typeKey(test::escapeKey);
    return waitUntilHidden(session);
}

bool waitUntilHidden(const test::DesktopSession& session) {
    return test::DesktopSession::waitFor([&] {
        return !session.display().viewableWindow(QStringLiteral("Zelmo")) &&
               !session.display().viewableWindow(QStringLiteral("Collapse"));
    });
}

} // namespace zelmo::bench
