// SPDX-License-Identifier: MIT
//
// RecordedEvents: a program that only writes down what the window tells it of, in short words.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Form.h"

namespace scenara::test {

class RecordedEvents : public FormEvents {
public:
    void Form_Activate() override { Add("activate"); }
    void Form_Resize(Long innerWidth, Long innerHeight) override {
        width = innerWidth;
        height = innerHeight;
    }
    void Form_Unload() override { Add("unload"); }
    bool Form_Idle() override {
        ++idle;
        return wantsMore;
    }
    void Form_KeyDown(VirtualKey key) override { Add("key", static_cast<Long>(key)); }
    void Form_OLEDragDrop(const std::vector<std::string>& paths) override {
        for (const std::string& path : paths) {
            Add("drop " + path);
        }
    }
    void Form_Given(const std::vector<std::string>& paths) override {
        for (const std::string& path : paths) {
            Add("given " + path);
        }
    }
    void Menu_Click(Menu item) override { Add("menu", static_cast<Long>(item)); }
    void MnuRecentFiles_Click(Long index) override { Add("recent", index); }
    void lstStages_Click(Long index) override { Add("list", index); }
    void lstStages_Step(Long steps) override { Add("step", steps); }
    void lstStages_Mark(Long index) override { Add("mark", index); }
    void lstStages_Leave() override { Add("leave"); }
    void lstStages_Resize(Long itsWidth) override { Add("resize", itsWidth); }
    void lstStages_OpenFolder(const std::string& file) override { Add("folder of " + file); }
    void lstStages_CopyPath(const std::string& file) override { Add("path of " + file); }
    void txtFilter_Change(const std::string& words) override { Add("filter " + words); }
    void txtFilter_Enter() override { Add("enter"); }
    void Form_MouseDown(Long x, Long y) override { Add("down", x, y); }
    void Form_MouseMove(Long x, Long y) override { Add("move", x, y); }
    void Form_MouseUp() override { Add("up"); }
    void Form_DblClick() override { Add("twice"); }
    void Form_MouseScroll(Long across, Long down) override { Add("roll", across, down); }
    void Form_MiddleDown(Long x, Long y) override { Add("middle down", x, y); }
    void Form_MiddleMove(Long x, Long y) override { Add("middle move", x, y); }
    void Form_MiddleUp() override { Add("middle up"); }
    void Form_MouseWheel(Long notches, Long x, Long y) override { Add("wheel", notches, x, y); }
    void hscHScroll_Change(Long value) override { Add("camera", value); }
    void hscSGFX_Change(Long value) override { Add("sprite", value); }
    void hscSGFX_Scroll(Long value) override { Add("scroll", value); }

    // All since the last time, with commas between them; sizes are not among them.
    [[nodiscard]] std::string Text() {
        std::string text;
        for (const std::string& told : std::exchange(told_, {})) {
            text.append(text.empty() ? "" : ", ").append(told);
        }
        return text;
    }

    // Of the window's inner area, as told last.
    Long width = -1;
    Long height = -1;

    int idle = 0;            // how often it was asked
    bool wantsMore = false;  // what it answers

private:
    template <class... Numbers>
    void Add(std::string what, Numbers... numbers) {
        (what.append(" ").append(std::to_string(numbers)), ...);
        told_.push_back(std::move(what));
    }

    std::vector<std::string> told_;
};

}  // namespace scenara::test
