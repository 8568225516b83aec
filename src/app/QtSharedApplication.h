#pragma once

#include "shell/SharedApplication.h"

#include <QTimer>

namespace zelmo {

// The toolkit's application object. Ends the process where there is none. Main thread.
class QtSharedApplication : public SharedApplication {
public:
    QtSharedApplication();

    void setActivationPolicy(ActivationPolicy policy) override;
    // Before there is a window to see it on, the icon can wait until there is one: drawing it takes as long as much of
    // what the first window waits for.
    void setApplicationIconImage(std::function<QImage()> draw) override;
    void terminate() override;

private:
    void drawIcon();

    std::function<QImage()> m_draw;
    QTimer m_drawLater;
};

} // namespace zelmo
