// SPDX-License-Identifier: MIT
#include "samplemaker/ByteWriter.h"

namespace scenara::samplemaker {

// Not in the header: where gcc 12 compiles it into its callers, it warns of overflows that cannot
// be.
void ByteWriter::Append(std::span<const std::byte> bytes) {
    block_.insert(block_.end(), bytes.begin(), bytes.end());
}

}  // namespace scenara::samplemaker
