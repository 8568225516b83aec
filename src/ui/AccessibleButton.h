#pragma once

namespace zelmo {

// From here on, screen readers are told of a button whether it can be used. The toolkit's own description of an item
// leaves that out. It counts for items of QML types with a property `tellsWhetherEnabled` that set `Accessible.role` to
// a button; they have no accessible parts of their own.
void installAccessibleButtons();

} // namespace zelmo
