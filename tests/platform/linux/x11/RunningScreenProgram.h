#pragma once

#include "support/DesktopSession.h"

namespace zelmo::test {

// The program that looks at its screens, on a private desktop.
class RunningScreenProgram {
public:
    explicit RunningScreenProgram(DesktopSession& session)
        : m_session(session), m_process(session.startProgram(QStringLiteral(ZELMO_SCREEN_PROGRAM))) {}
    // It ends with its input, and by itself: what it has taken is given back, and what is counted in it is written.
    ~RunningScreenProgram() {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    RunningScreenProgram(const RunningScreenProgram&) = delete;
    RunningScreenProgram& operator=(const RunningScreenProgram&) = delete;

    QString ask(const QString& question) const {
        m_process.write(question.toUtf8() + '\n');
        QByteArray answer;
        const bool isAnswered = DesktopSession::waitFor([&] {
            m_process.waitForReadyRead(1);
            answer += m_process.readAllStandardOutput();
            return answer.endsWith('\n');
        });
        return isAnswered ? QString::fromUtf8(answer.trimmed()) : QStringLiteral("no answer");
    }
    bool waitForAnswer(const QString& question, const QString& wanted) const {
        return DesktopSession::waitFor([&] { return ask(question) == wanted; });
    }
    // Such as "left:600x500+0+0".
    QStringList screens() const { return ask(QStringLiteral("screens")).split(u' '); }
    // Null when there is none.
    QImage capture(const QString& screen) const {
        const QString file = m_session.home() + QStringLiteral("/picture.png");
        const QString size = ask(QStringLiteral("capture %1 %2").arg(screen, file));
        return size.contains(u'x') ? QImage(file).convertToFormat(QImage::Format_RGB32) : QImage();
    }

private:
    DesktopSession& m_session;
    QProcess& m_process;
};

} // namespace zelmo::test
