#pragma once

#include <QColor>

#include <functional>
#include <optional>

namespace zelmo {

// Whether the user wants light or dark windows, as far as the desktop says so.
enum class SchemeWish { unknown, light, dark };

// The colours that the user has set for all programs of the desktop. Main thread.
class ColorScheme {
public:
    virtual ~ColorScheme() = default;

    // Begins to ask and to listen, without waiting; until the answer comes, nothing is known. Does nothing when it has
    // begun already.
    virtual void start() = 0;
    virtual SchemeWish wish() const = 0;
    virtual std::optional<QColor> accent() const = 0;
    // Called after either has changed.
    virtual void setChangeHandler(std::function<void()> handler) = 0;
};

} // namespace zelmo
