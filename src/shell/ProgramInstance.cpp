#include "shell/ProgramInstance.h"

namespace zelmo {

InstanceClaim claimAll(std::span<const std::unique_ptr<ProgramInstance>> places, const QByteArray& activationToken) {
    InstanceClaim result = InstanceClaim::unavailable;
    for (const std::unique_ptr<ProgramInstance>& place : places) {
        const InstanceClaim claim = place->claim(activationToken);
        if (claim == InstanceClaim::handedOver || claim == InstanceClaim::unanswered)
            return claim;
        if (claim == InstanceClaim::first)
            result = claim;
    }
    return result;
}

} // namespace zelmo
