#pragma once

#include "app/cCommonDialog.h"
#include "app/ProgramStarter.h"
#include "codegen/JavaGenerator.h"
#include "model/ProjectModel.h"

#include <string>

namespace pirol {

/// The commands that take the generated source out of the designer. A cancelled dialog ends each of them silently, and
/// none asks before it writes. They raise RuntimeError under the label "Main.Project.Export" or
/// "Main.File.Java.GenerateCode".

/// Lets the user name a new folder and writes a BlueJ project into it. Gives the folder, empty when cancelled.
std::string ExportBlueJ(const ProjectModel& model, CodeOptions options, cCommonDialog& dialogs);

/// Let the user name a file and write the source into it, over the beginning of what was there. Both write the same.
/// Give the file, empty when cancelled.
std::string ExportJava(const ProjectModel& model, CodeOptions options, cCommonDialog& dialogs);
std::string ExportText(const ProjectModel& model, CodeOptions options, cCommonDialog& dialogs);

/// Start BlueJ without a project, or minimised with the one that has been exported into the folder, when its path names
/// a file; else nothing happens. Raise RuntimeError under the label "Main.File.StartBlueJ".
void StartBlueJ(const std::string& blueJPath, ProgramStarter& starter);
void StartBlueJOn(const std::string& folder, const std::string& blueJPath, ProgramStarter& starter);

} // namespace pirol
