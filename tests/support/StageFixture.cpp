// SPDX-License-Identifier: MIT
#include "support/StageFixture.h"

namespace scenara::test {

std::shared_ptr<TextureMemory> KeptTextureMemory() {
    static const auto memory = std::make_shared<TextureMemory>();
    return memory;
}

bool StageMachine::Load(std::string_view definition) {
    files.Put(kTestStage, std::string(definition));
    return LoadFile(kTestStage);
}

bool StageMachine::LoadFile(const std::string& path) {
    std::string defPath = path;
    const LoadStageContext context{files,
                                   messages,
                                   window,
                                   device,
                                   view,
                                   "/mugen/",
                                   [this](const std::string& file) {
            music = file; },
                                   &png};
    return LoadStage(model, defPath, context);
}

std::vector<std::string> StageMachine::MessageTexts() const {
    std::vector<std::string> texts;
    for (const Message& message : messages.Recorded()) {
        texts.push_back(message.text);
    }
    return texts;
}

std::vector<std::string> StageMachine::OtherMessageTexts() const {
    std::vector<std::string> texts;
    for (const Message& message : messages.Recorded()) {
        if (message.kind != kMessageArchiveMissing) {
            texts.push_back(message.text);
        }
    }
    return texts;
}

}  // namespace scenara::test
