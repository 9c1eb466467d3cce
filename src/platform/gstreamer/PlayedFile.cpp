// SPDX-License-Identifier: MIT
#include "platform/gstreamer/PlayedFile.h"

#include <algorithm>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>

#include "platform/gstreamer/Decoding.h"
#include "platform/posix/ResolvePath.h"

namespace scenara {
namespace {

constexpr std::chrono::seconds kSettleTime{5};
constexpr std::chrono::milliseconds kReportInterval{20};

// The size of a file that may be opened: an ordinary one, not too large to be music. Anything else
// could stop whoever opens it, as a pipe does that nobody writes to.
std::optional<std::uint64_t> PlayableSize(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return std::nullopt;
    }
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > kLargestFile) {
        return std::nullopt;
    }
    return size;
}

}  // namespace

PlayedFile::PlayedFile(GraphDesk& desk, std::shared_ptr<GraphEntry> entry,
                       const SinkMaker& makeSink)
    : desk_(desk), entry_(std::move(entry)), makeSink_(makeSink) {
    Begin();
}

void PlayedFile::Begin() {
    const std::string path = ResolvePath(entry_->file);
    const std::optional<std::uint64_t> size = PlayableSize(path);
    if (size) {
        pipeline_ = std::make_unique<Pipeline>(makeSink_, [&desk = desk_] { desk.Wake(); });
    }
    if (!pipeline_ || !pipeline_->Open(path, *size)) {
        Fail();
        return;
    }
    phase_ = Phase::Opening;
    settleBy_ = std::chrono::steady_clock::now() + kSettleTime;
}

bool PlayedFile::IsWanted() const {
    const std::scoped_lock lock(desk_.mutex);
    return pipeline_ != nullptr && !entry_->orders.closing;
}

std::optional<PlayedFile::Time> PlayedFile::Service(Time now) {
    Read(pipeline_->Poll());
    if (IsUnderWay() && now >= settleBy_) {
        Fail();
    }
    if (pipeline_ && phase_ != Phase::Opening) {
        Follow(TakeOrders(), now);
    }
    if (!pipeline_) {
        return std::nullopt;
    }
    if (phase_ != Phase::Opening && told_.playing) {
        ReportPlace();
        return now + kReportInterval;
    }
    return IsUnderWay() ? std::optional(settleBy_) : std::nullopt;
}

GraphOrders PlayedFile::TakeOrders() {
    const std::scoped_lock lock(desk_.mutex);
    const GraphOrders orders = entry_->orders;
    atEnd_ = entry_->report.ended;
    if (orders.standAtEnd) {
        target_.reset();
    } else if (orders.position) {
        target_ = orders.position;
        entry_->orders.position.reset();
    }
    return orders;
}

void PlayedFile::Read(const PipelineNews& news) {
    if (news.failed) {
        Fail();
        return;
    }
    if (news.settled && std::exchange(phase_, Phase::Arrived) == Phase::Opening) {
        ReportOpen();
    }
    if (phase_ == Phase::Opening) {
        return;
    }
    if (news.ended) {
        phase_ = Phase::Arrived;
        heardOut_ = true;
        ReportEnd();
    }
    if (news.durationChanged && !lengthIsExact_) {
        ReportDuration();
    }
}

void PlayedFile::ReportDuration() {
    const std::optional<double> duration = pipeline_->Duration();
    const std::scoped_lock lock(desk_.mutex);
    if (duration && !entry_->report.ended) {
        entry_->report.duration = duration;
    }
}

void PlayedFile::ReportOpen() {
    const std::optional<double> duration = pipeline_->Duration();
    {
        const std::scoped_lock lock(desk_.mutex);
        GraphOrders& orders = entry_->orders;
        GraphReport& report = entry_->report;
        report.phase = GraphPhase::Open;
        if (!lengthIsExact_) {
            report.duration = duration;
        }
        if (orders.position && duration && *orders.position >= *duration) {
            orders.position.reset();
            orders.standAtEnd = true;
            report.position = *duration;
            report.ended = true;
        }
    }
    desk_.opened.notify_all();
}

