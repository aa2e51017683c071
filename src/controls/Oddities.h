#pragma once

#include "controls/ComponentKind.h"

#include <string_view>

/// Behaviour that looks like a mistake and is meant. Saved projects, generated programs and the habits of users rely on
/// it, so each oddity is written once: here, or in the table or header that it belongs to. Those are
///
/// - controls/ComponentKind.h: the toolbar's caption "Mutlimedia: Bild"; a Kennwortfeld is named "hatPasswortfeld"
/// - controls/PropertyTable.h: the property "value" of the start value, the only one with a small letter
/// - controls/dMusik.cpp: the word "dekommentieren" in generated programs
/// - base/JavaText.h, menu/cMenu.h, sql/SQLModule.h: values are written into Java without escaping
/// - menu/cMenu.h: event methods whose names Java does not allow; menu/MenuEditor.cpp: the proposed name spells out
///   small umlauts only
/// - sql/SQLModule.cpp: generated programs compare texts by reference; sql/SQLWizard.cpp: a sentence that lacks a word
/// - model/ProjectModel.h: an emptied design keeps its database settings
/// - codegen/ProjectExport.h: exports do not cut off what a longer file held
/// - codegen/SyntaxHighlighter.h: the name HightlightSyntax, and colours that run on to the next blank
/// - designer/Grid.h: negative values snap towards zero
/// - designer/MainLayout.h: a canvas may lie under a scroll bar; MainLayout.cpp: the first preset's height
/// - app/ErrorReport.cpp: marks inside an error's description are replaced, too
namespace pirol::oddities {

/// The two text areas are crossed: the toolbar entry "Zeichenbereich" places a dZeilenbereich and the other way round,
/// and so does reading their codes from a project file. Every other kind is itself.
constexpr ComponentKind CrossTextAreas(ComponentKind kind) {
    if (kind == ComponentKind::CharField)
        return ComponentKind::RowField;
    return kind == ComponentKind::RowField ? ComponentKind::CharField : kind;
}

/// The Delete key does not recognise sliders and progress bars: they are hidden like all others, but their kind is
/// never emptied, so its numbering goes on.
constexpr bool DeleteKeyEmptiesKind(ComponentKind kind) {
    return kind != ComponentKind::Slider && kind != ComponentKind::ProgressBar;
}

/// The file chooser for films speaks of pictures.
constexpr std::string_view movieFilter = "Bilder (*.mov, *.aif, *.mpg)|*.mov; *.aif; *.mpg";

/// The bitmap between two column titles of a table is stored under this name.
constexpr std::string_view tableSeparatorBitmap = "TABLE_SEPERATOR";

/// The third line says "aufgetreten" twice.
constexpr std::string_view errorReportTemplate = "Fehlernummer: #nr\r\n"
                                                 "Fehlerbeschreibung: #desc\r\n"
                                                 "\r\n"
                                                 "Aufgetreten ist innerhalb folgender Funktion aufgetreten:\r\n"
                                                 "#func";

} // namespace pirol::oddities
