// SPDX-License-Identifier: MIT
#include "app/MugenFolder.h"

#include <optional>
#include <string_view>
#include <vector>

#include "base/Path.h"
#include "base/Text.h"

namespace scenara {
namespace {

constexpr const char* kStages = "stages";

bool IsSeparator(char c) {
    return GetPath(std::string_view(&c, 1)).size() == 1;
}

std::string_view WithoutSeparators(std::string_view folder) {
    while (!folder.empty() && IsSeparator(folder.back())) {
        folder.remove_suffix(1);
    }
    return folder;
}

enum class Answer { Meant, Another, Insisted, Cancelled };

Answer AskAbout(Dialogs& dialogs, const std::string& folder, const std::string& meant) {
    std::string text = folder + "\r\nhas no folder \"stages\", where MUGEN keeps its stages.";
    std::vector<std::string> answers = {"Choose Another", "Use It All the Same"};
    std::vector<Answer> meanings = {Answer::Another, Answer::Insisted};
    if (!meant.empty()) {
        text += "\r\n\r\nPerhaps you mean\r\n" + meant;
        answers.insert(answers.begin(), "Use That One");
        meanings.insert(meanings.begin(), Answer::Meant);
    }
    const std::optional<std::size_t> chosen = dialogs.ChooseAnswer(text, answers);
    return chosen && *chosen < meanings.size() ? meanings[*chosen] : Answer::Cancelled;
}

}  // namespace

bool HasStages(Files& files, const std::string& folder) {
    return files.FolderExists(JoinPath(folder, kStages));
}

bool IsCalledStages(const std::string& folder) {
    return EqualsIgnoringCase(FileName(WithoutSeparators(folder)), kStages);
}

std::string FolderAbove(const std::string& folder) {
    const std::string above = GetPath(WithoutSeparators(folder));
    const std::string_view plain = WithoutSeparators(above);
    return std::string(plain.empty() ? std::string_view(above) : plain);
}

std::string FolderMeant(Files& files, const std::string& folder) {
    if (IsCalledStages(folder)) {
        return FolderAbove(folder);
    }
    std::string meant;
    for (const std::string& name : files.ListFolders(folder)) {
        const std::string inside = JoinPath(folder, name);
        if (HasStages(files, inside)) {
            if (!meant.empty()) {
                return {};
            }
            meant = inside;
        }
    }
    return meant;
}

std::string AskForMugenFolder(Files& files, Dialogs& dialogs, const std::string& initial,
                              const std::function<bool()>& ended) {
    std::string begin = initial;
    while (!ended()) {
        const std::string browsed = dialogs.BrowseForFolder(kMugenFolderPrompt, begin);
        std::string folder = browsed.substr(0, browsed.find('\0'));
        if (folder.empty() || HasStages(files, folder)) {
            return folder;
        }
        std::string meant = FolderMeant(files, folder);
        switch (AskAbout(dialogs, folder, meant)) {
            case Answer::Meant: return meant;
            case Answer::Insisted: return folder;
            case Answer::Cancelled: return {};
            case Answer::Another: break;
        }
        begin = folder;
    }
    return {};
}

}  // namespace scenara
