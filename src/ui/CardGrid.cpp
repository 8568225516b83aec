#include "ui/CardGrid.h"

#include "ui/RepaintArea.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQuickWindow>

#include <cmath>

namespace zelmo {

namespace {

// Above this many changed cards at once, all that is in sight is painted anew.
constexpr std::size_t fewCards = 4;
// In front of the cards, the one with the focus included.
constexpr qreal repaintAreaZ = 2;

} // namespace

CardGrid::CardGrid() : m_repaintArea(new RepaintArea(this)) {
    setFlag(ItemIsFocusScope);
    setActiveFocusOnTab(true);
    connect(this, &CardGrid::layoutChanged, this, &QQuickItem::polish);
    m_repaintArea->setZ(repaintAreaZ);
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
    forgetCurrent();
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
    setImplicitWidth(m_columns * (columnWidth() + m_columnSpacing) - m_columnSpacing);
    setImplicitHeight(lines == 0 ? 0 : lines * (m_cardHeight + m_rowSpacing) - m_rowSpacing);

    endTransition();
    if (m_awaitedDuration > 0)
        setFadingCardsApart();
    keepCurrent();
    const Range range = rowsInSight();
    std::vector<bool> isShown(static_cast<std::size_t>(range.end - range.first));
    std::vector<Card*> unused;
    for (Card& card : m_cards) {
        const int row = card.index.isValid() ? card.index.row() : -1;
        if (row >= range.first && row < range.end) {
            isShown[static_cast<std::size_t>(row - range.first)] = true;
            moveOrPlace(card, row);
        } else if (row >= 0 && row == m_currentRow) {
            // It keeps the focus while it is out of sight.
            moveOrPlace(card, row);
        } else {
            unused.push_back(&card);
        }
    }
    std::vector<Card> made;
    // The current one may be out of sight.
    std::vector<int> missing;
    if (m_currentRow >= 0 && (m_currentRow < range.first || m_currentRow >= range.end) && !cardOf(m_currentRow))
        missing.push_back(m_currentRow);
    for (int row = range.first; row < range.end; ++row) {
        if (!isShown[static_cast<std::size_t>(row - range.first)])
            missing.push_back(row);
    }
    for (const int row : missing) {
        if (!unused.empty()) {
            show(*unused.back(), row);
            unused.pop_back();
        } else if (const Card card = makeCard(row); card.item) {
            made.push_back(card);
        }
    }
    std::size_t changes = missing.size();
    for (Card* card : unused) {
        if (card->item->isVisible())
            ++changes;
        card->index = QPersistentModelIndex();
        card->item->setVisible(false);
    }
    m_cards.insert(m_cards.end(), made.begin(), made.end());
    // The spacing holds what cards draw beyond their edges.
    if (changes > fewCards || m_visibleTop != m_repaintArea->y())
        m_repaintArea->repaint(
            {-m_columnSpacing, m_visibleTop, implicitWidth() + 2 * m_columnSpacing, m_visibleHeight});
    startTransition();
}

void CardGrid::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change != ItemActiveFocusHasChanged || !data.boolValue || !window() || window()->activeFocusItem() != this)
        return;
    // Not at once: the change of the focus is still under way.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (hasActiveFocus())
                takeUpFocus();
        },
        Qt::QueuedConnection);
}

void CardGrid::takeUpFocus() {
    if (rowCount() > 0)
        makeCurrent(m_current.isValid() ? m_current.row() : rowsInSight().first);
}

void CardGrid::keyPressEvent(QKeyEvent* event) {
    if (window() && window()->activeFocusItem() == this) {
        // Faster than the card that is about to get the focus.
        takeUpFocus();
        if (window()->activeFocusItem() != this) {
            QCoreApplication::sendEvent(window()->activeFocusItem(), event);
            if (event->isAccepted())
                return;
        }
    }
    const int row = m_current.isValid() ? m_current.row() : -1;
    const int last = rowCount() - 1;
    const int forward = m_mirrored ? -1 : 1;
    const int page = linesOnAPage() * m_columns;
    int target = row;
    switch (event->key()) {
    case Qt::Key_Left:
        target = row - forward;
        break;
    case Qt::Key_Right:
        target = row + forward;
        break;
    case Qt::Key_Up:
        target = row - m_columns;
        break;
    case Qt::Key_Down:
        // From the last full line to a shorter one below it.
        target = row / m_columns < last / m_columns ? std::min(row + m_columns, last) : row;
        break;
    case Qt::Key_Home:
        target = 0;
        break;
    case Qt::Key_End:
        target = last;
        break;
    case Qt::Key_PageUp:
        target = std::max(row - page, row % m_columns);
        break;
    case Qt::Key_PageDown:
        target = std::min(row + page, last);
        break;
    default:
        event->ignore();
        return;
    }
    // Beyond the first line is what stands above the grid.
    if (row < 0 || (event->key() == Qt::Key_Up && target < 0)) {
        event->ignore();
        return;
    }
    makeCurrent(std::clamp(target, 0, last));
}

