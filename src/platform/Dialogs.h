// SPDX-License-Identifier: MIT
//
// Dialogs: the questions that the program asks, the list of problems, and the page of keys.
//
// A question stands over the main window, blocks until it is answered, and gives an empty text
// where the user cancels. Paths are in the machine's own style; a folder has no separator at its
// end, but for a root.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/NotCopied.h"
#include "platform/KeyPage.h"
#include "platform/ProblemList.h"

namespace scenara {

class Dialogs : NotCopied {
public:
    virtual ~Dialogs() = default;

    // The folder that the user chooses. `prompt` may hold several lines (CR LF). An empty
    // `initialFolder` is the user's own.
    [[nodiscard]] virtual std::string BrowseForFolder(const std::string& prompt,
                                                      const std::string& initialFolder) = 0;

    // The existing file that the user chooses, with "*.def" files offered at first. An empty
    // `initialFolder` leaves the place to the machine.
    [[nodiscard]] virtual std::string OpenFile(const std::string& title,
                                               const std::string& initialFolder) = 0;

    // A line of text, empty at first.
    [[nodiscard]] virtual std::string InputBox(const std::string& prompt) = 0;

    // A window with the list, or the one that is open to the front. It blocks nothing and shows
    // what comes to the list while it is open. `problems` outlives this.
    virtual void ShowProblems(const ProblemList& problems) = 0;

    // Shows the folder in the desktop's own program for that. False: it has none, or cannot.
    [[nodiscard]] virtual bool OpenFolder(const std::string& folder) = 0;
    // Other programs can paste it from now on.
    virtual void CopyText(const std::string& text) = 0;

    // A window with the page, or the one that is open to the front. It blocks nothing.
    virtual void ShowKeys(const KeyPage& page) = 0;

    // Which of the answers to `text` the user chooses, counted from 0; nothing when the user
    // cancels. There is at least one.
    [[nodiscard]] virtual std::optional<std::size_t> ChooseAnswer(
        const std::string& text, const std::vector<std::string>& answers) = 0;
};

}  // namespace scenara
