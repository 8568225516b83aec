#pragma once

#include "shell/SharedApplication.h"

namespace zelmo {

// The toolkit's application object. Ends the process where there is none. Main thread.
class QtSharedApplication : public SharedApplication {
public:
    QtSharedApplication();

    void setActivationPolicy(ActivationPolicy policy) override;
    void setApplicationIconImage(const QImage& image) override;
    void terminate() override;
};

} // namespace zelmo
