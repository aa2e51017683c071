#include "ui/dialogs/frmImportReport.h"

#include "ui/parts/FormParts.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr QSize firstSize(720, 380);

QString LinesOf(const std::vector<ReadRemark>& remarks) {
    QStringList lines;
    for (const ReadRemark& remark : remarks)
        lines << ToText(RemarkLine(remark));
    return lines.join('\n');
}

} // namespace

frmImportReport::frmImportReport(const std::vector<ReadRemark>& remarks, QWidget* owner)
    : QDialog(owner), txtRemarks_(Named(new QPlainTextEdit(LinesOf(remarks)), "txtRemarks", "Bemerkungen")) {
    setObjectName("frmImportReport");
    setWindowTitle("Pirol - Java importieren");
    txtRemarks_->setReadOnly(true);
    txtRemarks_->setTabChangesFocus(true);
    // The lines are to be selected and copied with the keyboard too, so the box shows its caret.
    txtRemarks_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto* const cmdCopy =
        NewIconButton("cmdCopy", "&Kopieren", "copy", "Kopiert die markierten Zeilen, ohne Markierung alle (Strg+C)");
    QPushButton* const cmdClose = NewCloseButton(this);
    auto* const all = new QVBoxLayout(this);
    all->addWidget(NewNote("Der Quelltext ist eingelesen. Das steht nicht oder nicht ebenso im Entwurf:", 60));
    all->addWidget(txtRemarks_, 1);
    all->addLayout(NewButtonRow({cmdCopy, cmdClose}));

    connect(cmdCopy, &QPushButton::clicked, this, &frmImportReport::Copy);
    FitToScreen(this, firstSize);
    cmdClose->setFocus();
}

void frmImportReport::Copy() {
    if (txtRemarks_->textCursor().hasSelection())
        txtRemarks_->copy();
    else
        QApplication::clipboard()->setText(txtRemarks_->toPlainText());
}

} // namespace pirol
