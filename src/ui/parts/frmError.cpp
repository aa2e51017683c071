#include "ui/parts/frmError.h"

#include "app/ErrorReport.h"
#include "ui/parts/FormParts.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

namespace pirol {

frmError::frmError(const RuntimeError& error, QWidget* owner) : QDialog(owner), txtError_(new QPlainTextEdit) {
    setObjectName("frmError");
    setWindowTitle("Pirol - Fehlermeldung");

    Named(txtError_, "txtError", "Fehlerbericht");
    txtError_->setReadOnly(true);
    txtError_->setTabChangesFocus(true);
    // The report is to be selected and copied with the keyboard too, so it shows its caret.
    txtError_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    txtError_->setPlainText(ToText(ErrorReportText(error.ErrorNumber(), error.Description(), error.Label())));
    txtError_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    txtError_->setMinimumHeight(txtError_->fontMetrics().lineSpacing() * 7);

    auto* lblHandling = Named(NewNote(ToLines(ErrorAdvice()), 64), "lblHandling", "Was Sie tun können");
    lblHandling->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // The narrowest form needs the most lines for the advice; a box layout alone would cut it off there.
    lblHandling->setMinimumHeight(lblHandling->heightForWidth(lblHandling->minimumWidth()));

    auto* cmdCopy = NewButton("cmdCopy", "&Kopieren");
    auto* cmdClose = NewCloseButton(this);
    cmdCopy->setAutoDefault(true); // Enter presses the button that has the focus

    auto* texts = new QVBoxLayout;
    texts->addWidget(txtError_, 1);
    texts->addWidget(lblHandling);

    auto* report = new QHBoxLayout;
    report->addWidget(NewPicture(style()->standardIcon(QStyle::SP_MessageBoxCritical).pixmap(32, 32)));
    report->addLayout(texts, 1);

    auto* all = new QVBoxLayout(this);
    all->addLayout(report, 1);
    all->addLayout(NewButtonRow({cmdCopy, cmdClose}));

    connect(cmdCopy, &QPushButton::clicked, this, &frmError::CopyReport);
    cmdClose->setFocus();
    QApplication::beep();
}

void frmError::CopyReport() {
    QApplication::clipboard()->setText(txtError_->toPlainText());
}

bool ReportErrors(QWidget* owner, const std::function<void()>& operation) {
    const std::optional<RuntimeError> error = ErrorOf(operation);
    if (!error)
        return true;
    frmError(*error, owner).exec();
    return false;
}

bool ReportErrorsLater(QWidget* owner, const std::function<void()>& operation) {
    const std::optional<RuntimeError> error = ErrorOf(operation);
    if (!error)
        return true;
    QTimer::singleShot(0, qApp, [error = *error, owner = QPointer<QWidget>(owner)] {
        // A dialog that was closed by the same click can own nothing any more.
        frmError(error, owner != nullptr && owner->isVisible() ? owner.data() : QApplication::activeWindow()).exec();
    });
    return false;
}

} // namespace pirol
