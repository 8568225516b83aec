#include "support/ScreenShape.h"

#include <cstdlib>
#include <memory>
#include <xcb/randr.h>

namespace zelmo::test {

namespace {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, FreeDeleter>;

struct Resources {
    explicit Resources(const XDisplay& display)
        : reply(xcb_randr_get_screen_resources_reply(
              display.connection(), xcb_randr_get_screen_resources(display.connection(), display.root()), nullptr)) {
        if (!reply || xcb_randr_get_screen_resources_outputs_length(reply.get()) == 0 ||
            xcb_randr_get_screen_resources_crtcs_length(reply.get()) == 0)
            qFatal("the X server has no output");
    }
    xcb_randr_output_t output() const { return *xcb_randr_get_screen_resources_outputs(reply.get()); }
    xcb_randr_crtc_t controller() const { return *xcb_randr_get_screen_resources_crtcs(reply.get()); }

    Owned<xcb_randr_get_screen_resources_reply_t> reply;
};

void setMode(const XDisplay& display, const Resources& resources, xcb_randr_mode_t mode) {
    const xcb_randr_output_t output = resources.output();
    const auto cookie = xcb_randr_set_crtc_config(
        display.connection(), resources.controller(), XCB_CURRENT_TIME, resources.reply->config_timestamp, 0, 0, mode,
        XCB_RANDR_ROTATION_ROTATE_0, mode == XCB_NONE ? 0 : 1, mode == XCB_NONE ? nullptr : &output);
    const Owned<xcb_randr_set_crtc_config_reply_t> reply(
        xcb_randr_set_crtc_config_reply(display.connection(), cookie, nullptr));
    if (!reply || reply->status != XCB_RANDR_SET_CONFIG_SUCCESS)
        qFatal("the X server takes no other mode");
}

// The one with this size, made when there is none.
xcb_randr_mode_t modeFor(const XDisplay& display, const Resources& resources, QSize size) {
    for (auto mode = xcb_randr_get_screen_resources_modes_iterator(resources.reply.get()); mode.rem > 0;
         xcb_randr_mode_info_next(&mode)) {
        if (QSize(mode.data->width, mode.data->height) == size)
            return mode.data->id;
    }
    const QByteArray name = QByteArray::number(size.width()) + 'x' + QByteArray::number(size.height());
    xcb_randr_mode_info_t info{};
    info.width = info.htotal = static_cast<std::uint16_t>(size.width());
    info.height = info.vtotal = static_cast<std::uint16_t>(size.height());
    info.name_len = static_cast<std::uint16_t>(name.size());
    const Owned<xcb_randr_create_mode_reply_t> reply(xcb_randr_create_mode_reply(
        display.connection(),
        xcb_randr_create_mode(display.connection(), display.root(), info, info.name_len, name.constData()), nullptr));
    if (!reply)
        qFatal("the X server makes no mode");
    xcb_randr_add_output_mode(display.connection(), resources.output(), reply->mode);
    return reply->mode;
}

} // namespace

void resizeScreen(const XDisplay& display, QSize size) {
    const Resources resources(display);
    const xcb_randr_mode_t mode = modeFor(display, resources, size);
    // A mode has to fit into the screen, and a screen around its mode.
    setMode(display, resources, XCB_NONE);
    xcb_randr_set_screen_size(display.connection(), display.root(), static_cast<std::uint16_t>(size.width()),
                              static_cast<std::uint16_t>(size.height()), static_cast<std::uint32_t>(size.width() / 4),
                              static_cast<std::uint32_t>(size.height() / 4));
    setMode(display, Resources(display), mode);
    display.synchronize();
}

} // namespace zelmo::test
