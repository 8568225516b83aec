#include "catalog/NameOrder.h"

#include <QCollator>

#include <numeric>

namespace zelmo {

void sortByName(QList<LaunchableApp>& apps, const QLocale& locale) {
    // The "C" locale has no collation of its own; English stands for the root order there.
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);

    std::vector<QCollatorSortKey> keys;
    keys.reserve(static_cast<std::size_t>(apps.size()));
    for (const LaunchableApp& app : apps)
        keys.push_back(collator.sortKey(app.name));

    std::vector<std::size_t> order(keys.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return keys[a].compare(keys[b]) < 0; });

    QList<LaunchableApp> sorted;
    sorted.reserve(apps.size());
    for (const std::size_t index : order)
        sorted.append(std::move(apps[static_cast<qsizetype>(index)]));
    apps = std::move(sorted);
}

} // namespace zelmo
