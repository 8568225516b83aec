#pragma once

#include "catalog/Workspace.h"

#include <QByteArray>
#include <QList>

namespace zelmo {

class BundleReader;

// Starts applications: desktop entries through GIO, which knows field codes, terminals, D-Bus
// activation and start-up notification, and bundles by the executable that their property list
// names. What it starts is in a session of its own and outlives the program. Main thread.
class GioWorkspace : public Workspace {
public:
    // `privateVariables` are variables of the environment that the started programs do not inherit.
    GioWorkspace(const BundleReader& bundleReader, QList<QByteArray> privateVariables);

    void openApplication(const FileUrl& application) override;

private:
    void openBundle(const FileUrl& bundle) const;

    void openDesktopEntry(const FileUrl& entry) const;

    const BundleReader& m_bundleReader;
    QList<QByteArray> m_privateVariables;
};

} // namespace zelmo
