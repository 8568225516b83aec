#include "catalog/LauncherStore.h"

#include "catalog/AlertPresenter.h"
#include "catalog/ApplicationLauncher.h"
#include "catalog/CatalogLog.h"
#include "catalog/FolderWatcher.h"
#include "catalog/MostUsedRanking.h"
#include "catalog/Overlay.h"
#include "catalog/RescanTimer.h"
#include "catalog/Trash.h"
#include "catalog/UninstallAlerts.h"
#include "catalog/Workspace.h"
#include "preferences/Preferences.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

namespace zelmo {

Q_LOGGING_CATEGORY(catalogLog, "zelmo.catalog", QtWarningMsg)

LauncherStore::LauncherStore(AppScanner scanner, LauncherServices services, const QLocale& locale)
    : m_scanner(std::move(scanner)), m_services(std::move(services)), m_locale(locale),
      m_usage(m_services.preferences, QCoreApplication::applicationPid(), m_services.usageClocks),
      m_usageFlushTimer(this), m_rescanTimer(std::make_unique<RescanTimer>([this] { refresh(); })),
      m_scanThreads(this) {
    loadHiddenApps();
    setupApplicationUsageTracking();
    m_services.folderWatcher.setChangeHandler([this] { m_rescanTimer->noteChange(); });
    connect(this, &LauncherStore::scanEnded, this, &LauncherStore::publishEndedScans, Qt::QueuedConnection);
    QMetaObject::invokeMethod(this, &LauncherStore::refresh, Qt::QueuedConnection);
}

LauncherStore::~LauncherStore() {
    m_services.workspace.setActivationHandler({});
    m_services.folderWatcher.setChangeHandler({});
    m_scanThreads.waitForDone();
}

template <typename Value>
void LauncherStore::publish(Value& property, Value value, void (LauncherStore::*changed)()) {
    if (property == value)
        return;
    Q_EMIT willChange();
    property = std::move(value);
    Q_EMIT(this->*changed)();
}

void LauncherStore::setSelectedCategory(AppCategory category) {
    publish(m_selectedCategory, category, &LauncherStore::selectedCategoryChanged);
}

void LauncherStore::setShowsMostUsed(bool shows) {
    publish(m_showsMostUsed, shows, &LauncherStore::showsMostUsedChanged);
}

void LauncherStore::setSearchText(const QString& text) {
    publish(m_searchText, text, &LauncherStore::searchTextChanged);
}

void LauncherStore::setIsEditingApps(bool editing) {
    publish(m_isEditingApps, editing, &LauncherStore::isEditingAppsChanged);
}

void LauncherStore::refresh() {
    m_scanThreads.start([this] {
        ScanResult result = m_scanner.scan();
        {
            const std::scoped_lock lock(m_endedScansLock);
            m_endedScans.push_back(std::move(result));
        }
        Q_EMIT scanEnded({});
    });
}

void LauncherStore::publishEndedScans() {
    std::vector<ScanResult> ended;
    {
        const std::scoped_lock lock(m_endedScansLock);
        ended.swap(m_endedScans);
    }
    for (ScanResult& result : ended)
        publishScan(std::move(result));
}

void LauncherStore::publishScan(ScanResult result) {
    // By what is hidden now: more may have gone to the Trash since the scan began.
    if (!m_hiddenAppPaths.isEmpty())
        result.apps.removeIf([this](const LaunchableApp& app) { return m_hiddenAppPaths.contains(app.url.path()); });
    qCInfo(catalogLog, "%lld applications found", static_cast<long long>(result.apps.size()));
    if (m_watchedFolders != result.watchedFolders) {
        m_watchedFolders = result.watchedFolders;
        m_services.folderWatcher.setFolders(m_watchedFolders);
        // What came between the scan and the watch is found by another scan.
        m_rescanTimer->noteChange();
    }
    if (m_apps == result.apps)
        return;
    Q_EMIT willChange();
    m_apps = std::move(result.apps);
    m_nameSearch.reset();
    Q_EMIT appsChanged();
}

QList<LaunchableApp> LauncherStore::visibleApps() const {
    const bool narrows = !m_searchText.trimmed().isEmpty();
    if (!narrows && !m_showsMostUsed && m_selectedCategory == AppCategory::all)
        return m_apps;

    QList<LaunchableApp> visible;
    std::vector<bool> matches;
    if (narrows) {
        matches.resize(static_cast<std::size_t>(m_apps.size()));
        const auto found = nameSearch().find(m_searchText);
        for (const qsizetype position : found)
            matches[static_cast<std::size_t>(position)] = true;
        visible.reserve(static_cast<qsizetype>(found.size()));
    }
    const auto take = [&](qsizetype position) {
        if (!narrows || matches[static_cast<std::size_t>(position)])
            visible.append(m_apps[position]);
    };
    if (m_showsMostUsed) {
        for (const qsizetype position : mostUsedRanking(m_apps, m_usage.records()))
            take(position);
    } else {
        for (qsizetype position = 0; position < m_apps.size(); ++position) {
            if (m_selectedCategory == AppCategory::all || m_apps[position].category == m_selectedCategory)
                take(position);
        }
    }
    return visible;
}

void LauncherStore::toggleSelection(const LaunchableApp& app) {
    QSet<FileUrl> selected = m_selectedAppIDs;
    if (!selected.remove(app.id))
        selected.insert(app.id);
    publish(m_selectedAppIDs, std::move(selected), &LauncherStore::selectedAppIDsChanged);
}

void LauncherStore::showOverlay() {
    if (m_isUninstalling)
        return;
    if (!m_overlay)
        m_overlay = m_services.makeOverlay(*this);
    if (!m_overlayIsVisible) {
        // In front may be this program itself, as with its menu open; the one before it is still the one to go back to.
        auto frontmost = m_services.workspace.frontmostApplication();
        if (!frontmost || frontmost->processIdentifier != QCoreApplication::applicationPid())
            m_previousFrontmostApp = std::move(frontmost);
    }
    m_overlay->show();
    publish(m_overlayIsVisible, true, &LauncherStore::overlayIsVisibleChanged);
}

void LauncherStore::toggleOverlay() {
    if (m_isUninstalling)
        return;
    if (!m_overlayIsVisible) {
        showOverlay();
        return;
    }
    putOverlayAway();
    m_previousFrontmostApp.reset();
}

void LauncherStore::hideOverlay() {
    putOverlayAway();
    if (m_previousFrontmostApp)
        m_services.workspace.activate(*m_previousFrontmostApp);
    m_previousFrontmostApp.reset();
}

void LauncherStore::launch(const LaunchableApp& app) {
    if (m_isEditingApps)
        return;
    // Counted before it is asked for: a launch that fails still counts.
    m_usage.recordLaunch(app);
    m_services.launcher.openApplication(app.url);
    putOverlayAway();
    m_previousFrontmostApp.reset();
}

void LauncherStore::showSettings() {
    putOverlayAway();
    m_previousFrontmostApp.reset();
    QMetaObject::invokeMethod(
        this, [this] { m_services.showSettingsWindow(); }, Qt::QueuedConnection);
}

void LauncherStore::hideSelectedAppsFromLauncher() {
    QList<LaunchableApp> selected = m_apps;
    selected.removeIf([this](const LaunchableApp& app) { return !m_selectedAppIDs.contains(app.id); });
    uninstallApps(selected);
}

void LauncherStore::restoreHiddenApps() {
    m_hiddenAppPaths.clear();
    saveHiddenApps();
    m_services.preferences.flush();
    refresh();
}

void LauncherStore::uninstallApps(const QList<LaunchableApp>& list) {
    // The alerts and the Trash let events be handled meanwhile.
    if (list.isEmpty() || m_isUninstalling)
        return;
    const QScopedValueRollback guard(m_isUninstalling, true);
    QStringList names;
    for (const LaunchableApp& app : list)
        names.append(app.name);
    if (m_services.alerts.runModal(uninstallQuestion(names)) != 0)
        return;

    QSet<FileUrl> removed;
    QStringList failures;
    for (const LaunchableApp& app : list) {
        if (m_services.trash.moveToTrash(app.url) == TrashResult::moved) {
            m_hiddenAppPaths.insert(app.url.path());
            m_usage.forget(app.url.path());
            removed.insert(app.id);
        } else {
            failures.append(app.name);
        }
    }
    // Both reach the disk together. An end of the program before then loses nothing that counts: what is in the
    // Trash already is found by no scan.
    saveHiddenApps();
    m_usage.saveUsageRecords();
    removeApps(removed);
    if (!failures.isEmpty())
        m_services.alerts.runModal(uninstallFailure(failures));
    if (visibleApps().isEmpty() || m_selectedAppIDs.isEmpty())
        finishEditing();
}

void LauncherStore::removeApps(const QSet<FileUrl>& ids) {
    if (ids.isEmpty())
        return;
    publish(m_changeDuration, static_cast<int>(removalDuration.count()), &LauncherStore::changeDurationChanged);
    Q_EMIT willChange();
    m_apps.removeIf([&](const LaunchableApp& app) { return ids.contains(app.id); });
    m_nameSearch.reset();
    Q_EMIT appsChanged();
    publish(m_selectedAppIDs, QSet(m_selectedAppIDs).subtract(ids), &LauncherStore::selectedAppIDsChanged);
    publish(m_changeDuration, 0, &LauncherStore::changeDurationChanged);
}

void LauncherStore::setupApplicationUsageTracking() {
    m_usage.trackActiveApplication(m_services.workspace.frontmostApplication());
    m_services.workspace.setActivationHandler([this](const std::optional<RunningApplication>& application) {
        // On a turn of its own: it stores records, which need not hold up what the switch led to.
        QMetaObject::invokeMethod(
            this, [this, application] { m_usage.trackActiveApplication(application); }, Qt::QueuedConnection);
    });
    m_usageFlushTimer.setObjectName(QStringLiteral("usageFlushTimer"));
    connect(&m_usageFlushTimer, &QTimer::timeout, this, [this] { m_usage.flushActiveAppUsage(); });
    m_usageFlushTimer.start(usageFlushInterval);
}

void LauncherStore::loadHiddenApps() {
    const QStringList paths = m_services.preferences.value<PreferenceKey::hiddenAppPaths>();
    m_hiddenAppPaths = QSet<QString>(paths.cbegin(), paths.cend());
}

void LauncherStore::saveHiddenApps() {
    QStringList paths(m_hiddenAppPaths.cbegin(), m_hiddenAppPaths.cend());
    paths.sort();
    m_services.preferences.setValue<PreferenceKey::hiddenAppPaths>(paths);
}

void LauncherStore::finishEditing() {
    setIsEditingApps(false);
    publish(m_selectedAppIDs, {}, &LauncherStore::selectedAppIDsChanged);
}

// What every way to hidden has in common.
void LauncherStore::putOverlayAway() {
    finishEditing();
    if (m_overlay)
        m_overlay->hide();
    publish(m_overlayIsVisible, false, &LauncherStore::overlayIsVisibleChanged);
}

const NameSearch& LauncherStore::nameSearch() const {
    if (!m_nameSearch)
        m_nameSearch.emplace(m_apps, m_locale);
    return *m_nameSearch;
}

} // namespace zelmo
