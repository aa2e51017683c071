#pragma once

#include "controls/ComponentKind.h"

#include <string_view>

/// Behaviour that looks like a mistake and is meant. Saved projects, generated programs and the habits of users rely on
/// it, so each oddity lives here, once, and nowhere else.
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

/// The toolbar's caption of the picture kind; the menu spells it right.
constexpr std::string_view pictureToolbarLabel = "Mutlimedia: Bild";

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
