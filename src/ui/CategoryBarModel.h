#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

class LauncherStore;

// The chips of the category bar: Most Used, then the categories in their order. Exactly one is selected. Owned by the
// wall's content; main thread.
class CategoryBarModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its store")
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedRowChanged)

public:
    enum Role {
        TitleRole = Qt::UserRole,
        SymbolRole,
        HelpTextRole,
        IsMostUsedRole,
        IsSelectedRole,
        SelectedColorsRole, // of the gradient
        SelectedOutlineRole,
    };

    explicit CategoryBarModel(LauncherStore& store);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int selectedRow() const;
    // Makes this chip's applications the ones that the wall shows.
    Q_INVOKABLE void choose(int row);

Q_SIGNALS:
    void selectedRowChanged();

private:
    void announceSelection();

    LauncherStore& m_store;
};

} // namespace zelmo
