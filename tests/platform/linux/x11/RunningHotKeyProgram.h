#pragma once

#include "support/DesktopSession.h"

namespace zelmo::test {

// The program that takes a shortcut, on a private desktop, and what it has said so far.
class RunningHotKeyProgram {
public:
    explicit RunningHotKeyProgram(DesktopSession& session)
        : m_process(session.startProgram(QStringLiteral(ZELMO_HOT_KEY_PROGRAM))) {}
    // It ends with its input, and by itself: what it has taken is given back, and what is counted in it is written.
    ~RunningHotKeyProgram() {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    RunningHotKeyProgram(const RunningHotKeyProgram&) = delete;
    RunningHotKeyProgram& operator=(const RunningHotKeyProgram&) = delete;

    QProcess& process() const { return m_process; }

    // What it says of the registration.
    QString take(const char* shortcut) {
        const qsizetype before = said(QStringLiteral("status ")).size();
        m_process.write(QByteArray(shortcut) + '\n');
        if (!DesktopSession::waitFor([&] { return said(QStringLiteral("status ")).size() > before; }))
            return QStringLiteral("no answer");
        return said(QStringLiteral("status ")).last();
    }

    int count(const QString& line) { return static_cast<int>(lines().count(line)); }
    bool waitForCount(const QString& line, int wanted) {
        return DesktopSession::waitFor([&] { return count(line) >= wanted; });
    }
    // The text that has reached its window.
    QString typed() { return said(QStringLiteral("typed ")).join(QString()); }

private:
    // What follows the prefix in each line that has it.
    QStringList said(const QString& prefix) {
        QStringList found;
        for (const QString& line : lines()) {
            if (line.startsWith(prefix))
                found.append(line.mid(prefix.size()));
        }
        return found;
    }
    const QStringList& lines() {
        m_process.waitForReadyRead(1);
        m_pending += m_process.readAllStandardOutput();
        for (qsizetype end = m_pending.indexOf('\n'); end >= 0; end = m_pending.indexOf('\n')) {
            m_lines.append(QString::fromUtf8(m_pending.left(end)));
            m_pending.remove(0, end + 1);
        }
        return m_lines;
    }

    QProcess& m_process;
    QByteArray m_pending;
    QStringList m_lines;
};

} // namespace zelmo::test
