#pragma once

#include "overlay/SystemPresentation.h"

namespace zelmo {

// Docks and panels make room for a window that fills the screen, and are back as soon as that window is gone: so giving
// the room back takes the window away. While it is up the window is on all workspaces.
// Where there is no X server only the window itself comes and goes. Main thread.
class EwmhPresentation : public SystemPresentation {
public:
    PresentationOptions options() const override { return m_options; }
    void setOptions(PresentationOptions options, QWindow& window) override;

private:
    PresentationOptions m_options;
};

} // namespace zelmo
