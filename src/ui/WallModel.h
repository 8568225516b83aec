#pragma once

#include "catalog/LaunchableApp.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

class LauncherStore;

// The store's visible applications as a list for the wall's layouts. A new filter or scan arrives as
// removals, moves, insertions and changes of rows, never as a reset, so that a view keeps its cards.
// Owned by the wall's content; main thread.
class WallModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its store")
    // A number for what the wall shows apart from the search; another one after each change of it.
    Q_PROPERTY(int filter READ filter NOTIFY filterChanged)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)

public:
    enum Role {
        AppRole = Qt::UserRole,
        NameRole,
        IconRole,
        CategoryLabelRole,
        SymbolRole,
        AccentColorRole,
        TileColorsRole,   // of the gradient, through its veil
        UsageSummaryRole, // empty while the wall does not show Most Used, and for what was never used
        SelectedRole,
    };

    explicit WallModel(const LauncherStore& store);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int filter() const;
    bool isEmpty() const { return m_apps.isEmpty(); }

Q_SIGNALS:
    void filterChanged();
    void isEmptyChanged();

private:
    void updateFilter();
    void update();
    void announce(Role role);
    void announceChangedRows(const QList<LaunchableApp>& fresh);

    const LauncherStore& m_store;
    QList<LaunchableApp> m_apps;
};

} // namespace zelmo
