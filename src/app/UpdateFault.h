#pragma once

#include <exception>
#include <optional>
#include <string_view>

namespace pirol {

/// Why an online update does not go on.
enum class UpdateFault {
    NoSource, ///< the build has none
    NoConnection,
    NameNotFound,
    ProxyWantsPassword,
    UntrustedServer,
    ConnectionLost,
    TimedOut,
    Redirected,
    WebPage, ///< a page came in place of the file, as networks send it that want a login first
    NotOnServer,
    ServerBusy,
    BadAnswer,
    ListTooLong,
    ListUnreadable,
    ListNotSigned,
    ListExpired,
    ListOutdated, ///< an older list than one that was seen before
    OlderVersion,
    NothingForThisSystem,
    OtherFile, ///< not of the size that is signed
    FileTooLong,
    FileDamaged,
    DiskFull,
    FolderUnusable,
    FolderNotPrivate,
    AnotherProgram, ///< is loading already
    Count,
};

/// What the user is told of a build without a source.
constexpr const char* noUpdateSource = "Diese Fassung von Pirol weiß keinen Server, auf dem neue Versionen liegen";

/// What the user is told: what happened and what to do about it. German, UTF-8, one paragraph.
std::string_view MessageOf(UpdateFault fault);

/// The fault that a server's answer means by its status alone; nothing for those that a request may expect: 200, 206
/// and 416.
std::optional<UpdateFault> FaultOfStatus(int status);

/// Ends an operation of the online update.
class UpdateError : public std::exception {
  public:
    explicit UpdateError(UpdateFault fault) : fault_(fault) {}

    UpdateFault Fault() const { return fault_; }
    const char* what() const noexcept override { return MessageOf(fault_).data(); }

  private:
    UpdateFault fault_;
};

} // namespace pirol
