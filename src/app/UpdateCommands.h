#pragma once

#include "app/cCommonDialog.h"
#include "codegen/JavaUpdate.h"
#include "model/ProjectModel.h"

#include <filesystem>
#include <string>

namespace pirol {

/// How the text of a Java file becomes bytes.
enum class JavaEncoding { Windows1252, Utf8, Utf8WithMark };

/// UTF-8 with or without a mark is told by the bytes; plain ASCII and all else is Windows-1252.
JavaEncoding EncodingOf(std::string_view bytes);
std::string DecodeJava(std::string_view bytes, JavaEncoding encoding);
std::string EncodeJava(std::string text, JavaEncoding encoding);

/// An update of a file that is worked out and not written yet.
struct FileUpdate {
    std::filesystem::path path;
    std::string before; ///< the file's bytes
    std::string after;  ///< what they become; the same when there is nothing to do
    std::string source; ///< the old text, UTF-8
    JavaUpdate update;

    bool Changes() const { return before != after; }
};

/// Reads a Java file and works out its update; encoding and line ends stay. Raises what UpdateJava raises, and
/// RuntimeError under the label "Main.File.Java.Update".
FileUpdate PrepareUpdate(const std::filesystem::path& path, const ProjectModel& model, UpdateOptions options);

/// Writes an update in one step, if it changes anything. The ten versions before stay beside the file: "NAME.bak" is
/// the one just replaced, "NAME.bak1" to "NAME.bak9" are older. False, and nothing is written, when the file was
/// changed since it was read. Raises RuntimeError under the label "Main.File.Java.Update"; the file stays as it was
/// then.
[[nodiscard]] bool WriteUpdate(const FileUpdate& update);

/// Whether BlueJ opens the folder as a project.
bool IsBlueJProject(const std::filesystem::path& folder);

/// The Java file of a BlueJ project, given by its folder or its project file: SuMAnwendung.java, or the only source
/// with a class that extends EBAnwendung. Another path is given back as it is; empty when a project has no such file,
/// or several. Raises RuntimeError under the label "Main.File.Java.Update" for a folder that cannot be read.
std::filesystem::path JavaFileOf(const std::filesystem::path& chosen);

/// Lets the user choose the file to bring up to date, or the BlueJ project that it belongs to. Asks again, and says
/// why, where a project does not tell the file. The path, UTF-8; empty when cancelled. Raises what JavaFileOf raises.
std::string ChooseJavaFile(const std::string& preset, cCommonDialog& dialogs);

} // namespace pirol
