// SPDX-License-Identifier: MIT
#include "app/Status.h"

#include <string>
#include <string_view>

#include "app/frmStage.h"
#include "base/NumberText.h"
#include "base/Path.h"
#include "base/Text.h"

namespace scenara {
namespace {

// No screen shows more of a text.
constexpr std::size_t kLongest = 500;

std::string Short(std::string_view text) {
    return std::string(Beginning(Trim(text), kLongest));
}

// "1 stage", "2 stages".
std::string Counted(std::size_t count, std::string_view what) {
    const std::string number = NumberText(static_cast<std::int64_t>(count));
    return number + " " + std::string(what) + (count == 1 ? "" : "s");
}

std::string ProblemsText(const ProblemList& problems) {
    return problems.Count() == 0 ? "No problems" : Counted(problems.Count(), "problem");
}

void TellStage(const StageShow& show, StatusBar& status) {
    const StageModel& model = show.Model();
    if (!Trim(model.StageTitle).empty()) {
        status.name = Short(model.StageTitle);
    }
    if (const std::string author = Short(model.Author); !author.empty()) {
        status.author = "by " + author;
    }
    const CanvasSize canvas = show.Picture().Canvas();
    status.canvas = NumberText(canvas.width) + " x " + NumberText(canvas.height);
    const StageArchive& archive = show.Archive();
    status.archivePath = archive.path;
    status.archive = Short(FileName(archive.path));
    if (!archive.version.empty()) {
        status.version = "SFF " + archive.version;
    }
}

std::string StagesText(const ListBox& list) {
    if (list.total == 0) {
        return {};
    }
    std::string text = Counted(list.total, "stage");
    if (list.items.size() != list.total) {
        text = NumberText(static_cast<std::int64_t>(list.items.size())) + " of " + text;
    }
    return list.isCut ? text + ", and more that are not listed" : text;
}

}  // namespace

StatusSource StatusSourceOf(const StageShow& show, const Form& form) {
    return {show.Options().Additions,    show.State(),         show.HasStage(),
            form.lstStages.items.size(), form.lstStages.total, form.problems.Generation(),
            form.problems.Count()};
}

StatusBar StatusOf(const StageShow& show, const Form& form) {
    StatusBar status;
    status.visible = show.Options().Additions;
    if (!status.visible) {
        return status;
    }
    if (show.State() == ShowState::None) {
        status.stages = StagesText(form.lstStages);
        return status;
    }
    status.name = Short(FileName(show.Which.shown));
    if (show.HasStage()) {
        TellStage(show, status);
    }
    if (show.HasStage() || form.problems.Count() > 0) {
        status.problems = ProblemsText(form.problems);
    }
    return status;
}

// Asked for in each frame, and hardly ever with something to do.
void frmStage::ShowStatus() {
    if (show_.Which.next || !show_.Which.chosen.empty()) {
        return;  // between two stages it would flicker
    }
    const StatusSource source = StatusSourceOf(show_, form_);
    if (statusShown_ != source) {
        form_.statusBar = StatusOf(show_, form_);
        statusShown_ = source;
    }
}

}  // namespace scenara
