#pragma once

#include <QImage>
#include <QRasterWindow>

#include <array>

namespace zelmo {

// A picture of the wall in a window of its own, which can be any size without anything in it being laid out again. It
// takes neither clicks nor keys, and no window manager places it. Owned by the animation; main thread.
class CollapseWindow : public QRasterWindow {
    Q_OBJECT

public:
    CollapseWindow();

    // None ends the memory that it takes.
    void setPicture(const QImage& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // Whole and, to be drawn small quickly, a half and a quarter as large.
    std::array<QImage, 3> m_pictures;
};

} // namespace zelmo
