#pragma once

#include "catalog/AlertPresenter.h"
#include "catalog/ApplicationLauncher.h"
#include "catalog/ApplicationSource.h"
#include "catalog/FolderWatcher.h"
#include "catalog/LauncherStore.h"
#include "catalog/Overlay.h"
#include "catalog/Trash.h"
#include "catalog/Workspace.h"
#include "preferences/Preferences.h"
#include "preferences/PreferencesStorage.h"

#include <QMutex>
#include <QTest>

namespace zelmo::test {

class FakeStorage : public PreferencesStorage {
public:
    PreferenceValues read() override { return values; }
    bool write(const PreferenceValues& changes) override {
        for (auto it = changes.cbegin(); it != changes.cend(); ++it)
            values.insert(it.key(), it.value());
        return true;
    }
    void setOutsideChangeHandler(std::function<void()>) override {}

    PreferenceValues values;
};

// Notes whom the store brings to the front.
class FakeWorkspace : public Workspace {
public:
    explicit FakeWorkspace(QStringList& log) : m_log(log) {}
    std::optional<RunningApplication> frontmostApplication() const override { return frontmost; }
    void setActivationHandler(ActivationHandler handler) override { activated = std::move(handler); }
    void activate(const RunningApplication& application) override {
        m_log.append(QStringLiteral("activate %1").arg(application.processIdentifier));
    }

    std::optional<RunningApplication> frontmost;
    ActivationHandler activated;

private:
    QStringList& m_log;
};

class FakeLauncher : public ApplicationLauncher {
public:
    explicit FakeLauncher(QStringList& log) : m_log(log) {}
    void openApplication(const FileUrl& application) override { m_log.append(u"open " + application.path()); }

private:
    QStringList& m_log;
};

// Notes what goes to the Trash, and refuses what it is told to.
class FakeTrash : public Trash {
public:
    explicit FakeTrash(QStringList& log) : m_log(log) {}
    TrashResult moveToTrash(const FileUrl& item) override {
        m_log.append(u"trash " + item.path());
        return refused.contains(item.path()) ? TrashResult::refused : TrashResult::moved;
    }

    QStringList refused;

private:
    QStringList& m_log;
};

// Answers every alert with the same button and keeps what was asked.
class FakeAlerts : public AlertPresenter {
public:
    explicit FakeAlerts(QStringList& log) : m_log(log) {}
    qsizetype runModal(const Alert& alert) override {
        m_log.append(u"alert " + alert.message);
        shown.append(alert);
        if (meanwhile)
            meanwhile();
        return answer;
    }

    QList<Alert> shown;
    qsizetype answer = 0;
    std::function<void()> meanwhile; // while the alert is shown

private:
    QStringList& m_log;
};

class FakeFolderWatcher : public FolderWatcher {
public:
    void setFolders(const QList<FileUrl>& list) override { folders = list; }
    void setChangeHandler(std::function<void()> handler) override { change = std::move(handler); }

    QList<FileUrl> folders;
    std::function<void()> change;
};

// Notes what the store asks of its wall.
class FakeOverlay : public Overlay {
public:
    explicit FakeOverlay(QStringList& log) : m_log(log) {}
    void show() override { m_log.append(QStringLiteral("show")); }
    void hide() override { m_log.append(QStringLiteral("hide")); }

private:
    QStringList& m_log;
};

// Scans ask on threads of their own.
class FakeInstalled {
public:
    void set(const QList<FoundApplication>& applications) {
        const QMutexLocker guard(&m_lock);
        m_applications = applications;
    }
    // No scan ends as long as this is kept.
    [[nodiscard]] QMutexLocker<QMutex> holdScans() { return QMutexLocker(&m_lock); }
    QList<FoundApplication> scan() {
        const QMutexLocker guard(&m_lock);
        ++m_scans;
        return m_applications;
    }
    int scans() const {
        const QMutexLocker guard(&m_lock);
        return m_scans;
    }

private:
    mutable QMutex m_lock;
    QList<FoundApplication> m_applications;
    int m_scans = 0;
};

class FakeSource : public ApplicationSource {
public:
    explicit FakeSource(FakeInstalled& installed) : m_installed(installed) {}
    ApplicationListing list() const override {
        return {m_installed.scan(), {FileUrl::fromPath(QStringLiteral("/Applications"))}};
    }

private:
    FakeInstalled& m_installed;
};

inline FoundApplication found(const QString& name, const char* categoryType = nullptr) {
    return {.url = FileUrl::fromPath(QStringLiteral("/Applications/") + name + QStringLiteral(".app")),
            .name = name,
            .categoryType = categoryType ? std::optional(QString::fromLatin1(categoryType)) : std::nullopt,
            .icon = {}};
}

inline QStringList names(const QList<LaunchableApp>& apps) {
    QStringList list;
    for (const LaunchableApp& app : apps)
        list.append(app.name);
    return list;
}

// A store on fakes.
class StoreFixture {
public:
    explicit StoreFixture(const QList<FoundApplication>& applications = {}, const PreferenceValues& values = {},
                          const QLocale& locale = QLocale(QLocale::English),
                          const std::optional<RunningApplication>& frontmost = std::nullopt) {
        workspace.frontmost = frontmost;
        installed.set(applications);
        storage.values = values;
        preferences = std::make_unique<Preferences>(storage);
        std::vector<std::unique_ptr<ApplicationSource>> sources;
        sources.push_back(std::make_unique<FakeSource>(installed));
        store = std::make_unique<LauncherStore>(
            AppScanner(std::move(sources), locale),
            LauncherServices{.preferences = *preferences,
                             .workspace = workspace,
                             .launcher = launcher,
                             .trash = trash,
                             .alerts = alerts,
                             .folderWatcher = folderWatcher,
                             .makeOverlay =
                                 [this](LauncherStore&) {
                                     ++overlaysMade;
                                     return std::make_unique<FakeOverlay>(log);
                                 },
                             .showSettingsWindow = [this] { log.append(QStringLiteral("settings")); },
                             .usageClocks = {.now = [this] { return date; }, .seconds = [this] { return seconds; }}},
            locale);
    }

    // The first scan and the one that follows once its folders are watched are over.
    bool waitForRest() {
        const bool bothBegan = QTest::qWaitFor([this] { return installed.scans() >= 2; });
        // What they found is still to be published.
        store->findChild<QThreadPool*>()->waitForDone();
        QCoreApplication::processEvents();
        return bothBegan;
    }

    FakeInstalled installed;
    FakeStorage storage;
    QStringList log; // what the services were asked, in order
    FakeWorkspace workspace{log};
    FakeLauncher launcher{log};
    FakeTrash trash{log};
    FakeAlerts alerts{log};
    FakeFolderWatcher folderWatcher;
    ReferenceDate date = 800000000;
    double seconds = 1000;
    int overlaysMade = 0;
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<LauncherStore> store;
};

} // namespace zelmo::test
