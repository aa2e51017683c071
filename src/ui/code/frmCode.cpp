#include "ui/code/frmCode.h"

#include "ui/code/CodeBox.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/RunBeside.h"
#include "ui/parts/TextLine.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <QTextCursor>
#include <QTimer>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr int charactersWide = 100;
constexpr int linesHigh = 36;

QHBoxLayout* NewRow(QWidget* row, std::initializer_list<QWidget*> widgets) {
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* widget : widgets)
        layout->addWidget(widget);
    return layout;
}

} // namespace

frmCode::frmCode(std::string_view source, QWidget* owner)
    : QDialog(owner), rtfCode_(Named(new CodeBox, "rtfCode", "Java-Quelltext")) {
    setObjectName("frmCode");
    setWindowTitle("Pirol - SuMAnwendung.java");
    setWindowFlag(Qt::WindowMaximizeButtonHint);

    QString lines;
    RunBeside([&] { lines = ToLines(source); });
    rtfCode_->ShowSource(lines);
    lblLines_ = Named(new QLabel(QLocale(QLocale::German).toString(rtfCode_->Source().count('\n') + 1) + " Zeilen"),
                      "lblLines", {});
    auto* cmdClose = NewButton("cmdClose", "S&chließen");

    auto* closing = new QHBoxLayout;
    closing->addWidget(lblLines_, 1);
    closing->addWidget(cmdClose);

    auto* all = new QVBoxLayout(this);
    all->addWidget(NewCommandRow());
    all->addWidget(rtfCode_, 1);
    all->addWidget(NewSearchRow());
    all->addLayout(closing);

    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(rtfCode_, &CodeBox::Zoomed, this, &frmCode::ShowZoom);
    AddKey(QKeySequence::Find, [this] { OpenSearch(); });
    AddKey(QKeySequence::FindNext, [this] { Search(CodeBox::Direction::Onward); });
    AddKey(QKeySequence::FindPrevious, [this] { Search(CodeBox::Direction::Backward); });
    AddKey(QKeySequence::ZoomIn, [this] { rtfCode_->Zoom(1); });
    AddKey(Qt::CTRL | Qt::Key_Equal, [this] { rtfCode_->Zoom(1); }); // the plus of keyboards that need Shift for it
    AddKey(QKeySequence::ZoomOut, [this] { rtfCode_->Zoom(-1); });
    AddKey(Qt::CTRL | Qt::Key_0, [this] { rtfCode_->ResetZoom(); });

    const QFontMetrics metrics(rtfCode_->font());
    FitToScreen(this, {metrics.averageCharWidth() * charactersWide, metrics.lineSpacing() * linesHigh});
    rtfCode_->setFocus();
}

QWidget* frmCode::NewCommandRow() {
    auto* cmdCopy = NewIconButton("cmdCopy", "&Kopieren", "copy",
                                  "Kopiert den markierten Text, ohne Markierung den ganzen (Strg+C)");
    auto* cmdSelectAll = NewIconButton("cmdSelectAll", "&Alles auswählen", "selectall", "Strg+A");
    auto* cmdFind = NewIconButton("cmdFind", "&Suchen …", "find", "Strg+F");
    cmdPrint_ = NewIconButton("cmdPrint", "&Drucken …", "print", "Strg+P");
    cmdPrint_->hide();
    auto* cmdZoomOut = NewIconButton("cmdZoomOut", {}, "zoomout", "Schrift verkleinern (Strg+Minus)");
    cmdZoomOut->setAccessibleName("Schrift verkleinern");
    cmdZoomReset_ = NewButton("cmdZoomReset", {}, "Schrift in erster Größe (Strg+0)");
    auto* cmdZoomIn = NewIconButton("cmdZoomIn", {}, "zoomin", "Schrift vergrößern (Strg+Plus)");
    cmdZoomIn->setAccessibleName("Schrift vergrößern");
    ShowZoom();

    auto* row = new QWidget;
    NewRow(row, {cmdCopy, cmdSelectAll, cmdFind, cmdPrint_, cmdZoomOut, cmdZoomReset_, cmdZoomIn})->insertStretch(4);

    connect(cmdCopy, &QPushButton::clicked, this, &frmCode::Copy);
    connect(cmdSelectAll, &QPushButton::clicked, this, [this] {
        rtfCode_->FinishLoading();
        rtfCode_->selectAll();
        rtfCode_->setFocus();
    });
    connect(cmdFind, &QPushButton::clicked, this, &frmCode::OpenSearch);
    connect(cmdZoomOut, &QPushButton::clicked, this, [this] { rtfCode_->Zoom(-1); });
    connect(cmdZoomReset_, &QPushButton::clicked, rtfCode_, &CodeBox::ResetZoom);
    connect(cmdZoomIn, &QPushButton::clicked, this, [this] { rtfCode_->Zoom(1); });
    return row;
}

