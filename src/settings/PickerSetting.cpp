#include "settings/PickerSetting.h"

namespace zelmo {

void PickerSetting::setIndex(int index) {
    if (index >= 0 && index < m_rows.size())
        m_write(index);
}

} // namespace zelmo
