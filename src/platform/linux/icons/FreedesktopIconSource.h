#pragma once

#include "platform/linux/icons/IconThemeIndex.h"
#include "ui/IconSource.h"

#include <memory>

namespace zelmo {

// Finds an application's icon in its bundle, at its path or in the icon themes, and decodes it. Owned
// by the application's construction code. Several threads may ask at once: they share the index,
// which guards itself, and nothing else.
class FreedesktopIconSource : public IconSource {
public:
    explicit FreedesktopIconSource(std::unique_ptr<IconThemeIndex> index);

    QImage icon(const AppIcon& icon, int points, double scale) const override;

private:
    QImage themedIcon(const QByteArray& name, int points, double scale, int pixels) const;

    const std::unique_ptr<IconThemeIndex> m_index;
};

} // namespace zelmo
