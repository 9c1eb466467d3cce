// SPDX-License-Identifier: MIT
#include "platform/x11/X11Modes.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>

namespace scenara {
namespace {

// The first version that knows the primary output and modes as they are now.
constexpr std::uint32_t kMajor = 1;
constexpr std::uint32_t kMinor = 3;

struct Release {
    void operator()(void* reply) const { std::free(reply); }  // NOLINT: what the library allocates
};
template <typename T>
using Reply = std::unique_ptr<T, Release>;

using Resources = Reply<xcb_randr_get_screen_resources_current_reply_t>;

Resources AskForResources(xcb_connection_t* connection, xcb_window_t root) {
    return Resources(xcb_randr_get_screen_resources_current_reply(
        connection, xcb_randr_get_screen_resources_current(connection, root), nullptr));
}

Reply<xcb_randr_get_output_info_reply_t> AskForOutput(xcb_connection_t* connection,
                                                      xcb_randr_output_t output,
                                                      const Resources& resources) {
    return Reply<xcb_randr_get_output_info_reply_t>(xcb_randr_get_output_info_reply(
        connection, xcb_randr_get_output_info(connection, output, resources->config_timestamp),
        nullptr));
}

xcb_screen_t* ScreenNumber(xcb_connection_t* connection, int number) {
    xcb_screen_iterator_t screen = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screen.rem > 0; xcb_screen_next(&screen)) {
        if (number-- == 0) {
            return screen.data;
        }
    }
    return nullptr;
}

bool HasRandr(xcb_connection_t* connection) {
    const xcb_query_extension_reply_t* const extension =
        xcb_get_extension_data(connection, &xcb_randr_id);
    if (extension == nullptr || extension->present == 0) {
        return false;
    }
    const Reply<xcb_randr_query_version_reply_t> version(xcb_randr_query_version_reply(
        connection, xcb_randr_query_version(connection, kMajor, kMinor), nullptr));
    return version && (version->major_version > kMajor ||
                       (version->major_version == kMajor && version->minor_version >= kMinor));
}

// Pictures in a second. A virtual screen has no timing at all: 0, the hardware's own.
Long FrequencyOf(const xcb_randr_mode_info_t& mode) {
    double lines = mode.vtotal;
    if ((mode.mode_flags & XCB_RANDR_MODE_FLAG_DOUBLE_SCAN) != 0) {
        lines *= 2;
    }
    if ((mode.mode_flags & XCB_RANDR_MODE_FLAG_INTERLACE) != 0) {
        lines /= 2;
    }
    const double dots = mode.htotal * lines;
    return dots > 0 ? static_cast<Long>(std::min(std::round(mode.dot_clock / dots), 1e9)) : 0;
}

std::int64_t Overlap(const X11Screen& screen, const ScreenRectangle& place) {
    const auto along = [](std::int64_t a, std::int64_t aSize, std::int64_t b, std::int64_t bSize) {
        return std::max<std::int64_t>(0, std::min(a + aSize, b + bSize) - std::max(a, b));
    };
    return along(screen.x, screen.width, place.left, place.width) *
           along(screen.y, screen.height, place.top, place.height);
}

}  // namespace

X11Modes::X11Modes(const std::string& display) {
    constexpr const char* kNone = ":";  // an empty name would be the environment's
    int number = 0;
    connection_ = {xcb_connect(display.empty() ? kNone : display.c_str(), &number),
                   [](xcb_connection_t* connection) { xcb_disconnect(connection); }};
    if (xcb_connection_has_error(connection_.get()) == 0) {
        screen_ = ScreenNumber(connection_.get(), number);
        randr_ = screen_ != nullptr && HasRandr(connection_.get());
    }
}

DisplaySettings X11Modes::WholeArea() const {
    if (screen_ == nullptr) {
        return {};
    }
    return {screen_->width_in_pixels, screen_->height_in_pixels, screen_->root_depth, 0};
}

