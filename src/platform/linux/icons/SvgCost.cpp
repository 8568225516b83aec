#include "platform/linux/icons/SvgCost.h"

namespace zelmo {

namespace {

// Of elements in elements, and of repeated elements that repeat others.
constexpr int depthLimit = 512;

} // namespace

SvgCost& SvgCost::operator+=(const SvgCost& other) {
    elements += other.elements;
    geometry += other.geometry;
    characters += other.characters;
    texts += other.texts;
    points += other.points;
    strokedPoints += other.strokedPoints;
    dashedPoints += other.dashedPoints;
    return *this;
}

bool SvgCost::isWithin(const SvgCost& limit) const {
    return elements <= limit.elements && geometry <= limit.geometry && characters <= limit.characters &&
           texts <= limit.texts && points <= limit.points && strokedPoints <= limit.strokedPoints &&
           dashedPoints <= limit.dashedPoints;
}

int SvgCostTree::add(int parent, const SvgCost& own, const QString& identifier, const QString& reference) {
    const int index = static_cast<int>(m_elements.size());
    m_elements.push_back({own, reference, -1, -1, -1, State::open});
    if (!identifier.isEmpty())
        m_byIdentifier.insert(identifier, index);
    if (parent < 0)
        return index;
    Element& above = m_elements[static_cast<std::size_t>(parent)];
    if (above.lastChild < 0)
        above.firstChild = index;
    else
        m_elements[static_cast<std::size_t>(above.lastChild)].nextSibling = index;
    above.lastChild = index;
    return index;
}

SvgCostTree::Total SvgCostTree::total(const SvgCost& limit) {
    if (m_elements.empty())
        return {};
    const Problem problem = addUp(0, limit, 0);
    return {problem, m_elements[0].cost};
}

// Makes the element's cost that of everything in it. Stops at the first problem, so that no sum grows far
// beyond the limit.
SvgCostTree::Problem SvgCostTree::addUp(int index, const SvgCost& limit, int depth) {
    Element& element = m_elements[static_cast<std::size_t>(index)];
    if (element.state == State::closed)
        return Problem::none;
    if (element.state == State::running)
        return Problem::containsItself;
    if (depth > depthLimit)
        return Problem::tooDeep;
    element.state = State::running;
    const auto include = [&](int part) {
        if (const Problem problem = addUp(part, limit, depth + 1); problem != Problem::none)
            return problem;
        element.cost += m_elements[static_cast<std::size_t>(part)].cost;
        return element.cost.isWithin(limit) ? Problem::none : Problem::tooHeavy;
    };
    for (int child = element.firstChild; child >= 0; child = m_elements[static_cast<std::size_t>(child)].nextSibling) {
        if (const Problem problem = include(child); problem != Problem::none)
            return problem;
    }
    if (!element.reference.isEmpty()) {
        // Which of several elements of one name is meant is left to the renderer: all are counted.
        const auto [first, last] = m_byIdentifier.equal_range(element.reference);
        for (auto target = first; target != last; ++target) {
            if (const Problem problem = include(*target); problem != Problem::none)
                return problem;
        }
    }
    element.state = State::closed;
    return element.cost.isWithin(limit) ? Problem::none : Problem::tooHeavy;
}

} // namespace zelmo