// The length that the file says it has and the place of its last sample differ in some formats.
void PlayedFile::ReportEnd() {
    const std::optional<double> last = pipeline_->Position();
    const std::scoped_lock lock(desk_.mutex);
    if (entry_->orders.position || target_) {
        return;  // it is to go elsewhere
    }
    GraphReport& report = entry_->report;
    const double length =
        std::max({report.duration.value_or(0), report.position, last.value_or(0)});
    report.duration = length;
    report.position = length;
    report.ended = true;
    lengthIsExact_ = true;
}

void PlayedFile::ReportPlace() {
    if (IsUnderWay()) {
        return;
    }
    const std::optional<double> place = pipeline_->Position();
    bool unknown = false;
    {
        const std::scoped_lock lock(desk_.mutex);
        GraphReport& report = entry_->report;
        if (place && !report.ended && !entry_->orders.position) {
            report.position = *place;
        }
        unknown = !report.duration;
    }
    if (unknown) {
        ReportDuration();
    }
}

// Said first: letting go of it can take its time.
void PlayedFile::Fail() {
    desk_.ReportFailed(*entry_);
    pipeline_.reset();
}

void PlayedFile::Follow(const GraphOrders& orders, Time now) {
    if (orders.volume != told_.volume || orders.gain != told_.gain) {
        told_.volume = orders.volume;
        told_.gain = orders.gain;
        pipeline_->SetVolume(orders.volume, orders.gain);
    }
    if (std::exchange(told_.balance, orders.balance) != orders.balance) {
        pipeline_->SetBalance(orders.balance);
    }
    FollowPlace(orders, now);
    const bool play = orders.state == FilterState::Running && !orders.standAtEnd;
    const bool canBeTold = pipeline_ && phase_ != Phase::Opening;
    if (canBeTold && std::exchange(told_.playing, play) != play && !pipeline_->SetPlaying(play)) {
        Fail();
    }
}

// One at a time: where it is put meanwhile is for when it has arrived, and only the last of it.
void PlayedFile::FollowPlace(const GraphOrders& orders, Time now) {
    if (IsUnderWay()) {
        return;
    }
    const bool isPut = target_.has_value();
    if (!isPut && (orders.rate != told_.rate || orders.loop != told_.loop) && !atEnd_) {
        target_ = pipeline_->Position();
    }
    if (!target_) {
        return;
    }
    told_.loop = orders.loop;  // and once only: what has no way for it plays to its end
    const double target = *target_;
    target_.reset();
    phase_ = Phase::Seeking;
    settleBy_ = now + kSettleTime;
    if (SeekTo(target, orders.rate)) {
        return;
    }
    if (orders.rate != told_.rate) {
        TakeBackRate(orders.rate);
        if (SeekTo(target, told_.rate)) {
            return;
        }
    }
    phase_ = Phase::Arrived;
    if (isPut && target <= 0) {
        BeginAnew();
    } else if (isPut) {
        StayInPlace();
    }
}

bool PlayedFile::SeekTo(double target, double rate) {
    if (!pipeline_->Seek(target, rate, told_.loop)) {
        return false;
    }
    told_.rate = rate;
    heardOut_ = false;
    return true;
}

// The program is told the speed that it has.
void PlayedFile::TakeBackRate(double refused) {
    const std::scoped_lock lock(desk_.mutex);
    if (entry_->orders.rate == refused) {
        entry_->orders.rate = told_.rate;
    }
}

void PlayedFile::BeginAnew() {
    pipeline_.reset();
    heardOut_ = false;
    told_ = {};
    Begin();
}

// The program thinks that it is elsewhere.
void PlayedFile::StayInPlace() {
    if (heardOut_) {
        ReportEnd();
        return;
    }
    const std::optional<double> place = pipeline_->Position();
    const std::scoped_lock lock(desk_.mutex);
    if (place && !entry_->orders.position) {
        entry_->report.position = *place;
    }
}

}  // namespace scenara
