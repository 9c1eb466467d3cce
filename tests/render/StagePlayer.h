// SPDX-License-Identifier: MIT
//
// StagePlayer: a stage, and all that it needs to be drawn on a recording machine.
//
// A test builds the stage with `build`, calls Start and plays passes or frames; each gives the
// quads that reached the device, in words.
#pragma once

#include "platform/Clock.h"
#include "platform/headless/HeadlessKeyboard.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessPointer.h"
#include "platform/headless/HeadlessWindow.h"
#include "render/ElementDrawing.h"
#include "render/Engine.h"
#include "render/Frame.h"
#include "render/PrepareStage.h"
#include "render/RecordingMachine.h"
#include "render/StageBuilder.h"
#include "render/TileEngine.h"
#include "render/ViewFlags.h"
#include "stage/Camera.h"
#include "stage/StageSpace.h"

namespace scenara::test {

// Says in the record when it is shown.
class RecordedWindow : public HeadlessWindow {
public:
    explicit RecordedWindow(Record& record) : record_(record) {}
    void Show() override {
        static_cast<void>(record_.Call("Show"));
        HeadlessWindow::Show();
    }

private:
    Record& record_;
};

// Shows the time it is set to.
class SetClock : public Clock {
public:
    Long GetTickCount() override { return now; }
    std::int64_t QueryPerformanceCounter() override { return now; }
    std::int64_t QueryPerformanceFrequency() override { return 1000; }

    Long now = 1000;
};

struct StagePlayer {
    // The camera goes 1 pixel a step. Plain, unless told otherwise.
    explicit StagePlayer(const ViewOptions& options = kPlainView) : view(options) {
        camera.HCamStep = 1;
        camera.VCamStep = 1;
    }

    // A device, the camera and the elements in their places; what that took is forgotten.
    void Start() {
        picture = ViewOf(model, view);
        engine.Engine_Init();
        PlaceCamera(model, camera, picture);
        PrepareElements(model, view, picture);
        static_cast<void>(record.TakeLines());
    }

    Lines BackPass() {
        flags.DrawFrontLayer = 0;
        tiles.TickStage();
        tiles.DrawBackground();
        return record.TakeQuads();
    }
    Lines FrontPass() {
        flags.DrawFrontLayer = kByteTrue;
        tiles.DrawBackground();
        return record.TakeQuads();
    }
    // Both passes.
    Lines Frame() {
        DrawScene(engine, tiles, flags);
        return record.TakeQuads();
    }
    // The quads of each frame, with commas between them.
    Lines Film(int frames) {
        Lines film;
        for (int i = 0; i < frames; ++i) {
            std::string& shown = film.emplace_back();
            for (const std::string& quad : Frame()) {
                shown.append(shown.empty() ? "" : ", ").append(quad);
            }
        }
        return film;
    }
    // The stage's first element alone, as it stands or after a start.
    Lines DrawFirst(const DrawOptions& wanted = {}) {
        const DrawOptions options =
            DrawOptionsOf(model, camera, picture, ViewOptions{wanted.additions});
        DrawElement(engine, model, Element(0), options);
        return record.TakeQuads();
    }
    Lines StartAndDrawFirst(const DrawOptions& options = {}) {
        Start();
        return DrawFirst(options);
    }
    // This many frames, of which nobody wants to know the quads.
    void Frames(int count) {
        for (int i = 0; i < count; ++i) {
            DrawScene(engine, tiles, flags);
        }
        static_cast<void>(record.TakeLines());
    }

    [[nodiscard]] BackgroundElement& Element(std::size_t index) { return model.Elements.at(index); }

    ViewOptions view;
    Record record;
    RecordingMachine machine{record};
    RecordedWindow window{record};
    HeadlessMessages messages;
    StageModel model;
    StageBuilder build{model};
    View picture;
    Engine engine{machine, window, messages, model, picture};
    Camera camera;
    ViewFlags flags;
    HeadlessKeyboard keyboard;
    SetClock clock;
    HeadlessPointer pointer;
    TileEngine tiles{
        engine, model, camera, picture, flags, view, CameraInput{keyboard, clock, pointer, window}};
};

}  // namespace scenara::test
