#pragma once

#include <QByteArray>
#include <QList>

#include <functional>

namespace zelmo {

// What the session's environment says of the places that icons and settings are in. A plain value,
// filled once at the start; tests fill it with folders of their own.
struct IconEnvironment {
    QByteArray home;
    QList<QByteArray> dataFolders;   // the user's own first
    QList<QByteArray> configFolders; // the user's own first
    QList<QByteArray> desktops;      // the names that the running desktop goes by

    // `variable` gives the value of an environment variable, empty when unset. Relative folders are left out.
    static IconEnvironment read(const std::function<QByteArray(const char* name)>& variable);
};

// The folders that icons are looked for in, the most important first.
struct IconFolders {
    QList<QByteArray> themed; // hold themes, and icons outside of any theme
    QList<QByteArray> plain;  // hold only icons outside of any theme

    static IconFolders of(const IconEnvironment& environment);
};

} // namespace zelmo
