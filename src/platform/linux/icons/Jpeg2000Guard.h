#pragma once

#include <QByteArrayView>

namespace zelmo {

// Looks at a picture before its decoder does, which reserves memory for whatever the headers claim: for each component
// of each tile, for each precinct and layer, for each channel of a palette. Refuses what no icon needs, and what could
// be read in two ways. Pure; any thread.
bool isHarmlessJpeg2000(QByteArrayView bytes, int sideLimit);

} // namespace zelmo