void CardGrid::forgetCurrent() {
    m_current = QPersistentModelIndex();
    m_currentRow = -1;
    // Else the card that had the focus gets it back with the grid, even when nothing is shown in it any more.
    if (QQuickItem* item = scopedFocusItem())
        item->setFocus(false, Qt::OtherFocusReason);
}

void CardGrid::scrollByPages(int pages) {
    const qreal step = m_cardHeight + m_rowSpacing;
    const qreal lowest = std::max<qreal>(0, implicitHeight() - m_visibleHeight);
    Q_EMIT scrollRequested(std::clamp<qreal>(m_visibleTop + pages * linesOnAPage() * step, 0, lowest));
}

void CardGrid::makeCurrent(int row) {
    m_current = QPersistentModelIndex(m_model->index(row, 0));
    m_currentRow = row;
    bringIntoSight(row);
    updatePolish();
    if (Card* card = cardOf(row))
        card->item->forceActiveFocus(Qt::OtherFocusReason);
}

void CardGrid::bringIntoSight(int row) {
    const qreal top = positionOf(row).y();
    const qreal bottom = top + m_cardHeight;
    if (top < m_visibleTop || row < m_columns)
        Q_EMIT scrollRequested(row < m_columns ? 0 : top - m_rowSpacing / 2);
    else if (bottom > m_visibleTop + m_visibleHeight)
        Q_EMIT scrollRequested(bottom + m_rowSpacing - m_visibleHeight);
}

// When the current card's row is gone, the row that took its place is the current one.
void CardGrid::keepCurrent() {
    if (m_currentRow < 0)
        return;
    if (m_current.isValid()) {
        m_currentRow = m_current.row();
        return;
    }
    const int row = std::min(m_currentRow, rowCount() - 1);
    const bool hadFocus = hasActiveFocus();
    forgetCurrent();
    if (!hadFocus)
        return;
    QMetaObject::invokeMethod(
        this,
        [this, row] {
            if (row >= 0 && row < rowCount())
                makeCurrent(row);
            else
                Q_EMIT focusLost();
        },
        Qt::QueuedConnection);
}

CardGrid::Card* CardGrid::cardOf(int row) {
    const auto card = std::find_if(m_cards.begin(), m_cards.end(), [row](const Card& candidate) {
        return candidate.index.isValid() && candidate.index.row() == row;
    });
    return card == m_cards.end() ? nullptr : &*card;
}

qreal CardGrid::columnWidth() const {
    return m_columns == 1 ? std::min(m_columnWidth, m_maximumWidth) : m_columnWidth;
}

int CardGrid::linesOnAPage() const {
    const qreal step = m_cardHeight + m_rowSpacing;
    return step > 0 ? std::max(1, static_cast<int>(m_visibleHeight / step)) : 1;
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
    card.item->setSize({columnWidth(), m_cardHeight});
    card.item->setPosition(positionOf(row));
    return card;
}

void CardGrid::show(Card& card, int row) {
    card.index = QPersistentModelIndex(m_model->index(row, 0));
    writeRoles(card);
    card.item->setSize({columnWidth(), m_cardHeight});
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
    const int column = m_mirrored ? m_columns - 1 - row % m_columns : row % m_columns;
    const int line = row / m_columns;
    return {column * (columnWidth() + m_columnSpacing), line * (m_cardHeight + m_rowSpacing)};
}

void CardGrid::noteRemoval() {
    m_awaitedDuration = std::max(m_awaitedDuration, m_changeDuration);
    polish();
}

void CardGrid::moveOrPlace(const Card& card, int row) {
    const QPointF target = positionOf(row);
    card.item->setSize({columnWidth(), m_cardHeight});
    if (m_awaitedDuration > 0 && card.item->position() != target)
        m_moves.push_back({card.item, card.item->position(), target});
    else
        card.item->setPosition(target);
}

void CardGrid::noteData(const QModelIndex& first, const QModelIndex& last) {
    for (const Card& card : m_cards) {
        if (card.index.isValid() && card.index.row() >= first.row() && card.index.row() <= last.row())
            writeRoles(card);
    }
}

} // namespace zelmo
