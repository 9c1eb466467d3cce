// SPDX-License-Identifier: MIT
//
// QtDialogs: the program's questions as the toolkit's own dialogs over the main window.
#pragma once

#include <QPointer>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/Dialogs.h"

class QFileDialog;

namespace scenara {

class KeysWindow;
class ProblemsWindow;
class Questions;
struct Form;

class QtDialogs : public Dialogs {
public:
    // Those without a title of their own carry the program's, as `form` has it at that time. Both
    // outlive it.
    QtDialogs(Questions& questions, const Form& form);
    ~QtDialogs() override;

    std::string BrowseForFolder(const std::string& prompt,
                                const std::string& initialFolder) override;
    std::string OpenFile(const std::string& title, const std::string& initialFolder) override;
    std::string InputBox(const std::string& prompt) override;
    void ShowProblems(const ProblemList& problems) override;
    bool OpenFolder(const std::string& folder) override;
    void CopyText(const std::string& text) override;
    void ShowKeys(const KeyPage& page) override;
    std::optional<std::size_t> ChooseAnswer(const std::string& text,
                                            const std::vector<std::string>& answers) override;

private:
    // The path that is chosen; empty: none.
    std::string Choose(QFileDialog& dialog);

    Questions& questions_;
    const Form& form_;
    QPointer<ProblemsWindow> problems_;  // the owner's, as Qt has it
    QPointer<KeysWindow> keys_;          // the same
};

}  // namespace scenara
