#pragma once

#include "catalog/LaunchableApp.h"
#include "ui/PlateItem.h"

namespace zelmo {

// The base of the cards of all layouts: one application, as the wall's model gives it, and the shape that takes clicks.
// A card is given to another application at many a key, so that the properties are this class's own: the written
// language takes several times as long to set its. Only what differs is announced.
//
// The base is written in full for the list of QML types, which knows it by that name only.
class CardItem : public zelmo::PlateItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zelmo::LaunchableApp app MEMBER m_app NOTIFY appChanged)
    Q_PROPERTY(QString name MEMBER m_name NOTIFY nameChanged)
    Q_PROPERTY(zelmo::AppIcon appIcon MEMBER m_appIcon NOTIFY appIconChanged)
    Q_PROPERTY(QString categoryLabel MEMBER m_categoryLabel NOTIFY categoryLabelChanged)
    Q_PROPERTY(QString symbol MEMBER m_symbol NOTIFY symbolChanged)
    Q_PROPERTY(QColor accentColor MEMBER m_accentColor NOTIFY accentColorChanged)
    Q_PROPERTY(QList<QColor> tileColors MEMBER m_tileColors NOTIFY tileColorsChanged)
    Q_PROPERTY(QString usageSummary MEMBER m_usageSummary NOTIFY usageSummaryChanged)
    Q_PROPERTY(bool selected MEMBER m_selected NOTIFY selectedChanged)

Q_SIGNALS:
    void appChanged();
    void nameChanged();
    void appIconChanged();
    void categoryLabelChanged();
    void symbolChanged();
    void accentColorChanged();
    void tileColorsChanged();
    void usageSummaryChanged();
    void selectedChanged();

private:
    LaunchableApp m_app;
    QString m_name;
    AppIcon m_appIcon;
    QString m_categoryLabel;
    QString m_symbol;
    QColor m_accentColor;
    QList<QColor> m_tileColors;
    QString m_usageSummary;
    bool m_selected = false;
};

} // namespace zelmo
