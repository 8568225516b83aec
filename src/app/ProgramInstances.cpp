#include "app/ProgramInstances.h"

#include "platform/linux/session/BusAddresses.h"
#include "platform/linux/session/DBusProgramInstance.h"
#include "platform/linux/session/LockFileProgramInstance.h"

#include <cstdio>
#include <cstdlib>

namespace zelmo {

// The bus first, for that is where the desktop looks. The lock makes the program one where there is no bus, or where
// there was none yet when it started.
ProgramInstances::ProgramInstances()
    : m_places{
          std::make_unique<DBusProgramInstance>(BusAddresses::fromEnvironment().session),
          std::make_unique<LockFileProgramInstance>(LockFileProgramInstance::standardFolder(), qgetenv("DISPLAY"))} {}

std::optional<int> ProgramInstances::claim() {
    QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    if (token.isEmpty())
        token = qgetenv("DESKTOP_STARTUP_ID");
    switch (claimAll(m_places, token)) {
    case InstanceClaim::first:
        return std::nullopt;
    case InstanceClaim::handedOver:
        return EXIT_SUCCESS;
    case InstanceClaim::unanswered:
        std::fputs("zelmo: it is running already, but does not answer.\n", stderr);
        return EXIT_FAILURE;
    case InstanceClaim::unavailable:
        std::fputs("zelmo: neither a session bus nor a runtime folder can be used; starting it again will not bring "
                   "this one to the front.\n",
                   stderr);
        return std::nullopt;
    }
    return std::nullopt;
}

void ProgramInstances::listen(const ProgramInstance::RequestHandler& handler) {
    for (const std::unique_ptr<ProgramInstance>& place : m_places)
        place->listen(handler);
}

} // namespace zelmo
