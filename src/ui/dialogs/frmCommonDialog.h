#pragma once

#include "app/cCommonDialog.h"

class QCoreApplication;

namespace pirol {

/// Makes the toolkit's own texts (buttons of its dialogs, menus of its text fields) German. Call it once, before the
/// first window. Without the German texts on the machine they stay as they are; the program's own are not affected.
void SpeakGerman(QCoreApplication& application);

/// The platform's own dialogs where it has some, else the toolkit's.
class frmCommonDialog : public cCommonDialog {
  public:
    std::string ShowOpen(const FileDialogSetup& setup) override;
    std::string ShowSave(const FileDialogSetup& setup) override;
    std::optional<std::uint32_t> ShowColor(std::uint32_t current) override;
    std::optional<FontChoice> ShowFont(const FontChoice& current) override;
    std::optional<PrintJob> ShowPrinter() override;
    void Information(std::string_view text) override;
    void Critical(std::string_view title, std::string_view text) override;
    bool Question(std::string_view text) override;
    void Wait(const std::function<void()>& work) override;
};

} // namespace pirol
