#pragma once

#include "ui/code/CodeBox.h"

#include <QDialog>

#include <functional>
#include <string_view>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTextDocument;

namespace pirol {

/// The code viewer: shows generated source with its colours, to read, search and copy. Nothing flows back into the
/// design.
///
/// Keys: Ctrl+C copies, Ctrl+A selects everything, Ctrl+F searches, F3 and Shift+F3 go to the next and previous hit,
/// Ctrl with plus, minus or 0 zooms, Escape closes the search and then the viewer.
class frmCode : public QDialog {
    Q_OBJECT

  public:
    /// The source is UTF-8.
    frmCode(std::string_view source, QWidget* owner);

    /// Offers a button that calls this with the coloured text.
    void OfferPrinting(std::function<void(QTextDocument&)> print);
    /// Marks a line, which begin with 1, and brings it into sight.
    void ShowLine(std::size_t line);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* NewCommandRow();
    QWidget* NewSearchRow();
    void AddKey(const QKeySequence& keys, const std::function<void()>& command);
    void Copy();
    void OpenSearch();
    void CloseSearch();
    void Search(CodeBox::Direction direction);
    void ShowZoom();

    CodeBox* rtfCode_;
    QWidget* searchRow_;
    QLineEdit* txtFind_;
    QCheckBox* chkCase_;
    QLabel* lblFound_;
    QPushButton* cmdPrint_;
    QPushButton* cmdZoomReset_;
    QLabel* lblLines_;
};

} // namespace pirol