QWidget* frmCode::NewSearchRow() {
    searchRow_ = new QWidget;
    txtFind_ = Named(new TextLine, "txtFind", "Suchtext");
    txtFind_->setPlaceholderText("Suchtext");
    txtFind_->setToolTip("Wird beim Tippen gesucht, mit Eingabe weiter");
    txtFind_->setClearButtonEnabled(true);
    chkCase_ = Named(new QCheckBox("&Groß-/Kleinschreibung"), "chkCase", "Groß- und Kleinschreibung beachten");
    chkCase_->setToolTip("Nur finden, was genauso geschrieben ist");
    lblFound_ = Named(new QLabel, "lblFound", {});
    lblFound_->setMinimumWidth(lblFound_->fontMetrics().horizontalAdvance("von vorn weitergesucht"));
    auto* cmdFindPrevious = NewIconButton("cmdFindPrevious", "&Vorheriger", "up", "Umschalt+F3");
    auto* cmdFindNext = NewIconButton("cmdFindNext", "&Nächster", "down", "F3");
    NewRow(searchRow_, {txtFind_, chkCase_, cmdFindPrevious, cmdFindNext, lblFound_});
    searchRow_->hide();

    connect(txtFind_, &QLineEdit::textChanged, this, [this] { Search(CodeBox::Direction::WithStart); });
    connect(chkCase_, &QCheckBox::toggled, this, [this] { Search(CodeBox::Direction::WithStart); });
    connect(cmdFindPrevious, &QPushButton::clicked, this, [this] { Search(CodeBox::Direction::Backward); });
    connect(cmdFindNext, &QPushButton::clicked, this, [this] { Search(CodeBox::Direction::Onward); });
    return searchRow_;
}

void frmCode::OfferPrinting(std::function<void(QTextDocument&)> print) {
    connect(cmdPrint_, &QPushButton::clicked, this, [this, print = std::move(print)] {
        rtfCode_->ColourAll();
        print(*rtfCode_->document());
    });
    AddKey(QKeySequence::Print, [this] { cmdPrint_->click(); });
    cmdPrint_->show();
}

void frmCode::ShowLine(std::size_t line) {
    rtfCode_->FinishLoading();
    QTextCursor cursor(rtfCode_->document()->findBlockByNumber(static_cast<int>(line) - 1));
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    rtfCode_->setTextCursor(cursor);
    // The box has its height when it is shown.
    QTimer::singleShot(0, rtfCode_, &CodeBox::centerCursor);
}

void frmCode::AddKey(const QKeySequence& keys, const std::function<void()>& command) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, command);
}

void frmCode::keyPressEvent(QKeyEvent* event) {
    const bool inSearch = txtFind_->hasFocus();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && inSearch)
        Search(event->modifiers().testFlag(Qt::ShiftModifier) ? CodeBox::Direction::Backward
                                                              : CodeBox::Direction::Onward);
    else if (auto* button = qobject_cast<QPushButton*>(focusWidget()); enter && button != nullptr)
        button->click();
    else if (enter)
        event->accept(); // pressing it in the text must not close the viewer
    else if (event->key() == Qt::Key_Escape && searchRow_->isVisible())
        CloseSearch();
    else
        QDialog::keyPressEvent(event);
}

void frmCode::Copy() {
    if (rtfCode_->textCursor().hasSelection())
        rtfCode_->copy();
    else
        QApplication::clipboard()->setText(rtfCode_->Source());
}

void frmCode::OpenSearch() {
    const QString selected = rtfCode_->textCursor().selectedText();
    searchRow_->show();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        txtFind_->setText(selected);
    txtFind_->selectAll();
    txtFind_->setFocus();
}

void frmCode::CloseSearch() {
    searchRow_->hide();
    rtfCode_->setFocus();
}

void frmCode::Search(CodeBox::Direction direction) {
    lblFound_->clear();
    if (txtFind_->text().isEmpty())
        return;
    const auto sensitivity = chkCase_->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
    switch (rtfCode_->Search(txtFind_->text(), direction, sensitivity)) {
    case CodeBox::Found::Ahead:
        break;
    case CodeBox::Found::Nowhere:
        lblFound_->setText("nicht gefunden");
        break;
    case CodeBox::Found::PastTheEnd:
        lblFound_->setText(direction == CodeBox::Direction::Backward ? "vom Ende weitergesucht"
                                                                     : "von vorn weitergesucht");
        break;
    }
}

void frmCode::ShowZoom() {
    const QString percent = QString::number(rtfCode_->ZoomPercent()) + " %";
    cmdZoomReset_->setText(percent);
    cmdZoomReset_->setAccessibleName("Schriftgröße " + percent);
}

} // namespace pirol
