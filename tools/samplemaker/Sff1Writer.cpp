// SPDX-License-Identifier: MIT
#include "samplemaker/Sff1Writer.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <set>
#include <span>
#include <stdexcept>
#include <string_view>

#include "samplemaker/ByteWriter.h"

namespace scenara::samplemaker {
namespace {

using std::string_view_literals::operator""sv;

constexpr std::size_t kFileHeaderSize = 512;
constexpr std::size_t kSubfileHeaderSize = 32;
constexpr std::size_t kCommentSize = 13;

void Check(const Sff1Subfile& subfile) {
    if (subfile.comment.size() > kCommentSize) {
        throw std::invalid_argument("SFF: a comment is longer than 13 bytes");
    }
    const auto length = static_cast<std::int64_t>(subfile.data.size()) + subfile.lengthSurplus;
    if (length < std::numeric_limits<std::int32_t>::min() ||
        length > std::numeric_limits<std::int32_t>::max()) {
        throw std::invalid_argument("SFF: a length does not fit into 32 bits");
    }
}

std::vector<std::size_t> FileOrder(std::size_t count, const Sff1Options& options) {
    std::vector<std::size_t> asChained(count);
    std::iota(asChained.begin(), asChained.end(), std::size_t{0});
    if (options.fileOrder.empty()) {
        return asChained;
    }
    if (!std::is_permutation(asChained.begin(), asChained.end(), options.fileOrder.begin(),
                             options.fileOrder.end())) {
        throw std::invalid_argument("SFF: the file order must name each subfile once");
    }
    return options.fileOrder;
}

// Where each subfile (by index) begins, and as the last entry where the file ends.
std::vector<std::uint32_t> Offsets(const std::vector<Sff1Subfile>& subfiles,
                                   const std::vector<std::size_t>& order, std::size_t firstGap) {
    std::vector<std::uint32_t> offsets(subfiles.size() + 1);
    std::size_t at = kFileHeaderSize + firstGap;
    for (const std::size_t index : order) {
        at += subfiles[index].gapBefore;
        offsets[index] = static_cast<std::uint32_t>(at);
        at += kSubfileHeaderSize + subfiles[index].data.size();
        if (at > std::numeric_limits<std::uint32_t>::max()) {
            throw std::invalid_argument("SFF: the archive is larger than its offsets can tell");
        }
    }
    offsets.back() = static_cast<std::uint32_t>(at);
    return offsets;
}

std::uint32_t CountGroups(const std::vector<Sff1Subfile>& subfiles) {
    std::set<std::int16_t> groups;
    for (const Sff1Subfile& subfile : subfiles) {
        groups.insert(subfile.group);
    }
    return static_cast<std::uint32_t>(groups.size());
}

void WriteFileHeader(ByteWriter& out, const std::vector<Sff1Subfile>& subfiles,
                     std::uint32_t firstOffset, const Sff1Options& options) {
    out.Text("ElecbyteSpr\0"sv);
    for (const std::uint8_t part : options.version) {
        out.U8(part);
    }
    out.U32(options.groups.value_or(CountGroups(subfiles)));
    out.U32(options.images.value_or(static_cast<std::uint32_t>(subfiles.size())));
    out.U32(firstOffset);
    out.U32(kSubfileHeaderSize);
    out.U8(options.paletteType);
    out.Fill(kFileHeaderSize - out.Size(), 0);
}

void WriteSubfile(ByteWriter& out, const Sff1Subfile& subfile, std::uint32_t next) {
    const auto length = static_cast<std::int64_t>(subfile.data.size()) + subfile.lengthSurplus;
    out.U32(next);
    out.U32(static_cast<std::uint32_t>(length));
    out.U16(static_cast<std::uint16_t>(subfile.axisX));
    out.U16(static_cast<std::uint16_t>(subfile.axisY));
    out.U16(static_cast<std::uint16_t>(subfile.group));
    out.U16(static_cast<std::uint16_t>(subfile.image));
    out.U16(static_cast<std::uint16_t>(subfile.linkIndex));
    out.U8(subfile.samePalette ? 1 : 0);
    out.PaddedText(subfile.comment, kCommentSize);
    out.Append(subfile.data);
}

}  // namespace

std::vector<std::byte> WriteSff1(const std::vector<Sff1Subfile>& subfiles,
                                 const Sff1Options& options) {
    std::for_each(subfiles.begin(), subfiles.end(), Check);
    const std::size_t count = subfiles.size();
    const std::vector<std::size_t> order = FileOrder(count, options);
    const std::vector<std::uint32_t> offsets = Offsets(subfiles, order, options.firstGap);

    ByteWriter out;
    WriteFileHeader(out, subfiles, offsets.front(), options);
    out.Fill(options.firstGap, options.gapValue);
    for (const std::size_t index : order) {
        const bool last = index + 1 == count;
        const bool noNext = last && options.lastNext == LastNext::Zero;
        out.Fill(subfiles[index].gapBefore, options.gapValue);
        WriteSubfile(out, subfiles[index], noNext ? 0 : offsets[index + 1]);
    }
    return std::move(out).Take();
}

}  // namespace scenara::samplemaker
