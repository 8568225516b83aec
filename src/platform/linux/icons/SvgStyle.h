#pragma once

#include "platform/linux/icons/SvgCost.h"

#include <QHash>
#include <QString>

#include <limits>
#include <vector>

namespace zelmo {

// What an element of a vector picture, or a rule for such elements, says about how it is drawn, as far as
// that costs more than an outline. Collected from attributes and style sheets by one SvgEffects::read only.
struct SvgDeclarations {
    std::vector<SvgReference> references; // masks, filters, clip paths
    std::vector<QString> paints;          // gradients and patterns, for all outlines in the element
    std::vector<QString> markers;         // for all points of all outlines in the element
    qint64 paint = 0;                     // as of SvgCost
    bool areEffects = false;
    double dashes = std::numeric_limits<double>::infinity(); // length of the shortest pattern of them
    double lineWidth = 0;                                    // infinite where there is no telling
    double enlargement = 1;                                  // of everything in the element
    bool areScaling = false;
    bool areClear = true; // what they cost is known

    void declare(QStringView property, QStringView value);
    void declareStyle(QStringView style);
    void operator+=(const SvgDeclarations& other);

private:
    void bound();
    void refer(QStringView value, SvgReference::Kind kind, qint64 cost);
    void filter(QStringView value);
    void dash(QStringView value);
};

// The rules of the style sheets in a vector picture. Knows those for a class; of all others only whether
// one of them matters.
class SvgStyleSheet {
public:
    void read(const QString& text);

    SvgDeclarations ofClasses(QStringView classes) const;
    const SvgDeclarations& others() const { return m_others; }

private:
    void readRule(QStringView selectors, QStringView style);

    QHash<QString, SvgDeclarations> m_classes;
    SvgDeclarations m_others;
};

} // namespace zelmo
