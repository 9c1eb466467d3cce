// SPDX-License-Identifier: MIT
#include "support/ArchiveFiles.h"

#include <fstream>

#include "platform/posix/ProgramFolder.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::bench {
namespace {

std::vector<std::byte> GeneratedArchive(int times) {
    std::vector<samplemaker::Sff1Subfile> subfiles;
    for (int i = 0; i < times; ++i) {
        for (const SamplePicture& picture : GeneratedPictures().pictures) {
            samplemaker::Sff1Subfile subfile;
            subfile.image = static_cast<std::int16_t>(subfiles.size());
            subfile.data = picture.file;
            subfiles.push_back(std::move(subfile));
        }
    }
    return samplemaker::WriteSff1(subfiles);
}

std::vector<std::string> Written(const TemporaryFolder& folder, const char* name,
                                 const std::vector<std::byte>& bytes) {
    const std::string path = folder.Path() + name;
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return {path};
}

}  // namespace

const std::vector<std::string>& GeneratedArchives() {
    static const TemporaryFolder folder;
    static const std::vector<std::string> paths =
        Written(folder, "generated.sff", GeneratedArchive(1));
    return paths;
}

const std::vector<std::string>& LargeArchive() {
    static const TemporaryFolder folder;
    static const std::vector<std::string> paths = Written(folder, "large.sff", GeneratedArchive(8));
    return paths;
}

const std::vector<std::string>& SampleDataArchives() {
    static const std::vector<std::string> paths = [] {
        std::vector<std::string> found;
        for (const auto& path : SampleArchives()) {
            found.push_back(path.string());
        }
        return found;
    }();
    return paths;
}

}  // namespace scenara::bench
