#include "ui/CardGrid.h"

#include <QQmlComponent>
#include <QQmlContext>

#include <cmath>

namespace zelmo {

CardGrid::CardGrid() {
    connect(this, &CardGrid::layoutChanged, this, &QQuickItem::polish);
    m_transition.setStartValue(0.0);
    m_transition.setEndValue(1.0);
    QEasingCurve easeInOut(QEasingCurve::BezierSpline);
    easeInOut.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
    m_transition.setEasingCurve(easeInOut);
    connect(&m_transition, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& progress) { showTransition(progress.toDouble()); });
    connect(&m_transition, &QVariantAnimation::finished, this, &CardGrid::endTransition);
}

CardGrid::~CardGrid() = default;

void CardGrid::setModel(QAbstractItemModel* model) {
    if (m_model == model)
        return;
    if (m_model)
        m_model->disconnect(this);
    m_model = model;
    dropCards();
    if (m_model) {
        connect(m_model, &QAbstractItemModel::rowsInserted, this, &QQuickItem::polish);
        connect(m_model, &QAbstractItemModel::rowsRemoved, this, &CardGrid::noteRemoval);
        connect(m_model, &QAbstractItemModel::rowsMoved, this, &QQuickItem::polish);
        connect(m_model, &QAbstractItemModel::modelReset, this, &QQuickItem::polish);
        connect(m_model, &QAbstractItemModel::dataChanged, this, &CardGrid::noteData);
    }
    polish();
    Q_EMIT modelChanged();
}

void CardGrid::setCard(QQmlComponent* component) {
    if (m_component == component)
        return;
    m_component = component;
    dropCards();
    polish();
    Q_EMIT cardChanged();
}

void CardGrid::componentComplete() {
    QQuickItem::componentComplete();
    polish();
}

void CardGrid::updatePolish() {
    if (!isComponentComplete() || !m_model || !m_component)
        return;
    const int lines = (rowCount() + m_columns - 1) / m_columns;
    setImplicitWidth(m_columns * (m_columnWidth + m_columnSpacing) - m_columnSpacing);
    setImplicitHeight(lines == 0 ? 0 : lines * (m_cardHeight + m_rowSpacing) - m_rowSpacing);

    endTransition();
    if (m_awaitedDuration > 0)
        setFadingCardsApart();
    const Range range = rowsInSight();
    std::vector<bool> isShown(static_cast<std::size_t>(range.end - range.first));
    std::vector<Card*> unused;
    for (Card& card : m_cards) {
        const int row = card.index.isValid() ? card.index.row() : -1;
        if (row >= range.first && row < range.end) {
            isShown[static_cast<std::size_t>(row - range.first)] = true;
            moveOrPlace(*card.item, row);
        } else {
            unused.push_back(&card);
        }
    }
    std::vector<Card> made;
    for (int row = range.first; row < range.end; ++row) {
        if (isShown[static_cast<std::size_t>(row - range.first)])
            continue;
        if (!unused.empty()) {
            show(*unused.back(), row);
            unused.pop_back();
        } else if (const Card card = makeCard(row); card.item) {
            made.push_back(card);
        }
    }
    for (Card* card : unused) {
        card->index = QPersistentModelIndex();
        card->item->setVisible(false);
    }
    m_cards.insert(m_cards.end(), made.begin(), made.end());
    startTransition();
}

int CardGrid::rowCount() const {
    return m_model ? m_model->rowCount() : 0;
}

CardGrid::Range CardGrid::rowsInSight() const {
    const qreal step = m_cardHeight + m_rowSpacing;
    if (step <= 0 || m_columns <= 0)
        return {};
    const auto clamped = [this](qreal line) {
        return static_cast<int>(std::clamp<qreal>(line * m_columns, 0, rowCount()));
    };
    const Range range{.first = clamped(std::floor(m_visibleTop / step)),
                      .end = clamped(std::ceil((m_visibleTop + m_visibleHeight) / step))};
    return range.end > range.first ? range : Range{};
}

void CardGrid::dropCards() {
    endTransition();
    for (const Card& card : m_cards)
        card.item->deleteLater();
    m_cards.clear();
}

CardGrid::Card CardGrid::makeCard(int row) {
    Card card{.item = nullptr, .index = QPersistentModelIndex(m_model->index(row, 0))};
    QVariantMap roles;
    const QHash<int, QByteArray> names = m_model->roleNames();
    for (auto it = names.cbegin(); it != names.cend(); ++it)
        roles.insert(QString::fromLatin1(it.value()), card.index.data(it.key()));
    card.item =
        qobject_cast<QQuickItem*>(m_component->createWithInitialProperties(roles, m_component->creationContext()));
    if (!card.item) {
        qWarning("A card can't be made: %s", qPrintable(m_component->errorString()));
        return card;
    }
    card.item->setParent(this);
    card.item->setParentItem(this);
    card.item->setPosition(positionOf(row));
    return card;
}

void CardGrid::show(Card& card, int row) {
    card.index = QPersistentModelIndex(m_model->index(row, 0));
    writeRoles(card);
    card.item->setPosition(positionOf(row));
    card.item->setVisible(true);
}

void CardGrid::writeRoles(const Card& card) const {
    const QHash<int, QByteArray> names = m_model->roleNames();
    for (auto it = names.cbegin(); it != names.cend(); ++it)
        card.item->setProperty(it.value().constData(), card.index.data(it.key()));
}

void CardGrid::setFadingCardsApart() {
    const auto fading = std::stable_partition(m_cards.begin(), m_cards.end(), [](const Card& card) {
        return card.index.isValid() || !card.item->isVisible();
    });
    m_fading.assign(fading, m_cards.end());
    m_cards.erase(fading, m_cards.end());
    for (const Card& card : m_fading)
        card.item->setEnabled(false);
}

void CardGrid::startTransition() {
    const int duration = std::exchange(m_awaitedDuration, 0);
    if (m_moves.empty() && m_fading.empty())
        return;
    m_transition.setDuration(duration);
    m_transition.start();
}

void CardGrid::showTransition(double progress) {
    for (const Move& move : m_moves)
        move.item->setPosition(move.from + progress * (move.to - move.from));
    for (const Card& card : m_fading)
        card.item->setOpacity(1 - progress);
}

// Puts everything where it belongs, at once when the transition is still under way.
void CardGrid::endTransition() {
    m_transition.stop();
    showTransition(1);
    m_moves.clear();
    for (const Card& card : m_fading) {
        card.item->setVisible(false);
        card.item->setEnabled(true);
        card.item->setOpacity(1);
    }
    m_cards.insert(m_cards.end(), m_fading.begin(), m_fading.end());
    m_fading.clear();
}

QPointF CardGrid::positionOf(int row) const {
    const int column = row % m_columns;
    const int line = row / m_columns;
    return {column * (m_columnWidth + m_columnSpacing), line * (m_cardHeight + m_rowSpacing)};
}

void CardGrid::noteRemoval() {
    m_awaitedDuration = std::max(m_awaitedDuration, m_changeDuration);
    polish();
}

void CardGrid::moveOrPlace(QQuickItem& item, int row) {
    const QPointF target = positionOf(row);
    if (m_awaitedDuration > 0 && item.position() != target)
        m_moves.push_back({&item, item.position(), target});
    else
        item.setPosition(target);
}

void CardGrid::noteData(const QModelIndex& first, const QModelIndex& last) {
    for (const Card& card : m_cards) {
        if (card.index.isValid() && card.index.row() >= first.row() && card.index.row() <= last.row())
            writeRoles(card);
    }
}

} // namespace zelmo
