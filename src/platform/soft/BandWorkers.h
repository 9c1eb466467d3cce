// SPDX-License-Identifier: MIT
//
// BandWorkers: threads that share work which falls into bands, each of which can be done without
// the others.
//
// They wait from one piece of work to the next and end with the object. A child process that is
// forked off has none of them and does all work on its own thread.
#pragma once

#include <cstdint>
#include <memory>

#include "base/NotCopied.h"

namespace scenara::soft {

class BandWork : NotCopied {
public:
    virtual ~BandWork() = default;

    // On any thread, several at the same time. Raises nothing.
    virtual void DoBand(std::int32_t band) = 0;
};

class BandWorkers : NotCopied {
public:
    // With the caller's there are so many threads; fewer when the system refuses them.
    explicit BandWorkers(std::int32_t threads);
    ~BandWorkers();

    // The caller's included.
    [[nodiscard]] std::int32_t Threads() const;

    // Does the bands from 0 to `bands` - 1, each once; all are done when it returns. Allocates
    // nothing.
    void Do(BandWork& work, std::int32_t bands);

private:
    class Crew;

    std::int64_t process_;
    std::unique_ptr<Crew> crew_;
};

}  // namespace scenara::soft
