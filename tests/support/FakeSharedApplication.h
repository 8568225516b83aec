#pragma once

#include "shell/SharedApplication.h"

#include <QList>

namespace zelmo::test {

// Notes what it is told.
class FakeSharedApplication : public SharedApplication {
public:
    void setActivationPolicy(ActivationPolicy) override {}
    void setApplicationIconImage(std::function<QImage()> draw) override { icons.append(draw()); }
    void terminate() override { ++terminations; }

    QList<QImage> icons;
    int terminations = 0;
};

} // namespace zelmo::test
