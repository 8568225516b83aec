#pragma once

#include <QImage>

namespace zelmo {

// The icon of an application that has none that could be drawn: a soft plate with a window on it.
// A square of `pixels` by `pixels`, premultiplied ARGB32. Any thread.
QImage fallbackIcon(int pixels);

} // namespace zelmo
