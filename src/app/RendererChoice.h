#pragma once

namespace zelmo {

// Draws without OpenGL unless the machine has a graphics processor, which is told by its render
// node: on a software OpenGL stack the wall takes many times longer to appear, and trying out a
// context would cost as much. Call before the first window is made.
void chooseRenderer();

// The variable of the environment that `chooseRenderer` sets for this program alone.
inline constexpr const char* updateDelayVariable = "QT_QPA_UPDATE_IDLE_TIME";

} // namespace zelmo
