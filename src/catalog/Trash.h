#pragma once

#include "catalog/FileUrl.h"

namespace zelmo {

enum class TrashResult { moved, refused };

// The desktop's Trash, from which the user can restore what was moved there. Main thread only.
class Trash {
public:
    virtual ~Trash() = default;

    // Moves a file, a folder with all that is in it, or a link itself. All of it is in the Trash afterwards, or
    // it is refused and stays where it was. Waits until that is done.
    virtual TrashResult moveToTrash(const FileUrl& item) = 0;
};

} // namespace zelmo
