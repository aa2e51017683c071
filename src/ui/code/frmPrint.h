#pragma once

#include "app/cCommonDialog.h"

#include <QDialog>

#include <functional>

class QLabel;
class QTextDocument;

namespace pirol {

/// Asks for the typeface and whether to print on a printer or into a PDF file, and prints a text with its colours, page
/// by page with page numbers; long lines are wrapped. A PDF file is replaced in one step. What cannot be written is
/// reported under the label "Main.Code.Print", and the form stays.
class frmPrint : public QDialog {
    Q_OBJECT

  public:
    frmPrint(const QTextDocument& text, cCommonDialog& dialogs, QWidget* owner);

  private:
    void ChooseFont();
    void PrintOnPrinter();
    void PrintIntoPdf();
    void Print(const PrintJob& job);
    void ShowFont();

    const QTextDocument& text_;
    cCommonDialog& dialogs_;
    FontChoice font_;
    QLabel* lblFont_;
};

} // namespace pirol
