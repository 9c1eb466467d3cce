// SPDX-License-Identifier: MIT
//
// Any bytes as a stage definition, beside an archive that it can name ("spr = a.sff").
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "support/FuzzChecks.h"
#include "support/StageFixture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using scenara::test::Require;
    static const std::string archive = scenara::test::SmallArchiveBytes();
    scenara::test::StageMachine machine;
    machine.files.Put("/mugen/stages/a.sff", archive);
    Require(machine.Load(std::string_view(reinterpret_cast<const char*>(data), size)),
            "a definition that can be read loads");
    scenara::test::CheckModel(machine.model);
    Require(!machine.files.Has("/program/fix.def"), "no repaired copy is left behind");
    return 0;
}
