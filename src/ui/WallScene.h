#pragma once

#include <QQmlComponent>
#include <QQmlEngine>

namespace zelmo {

class OverlayWindow;

// The description of the wall's scene. A thread of the engine reads it from the moment that this is made on, so it is
// made before what the wall shows is there. Outlives the window that it is put into; main thread.
class WallScene {
public:
    WallScene();

    // With these properties of its root. Once; ends the program where the description is wrong.
    void putInto(OverlayWindow& window, const QVariantMap& properties);

private:
    QQmlEngine m_engine;
    QQmlComponent m_reading;
};

} // namespace zelmo
