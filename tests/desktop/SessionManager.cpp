// SPDX-License-Identifier: MIT
#include "desktop/SessionManager.h"

#include <array>
#include <cstdlib>
#include <future>
#include <memory>
#include <stdexcept>
#include <vector>

#include <poll.h>

extern "C" {
#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>
}

namespace scenara::test {

// What the library keeps, and what it calls.
struct SessionManager::Library {
    explicit Library(SessionManager& itsSession) : session(itsSession) {
        IceSetIOErrorHandler([](IceConn) {});  // a program that is gone must not end this one
        std::array<char, 256> error{};
        if (SmsInitialize("scenara", "test", Accept, this, Trust, error.size(), error.data()) ==
                0 ||
            IceListenForConnections(&doorCount, &doors, error.size(), error.data()) == 0) {
            throw std::runtime_error(std::string("no session: ") + error.data());
        }
        for (int i = 0; i < doorCount; ++i) {
            IceSetHostBasedAuthProc(doors[i], Trust);
        }
        char* const names = IceComposeNetworkIdList(doorCount, doors);
        session.address_ = names;
        std::free(names);
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() {
        Drop();
        IceFreeListenObjs(doorCount, doors);
    }

    static Bool Trust(char* /*host*/) { return True; }

    static Library& Of(SmPointer data) { return *static_cast<Library*>(data); }

    static Status Accept(SmsConn connection, SmPointer data, unsigned long* mask,
                         SmsCallbacks* callbacks, char** /*reason*/) {
        Of(data).program = connection;
        callbacks->register_client = {Register, data};
        callbacks->save_yourself_done = {Saved, data};
        callbacks->close_connection = {Close, data};
        callbacks->set_properties = {SetProperties, data};
        callbacks->delete_properties = {DeleteProperties, data};
        *mask = SmsRegisterClientProcMask | SmsSaveYourselfDoneProcMask |
                SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask;
        return 1;
    }
    static Status Register(SmsConn connection, SmPointer data, char* previous) {
        if (previous != nullptr) {
            std::free(previous);
            return 0;  // there was no session before; it asks again
        }
        std::array<char, 8> name{"program"};
        SmsRegisterClientReply(connection, name.data());
        Of(data).session.joined_ = true;
        return 1;
    }
    static void Saved(SmsConn /*connection*/, SmPointer data, Bool /*success*/) {
        Of(data).session.saved_ = true;
    }
    static void Close(SmsConn /*connection*/, SmPointer data, int count, char** reasons) {
        SmFreeReasons(count, reasons);
        Of(data).closed = true;
    }
    static void SetProperties(SmsConn /*connection*/, SmPointer /*data*/, int count,
                              SmProp** properties) {
        for (int i = 0; i < count; ++i) {
            SmFreeProperty(properties[i]);
        }
        std::free(properties);
    }
    static void DeleteProperties(SmsConn /*connection*/, SmPointer /*data*/, int count,
                                 char** names) {
        for (int i = 0; i < count; ++i) {
            std::free(names[i]);
        }
        std::free(names);
    }

    void Drop() {
        if (program != nullptr) {
            SmsCleanUp(std::exchange(program, nullptr));
        }
        if (line != nullptr) {
            IceSetShutdownNegotiation(line, False);
            IceCloseConnection(std::exchange(line, nullptr));
        }
    }

    SessionManager& session;
    int doorCount = 0;
    IceListenObj* doors = nullptr;
    IceConn line = nullptr;
    SmsConn program = nullptr;
    bool closed = false;
};

SessionManager::SessionManager() {
    std::promise<void> open;
    thread_ = std::thread([&] {
        std::unique_ptr<Library> library;
        try {
            library = std::make_unique<Library>(*this);
        } catch (...) {
            open.set_exception(std::current_exception());
            return;
        }
        open.set_value();
        Serve(*library);
    });
    try {
        open.get_future().get();
    } catch (...) {
        thread_.join();
        throw;
    }
}

SessionManager::~SessionManager() {
    wanted_ = Wanted::Stop;
    thread_.join();
}

void SessionManager::Serve(Library& library) {
    constexpr int kPatience = 20;  // milliseconds
    while (wanted_ != Wanted::Stop) {
        if (library.program != nullptr && joined_) {
            switch (wanted_.exchange(Wanted::Nothing)) {
                case Wanted::Save:
                    SmsSaveYourself(library.program, SmSaveBoth, True, SmInteractStyleNone, False);
                    break;
                case Wanted::End: SmsDie(library.program); break;
                case Wanted::Stop: return;
                case Wanted::Nothing: break;
            }
        }
        std::vector<pollfd> heard;
        heard.reserve(static_cast<std::size_t>(library.doorCount) + 1);
        for (int i = 0; i < library.doorCount; ++i) {
            heard.push_back({IceGetListenConnectionNumber(library.doors[i]), POLLIN, 0});
        }
        if (library.line != nullptr) {
            heard.push_back({IceConnectionNumber(library.line), POLLIN, 0});
        }
        if (::poll(heard.data(), heard.size(), kPatience) <= 0) {
            continue;
        }
        for (int i = 0; i < library.doorCount; ++i) {
            if ((heard[static_cast<std::size_t>(i)].revents & POLLIN) != 0 &&
                library.line == nullptr) {
                IceAcceptStatus status = IceAcceptFailure;
                library.line = IceAcceptConnection(library.doors[i], &status);
            }
        }
        if (library.line != nullptr && heard.size() > static_cast<std::size_t>(library.doorCount) &&
            heard.back().revents != 0 &&
            (IceProcessMessages(library.line, nullptr, nullptr) != IceProcessMessagesSuccess ||
             library.closed)) {
            library.Drop();
        }
    }
}

}  // namespace scenara::test
