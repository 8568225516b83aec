#pragma once

#include "preferences/Preferences.h"

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

class SharedApplication;

// The section of the program's own icon, with the preview of the wall's background below it. Owned by the form; main
// thread.
class AppIconSettings : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the form")
    Q_PROPERTY(QStringList titles READ titles CONSTANT)
    Q_PROPERTY(int index READ index NOTIFY indexChanged)
    // Stops of the diagonal gradient.
    Q_PROPERTY(QList<QColor> previewColors READ previewColors NOTIFY previewChanged)
    // The background has no colours of its own: what lies behind it shows through a material.
    Q_PROPERTY(bool previewIsCovered READ previewIsCovered NOTIFY previewChanged)
    Q_PROPERTY(QString previewCaption READ previewCaption NOTIFY previewChanged)

public:
    static constexpr int iconPoints = 256;

    // Both outlive it.
    AppIconSettings(Preferences& preferences, SharedApplication& application, QObject* parent);

    QStringList titles() const;
    int index() const;
    // Stores the style of that place and has the desktop show its icon. Does nothing where there is none.
    Q_INVOKABLE void choose(int index);

    QList<QColor> previewColors() const;
    bool previewIsCovered() const;
    QString previewCaption() const;

Q_SIGNALS:
    void indexChanged();
    void previewChanged();

private:
    Preferences& m_preferences;
    SharedApplication& m_application;
};

} // namespace zelmo
