#pragma once

#include <QByteArray>

#include <functional>
#include <memory>
#include <span>

namespace zelmo {

// What may be asked of the running program from outside.
enum class ApplicationRequest { activate, settings, refresh, quit };

enum class InstanceClaim {
    first,       // nobody else has it, and nobody else gets it while this process runs
    handedOver,  // another process has it and has been asked to show itself
    unanswered,  // another process has it and does not answer
    unavailable, // this desktop has nothing that could tell
};

// A place of which the desktop gives at most one to the program, and through which its first process is reached.
// Main thread.
class ProgramInstance {
public:
    // The token with which the desktop lets the caller take the focus; empty where it gave none.
    using RequestHandler = std::function<void(ApplicationRequest request, const QByteArray& activationToken)>;

    virtual ~ProgramInstance() = default;

    // Takes the place, or asks who has it to activate, with the token. Waits for neither longer than some seconds.
    // Works before there is an application object.
    virtual InstanceClaim claim(const QByteArray& activationToken) = 0;
    // Hands out what is asked from now on, and what has been asked since the claim, with the loop's next events.
    // Does nothing without the place.
    virtual void listen(RequestHandler handler) = 0;
};

// Claims one place after another until somebody else turns out to have one. `first` when at least one is ours,
// `unavailable` when none exists.
InstanceClaim claimAll(std::span<const std::unique_ptr<ProgramInstance>> places, const QByteArray& activationToken);

} // namespace zelmo
