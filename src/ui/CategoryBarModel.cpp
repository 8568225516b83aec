#include "ui/CategoryBarModel.h"

#include "catalog/LauncherStore.h"
#include "ui/HeaderMetrics.h"
#include "ui/StyleColors.h"

namespace zelmo {

namespace {

constexpr int mostUsedRow = 0;
constexpr int firstCategoryRow = 1;

AppCategory categoryOf(int row) {
    return allCategories[static_cast<std::size_t>(row - firstCategoryRow)];
}

QVariant mostUsedData(int role) {
    switch (role) {
    case Qt::DisplayRole:
    case CategoryBarModel::TitleRole:
        return QStringLiteral("Most Used");
    case CategoryBarModel::SymbolRole:
        return QStringLiteral("chart.bar.fill");
    case CategoryBarModel::HelpTextRole:
        return QStringLiteral("Apps ranked by active time while Zelmo is running");
    case CategoryBarModel::SelectedColorsRole:
        return QVariant::fromValue(HeaderMetrics::mostUsedColors());
    case CategoryBarModel::SelectedOutlineRole:
        return HeaderMetrics::mostUsedOutline();
    default:
        return {};
    }
}

QVariant categoryData(AppCategory category, int role) {
    const AppCategoryGlassStyle& style = glassStyle(category);
    switch (role) {
    case Qt::DisplayRole:
    case CategoryBarModel::TitleRole:
        return rawValue(category);
    case CategoryBarModel::SymbolRole:
        return QString::fromLatin1(style.symbolName.data(), static_cast<qsizetype>(style.symbolName.size()));
    case CategoryBarModel::HelpTextRole:
        return QString();
    case CategoryBarModel::SelectedColorsRole:
        return QVariant::fromValue(QList{toQColor(style.gradientColors[0]), toQColor(style.gradientColors[1])});
    case CategoryBarModel::SelectedOutlineRole:
        return withOpacity(toQColor(style.accentColor), HeaderMetrics::chipAccentOpacity());
    default:
        return {};
    }
}

} // namespace

CategoryBarModel::CategoryBarModel(LauncherStore& store) : m_store(store) {
    connect(&store, &LauncherStore::selectedCategoryChanged, this, &CategoryBarModel::announceSelection);
    connect(&store, &LauncherStore::showsMostUsedChanged, this, &CategoryBarModel::announceSelection);
}

int CategoryBarModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : firstCategoryRow + static_cast<int>(allCategories.size());
}

QVariant CategoryBarModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    if (role == IsMostUsedRole)
        return index.row() == mostUsedRow;
    if (role == IsSelectedRole)
        return index.row() == selectedRow();
    return index.row() == mostUsedRow ? mostUsedData(role) : categoryData(categoryOf(index.row()), role);
}

QHash<int, QByteArray> CategoryBarModel::roleNames() const {
    return {{TitleRole, "title"},
            {SymbolRole, "symbol"},
            {HelpTextRole, "helpText"},
            {IsMostUsedRole, "isMostUsed"},
            {IsSelectedRole, "isSelected"},
            {SelectedColorsRole, "selectedColors"},
            {SelectedOutlineRole, "selectedOutline"}};
}

int CategoryBarModel::selectedRow() const {
    return m_store.showsMostUsed() ? mostUsedRow : firstCategoryRow + static_cast<int>(m_store.selectedCategory());
}

void CategoryBarModel::choose(int row) {
    if (row == mostUsedRow) {
        m_store.setShowsMostUsed(true);
        m_store.setSelectedCategory(AppCategory::all);
    } else if (row > mostUsedRow && row < rowCount()) {
        m_store.setSelectedCategory(categoryOf(row));
        m_store.setShowsMostUsed(false);
    }
}

void CategoryBarModel::announceSelection() {
    Q_EMIT dataChanged(index(0), index(rowCount() - 1), {IsSelectedRole});
    Q_EMIT selectedRowChanged();
}

} // namespace zelmo
