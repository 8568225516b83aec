#pragma once

#include "platform/linux/propertylist/PropertyList.h"

namespace zelmo {

// The parsing library trusts its input in ways that a hostile file can use: it frees nested
// containers by recursion and copies an object of a binary list as often as it is referred to. These
// look at the bytes beforehand, iteratively and within memory proportional to their number, and let
// nothing pass that is beyond the limits.
bool isHarmlessXmlPropertyList(QByteArrayView bytes, const PropertyListLimits& limits);
bool isHarmlessBinaryPropertyList(QByteArrayView bytes, const PropertyListLimits& limits);

} // namespace zelmo
