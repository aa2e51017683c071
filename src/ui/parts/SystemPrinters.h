#pragma once

#include "ui/parts/Printers.h"

namespace pirol {

/// Printing by Qt.
class SystemPrinters : public Printers {
  public:
    std::optional<PrintJob> Ask(QWidget* owner) override;
    bool Print(const PrintJob& job, const QString& documentName,
               const std::function<void(QPagedPaintDevice&)>& paint) override;
};

} // namespace pirol
