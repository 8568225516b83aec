#pragma once

#include "catalog/Workspace.h"

namespace zelmo {

class BundleReader;

// Starts applications: desktop entries through GIO, which knows field codes, terminals, D-Bus
// activation and start-up notification, and bundles by the executable that their property list
// names. What it starts is in a session of its own and outlives the program. Main thread.
class GioWorkspace : public Workspace {
public:
    explicit GioWorkspace(const BundleReader& bundleReader);

    void openApplication(const FileUrl& application) override;

private:
    void openBundle(const FileUrl& bundle) const;

    const BundleReader& m_bundleReader;
};

} // namespace zelmo
