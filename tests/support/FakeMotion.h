#pragma once

#include "overlay/MotionPreference.h"

namespace zelmo::test {

class FakeMotion : public MotionPreference {
public:
    bool reducesMotion() const override { return reduces; }

    bool reduces = false;
};

} // namespace zelmo::test
