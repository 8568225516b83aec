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

public:
    enum Role {
        AppRole = Qt::UserRole,
        NameRole,
        IconRole,
        CategoryLabelRole,
        AccentColorRole,
        SelectedRole,
    };

    explicit WallModel(const LauncherStore& store);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    void update();
    void announceSelection();
    void announceChangedRows(const QList<LaunchableApp>& fresh);

    const LauncherStore& m_store;
    QList<LaunchableApp> m_apps;
};

} // namespace zelmo
