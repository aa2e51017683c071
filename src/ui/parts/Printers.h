#pragma once

#include "app/cCommonDialog.h"

#include <functional>
#include <optional>

class QPagedPaintDevice;
class QString;
class QWidget;

namespace pirol {

/// The printers that the system knows.
class Printers {
  public:
    virtual ~Printers() = default;

    /// Asks for a printer and what to print on it; nothing when the user cancelled.
    virtual std::optional<PrintJob> Ask(QWidget* owner) = 0;

    /// Has the pages painted for the job's printer. False when there is none of that name, or when it fails.
    virtual bool Print(const PrintJob& job, const QString& documentName,
                       const std::function<void(QPagedPaintDevice&)>& paint) = 0;
};

} // namespace pirol
