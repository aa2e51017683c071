#pragma once

#include "sql/SQLModule.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace pirol {

/// One step of the wizard.
struct SQLWizardStep {
    std::string_view title;
    std::string_view heading; ///< stands over the fields, or in the frame around them
    std::span<const SQLField> fields;
    std::span<const std::string_view> notes; ///< one line each
    std::string_view forwardCaption;
};

/// The wizard for the project's database access without its window. The texts and choices entered are held here; only
/// Finish hands them over, so that a wizard that is simply closed leaves the project as it was. Nothing is checked.
class SQLWizard {
  public:
    static constexpr std::string_view title = "Pirol - SQL Generator";
    static constexpr std::string_view backCaption = "<< Zurück";
    /// The columns of the list of predefined methods, which belongs to the last step.
    static constexpr std::array<std::string_view, 2> columns = {"Methodenname", "Beschreibung"};

    static std::span<const SQLWizardStep> Steps();

    /// Opens at the first step with the project's settings in the fields.
    explicit SQLWizard(const SQLSettings& settings) : entered_(settings) {}

    /// The step shown, as its place in Steps(), and that step's texts.
    std::size_t StepIndex() const { return step_; }
    const SQLWizardStep& Step() const { return Steps()[step_]; }
    bool IsFirstStep() const { return step_ == 0; }
    bool IsLastStep() const { return step_ + 1 == Steps().size(); }

    /// One step back or on; at the first and the last step they stay where they are.
    void Back();
    void Forward();

    const std::string& Text(const SQLField& field) const { return entered_.*field.text; }
    void SetText(const SQLField& field, std::string text) { entered_.*field.text = std::move(text); }

    /// Whether the row of SQLFunctions() is checked, from 0.
    bool IsChosen(std::size_t row) const { return entered_.HasFunction(row); }
    void Choose(std::size_t row, bool chosen) { entered_.Flags.at(row) = chosen ? 1 : 0; }

    /// Takes the five texts and the choices over into the project's settings; a flag becomes 1 or 0.
    void Finish(SQLSettings& settings) const;

  private:
    SQLSettings entered_;
    std::size_t step_ = 0;
};

} // namespace pirol
