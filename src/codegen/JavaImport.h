#pragma once

#include "model/ProjectModel.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace pirol {

/// Reading a design back from Java source. A scan for the statements that the generator writes, not a Java parser: only
/// "= new Class(" ... ");" and "variable.method(" ... ");" are recognised. All texts are UTF-8.

/// Empties the design and fills it from the source of a SuMAnwendung: the window's size, the components of thirteen
/// classes with positions, names and texts, and the database connection. Selection boxes, sliders, progress bars,
/// events, menus, column titles and switch states are not read back.
/// Raises RuntimeError under the label of the operation that failed, "Main.File.Import.Analyse", one of those below or
/// one of CallIndex; what was imported before stays. Time grows linearly with the source.
void AnalyseCode(std::string_view source, ProjectModel& model);

/// The source in a file, single-byte text in Windows-1252, as UTF-8. Raises RuntimeError under the same label.
std::string ReadSource(const std::filesystem::path& path);

/// Whether the source names a window's size or gave the design, which AnalyseCode filled from it, a component. If not,
/// it was no window of SuM.
bool FoundAnything(std::string_view source, const ProjectModel& imported);

/// Says that it was none.
inline constexpr std::string_view nothingFoundMessage =
    "Im Quelltext steht weder eine Fenstergröße noch eine Komponente; es wurde nichts eingelesen.";

/// Every creation statement of a class: variable name, a comma and the argument text, without any double quotes; the
/// entries are separated by code 0. Raises RuntimeError under "Main.File.Import.GetAllLines": InvalidCall when a
/// statement has no end.
std::string GetAllLines(std::string_view source, std::string_view javaClass);

/// The argument text, without double quotes, of the first call of the variable's method, or the default when there is
/// none. With an empty method the call is that of the variable itself. Raises RuntimeError under
/// "Main.File.Import.GetValue": InvalidCall when the statement has no end.
std::string GetValue(std::string_view source, std::string_view variable, std::string_view method,
                     std::string_view defaultValue);

} // namespace pirol
