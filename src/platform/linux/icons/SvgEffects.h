#pragma once

#include <QByteArray>

#include <optional>

namespace zelmo {

// What a vector picture asks for beyond plain outlines and gradients: masks, filters, clip paths and the
// like. Tells whether it has them at all and what drawing them costs, so that a picture that would take
// long or much memory is drawn without. Keeps nothing; may be used on several threads.
class SvgEffects {
public:
    // The picture is one that SvgGuard accepts.
    static SvgEffects read(const QByteArray& bytes);

    bool areWanted() const { return m_areWanted; }
    bool canBeDrawn(int pixels) const;

private:
    class Reading;

    bool m_areWanted = false;
    std::optional<qint64> m_paint; // nanoseconds for each pixel; none when there is no telling
};

} // namespace zelmo
