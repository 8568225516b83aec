#pragma once

#include <QFlags>

class QWindow;

namespace zelmo {

// What the desktop keeps off the screen while the wall is up.
enum class PresentationOption { autoHideDock = 0x1, autoHideMenuBar = 0x4 };
Q_DECLARE_FLAGS(PresentationOptions, PresentationOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(PresentationOptions)

// How the desktop presents itself around the program's windows. Main thread only.
class SystemPresentation {
public:
    virtual ~SystemPresentation() = default;

    virtual PresentationOptions options() const = 0;
    // Makes room for the window, which comes up for it; or gives the room back, which may take the window away.
    virtual void setOptions(PresentationOptions options, QWindow& window) = 0;
};

} // namespace zelmo
