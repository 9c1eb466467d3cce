// SPDX-License-Identifier: MIT
#include <algorithm>
#include <optional>

#include <iconv.h>

#include "base/NotCopied.h"
#include "platform/posix/PosixFiles.h"

namespace scenara {
namespace {

class Conversion : NotCopied {
public:
    explicit Conversion(const char* from) : handle_(::iconv_open("UTF-8", from)) {}
    ~Conversion() {
        if (IsThere()) {
            ::iconv_close(handle_);
        }
    }

    // Nothing where the bytes are no text in these letters.
    [[nodiscard]] std::optional<std::string> Of(std::string bytes) const {
        if (!IsThere()) {
            return std::nullopt;
        }
        constexpr std::size_t kMostBytesOfALetter = 4;
        std::string text(bytes.size() * kMostBytesOfALetter, '\0');
        char* from = bytes.data();
        std::size_t left = bytes.size();
        char* to = text.data();
        std::size_t room = text.size();
        if (::iconv(handle_, &from, &left, &to, &room) == static_cast<std::size_t>(-1)) {
            return std::nullopt;
        }
        text.resize(text.size() - room);
        return text;
    }

private:
    // iconv_open says -1 for letters that this system does not know.
    [[nodiscard]] bool IsThere() const {
        return handle_ != reinterpret_cast<iconv_t>(-1);  // NOLINT: as its documentation has it
    }

    iconv_t handle_;
};

}  // namespace

std::vector<std::string> PosixFiles::InOtherLetters(const std::string& name) {
    std::vector<std::string> names;
    for (const char* const letters : {"CP932", "CP936"}) {
        const std::optional<std::string> text = Conversion(letters).Of(name);
        if (text && *text != name && std::find(names.begin(), names.end(), *text) == names.end()) {
            names.push_back(*text);
        }
    }
    return names;
}

}  // namespace scenara