// Those that are plugged in and show something, the primary one first.
std::vector<xcb_randr_output_t> X11Modes::ConnectedOutputs(
    const xcb_randr_get_screen_resources_current_reply_t& resources) const {
    const std::span all(xcb_randr_get_screen_resources_current_outputs(&resources),
                        resources.num_outputs);
    std::vector<xcb_randr_output_t> outputs(all.begin(), all.end());
    const Reply<xcb_randr_get_output_primary_reply_t> primary(xcb_randr_get_output_primary_reply(
        connection_.get(), xcb_randr_get_output_primary(connection_.get(), screen_->root),
        nullptr));
    if (primary) {
        std::stable_partition(outputs.begin(), outputs.end(),
                              [&](xcb_randr_output_t output) { return output == primary->output; });
    }
    return outputs;
}

std::optional<X11Screen> X11Modes::ScreenAt(const ScreenRectangle& place) const {
    const Resources resources =
        Works() ? AskForResources(connection_.get(), screen_->root) : nullptr;
    if (!resources) {
        return std::nullopt;
    }
    std::optional<X11Screen> best;
    for (const xcb_randr_output_t output : ConnectedOutputs(*resources)) {
        const auto info = AskForOutput(connection_.get(), output, resources);
        const std::optional<X11Screen> screen =
            info && info->crtc != XCB_NONE ? ScreenOf(info->crtc) : std::nullopt;
        if (screen && (!best || Overlap(*screen, place) > Overlap(*best, place))) {
            best = screen;
        }
    }
    return best;
}

std::optional<X11Screen> X11Modes::ScreenOf(xcb_randr_crtc_t crtc) const {
    const Reply<xcb_randr_get_crtc_info_reply_t> info(
        Works() ? xcb_randr_get_crtc_info_reply(
                      connection_.get(),
                      xcb_randr_get_crtc_info(connection_.get(), crtc, XCB_CURRENT_TIME), nullptr)
                : nullptr);
    if (!info || info->mode == XCB_NONE || info->num_outputs == 0) {
        return std::nullopt;
    }
    const std::span outputs(xcb_randr_get_crtc_info_outputs(info.get()), info->num_outputs);
    return X11Screen{crtc,        info->mode,   info->x,        info->y,
                     info->width, info->height, info->rotation, {outputs.begin(), outputs.end()}};
}

std::vector<X11Mode> X11Modes::ModesOf(const X11Screen& screen) const {
    const Resources resources = Works() && !screen.outputs.empty()
                                    ? AskForResources(connection_.get(), screen_->root)
                                    : nullptr;
    const auto output =
        resources ? AskForOutput(connection_.get(), screen.outputs.front(), resources) : nullptr;
    if (!output) {
        return {};
    }
    const std::span known(xcb_randr_get_screen_resources_current_modes(resources.get()),
                          resources->num_modes);
    const std::span offered(xcb_randr_get_output_info_modes(output.get()), output->num_modes);
    std::vector<xcb_randr_mode_t> wanted(offered.begin(), offered.end());
    if (std::find(wanted.begin(), wanted.end(), screen.mode) == wanted.end()) {
        wanted.push_back(screen.mode);  // set by hand, on another output of the same picture
    }
    std::vector<X11Mode> modes;
    for (const xcb_randr_mode_t id : wanted) {
        const auto mode = std::find_if(known.begin(), known.end(),
                                       [&](const xcb_randr_mode_info_t& m) { return m.id == id; });
        if (mode != known.end()) {
            // The depth of the picture, without the bits that only fill a pixel up to 32: a screen
            // of 8 bits a colour is a "24bit color" one.
            modes.push_back(
                {id, {mode->width, mode->height, screen_->root_depth, FrequencyOf(*mode)}});
        }
    }
    return modes;
}

bool X11Modes::Set(const X11Screen& screen) const {
    const Resources resources =
        Works() ? AskForResources(connection_.get(), screen_->root) : nullptr;
    if (!resources) {
        return false;
    }
    const Reply<xcb_randr_set_crtc_config_reply_t> answer(xcb_randr_set_crtc_config_reply(
        connection_.get(),
        xcb_randr_set_crtc_config(
            connection_.get(), screen.crtc, XCB_CURRENT_TIME, resources->config_timestamp, screen.x,
            screen.y, screen.mode, screen.rotation,
            static_cast<std::uint32_t>(screen.outputs.size()), screen.outputs.data()),
        nullptr));
    return answer && answer->status == XCB_RANDR_SET_CONFIG_SUCCESS;
}

}  // namespace scenara
