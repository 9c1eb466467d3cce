// SPDX-License-Identifier: MIT
//
// NewerKeys, an addition: what of a stage only engines newer than MUGEN 1.1 read, and so is not
// shown. An author hears of it by name, all at once and each name once, at the line where it stands
// first; a key without a value is none.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Messages.h"
#include "stage/SectionHeader.h"

namespace scenara {

inline constexpr MessageKind kMessageNewerKeys{"newer-keys", Severity::Warning};

class NewerKeys {
public:
    // A section begins; `name` is what stands between its brackets, in lower case and without
    // blanks.
    void NoteSection(SectionKind kind, std::string_view name, std::int64_t line);

    // A line of it, in lower case and without its comment.
    void NoteLine(std::string_view text, std::int64_t line);

    // After the last line. Says nothing where nothing was found.
    void Report(Messages& messages) const;

private:
    struct Row;
    struct Found {
        std::string what;  // "[Camera] autozoom"
        std::int64_t line;
    };

    void Add(std::string what, std::int64_t line);

    SectionKind kind_ = SectionKind::Settings;
    std::string section_;
    std::vector<const Row*> here_;  // of the section's keys
    std::vector<Found> found_;
    bool newer_ = false;           // the stage says that it was made for one
    std::int64_t layerBelow_ = 0;  // where the first `layerno` below 0 stands
};

}  // namespace scenara
