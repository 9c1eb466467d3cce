// SPDX-License-Identifier: MIT
#include "scenara-shot/ShotMachine.h"

#include <utility>

#include "base/Path.h"
#include "platform/soft/TextureMemory.h"

namespace scenara {

ShotMachine::ShotMachine(Files& files, const PngPictures* png, HeadlessMessages::Observer onMessage,
                         const ViewOptions& view)
    : view_(view),
      messages_(std::move(onMessage)),
      direct3D_(std::make_shared<TextureMemory>(), &shown_),
      show_({files, messages_, window_, keyboard_, clock_, pointer_, direct3D_, png}, view,
            events_) {}

bool ShotMachine::Start(const std::string& stageFile, const std::string& mugeDir,
                        const std::string& charFile) {
    if (!charFile.empty()) {
        show_.ChooseCharacter(charFile);
        show_.UseCharacter(true);
    }
    show_.Which.shown = stageFile;
    const bool started = show_.Start(WithSeparator(mugeDir));
    show_.BeginLoop();
    return started;
}

void ShotMachine::RunFrame(const KeySet& keys, bool info) {
    keyboard_.Hold(keys);
    static_cast<void>(show_.Draw(info));
    show_.Present(info);
    clock_.Advance();
}

void ShotMachine::PassFrame(const KeySet& keys, bool info) {
    if (!view_.Additions) {
        RunFrame(keys, info);
        return;
    }
    keyboard_.Hold(keys);
    static_cast<void>(show_.Tick(info));
    clock_.Advance();
}

}  // namespace scenara
