#include "platform/linux/icons/SvgCost.h"

#include <algorithm>

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
    outlines += other.outlines;
    crossings += other.crossings;
    paint += other.paint;
    enlargement = std::max(enlargement, other.enlargement);
    return *this;
}

SvgCost SvgCost::operator*(qint64 times) const {
    return {.elements = elements * times,
            .geometry = geometry * times,
            .characters = characters * times,
            .texts = texts * times,
            .points = points * times,
            .strokedPoints = strokedPoints * times,
            .dashedPoints = dashedPoints * times,
            .outlines = outlines * times,
            .crossings = crossings * times,
            .paint = paint * times,
            .enlargement = enlargement};
}

bool SvgCost::isWithin(const SvgCost& limit) const {
    return elements <= limit.elements && geometry <= limit.geometry && characters <= limit.characters &&
           texts <= limit.texts && points <= limit.points && strokedPoints <= limit.strokedPoints &&
           dashedPoints <= limit.dashedPoints && outlines <= limit.outlines && crossings <= limit.crossings &&
           paint <= limit.paint && enlargement <= limit.enlargement;
}

int SvgCostTree::add(int parent, const SvgCost& own) {
    const int index = static_cast<int>(m_elements.size());
    m_elements.push_back({.cost = own, .references = {}});
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

void SvgCostTree::refer(int element, SvgReference reference) {
    m_elements[static_cast<std::size_t>(element)].references.push_back(std::move(reference));
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
    for (int child = element.firstChild; child >= 0; child = m_elements[static_cast<std::size_t>(child)].nextSibling) {
        if (const Problem problem = addUp(child, limit, depth + 1); problem != Problem::none)
            return problem;
        element.cost += m_elements[static_cast<std::size_t>(child)].cost;
        if (!element.cost.isWithin(limit))
            return Problem::tooHeavy;
    }
    // What clips comes last, for it meets every outline in the element.
    for (const SvgReference::Kind kind : {SvgReference::Kind::drawn, SvgReference::Kind::clipping}) {
        if (const Problem problem = addReferences(element, kind, limit, depth); problem != Problem::none)
            return problem;
    }
    element.cost.enlargement *= element.enlargement;
    element.state = State::closed;
    return element.cost.isWithin(limit) ? Problem::none : Problem::tooHeavy;
}

SvgCostTree::Problem SvgCostTree::addReferences(Element& element, SvgReference::Kind kind, const SvgCost& limit,
                                                int depth) {
    for (const SvgReference& reference : element.references) {
        if (reference.kind != kind)
            continue;
        // Which of several elements of one name is meant is left to the renderer: all are counted.
        const auto [first, last] = m_byIdentifier.equal_range(reference.identifier);
        for (auto target = first; target != last; ++target) {
            if (const Problem problem = addUp(*target, limit, depth + 1); problem != Problem::none)
                return problem;
            const SvgCost& other = m_elements[static_cast<std::size_t>(*target)].cost;
            if (kind == SvgReference::Kind::clipping) {
                const qint64 clip = other.points;
                element.cost.crossings += 2 * clip * element.cost.points + clip * clip * element.cost.outlines;
                element.cost.points += clip * element.cost.outlines;
            }
            element.cost += other * reference.times;
            if (!element.cost.isWithin(limit))
                return Problem::tooHeavy;
        }
    }
    return Problem::none;
}

} // namespace zelmo
