#pragma once

#include <QAbstractItemModel>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QQuickItem>
#include <QVariantAnimation>

#include <limits>
#include <vector>

class QQmlComponent;

namespace zelmo {

class RepaintArea;

// Lays the rows of a model out as cards of one size in columns, from the leading side and top to bottom. Only the
// cards in sight and the one with the focus exist; one that goes out of sight, or whose row is gone, becomes the card
// of another row instead of being destroyed, and one whose row moved moves with it. Each role of the model is written
// to the card's property of the same name. Keys move the focus from card to card. Lengths are points.
class CardGrid : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QAbstractItemModel* model READ model WRITE setModel NOTIFY modelChanged)
    Q_PROPERTY(QQmlComponent* card READ card WRITE setCard NOTIFY cardChanged)
    Q_PROPERTY(int columns MEMBER m_columns NOTIFY layoutChanged)
    Q_PROPERTY(qreal columnWidth MEMBER m_columnWidth NOTIFY layoutChanged)
    // There is no more room than this; only a single column becomes narrower for it.
    Q_PROPERTY(qreal maximumWidth MEMBER m_maximumWidth NOTIFY layoutChanged)
    Q_PROPERTY(qreal columnSpacing MEMBER m_columnSpacing NOTIFY layoutChanged)
    Q_PROPERTY(qreal cardHeight MEMBER m_cardHeight NOTIFY layoutChanged)
    Q_PROPERTY(qreal rowSpacing MEMBER m_rowSpacing NOTIFY layoutChanged)
    // From right to left.
    Q_PROPERTY(bool mirrored MEMBER m_mirrored NOTIFY layoutChanged)
    // The part of the grid that is in sight.
    Q_PROPERTY(qreal visibleTop MEMBER m_visibleTop NOTIFY layoutChanged)
    Q_PROPERTY(qreal visibleHeight MEMBER m_visibleHeight NOTIFY layoutChanged)
    // How long cards take to go over to a removal of rows, in milliseconds; 0: at once. Read as the removal comes.
    Q_PROPERTY(int changeDuration MEMBER m_changeDuration NOTIFY changeDurationChanged)

public:
    CardGrid();
    ~CardGrid() override;

    QAbstractItemModel* model() const { return m_model; }
    void setModel(QAbstractItemModel* model);
    QQmlComponent* card() const { return m_component; }
    void setCard(QQmlComponent* component);

    // How many cards exist, in sight or waiting to be used again.
    int cardCount() const { return static_cast<int>(m_cards.size()); }

    // The next time that the grid has the focus, the first card in sight gets it.
    Q_INVOKABLE void forgetCurrent();
    // Asks for the part of the grid one page further down, or up.
    Q_INVOKABLE void scrollByPages(int pages);

Q_SIGNALS:
    // The part in sight is to begin here.
    void scrollRequested(qreal visibleTop);
    // The focus was on a card, and no card is left.
    void focusLost();
    void modelChanged();
    void cardChanged();
    void layoutChanged();
    void changeDurationChanged();

protected:
    void componentComplete() override;
    void updatePolish() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Card {
        QQuickItem* item = nullptr;
        QPersistentModelIndex index;
    };
    struct Move {
        QQuickItem* item = nullptr;
        QPointF from;
        QPointF to;
    };
    struct Range {
        int first = 0;
        int end = 0;
    };

    int rowCount() const;
    qreal columnWidth() const;
    Range rowsInSight() const;
    int linesOnAPage() const;
    void takeUpFocus();
    void makeCurrent(int row);
    void bringIntoSight(int row);
    void keepCurrent();
    Card* cardOf(int row);
    void dropCards();
    Card makeCard(int row);
    void show(Card& card, int row);
    void writeRoles(const Card& card) const;
    QPointF positionOf(int row) const;
    void noteRemoval();
    void moveOrPlace(const Card& card, int row);
    void setFadingCardsApart();
    void startTransition();
    void showTransition(double progress);
    void endTransition();
    void noteData(const QModelIndex& first, const QModelIndex& last);

    QPointer<QAbstractItemModel> m_model;
    QPointer<QQmlComponent> m_component;
    int m_columns = 1;
    qreal m_columnWidth = 0;
    qreal m_columnSpacing = 0;
    qreal m_maximumWidth = std::numeric_limits<qreal>::infinity();
    qreal m_cardHeight = 0;
    qreal m_rowSpacing = 0;
    bool m_mirrored = false;
    qreal m_visibleTop = 0;
    qreal m_visibleHeight = 0;
    int m_changeDuration = 0;
    int m_awaitedDuration = 0; // of the removals that the next layout shows
    std::vector<Card> m_cards;
    QPersistentModelIndex m_current; // of the card that has, or will have, the focus
    int m_currentRow = -1;           // where it was when the cards were last laid out; -1: no card has been chosen
    std::vector<Move> m_moves;
    std::vector<Card> m_fading; // of rows that are gone
    QVariantAnimation m_transition;
    RepaintArea* m_repaintArea;
};

} // namespace zelmo
