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
    qint64 points = 0;        // numbers in the descriptions of outlines
    qint64 strokedPoints = 0; // those of stroked ones
    qint64 dashedPoints = 0;  // those of dashed ones

    SvgCost& operator+=(const SvgCost& other);
    bool isWithin(const SvgCost& limit) const;
};

// The elements of a vector picture, for adding up what they cost when everything that is repeated is
// counted as often as it is drawn. Each element is added up once, however often it is repeated. Used
// by one SvgGuard::check only.
class SvgCostTree {
public:
    // `parent` is an earlier element or -1. `reference` is the identifier of an element drawn in place.
    int add(int parent, const SvgCost& own, const QString& identifier, const QString& reference);
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
        QString reference;
        int firstChild = -1;
        int lastChild = -1;
        int nextSibling = -1;
        State state = State::open;
    };

    Problem addUp(int index, const SvgCost& limit, int depth);

    std::vector<Element> m_elements;
    QMultiHash<QString, int> m_byIdentifier;
};

} // namespace zelmo
