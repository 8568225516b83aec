#pragma once

namespace zelmo {

// The four kinds of letters that the system's own font comes in.
enum class FontDesign { standard, rounded, serif, monospaced };

// From the lightest to the heaviest.
enum class FontWeight { ultraLight, thin, light, regular, medium, semibold, bold, heavy, black };

inline constexpr int fontDesignCount = static_cast<int>(FontDesign::monospaced) + 1;
inline constexpr int fontWeightCount = static_cast<int>(FontWeight::black) + 1;

} // namespace zelmo
