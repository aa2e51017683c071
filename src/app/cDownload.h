#pragma once

#include "app/Transport.h"
#include "app/VersionList.h"
#include "app/VersionLookup.h"
#include "base/RuntimeError.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace pirol {

/// Where a download grows. What fails raises RuntimeError with the file error, or UpdateError.
class DownloadTarget {
  public:
    virtual ~DownloadTarget() = default;

    /// Takes the place for this program alone; what there is of other files goes. Nothing happens when it is taken.
    virtual void Hold() = 0;
    /// The bytes there are, also from a run before.
    virtual std::uint64_t Size() = 0;
    virtual void Append(std::string_view bytes) = 0;
    /// Removes what there is.
    virtual void Clear() = 0;
    /// The mark by which the server can tell whether its file is still the one that these bytes come from.
    virtual std::string Mark() = 0;
    virtual void SetMark(const std::string& mark) = 0;
    /// The SHA-256 of what there is, 64 lower-case hexadecimal digits.
    virtual std::string Hash() = 0;
    /// Gives the file its own name.
    virtual std::filesystem::path Finish() = 0;
};

/// Loads an offered file. It goes on where it broke off, in this run or one before, fetches no byte twice, and the file
/// counts only when its size and hash are those of the signed list. A connection that breaks is taken up again by
/// itself as long as that brings anything.
class cDownload : private TransportListener {
  public:
    enum class State {
        Idle, ///< also when it was paused
        Loading,
        Failed, ///< Start tries it again
        Complete,
    };

    /// `changed` is called whenever the state or the number of bytes has changed. All that is passed must outlive the
    /// download.
    cDownload(Transport& transport, DownloadTarget& target, OfferedFile file, std::string url, SteadyClock clock,
              std::function<void()> changed);
    ~cDownload() override;

    /// Takes the place and sees what there is from a run before; a file that is whole is complete at once.
    void Prepare();
    /// Begins, or goes on.
    void Start();
    /// Stops and keeps what there is.
    void Pause();
    /// Stops and removes what there is.
    void Cancel();

    State CurrentState() const { return state_; }
    std::uint64_t Size() const { return file_.size; }
    /// The bytes there are.
    std::uint64_t Loaded() const { return loaded_; }
    /// Over the last seconds; 0 when nothing has come in them.
    double BytesPerSecond() const;
    /// Why it failed.
    UpdateFault Fault() const { return fault_; }
    /// The error of a file operation that nobody foresaw, labelled "Update.DownloadCompleted" when it happened at the
    /// end; nothing when the fault says all.
    const std::optional<RuntimeError>& Error() const { return error_; }
    /// The file that may be run, when it is complete.
    const std::filesystem::path& File() const { return path_; }

  private:
    void Answered(const WebAnswer& answer) override;
    void Received(std::string_view bytes) override;
    void Ended(std::optional<UpdateFault> fault) override;

    template <class Operation>
    void Guarded(Operation operation);
    void Request();
    void AcceptWhole(const WebAnswer& answer);
    void AcceptRest(const WebAnswer& answer);
    void BeginAnew();
    void GoOnAfter(UpdateFault fault);
    void Complete();
    void Fail(UpdateFault fault);
    void Change(State state);

    struct Sample {
        std::chrono::steady_clock::time_point time;
        std::uint64_t loaded;
    };

    Transport& transport_;
    DownloadTarget& target_;
    OfferedFile file_;
    std::string url_;
    SteadyClock clock_;
    std::function<void()> changed_;
    State state_ = State::Idle;
    UpdateFault fault_ = {};
    std::optional<RuntimeError> error_;
    std::filesystem::path path_;
    std::uint64_t loaded_ = 0;
    std::uint64_t from_ = 0; ///< where the present request began
    int vainRequests_ = 0;   ///< in a row that brought next to nothing
    bool beganAnew_ = false; ///< an answer that fits nothing is asked once more from the beginning
    std::deque<Sample> samples_;
};

} // namespace pirol
