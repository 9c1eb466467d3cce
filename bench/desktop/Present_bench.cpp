// SPDX-License-Identifier: MIT
//
// What it costs to bring a picture to the screen at another size: wall time until the display
// server has it, since most of the work may be the server's.
#include <QApplication>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <xcb/xcb.h>

#include "desktop/PaintedStretch.h"
#include "desktop/PresentRows.h"
#include "platform/Direct3D8.h"
#include "platform/View.h"
#include "platform/qt/PictureWidget.h"

namespace scenara::bench {
namespace {

// Two pictures in turn, so that nothing can be left out because nothing has changed.
std::vector<std::uint32_t> Picture(const CanvasSize& size, std::uint32_t seed) {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.width) *
                                      static_cast<std::size_t>(size.height));
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
void Present(benchmark::State& state, const PresentRow& row, Widget& widget) {
    if (qApp->nativeInterface<QNativeInterface::QX11Application>() == nullptr) {
        state.SkipWithError("needs an X display");
        return;
    }
    widget.resize(row.window.width, row.window.height);
    widget.show();
    for (int pump = 0; pump < 20; ++pump) {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    const std::vector<std::uint32_t> pictures[] = {Picture(row.canvas, 1), Picture(row.canvas, 2)};
    std::size_t turn = 0;
    for (auto _ : state) {
        widget.Show(row.canvas, pictures[turn++ % 2]);
        WaitForServer();
    }
    widget.hide();
    QApplication::processEvents();
}

void PresentOurs(benchmark::State& state, const PresentRow& row) {
    PictureWidget widget(nullptr);
    widget.SetPresentation({ShownSizes::Any, row.scaling});
    Present(state, row, widget);
}

void PresentPainterStretch(benchmark::State& state, const PresentRow& row) {
    PaintedStretch widget(row.canvas, row.smoothPeer);
    Present(state, row, widget);
}

const bool kRegistered = [] {
    for (const PresentRow& row : kPresentRows) {
        for (const auto& [rows, present] :
             {std::pair(kPainterRows, &PresentPainterStretch), std::pair(kOurRows, &PresentOurs)}) {
            benchmark::RegisterBenchmark(
                (std::string(rows) + row.what).c_str(),
                [present = present, &row](benchmark::State& state) { present(state, row); })
                ->MeasureProcessCPUTime()  // the painter has threads of its own
                ->UseRealTime();
        }
    }
    return true;
}();

}  // namespace
}  // namespace scenara::bench
