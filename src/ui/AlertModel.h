#pragma once

#include "catalog/AlertPresenter.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

// One alert as its view sees it. Lives as long as the alert is shown; main thread.
class AlertModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its alert")
    Q_PROPERTY(bool isWarning READ isWarning CONSTANT)
    Q_PROPERTY(QString message READ message CONSTANT)
    Q_PROPERTY(QString informativeText READ informativeText CONSTANT)
    Q_PROPERTY(QStringList buttons READ buttons CONSTANT)

public:
    explicit AlertModel(Alert alert) : m_alert(std::move(alert)) {}

    bool isWarning() const { return m_alert.style == AlertStyle::warning; }
    const QString& message() const { return m_alert.message; }
    const QString& informativeText() const { return m_alert.informativeText; }
    const QStringList& buttons() const { return m_alert.buttons; }

Q_SIGNALS:
    // The position of the button.
    void answered(int button);
    // Closed without pressing one.
    void dismissed();

private:
    Alert m_alert;
};

} // namespace zelmo
