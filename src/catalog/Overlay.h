#pragma once

namespace zelmo {

// The wall's window as the store sees it. Main thread only.
class Overlay {
public:
    virtual ~Overlay() = default;
    virtual void show() = 0;
    virtual void hide() = 0;
};

} // namespace zelmo
