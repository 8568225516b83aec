#pragma once

#include "catalog/AlertPresenter.h"

namespace zelmo {

// Shows each alert in a window of its own in the middle of the wall, or of the screen where no window of the program
// is up, and handles events until it is answered. Stateless; main thread.
class AlertWindowPresenter : public AlertPresenter {
public:
    qsizetype runModal(const Alert& alert) override;
};

} // namespace zelmo
