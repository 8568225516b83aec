#pragma once

#include "shell/SharedApplication.h"

#include <QImage>
#include <QList>

namespace zelmo::test {

// Notes what it is told.
class FakeSharedApplication : public SharedApplication {
public:
    void setActivationPolicy(ActivationPolicy) override {}
    void setApplicationIconImage(const QImage& image) override { icons.append(image); }
    void terminate() override { ++terminations; }

    QList<QImage> icons;
    int terminations = 0;
};

} // namespace zelmo::test
