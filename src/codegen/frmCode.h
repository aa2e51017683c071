#pragma once

#include "codegen/SyntaxHighlighter.h"

#include <QDialog>

#include <string_view>
#include <vector>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace pirol {

/// The code viewer: shows Java source read-only and coloured, with search and zoom. Nothing flows back into the design.
class frmCode : public QDialog {
    Q_OBJECT

  public:
    /// `source` is UTF-8 with CR LF. Opens in the middle of its owner.
    frmCode(std::string_view source, QWidget* owner);

    QPlainTextEdit* SourceBox() const { return rtfCode_; }

  private:
    QLayout* NewFindBar();
    QLayout* NewButtonRow();
    void ColourVisibleText();
    void StartFinding();
    void Find(bool forward);
    void Zoom(int steps);

    QPlainTextEdit* rtfCode_;
    QLineEdit* txtFind_ = nullptr;
    QLabel* lblFound_ = nullptr;
    std::vector<ColourSpan> spans_;
    std::size_t colouredBegin_ = 0; ///< the stretch of text that is coloured now
    std::size_t colouredEnd_ = 0;
    bool colouring_ = false;
    double usualPointSize_ = 0;
};

} // namespace pirol
