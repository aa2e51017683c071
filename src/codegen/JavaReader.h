#pragma once

#include "codegen/JavaRemarks.h"
#include "model/ProjectModel.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

namespace pirol {

/// Reading all that a Java source says about its window, whoever wrote it. Beside the simple import (JavaImport.h),
/// which looks for the generator's own statements only.

/// What a source gave.
struct JavaReading {
    ProjectModel model;
    std::vector<ReadRemark> remarks; ///< in the order of the lines, then those that concern none
    bool hasWindowSize = false;      ///< the source names the window's size

    /// Whether anything was found. If not, the source was no window of SuM.
    bool FoundAnything() const;
};

/// Reads a source, given as a file's bytes: UTF-8 with or without mark, or Windows-1252.
///
/// The design holds the window's size, the components with names, positions, texts and values, the events that are
/// registered, the menu bar, and the database; its SQL settings are empty when the source connects to none.
/// - Components count wherever the window's class makes them; what is called on them counts where it runs before the
///   user does anything, or in the method that makes them, and registrations everywhere. Of several classes it is the
///   one that extends EBAnwendung.
/// - Numbers may be expressions of literals and of variables that never change; fractions are rounded half to even.
/// - Texts are taken as typed between the quotes, escapes included, so that the generator writes the same literal
/// again.
/// - Names are made valid and distinct; x[0] becomes x0. What has no variable is named as the designer would.
/// What cannot be read is left out and named in a remark.
///
/// Takes any bytes, in linear time and with memory in proportion. Raises RuntimeError::OutOfMemory only, under the
/// label "Main.File.Import.Analyse".
JavaReading ReadJava(std::string_view bytes);

/// The same for a file; raises the error of a file that cannot be read, too.
JavaReading ReadJavaFile(const std::filesystem::path& path);

/// A property that the generator writes nowhere, so that no source can give it back.
struct NotInJava {
    ComponentKind kind;
    std::string_view key;    ///< of the property's row
    std::string_view remark; ///< rows of one remark stand together
};

/// All of them. Besides, a source holds neither the project's author, deleted components and numbers given at
/// placement, nor whether the buttons of a group without any would tell their clicks.
inline constexpr std::array<NotInJava, 15> notInJava = {{
    {ComponentKind::TextField, keys::align.key, "Die Ausrichtung von Textfeldern steht nicht in Java."},
    {ComponentKind::Password, keys::align.key, "Die Ausrichtung von Kennwortfeldern steht nicht in Java."},
    {ComponentKind::OptionGroup, keys::left.key,
     "Rahmen von Radiogruppen und gewählte Radioknöpfe stehen nicht in Java; der Rahmen umschließt nun die Knöpfe."},
    {ComponentKind::OptionGroup, keys::top.key, {}},
    {ComponentKind::OptionGroup, keys::width.key, {}},
    {ComponentKind::OptionGroup, keys::height.key, {}},
    {ComponentKind::OptionGroup,
     keys::optionbuttons.key,
     {}}, // which is selected; the positions are in the group's box
    {ComponentKind::Sound, keys::left.key, "Wo das Symbol eines Tons liegt, steht nicht in Java."},
    {ComponentKind::Sound, keys::top.key, {}},
    {ComponentKind::Sound, keys::width.key, {}},
    {ComponentKind::Sound, keys::height.key, {}},
    {ComponentKind::Movie, keys::left.key, "Wo ein Film liegt und wie groß er ist, steht nicht in Java."},
    {ComponentKind::Movie, keys::top.key, {}},
    {ComponentKind::Movie, keys::width.key, {}},
    {ComponentKind::Movie, keys::height.key, {}},
}};

} // namespace pirol
