#pragma once

#include "overlay/MotionPreference.h"

#include <QByteArray>
#include <QList>

namespace zelmo {

class X11Connection;

// Asks the desktop that runs, whichever it is: the settings that it hands out on the X server, then GNOME's and KDE's
// stored ones; the first that speaks of it decides. Asks anew each time and keeps nothing. Main thread.
class DesktopMotionPreference : public MotionPreference {
public:
    // The connection outlives it, and is null where there is no X server. The folders are those of settings, the
    // user's own first.
    DesktopMotionPreference(const X11Connection* connection, QList<QByteArray> configFolders);

    bool reducesMotion() const override;

private:
    const X11Connection* m_connection;
    QList<QByteArray> m_configFolders;
};

} // namespace zelmo
