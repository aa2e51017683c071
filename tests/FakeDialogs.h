#pragma once

#include "app/cCommonDialog.h"
#include "app/ProgramStarter.h"
#include "base/RuntimeError.h"

#include <deque>
#include <string>
#include <utility>
#include <vector>

namespace pirol::test {

/// Dialogs that answer from lists prepared by the test and write down what the user would have seen. Where no answer
/// was prepared the user cancels.
class FakeDialogs : public cCommonDialog {
  public:
    std::deque<std::string> paths;
    std::deque<bool> yes;
    std::deque<std::uint32_t> colors;
    std::deque<FontChoice> fonts;
    std::deque<PrintJob> jobs;

    /// What was shown since the last call, one line per dialog.
    std::string TakeSeen() { return std::exchange(seen_, {}); }

    std::string ShowOpen(const FileDialogSetup& setup) override { return File("open", setup); }
    std::string ShowSave(const FileDialogSetup& setup) override { return File("save", setup); }
    std::optional<std::uint32_t> ShowColor(std::uint32_t current) override {
        See("color " + std::to_string(current));
        return Take(colors);
    }
    std::optional<FontChoice> ShowFont(const FontChoice& current) override {
        See("font " + current.Family);
        return Take(fonts);
    }
    std::optional<PrintJob> ShowPrinter() override {
        See("printer");
        return Take(jobs);
    }
    void Information(std::string_view text) override { See("information " + std::string(text)); }
    void Critical(std::string_view title, std::string_view text) override {
        See("critical " + std::string(title) + ": " + std::string(text));
    }
    bool Question(std::string_view text) override {
        See("question " + std::string(text));
        return Take(yes).value_or(false);
    }

  private:
    template <class Answer>
    static std::optional<Answer> Take(std::deque<Answer>& answers) {
        if (answers.empty())
            return std::nullopt;
        Answer answer = std::move(answers.front());
        answers.pop_front();
        return answer;
    }
    std::string File(const char* kind, const FileDialogSetup& setup) {
        See(std::string(kind) + " <" + setup.Filter + "> " + std::to_string(setup.Flags) + " <" + setup.FileName + ">");
        return Take(paths).value_or("");
    }
    void See(const std::string& line) { seen_ += line + "\n"; }

    std::string seen_;
};

/// Writes down what would be started, or refuses.
class FakeStarter : public ProgramStarter {
  public:
    bool refuses = false;
    std::string started; ///< one line per start

    void Start(const std::string& program, const std::string& folder, Window window) override {
        if (refuses)
            throw RuntimeError(RuntimeError::PermissionDenied);
        started += CommandLine(program, folder) + (window == Window::Minimised ? " minimised\n" : " normal\n");
    }
    bool Open(const std::string& file) override {
        started += refuses ? "" : "opened " + file + "\n";
        return !refuses;
    }
};

} // namespace pirol::test
