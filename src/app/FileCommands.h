#pragma once

#include "app/cCommonDialog.h"
#include "designer/Document.h"
#include "project/LoadingProgress.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace pirol {

/// The file menu's commands on the project file, with their questions in the order in which the user meets them. None
/// asks whether unsaved changes should be kept. A cancelled dialog changes nothing.

/// The project named on the command line, given as its words without the program's own: what stands there without any
/// double quote. Where there is no such file, the file whose name has the quotes, or the one that an address
/// "file:///..." names. Empty when nothing was named.
std::string ProjectOnCommandLine(std::span<const std::string> words);

/// Puts a project file's design in the place of the present one; a refused one is reported in a message box and leaves
/// an empty design. `progress` may be null. Raises what ReadPRLFile raises; what was read until then stays.
void LoadProject(const std::string& path, Document& document, cCommonDialog& dialogs, LoadingProgress* progress);

/// A size that the designed window of a new project can be given.
struct NewWindowSize {
    std::int16_t width;
    std::int16_t height;
};

/// Those for which the menu of windows has main windows.
inline constexpr NewWindowSize newWindowSizes[] = {{320, 240}, {640, 480}, {800, 600}};
inline constexpr NewWindowSize usualWindowSize = {ProjectModel::defaultWidth, ProjectModel::defaultHeight};

/// Empties the design. The SQL settings stay: a new project goes on with the database of the last one.
void NewProject(Document& document, const NewWindowSize& size = usualWindowSize);

/// Puts the design of a project file's bytes in the place of the present one, as a new project without a file.
/// Raises what ReadPRLBytes raises.
void BeginWithTemplate(Document& document, std::string_view bytes);

/// Lets the user choose a project file and loads it. True when one was chosen, whatever came of it.
bool OpenProject(Document& document, cCommonDialog& dialogs, LoadingProgress* progress);

/// Lets the user choose a file name, asks before an existing file is replaced, and writes the design. Whatever happens
/// meanwhile, the old file or the new one is on disk, whole. True when the design was saved.
/// Raises RuntimeError under the label "Main.File.PRL.GeneratePRLCode".
bool SaveProject(Document& document, cCommonDialog& dialogs);

} // namespace pirol
