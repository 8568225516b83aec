#pragma once

#include "catalog/AppScanner.h"
#include "catalog/AppUsage.h"
#include "catalog/LaunchableApp.h"
#include "catalog/NameSearch.h"
#include "catalog/RunningApplication.h"

#include <QObject>
#include <QSet>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace zelmo {

class AlertPresenter;
class ApplicationLauncher;
class FolderWatcher;
class Overlay;
class Preferences;
class RescanTimer;
class Trash;
class Workspace;
class LauncherStore;

// What the store needs of the world around it. All of it outlives the store.
struct LauncherServices {
    Preferences& preferences;
    Workspace& workspace;
    ApplicationLauncher& launcher;
    Trash& trash;
    AlertPresenter& alerts;
    FolderWatcher& folderWatcher;
    // Makes the wall's window, the first time that it is shown.
    std::function<std::unique_ptr<Overlay>(LauncherStore&)> makeOverlay;
    // Brings the settings window to the front.
    std::function<void()> showSettingsWindow;
    UsageClocks usageClocks = UsageClocks::system();
};

// The program's central model: the catalog, the filter, the selection and whether the wall is up.
// One instance for the process, made at start-up; it lives on the main thread, and only its scans
// run elsewhere. `willChange` comes before each change of a property, the property's own signal after it.
class LauncherStore : public QObject {
    Q_OBJECT
    Q_PROPERTY(zelmo::AppCategory selectedCategory READ selectedCategory WRITE setSelectedCategory NOTIFY
                   selectedCategoryChanged)
    Q_PROPERTY(bool showsMostUsed READ showsMostUsed WRITE setShowsMostUsed NOTIFY showsMostUsedChanged)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(bool overlayIsVisible READ overlayIsVisible NOTIFY overlayIsVisibleChanged)
    Q_PROPERTY(bool isEditingApps READ isEditingApps WRITE setIsEditingApps NOTIFY isEditingAppsChanged)
    // How long views take to go over to the change that is being announced, in milliseconds; 0: at once.
    Q_PROPERTY(int changeDuration READ changeDuration NOTIFY changeDurationChanged)
    Q_PROPERTY(int selectionCount READ selectionCount NOTIFY selectedAppIDsChanged)

public:
    static constexpr std::chrono::seconds usageFlushInterval{30};
    static constexpr std::chrono::milliseconds removalDuration{180};

    LauncherStore(AppScanner scanner, LauncherServices services, const QLocale& locale = QLocale::system());
    ~LauncherStore() override;

    const QList<LaunchableApp>& apps() const { return m_apps; }
    AppCategory selectedCategory() const { return m_selectedCategory; }
    bool showsMostUsed() const { return m_showsMostUsed; }
    const QString& searchText() const { return m_searchText; }
    bool overlayIsVisible() const { return m_overlayIsVisible; }
    bool isEditingApps() const { return m_isEditingApps; }
    const QSet<FileUrl>& selectedAppIDs() const { return m_selectedAppIDs; }
    int changeDuration() const { return m_changeDuration; }
    int selectionCount() const { return static_cast<int>(m_selectedAppIDs.size()); }

    void setSelectedCategory(AppCategory category);
    void setShowsMostUsed(bool shows);
    void setSearchText(const QString& text);
    void setIsEditingApps(bool editing);

    // Scans in the background and publishes what was found. Overlapping refreshes all run; the last to end wins.
    Q_INVOKABLE void refresh();

    // What the wall shows, in order: the Most Used ranking or the selected category, narrowed by the
    // search text. Blanks around the text count as part of it, but blanks alone do not narrow.
    QList<LaunchableApp> visibleApps() const;

    Q_INVOKABLE void toggleSelection(const zelmo::LaunchableApp& app);

    // While the user is asked about uninstalling, nothing shows, toggles or asks again.
    void showOverlay();
    // Hides without giving the focus to anyone: who toggles may be about to do something else.
    void toggleOverlay();
    // Hides and gives the focus back to the application that had it when the wall was shown.
    Q_INVOKABLE void hideOverlay();
    // Starts the application, which takes the focus, and hides the wall; does nothing while apps are being edited.
    Q_INVOKABLE void launch(const zelmo::LaunchableApp& app);
    // Hides the wall and shows the settings window once that is done.
    Q_INVOKABLE void showSettings();

    // Asks the user and moves the selected apps to the Trash. What was moved stays hidden from then on, also when
    // something of the same path comes back; what could not be moved stays selected.
    Q_INVOKABLE void hideSelectedAppsFromLauncher();
    // Forgets which apps are hidden; those that are still there appear with the scan that this starts.
    Q_INVOKABLE void restoreHiddenApps();
    // Leaves edit mode with nothing selected.
    Q_INVOKABLE void finishEditing();

    // A line such as "3 launches" or "2h 5m active"; nothing for an app without a record of use.
    std::optional<QString> usageSummary(const LaunchableApp& app) const { return m_usage.usageSummary(app); }

Q_SIGNALS:
    void willChange();
    void appsChanged();
    void selectedCategoryChanged();
    void showsMostUsedChanged();
    void searchTextChanged();
    void overlayIsVisibleChanged();
    void isEditingAppsChanged();
    void selectedAppIDsChanged();
    void changeDurationChanged();
    // On the thread of a scan.
    void scanEnded(QPrivateSignal);

private:
    template <typename Value>
    void publish(Value& property, Value value, void (LauncherStore::*changed)());
    void publishEndedScans();
    void publishScan(ScanResult result);
    void loadHiddenApps();
    void saveHiddenApps();
    void setupApplicationUsageTracking();
    void uninstallApps(const QList<LaunchableApp>& list);
    void removeApps(const QSet<FileUrl>& ids);
    void putOverlayAway();
    const NameSearch& nameSearch() const;

    AppScanner m_scanner;
    LauncherServices m_services;
    QLocale m_locale;
    QList<LaunchableApp> m_apps;
    AppCategory m_selectedCategory = AppCategory::all;
    bool m_showsMostUsed = false;
    QString m_searchText;
    bool m_overlayIsVisible = false;
    bool m_isEditingApps = false;
    QSet<FileUrl> m_selectedAppIDs;
    int m_changeDuration = 0;
    bool m_isUninstalling = false;
    std::unique_ptr<Overlay> m_overlay;
    std::optional<RunningApplication> m_previousFrontmostApp;
    AppUsage m_usage;
    QTimer m_usageFlushTimer;
    QSet<QString> m_hiddenAppPaths;
    QList<FileUrl> m_watchedFolders;
    mutable std::optional<NameSearch> m_nameSearch; // of m_apps, made when first asked for
    std::unique_ptr<RescanTimer> m_rescanTimer;
    std::mutex m_endedScansLock;
    std::vector<ScanResult> m_endedScans; // in the order in which they ended
    QThreadPool m_scanThreads;            // last: its tasks end before anything they use
};

} // namespace zelmo
