#pragma once

#include "catalog/ApplicationLauncher.h"

#include <QByteArray>
#include <QList>

namespace zelmo {

class BundleReader;
class StartupNotifier;

// Starts applications: desktop entries through GIO, which knows field codes, terminals, D-Bus
// activation and start-up notification, and bundles by the executable that their property list
// names. What it starts is in a session and, where the system can, a control group of its own, has none of this
// program's open files, and outlives it. Main thread.
class GioLauncher : public ApplicationLauncher {
public:
    // Both outlive it. `privateVariables` are variables of the environment that the started programs do not inherit,
    // besides those by which this program itself was started.
    GioLauncher(const BundleReader& bundleReader, StartupNotifier& notifier, const QList<QByteArray>& privateVariables);

    void openApplication(const FileUrl& application) override;

private:
    void openBundle(const FileUrl& bundle) const;
    void openDesktopEntry(const FileUrl& entry) const;
    void spawn(std::string executable, const FileUrl& bundle) const;

    const BundleReader& m_bundleReader;
    StartupNotifier& m_notifier;
    QList<QByteArray> m_privateVariables;
};

} // namespace zelmo
