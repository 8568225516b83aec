#pragma once

#include "shell/ProgramInstance.h"

#include <QCoreApplication>
#include <QStringList>

#include <future>

namespace zelmo::test {

// What reached a listening instance, such as "0 token".
class RecordedRequests {
public:
    ProgramInstance::RequestHandler handler() {
        return [this](ApplicationRequest request, const QByteArray& token) {
            list.append(QStringLiteral("%1 %2").arg(static_cast<int>(request)).arg(QString::fromUtf8(token)));
        };
    }

    QStringList list;
};

// Claims on a thread of its own, for the other process answers on this one.
inline std::future<InstanceClaim> claimElsewhere(ProgramInstance& instance, const QByteArray& token = {}) {
    return std::async(std::launch::async, [&instance, token] { return instance.claim(token); });
}

// Handles events until the claim has its answer.
inline InstanceClaim answerOf(std::future<InstanceClaim> claim) {
    while (claim.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
        QCoreApplication::processEvents();
    return claim.get();
}

} // namespace zelmo::test
