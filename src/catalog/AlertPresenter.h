#pragma once

#include <QString>
#include <QStringList>

namespace zelmo {

enum class AlertStyle { warning, informational };

// A question or a message that the user has to answer before anything else.
struct Alert {
    AlertStyle style = AlertStyle::informational;
    QString message;
    QString informativeText;
    QStringList buttons; // at least one; the first is the default
};

// Shows alerts above everything else of the program. Main thread only.
class AlertPresenter {
public:
    virtual ~AlertPresenter() = default;

    // Returns once the user has answered: the position of the button. Closing an alert, or Escape, answers with the
    // last button. Events are handled meanwhile, those of the user by the alert alone.
    virtual qsizetype runModal(const Alert& alert) = 0;
};

} // namespace zelmo
