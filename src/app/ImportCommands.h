#pragma once

#include "app/cCommonDialog.h"
#include "base/RuntimeError.h"
#include "codegen/JavaRemarks.h"
#include "designer/Document.h"

#include <functional>
#include <string>
#include <vector>

namespace pirol {

/// What came of an import.
struct ImportedJava {
    std::string path;                ///< of the source; empty when the user cancelled, or it could not be read
    std::vector<ReadRemark> remarks; ///< what of it is not in the design, when the user took the full reading
};

/// Lets the user choose a Java source and puts the design that its simple reading gives (JavaImport.h) in the place of
/// this one. When the full reading (JavaReader.h) finds more, it asks once and on yes takes that; both are one step of
/// the history. A fault of the simple reading is handed to `report` before, and what was read until then stays. Tells
/// the user when the source holds no window. SQL settings stay when the source connects to no database.
/// Raises RuntimeError under one of the labels of "Main.File.Import" for a file that cannot be read, which leaves the
/// design as it is, and where memory runs out.
ImportedJava ImportJava(Document& document, cCommonDialog& dialogs,
                        const std::function<void(const RuntimeError&)>& report);

} // namespace pirol
