#pragma once

#include "catalog/AlertPresenter.h"

namespace zelmo {

// What the user is asked before applications go to the Trash. The first button agrees. `names` has at least one.
Alert uninstallQuestion(const QStringList& names);

// What the user is told about those that could not be moved. `names` has at least one.
Alert uninstallFailure(const QStringList& names);

} // namespace zelmo
