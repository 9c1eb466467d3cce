// SPDX-License-Identifier: MIT
//
// What it costs to bring a picture to the screen at three times its size: wall time until the
// display server has it, since most of the work may be the server's.
#include <QApplication>
#include <cstdint>
#include <vector>

#include <benchmark/benchmark.h>
#include <xcb/xcb.h>

#include "desktop/PaintedStretch.h"
#include "platform/Direct3D8.h"
#include "platform/View.h"
#include "platform/qt/PictureWidget.h"

namespace scenara::bench {
namespace {

constexpr int kTimes = 3;

// Two pictures in turn, so that nothing can be left out because nothing has changed.
std::vector<std::uint32_t> Picture(std::uint32_t seed) {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(View().width) * View().height);
    for (std::uint32_t& pixel : pixels) {
        seed = seed * 1664525U + 1013904223U;
        pixel = 0xFF000000U | seed >> 8U;
    }
    return pixels;
}

// Until the server has done all that it was asked for.
void WaitForServer() {
    auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* const connection = x11->connection();
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

template <class Widget>
void Present(benchmark::State& state, Widget& widget) {
    if (qApp->nativeInterface<QNativeInterface::QX11Application>() == nullptr) {
        state.SkipWithError("needs an X display");
        return;
    }
    widget.resize(kTimes * View().width, kTimes * View().height);
    widget.show();
    for (int pump = 0; pump < 20; ++pump) {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    const std::vector<std::uint32_t> pictures[] = {Picture(1), Picture(2)};
    std::size_t turn = 0;
    for (auto _ : state) {
        widget.Show(CanvasSize(), pictures[turn++ % 2]);
        WaitForServer();
    }
    widget.hide();
    QApplication::processEvents();
}

void PresentOurs(benchmark::State& state) {
    PictureWidget widget(nullptr);
    Present(state, widget);
}

void PresentPainterStretch(benchmark::State& state) {
    PaintedStretch widget;
    Present(state, widget);
}

BENCHMARK(PresentPainterStretch)->Name("Present/PainterStretch")->UseRealTime();
BENCHMARK(PresentOurs)->Name("Present/Ours")->UseRealTime();

}  // namespace
}  // namespace scenara::bench
