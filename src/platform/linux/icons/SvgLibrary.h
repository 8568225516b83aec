#pragma once

#include <QByteArray>
#include <QImage>

namespace zelmo {

// Draws vector pictures by a library that knows all effects. It is loaded for the first such picture and
// stays, for few pictures need it and loading takes some milliseconds and megabytes of every start. May be
// used on several threads at once.
class SvgLibrary {
public:
    // The picture is one that SvgGuard accepts, with effects that can be drawn. Null without the library, or when it
    // draws nothing.
    static QImage draw(const QByteArray& bytes, int pixels);
};

} // namespace zelmo
