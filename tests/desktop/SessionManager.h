// SPDX-License-Identifier: MIT
//
// SessionManager: a desktop's session with one program in it, which is asked to save, and to end.
#pragma once

#include <atomic>
#include <string>
#include <thread>

namespace scenara::test {

class SessionManager {
public:
    SessionManager();
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;
    ~SessionManager();

    // Where a program finds it.
    [[nodiscard]] const std::string& Address() const { return address_; }

    // A program has joined the session.
    [[nodiscard]] bool HasProgram() const { return joined_; }
    // It has said that it has saved, as it was asked to.
    [[nodiscard]] bool HasSaved() const { return saved_; }

    // The session is to be shut down, unless some program or the user has other ideas.
    void AskToSave() { wanted_ = Wanted::Save; }
    // Its last word.
    void End() { wanted_ = Wanted::End; }

private:
    enum class Wanted { Nothing, Save, End, Stop };
    struct Library;

    void Serve(Library& library);

    std::string address_;
    std::atomic<Wanted> wanted_ = Wanted::Nothing;
    std::atomic<bool> joined_ = false;
    std::atomic<bool> saved_ = false;
    std::thread thread_;  // all that the session's library does is done there
};

}  // namespace scenara::test
