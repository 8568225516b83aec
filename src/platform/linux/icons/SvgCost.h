#pragma once

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace zelmo {

// What drawing an element costs.
struct SvgCost {
    qint64 elements = 0;
    qint64 geometry = 0; // length of the outlines' descriptions
    qint64 characters = 0;
    qint64 texts = 0;         // elements that may each name a font of their own
    qint64 points = 0;        // numbers in the descriptions of outlines, also of what they are clipped by
    qint64 strokedPoints = 0; // those of stroked ones
    qint64 dashedPoints = 0;  // those of dashed ones
    // Counted only where the effects are drawn:
    qint64 outlines = 0;
    qint64 crossings = 0;   // that there may be of lines, and other work that takes as long as one of them
    qint64 paint = 0;       // nanoseconds for each pixel of the picture
    double enlargement = 1; // of what is enlarged most

    SvgCost& operator+=(const SvgCost& other);
    SvgCost operator*(qint64 times) const;
    bool isWithin(const SvgCost& limit) const;
};

// That an element needs another one when it is drawn.
struct SvgReference {
    enum class Kind {
        drawn,   // in place of the element or for it
        clipping // cuts every outline in the element
    };

    QString identifier;
    Kind kind = Kind::drawn;
    qint64 times = 1;
};

// The elements of a vector picture, for adding up what they cost when everything that is repeated is
// counted as often as it is drawn. Each element is added up once, however often it is repeated. Used
// by one reading of one picture only.
class SvgCostTree {
public:
    // `parent` is an earlier element or -1.
    int add(int parent, const SvgCost& own);
    void identify(int element, const QString& identifier) { m_byIdentifier.insert(identifier, element); }
    void refer(int element, SvgReference reference);
    // Of everything in the element and of what it refers to.
    void enlarge(int element, double factor) { m_elements[static_cast<std::size_t>(element)].enlargement *= factor; }
    SvgCost& own(int element) { return m_elements[static_cast<std::size_t>(element)].cost; }

    enum class Problem { none, containsItself, tooDeep, tooHeavy };
    struct Total {
        Problem problem = Problem::none;
        SvgCost cost;
    };
    Total total(const SvgCost& limit);

private:
    enum class State { open, running, closed };
    struct Element {
        SvgCost cost;
        std::vector<SvgReference> references;
        double enlargement = 1;
        int firstChild = -1;
        int lastChild = -1;
        int nextSibling = -1;
        State state = State::open;
    };

    Problem addUp(int index, const SvgCost& limit, int depth);
    Problem addReferences(Element& element, SvgReference::Kind kind, const SvgCost& limit, int depth);

    std::vector<Element> m_elements;
    QMultiHash<QString, int> m_byIdentifier;
};

} // namespace zelmo
