#pragma once

#include "menubar/StatusItem.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

class LauncherStore;
class Preferences;
class SharedApplication;

// The five things that can be done from the menu bar, with their titles: what the panel shows as controls, and a host
// that draws only menus as a menu. Owned by the menu-bar extra; main thread.
class MenuBarActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made at start-up")

    Q_PROPERTY(QString overlayTitle READ overlayTitle NOTIFY overlayTitleChanged)
    Q_PROPERTY(QString openAtLoginLaterTitle READ openAtLoginLaterTitle CONSTANT)
    Q_PROPERTY(QString refreshTitle READ refreshTitle CONSTANT)
    Q_PROPERTY(QString settingsTitle READ settingsTitle CONSTANT)
    Q_PROPERTY(QString quitTitle READ quitTitle CONSTANT)
    Q_PROPERTY(bool openAtLoginLater READ openAtLoginLater WRITE setOpenAtLoginLater NOTIFY openAtLoginLaterChanged)

public:
    // All of them outlive it.
    MenuBarActions(LauncherStore& store, Preferences& preferences, SharedApplication& application);

    QString overlayTitle() const;
    static QString openAtLoginLaterTitle() { return QStringLiteral("Open At Login Later"); }
    static QString refreshTitle() { return QStringLiteral("Refresh Apps"); }
    static QString settingsTitle() { return QStringLiteral("Settings"); }
    static QString quitTitle() { return QStringLiteral("Quit Zelmo"); }

    bool openAtLoginLater() const;
    // Stored and no more: nothing registers the program to be opened at login.
    void setOpenAtLoginLater(bool opens);

    Q_INVOKABLE void toggleOverlay();
    Q_INVOKABLE void refresh();
    Q_INVOKABLE void showSettings();
    Q_INVOKABLE void quit();

    QList<StatusMenuEntry> menu();

Q_SIGNALS:
    void overlayTitleChanged();
    void openAtLoginLaterChanged();

private:
    LauncherStore& m_store;
    Preferences& m_preferences;
    SharedApplication& m_application;
};

} // namespace zelmo
