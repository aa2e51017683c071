#pragma once

#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace pirol {

/// A failure while the program runs: what the error report shows to the user.
/// The description is German and belongs to the number; the label names the operation that failed with dot-separated
/// words ("Main.File.PRL.ReadPRLFile") and stays empty until UnderLabel fills it in.
class RuntimeError : public std::exception {
  public:
    enum Number {
        InvalidCall = 5,
        Overflow = 6,
        OutOfMemory = 7,
        IndexOutOfRange = 9,
        TypeMismatch = 13,
        BadFileName = 52,
        FileNotFound = 53,
        DeviceError = 57,
        DiskFull = 61,
        TooManyFiles = 67,
        PermissionDenied = 70,
        PathAccess = 75,
        PathNotFound = 76,
    };

    /// The description of OutOfMemory, ready-made: when memory has run out, none may be left for making a text.
    static constexpr std::string_view outOfMemoryText = "Fehler 7: Nicht genügend Speicher";

    explicit RuntimeError(Number number);

    /// The error for a failed file operation, from the platform's own error code.
    static RuntimeError OfFile(const std::error_code& code);

    int ErrorNumber() const { return number_; }
    const std::string& Description() const { return description_; }
    const std::string& Label() const { return label_; }
    void SetLabel(std::string_view label);

    /// Number, description and label in one German line, UTF-8.
    const char* what() const noexcept override { return text_.c_str(); }

  private:
    int number_;
    std::string description_;
    std::string label_;
    std::string text_;
};

/// Runs an operation under its error label and gives its result.
/// A RuntimeError leaves it carrying the label of the innermost operation that failed; running out of memory leaves it
/// as RuntimeError::OutOfMemory.
template <class Operation>
auto UnderLabel(std::string_view label, Operation&& operation) {
    try {
        return std::forward<Operation>(operation)();
    } catch (RuntimeError& error) {
        if (error.Label().empty())
            error.SetLabel(label);
        throw;
    } catch (const std::bad_alloc&) {
        RuntimeError error(RuntimeError::OutOfMemory);
        error.SetLabel(label);
        throw error;
    }
}

} // namespace pirol
