#include "platform/linux/icons/SvgLibrary.h"

#include <QLibrary>
#include <QSizeF>

#include <librsvg/rsvg.h>

#include <memory>
#include <optional>

namespace zelmo {

namespace {

struct Functions {
    decltype(&rsvg_handle_new_from_data) newFromData = nullptr;
    decltype(&rsvg_handle_get_intrinsic_dimensions) intrinsicDimensions = nullptr;
    decltype(&rsvg_handle_get_intrinsic_size_in_pixels) intrinsicSize = nullptr;
    decltype(&rsvg_handle_render_document) render = nullptr;
    decltype(&cairo_image_surface_create_for_data) newSurface = nullptr;
    decltype(&cairo_surface_destroy) freeSurface = nullptr;
    decltype(&cairo_create) newContext = nullptr;
    decltype(&cairo_destroy) freeContext = nullptr;
    decltype(&cairo_status) status = nullptr;
    decltype(&cairo_translate) translate = nullptr;
    decltype(&cairo_scale) scale = nullptr;
    decltype(&g_object_unref) freeObject = nullptr;
};

template <typename Function>
bool resolve(QLibrary& library, Function& function, const char* name) {
    function = reinterpret_cast<Function>(library.resolve(name));
    return function != nullptr;
}

std::optional<Functions> load() {
    // Its own libraries are found through it.
    QLibrary library(QStringLiteral("rsvg-2"), 2);
    Functions found;
    if (!library.load() || !resolve(library, found.newFromData, "rsvg_handle_new_from_data") ||
        !resolve(library, found.intrinsicDimensions, "rsvg_handle_get_intrinsic_dimensions") ||
        !resolve(library, found.intrinsicSize, "rsvg_handle_get_intrinsic_size_in_pixels") ||
        !resolve(library, found.render, "rsvg_handle_render_document") ||
        !resolve(library, found.newSurface, "cairo_image_surface_create_for_data") ||
        !resolve(library, found.freeSurface, "cairo_surface_destroy") ||
        !resolve(library, found.newContext, "cairo_create") || !resolve(library, found.freeContext, "cairo_destroy") ||
        !resolve(library, found.status, "cairo_status") || !resolve(library, found.translate, "cairo_translate") ||
        !resolve(library, found.scale, "cairo_scale") || !resolve(library, found.freeObject, "g_object_unref"))
        return {};
    return found;
}

const std::optional<Functions>& functions() {
    static const std::optional<Functions> loaded = load();
    return loaded;
}

// The part of the plane that is to fill the picture.
QSizeF sizeOf(const Functions& call, RsvgHandle* handle, bool& isViewBox) {
    gboolean hasViewBox = FALSE;
    RsvgRectangle viewBox{};
    call.intrinsicDimensions(handle, nullptr, nullptr, nullptr, nullptr, &hasViewBox, &viewBox);
    isViewBox = hasViewBox != FALSE;
    if (isViewBox)
        return {viewBox.width, viewBox.height};
    double width = 0;
    double height = 0;
    return call.intrinsicSize(handle, &width, &height) ? QSizeF(width, height) : QSizeF();
}

} // namespace

QImage SvgLibrary::draw(const QByteArray& bytes, int pixels) {
    if (!functions())
        return {};
    const Functions& call = *functions();
    const std::unique_ptr<RsvgHandle, void (*)(gpointer)> handle(
        call.newFromData(reinterpret_cast<const guint8*>(bytes.constData()), static_cast<gsize>(bytes.size()), nullptr),
        call.freeObject);
    if (!handle)
        return {};
    bool isViewBox = false;
    const QSizeF size = sizeOf(call, handle.get(), isViewBox);
    if (size.isEmpty())
        return {};
    const QSizeF fitted = size.scaled(pixels, pixels, Qt::KeepAspectRatio);
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        call.newSurface(image.bits(), CAIRO_FORMAT_ARGB32, pixels, pixels, static_cast<int>(image.bytesPerLine())),
        call.freeSurface);
    bool isDrawn = false;
    {
        const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(call.newContext(surface.get()),
                                                                         call.freeContext);
        call.translate(context.get(), (pixels - fitted.width()) / 2, (pixels - fitted.height()) / 2);
        // Without a view box a picture has one size only.
        if (!isViewBox)
            call.scale(context.get(), fitted.width() / size.width(), fitted.height() / size.height());
        const QSizeF extent = isViewBox ? fitted : size;
        const RsvgRectangle viewport{0, 0, extent.width(), extent.height()};
        isDrawn = call.render(handle.get(), context.get(), &viewport, nullptr) != FALSE &&
                  call.status(context.get()) == CAIRO_STATUS_SUCCESS;
    }
    return isDrawn ? image : QImage();
}

} // namespace zelmo
