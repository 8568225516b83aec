#include "ui/WallModel.h"

#include "catalog/LauncherStore.h"
#include "ui/CardMetrics.h"
#include "ui/ListChanges.h"
#include "ui/StyleColors.h"
#include "ui/TilePalette.h"

namespace zelmo {

WallModel::WallModel(const LauncherStore& store) : m_store(store), m_apps(store.visibleApps()) {
    connect(&store, &LauncherStore::appsChanged, this, &WallModel::update);
    connect(&store, &LauncherStore::selectedCategoryChanged, this, &WallModel::updateFilter);
    connect(&store, &LauncherStore::showsMostUsedChanged, this, &WallModel::updateFilter);
    connect(&store, &LauncherStore::searchTextChanged, this, &WallModel::update);
    // The use of applications changes while the wall is away.
    connect(&store, &LauncherStore::overlayIsVisibleChanged, this, [this] {
        if (!m_store.overlayIsVisible())
            return;
        update();
        announce(UsageSummaryRole);
    });
    connect(&store, &LauncherStore::selectedAppIDsChanged, this, [this] { announce(SelectedRole); });
}

int WallModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_apps.size());
}

QVariant WallModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const LaunchableApp& app = m_apps[index.row()];
    const AppCategoryGlassStyle& style = glassStyle(app.category);
    switch (role) {
    case AppRole:
        return QVariant::fromValue(app);
    case Qt::DisplayRole:
    case NameRole:
        return app.name;
    case IconRole:
        return QVariant::fromValue(app.icon);
    case CategoryLabelRole:
        return QString::fromLatin1(style.shortLabel.data(), static_cast<qsizetype>(style.shortLabel.size()));
    case SymbolRole:
        return QString::fromLatin1(style.symbolName.data(), static_cast<qsizetype>(style.symbolName.size()));
    case AccentColorRole:
        return toQColor(style.accentColor);
    case TileColorsRole: {
        const TileFill fill = lumiaTileFill(app.name);
        const QColor veil = CardMetrics::tileVeil();
        return QVariant::fromValue(QList{through(veil, fill.start), through(veil, fill.end)});
    }
    case UsageSummaryRole:
        return m_store.showsMostUsed() ? m_store.usageSummary(app).value_or(QString()) : QString();
    case SelectedRole:
        return m_store.selectedAppIDs().contains(app.id);
    default:
        return {};
    }
}

QHash<int, QByteArray> WallModel::roleNames() const {
    return {{AppRole, "app"},
            {NameRole, "name"},
            {IconRole, "appIcon"},
            {CategoryLabelRole, "categoryLabel"},
            {SymbolRole, "symbol"},
            {AccentColorRole, "accentColor"},
            {TileColorsRole, "tileColors"},
            {UsageSummaryRole, "usageSummary"},
            {SelectedRole, "selected"}};
}

int WallModel::filter() const {
    return m_store.showsMostUsed() ? -1 : static_cast<int>(m_store.selectedCategory());
}

void WallModel::updateFilter() {
    update();
    announce(UsageSummaryRole);
    Q_EMIT filterChanged();
}

void WallModel::update() {
    const QList<LaunchableApp> fresh = m_store.visibleApps();
    const bool wasEmpty = isEmpty();
    for (const ListChange& change : listChanges(m_apps, fresh)) {
        const int last = change.first + change.count - 1;
        switch (change.kind) {
        case ListChange::Kind::remove:
            beginRemoveRows({}, change.first, last);
            m_apps.remove(change.first, change.count);
            endRemoveRows();
            break;
        case ListChange::Kind::move:
            beginMoveRows({}, change.first, change.first, {}, change.to);
            m_apps.move(change.first, change.to > change.first ? change.to - 1 : change.to);
            endMoveRows();
            break;
        case ListChange::Kind::insert:
            beginInsertRows({}, change.first, last);
            if (m_apps.isEmpty() && change.count == fresh.size()) {
                m_apps = fresh;
            } else {
                m_apps.insert(change.first, change.count, LaunchableApp{});
                std::copy_n(fresh.cbegin() + change.first, change.count, m_apps.begin() + change.first);
            }
            endInsertRows();
            break;
        }
    }
    announceChangedRows(fresh);
    if (isEmpty() != wasEmpty)
        Q_EMIT isEmptyChanged();
}

void WallModel::announce(Role role) {
    if (!m_apps.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {role});
}

void WallModel::announceChangedRows(const QList<LaunchableApp>& fresh) {
    if (m_apps.constData() == fresh.constData())
        return;
    for (qsizetype row = 0; row < fresh.size(); ++row) {
        if (m_apps[row] == fresh[row])
            continue;
        m_apps[row] = fresh[row];
        const QModelIndex changed = index(static_cast<int>(row));
        Q_EMIT dataChanged(changed, changed);
    }
    m_apps = fresh;
}

} // namespace zelmo
