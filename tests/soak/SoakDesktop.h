#pragma once

#include "desktop/WallOnScreen.h"

#include <QFile>
#include <QRegularExpression>

namespace zelmo::test {

// The program on a desktop, telling of its scans. Several tests may go on with the one program.
class SoakDesktop {
public:
    explicit SoakDesktop(const DesktopOptions& options = {}) : session(DesktopSession::start(options)) {
        if (!session)
            qFatal("no desktop starts");
        session->environment().insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("zelmo.catalog.info=true"));
    }

    // In the same process as the shell, which lets its messages be read.
    void startProgram() {
        wall = std::make_unique<WallOnScreen>(
            *session, QStringLiteral("/bin/sh"),
            QStringList{QStringLiteral("-c"), QStringLiteral("exec '%1' 2>'%2'").arg(program, logPath())});
    }
    qint64 process() const { return wall->process.processId(); }
    bool isRunning() const { return wall->process.state() == QProcess::Running; }

    bool show() const {
        wall->pressShortcut(altKey);
        return wall->waitUntilShown();
    }
    // By the shortcut too.
    bool hide() const {
        wall->pressShortcut(altKey);
        return wall->waitUntilGone();
    }

    // How many applications each scan has found so far.
    QList<int> scans() const {
        static const QRegularExpression line(QStringLiteral("(\\d+) applications found"));
        QFile file(logPath());
        QList<int> found;
        if (!file.open(QFile::ReadOnly))
            return found;
        for (auto match = line.globalMatch(QString::fromUtf8(file.readAll())); match.hasNext();)
            found.append(match.next().captured(1).toInt());
        return found;
    }
    bool waitForScanThatFinds(int count) const {
        return DesktopSession::waitFor([&] {
            const QList<int> found = scans();
            return !found.isEmpty() && found.last() == count;
        });
    }
    void removeEntry(const QString& name) const {
        QFile::remove(session->home() + QStringLiteral("/.local/share/applications/") + name +
                      QStringLiteral(".desktop"));
    }
    void writePreferences(const QByteArray& entries) const {
        session->writeFile(QStringLiteral(".config/zelmo/preferences.plist"),
                           "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>" + entries +
                               "</dict>\n</plist>\n");
    }
    QByteArray preferences() const {
        QFile file(session->home() + QStringLiteral("/.config/zelmo/preferences.plist"));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<DesktopSession> session;
    std::unique_ptr<WallOnScreen> wall;
    QString program = QStringLiteral(ZELMO_PROGRAM);

private:
    QString logPath() const { return session->home() + QStringLiteral("/zelmo.log"); }
};

// The lines of a property list, as the program writes them.
inline QByteArray stringPreference(const char* name, const char* value) {
    return QByteArray("<key>") + name + "</key><string>" + value + "</string>";
}
inline QByteArray realPreference(const char* name, double value) {
    return QByteArray("<key>") + name + "</key><real>" + QByteArray::number(value) + "</real>";
}

} // namespace zelmo::test
