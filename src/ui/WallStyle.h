#pragma once

#include "ui/CardLayout.h"
#include "ui/FontResolver.h"
#include "ui/StyleColors.h"

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

class Preferences;
enum class PreferenceKey;

// The user's appearance settings as the views bind to them; every one follows its preference at
// once. Owned by the wall's content; main thread.
class WallStyle : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its preferences")

    Q_PROPERTY(QColor textColor READ textColor NOTIFY changed)
    Q_PROPERTY(QFont titleFont READ titleFont NOTIFY changed)
    Q_PROPERTY(QFont subtitleFont READ subtitleFont NOTIFY changed)
    Q_PROPERTY(QFont searchFont READ searchFont NOTIFY changed)
    Q_PROPERTY(QFont chipFont READ chipFont NOTIFY changed)
    Q_PROPERTY(QFont mostUsedChipFont READ mostUsedChipFont NOTIFY changed)
    Q_PROPERTY(QFont appNameFont READ appNameFont NOTIFY changed)
    Q_PROPERTY(QFont appCategoryFont READ appCategoryFont NOTIFY changed)
    Q_PROPERTY(QFont usageFont READ usageFont NOTIFY changed)
    Q_PROPERTY(QFont emptyTitleFont READ emptyTitleFont NOTIFY changed)
    Q_PROPERTY(QFont emptyTextFont READ emptyTextFont NOTIFY changed)
    Q_PROPERTY(int selectionDuration READ selectionDuration NOTIFY changed)
    Q_PROPERTY(bool movesCards READ movesCards NOTIFY changed)
    Q_PROPERTY(bool blursDesktop READ blursDesktop NOTIFY changed)
    Q_PROPERTY(QList<QColor> backgroundColors READ backgroundColors NOTIFY changed)
    Q_PROPERTY(int variant READ variantNumber NOTIFY changed)
    Q_PROPERTY(zelmo::CardLayout layout READ layout NOTIFY changed)
    Q_PROPERTY(qreal cardHeight READ cardHeight NOTIFY changed)
    Q_PROPERTY(qreal rankedCardHeight READ rankedCardHeight NOTIFY changed)
    Q_PROPERTY(int nameLines READ nameLines NOTIFY changed)
    Q_PROPERTY(QColor plateFill READ plateFill NOTIFY changed)
    Q_PROPERTY(QColor plateOutline READ plateOutline NOTIFY changed)
    Q_PROPERTY(qreal plateOutlineWidth READ plateOutlineWidth NOTIFY changed)

public:
    // Both outlive it.
    WallStyle(const Preferences& preferences, const FontFaces& faces);

    QColor textColor() const;
    QFont titleFont() const;
    QFont subtitleFont() const;
    QFont searchFont() const;
    QFont chipFont() const;
    QFont mostUsedChipFont() const;
    // In the chosen layout.
    QFont appNameFont() const;
    QFont appCategoryFont() const;
    QFont usageFont() const;
    QFont emptyTitleFont() const;
    QFont emptyTextFont() const;
    // How long a card takes to show that it is selected, in milliseconds; 0: at once.
    int selectionDuration() const;
    // Whether cards travel to where they belong.
    bool movesCards() const { return !m_reducesMotion; }
    void setReducesMotion(bool reduces);
    // Whether the desktop shows through the wall's material; else there is a gradient.
    bool blursDesktop() const;
    // Stops of the diagonal gradient behind the wall, for a blurred desktop those that stand in for a desktop that
    // can't be seen.
    QList<QColor> backgroundColors() const;
    AppTileVariant variant() const;
    int variantNumber() const { return static_cast<int>(variant()); }
    CardLayout layout() const { return cardLayout(variant()); }
    // All cards of a layout are as high as the texts of the longest need, with a line about its use when ranked.
    qreal cardHeight() const;
    qreal rankedCardHeight() const;
    // How many lines a name may take before it ends in an ellipsis.
    int nameLines() const;
    QColor plateFill() const { return plate().fill; }
    QColor plateOutline() const { return plate().outline; }
    qreal plateOutlineWidth() const { return plate().outlineWidth; }

Q_SIGNALS:
    void changed();

private:
    void note(PreferenceKey key);
    LauncherFontStyle fontStyle() const;
    QFont font(double size, FontWeight weight) const;
    // In capitals, with this letter spacing.
    QFont capitals(double size, FontWeight weight, double spacing) const;
    CardPlate plate() const;
    qreal heightWith(qreal texts) const;

    const Preferences& m_preferences;
    mutable FontResolver m_resolver;
    bool m_reducesMotion = false;
};

} // namespace zelmo
