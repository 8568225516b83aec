#pragma once

#include "catalog/ApplicationSource.h"
#include "platform/linux/freedesktop/LocaleNames.h"
#include "platform/linux/identity/ApplicationIndex.h"

#include <QByteArray>
#include <QList>

#include <functional>

namespace zelmo {

// What decides which entries there are and which of them are for this session.
struct DesktopEntrySettings {
    QList<QByteArray> applicationFolders; // absolute paths, the one whose entries count most first
    QList<QByteArray> currentDesktops;    // as `desktopNames` gives them
    QByteArray programPath;               // PATH
    LocaleNames locales = LocaleNames(LocaleVariables{});

    static DesktopEntrySettings fromEnvironment();
    // The names in a value of XDG_CURRENT_DESKTOP; what can't be a name is left out.
    static QList<QByteArray> desktopNames(const QByteArray& currentDesktop);
    // "applications" in each data folder; relative ones don't count. `dataHome` and `dataDirs` are the
    // values of the variables, empty for the defaults; `home` is the home folder.
    static QList<QByteArray> standardFolders(const QByteArray& dataHome, const QByteArray& dataDirs,
                                             const QByteArray& home);
};

// Finds the applications that .desktop files announce. An entry is known by its file's place below the
// application folder; the first folder that has a file there decides, whatever that file says. Nothing
// changes after construction, so any thread may list.
class DesktopEntrySource : public ApplicationSource {
public:
    using IndexHandler = std::function<void(ApplicationIndex)>;

    // The handler is given what was listed, on the thread that lists.
    explicit DesktopEntrySource(DesktopEntrySettings settings, IndexHandler indexHandler = {});

    ApplicationListing list() const override;

private:
    DesktopEntrySettings m_settings;
    IndexHandler m_indexHandler;
};

} // namespace zelmo
