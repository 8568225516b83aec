#pragma once

#include <QImage>

namespace zelmo {

// A picture of an undefined content, as RGB32, whose memory is taken in large pages where the system has them and goes
// back to the system with the picture: the picture of a screen is too large for its memory to stay with the program,
// and half of the time to make it would be the time to take the memory page by page. Null when there is none.
QImage makeLargePicture(QSize size);

} // namespace zelmo
