#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// What shall be started. All texts are UTF-8.
struct ProcessCall {
    std::filesystem::path program;
    std::vector<std::string> arguments;
    std::filesystem::path folder; ///< in which it works; empty for that of this program

    bool operator==(const ProcessCall&) const = default;
};

/// Another program that runs beside this one, with its standard input and output in our hands; what it says on standard
/// error comes with its output. It ends with this object, and with it all that it has started. End may be called from
/// any thread while another one waits in one of the others.
class ChildProcess {
  public:
    enum class Reading { Bytes, Nothing, End };

    virtual ~ChildProcess() = default;

    /// Hands bytes to it and waits until they are taken. False when it has ended.
    virtual bool Write(std::string_view bytes) = 0;
    /// Appends what it has printed; waits for the first bytes as long as said. End when no more will come.
    virtual Reading Read(std::string& out, std::chrono::milliseconds longest) = 0;
    /// Ends it by force.
    virtual void End() = 0;
    /// Waits for its end and gives its exit status; -1 when it was ended by force.
    virtual int Status() = 0;
};

/// Starts such programs, so that tests can play them.
class ProcessStarter {
  public:
    virtual ~ProcessStarter() = default;

    /// Raises RuntimeError with the file error when the system refuses.
    virtual std::unique_ptr<ChildProcess> Start(const ProcessCall& call) = 0;
};

/// The one that really starts them. Their window is what they open themselves: no console comes with them.
class SystemProcessStarter final : public ProcessStarter {
  public:
    std::unique_ptr<ChildProcess> Start(const ProcessCall& call) override;
};

} // namespace pirol
