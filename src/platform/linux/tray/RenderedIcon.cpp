#include "platform/linux/tray/RenderedIcon.h"

#include "platform/linux/x11/X11Connection.h"

namespace zelmo {

namespace {

constexpr std::uint8_t argbDepth = 32;

bool isArgb(const xcb_render_pictforminfo_t& format) {
    const xcb_render_directformat_t& direct = format.direct;
    return format.type == XCB_RENDER_PICT_TYPE_DIRECT && format.depth == argbDepth && direct.alpha_mask == 0xff &&
           direct.alpha_shift == 24 && direct.red_mask == 0xff && direct.red_shift == 16 && direct.green_mask == 0xff &&
           direct.green_shift == 8 && direct.blue_mask == 0xff && direct.blue_shift == 0;
}

} // namespace

std::optional<RenderedIcon> RenderedIcon::create(const X11Connection& connection) {
    const auto* extension = xcb_get_extension_data(connection.get(), &xcb_render_id);
    if (!extension || !extension->present)
        return std::nullopt;
    const XcbReply<xcb_render_query_version_reply_t> version(
        xcb_render_query_version_reply(connection.get(), xcb_render_query_version(connection.get(), 0, 11), nullptr));
    const XcbReply<xcb_render_query_pict_formats_reply_t> formats(xcb_render_query_pict_formats_reply(
        connection.get(), xcb_render_query_pict_formats(connection.get()), nullptr));
    if (!version || !formats)
        return std::nullopt;
    RenderedIcon icon(connection.get());
    for (auto format = xcb_render_query_pict_formats_formats_iterator(formats.get()); format.rem;
         xcb_render_pictforminfo_next(&format)) {
        if (isArgb(*format.data))
            icon.m_withAlpha = format.data->id;
    }
    for (auto screen = xcb_render_query_pict_formats_screens_iterator(formats.get()); screen.rem;
         xcb_render_pictscreen_next(&screen)) {
        for (auto depth = xcb_render_pictscreen_depths_iterator(screen.data); depth.rem;
             xcb_render_pictdepth_next(&depth)) {
            for (auto visual = xcb_render_pictdepth_visuals_iterator(depth.data); visual.rem;
                 xcb_render_pictvisual_next(&visual))
                icon.m_formats.insert(visual.data->visual, visual.data->format);
        }
    }
    if (icon.m_withAlpha == XCB_NONE)
        return std::nullopt;
    return icon;
}

void RenderedIcon::draw(xcb_window_t window, xcb_visualid_t visual, QPoint place, const QImage& image) const {
    const auto format = m_formats.constFind(visual);
    if (format == m_formats.constEnd() || image.isNull())
        return;
    const auto width = static_cast<std::uint16_t>(image.width());
    const auto height = static_cast<std::uint16_t>(image.height());
    const xcb_pixmap_t pixmap = xcb_generate_id(m_connection);
    const xcb_gcontext_t context = xcb_generate_id(m_connection);
    const xcb_render_picture_t source = xcb_generate_id(m_connection);
    const xcb_render_picture_t target = xcb_generate_id(m_connection);
    xcb_create_pixmap(m_connection, argbDepth, pixmap, window, width, height);
    xcb_create_gc(m_connection, context, pixmap, 0, nullptr);
    xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0, argbDepth,
                  static_cast<std::uint32_t>(image.sizeInBytes()), image.constBits());
    xcb_render_create_picture(m_connection, source, pixmap, m_withAlpha, 0, nullptr);
    xcb_render_create_picture(m_connection, target, window, *format, 0, nullptr);
    xcb_render_composite(m_connection, XCB_RENDER_PICT_OP_OVER, source, XCB_RENDER_PICTURE_NONE, target, 0, 0, 0, 0,
                         static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()), width, height);
    xcb_render_free_picture(m_connection, target);
    xcb_render_free_picture(m_connection, source);
    xcb_free_gc(m_connection, context);
    xcb_free_pixmap(m_connection, pixmap);
}

} // namespace zelmo
