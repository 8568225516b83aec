#pragma once

#include "platform/linux/icons/SvgCost.h"
#include "platform/linux/icons/SvgStyle.h"

#include <QXmlStreamReader>

namespace zelmo {

// How wide the lines of a vector picture may become by everything that enlarges them: transforms, view boxes, markers.
// What draws the effects makes the ends and bends of a line of as many corners as it is wide. Collected by one
// SvgEffects::read only.
class SvgLineWidth {
public:
    void readElement(int index, QStringView name, const QXmlStreamAttributes& attributes);
    void apply(int index, const SvgDeclarations& declarations);
    void applyToAll(const SvgDeclarations& declarations);

    // Once all elements are read.
    void enlarge(SvgCostTree& tree) const;
    bool isBounded(double enlargement) const;

private:
    struct Enlarged {
        int index;
        double factor;
        double viewBox = 0;      // its smaller side, 0 without one
        bool isByMarker = false; // as often as the line is wide that it is on
    };

    double measure(QStringView text) const;
    void readRoot(const QXmlStreamAttributes& attributes);

    std::vector<Enlarged> m_enlarged;
    double m_extent = 0; // of the picture
    double m_widest = 1;
    double m_largestFrame = 3; // that a view box is shown in; a marker has this without saying so
};

} // namespace zelmo
