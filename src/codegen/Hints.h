#pragma once

#include "codegen/JavaGenerator.h"
#include "model/ProjectModel.h"

#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// Hints for the user: where the program generated from a design would not do what the design shows. The generator
/// writes what it is given; the hints say beforehand what will come of it. A design without hints compiles.

/// What becomes of the generated program.
enum class HintEffect {
    DoesNotCompile, ///< the Java compiler rejects it
    WorksWrongly,   ///< it compiles, but ends at once, shows something else or lacks something
};

/// What part of the project has to be changed; the program stands for no part in particular.
enum class HintSubject { Program, Window, Component, MenuBar, Database };

/// One reason for hints.
struct HintRule {
    std::string_view key;   ///< short English name, e.g. "duplicate-name"
    std::string_view title; ///< what the handbook calls it, German
    HintEffect effect;
    std::string_view message; ///< German; "#" stands for the detail
};

struct Hint {
    const HintRule* rule;
    std::string text; ///< one German line, UTF-8: where, then what; texts of the design in it are shortened
    HintSubject subject;
    std::optional<ComponentRef> component; ///< of the subject Component
    std::string_view property;             ///< key of that component's row in the property list; may be empty

    bool operator==(const Hint&) const = default;
};

/// A list longer than this helps nobody; the hints stop there.
constexpr std::size_t mostHints = 1000;

/// All rules there are.
std::span<const HintRule> HintRules();

/// Where the user changes that part, in German; empty for the program.
std::string_view WhereToMend(HintSubject subject);

/// The hints for the program that GenerateCode would write with these options, at most mostHints: window, components in
/// the order of the generated code, menu bar, database, the program as a whole. Looks up whether the files of pictures,
/// sounds and films exist; relative names count from the folder of the project file (UTF-8, empty for none). Linear in
/// the size of the design. Told to stop it ends soon with what it has found until then.
std::vector<Hint> FindHints(const ProjectModel& model, const std::string& projectFile, CodeOptions options,
                            const std::stop_token& stop = {});

} // namespace pirol
