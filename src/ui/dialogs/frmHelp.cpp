#include "ui/dialogs/frmHelp.h"

#include "app/Handbook.h"
#include "ui/dialogs/EmbeddedHandbook.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/HelpAnchor.h"
#include "ui/parts/RowList.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextFrame>
#include <QVBoxLayout>

#include <algorithm>

namespace pirol {
namespace {

constexpr QSize usualSize(1000, 680);
constexpr int listWidth = 280;
constexpr int lastListedLevel = 3; // deeper headings are places to lead to
constexpr int mostMarked = 1000;

/// A browser whose pictures come from the program itself and are never wider than the text.
class HandbookBrowser : public QTextBrowser {
  public:
    QVariant loadResource(int type, const QUrl& name) override {
        const std::string_view bytes = EmbeddedHandbook(name.fileName().toStdString());
        if (type != QTextDocument::ImageResource || bytes.empty())
            return {};
        QPixmap picture;
        picture.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<uint>(bytes.size()));
        const int room = window()->width() - listWidth - 80;
        return picture.width() <= room ? picture : picture.scaledToWidth(room, Qt::SmoothTransformation);
    }
};

} // namespace

frmHelp::frmHelp(QWidget* owner)
    : QDialog(owner), txtSearch_(Named(new QLineEdit, "txtSearch", "Im Handbuch suchen")),
      lstChapters_(Named(new RowList, "lstChapters", "Kapitel")),
      lblNothing_(Named(new QLabel("Nicht gefunden"), "lblNothing", "Nicht gefunden")),
      txtHandbook_(Named(new HandbookBrowser, "txtHandbook", "Handbuch")) {
    setObjectName("frmHelp");
    setWindowTitle("Pirol - Handbuch");
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    FitToScreen(this, usualSize);

    auto* const lblSearch = new QLabel("S&uchen:");
    lblSearch->setBuddy(txtSearch_);
    txtSearch_->setPlaceholderText("Strg+F");
    txtSearch_->setToolTip("Die Eingabetaste geht zur nächsten Stelle, mit der Umschalttaste zurück");
    txtSearch_->setClearButtonEnabled(true);
    lblNothing_->setAlignment(Qt::AlignCenter);
    lblNothing_->hide();
    lstChapters_->setToolTip("Ein Klick zeigt das Kapitel");
    txtHandbook_->setToolTip("Strg + Mausrad ändert die Schriftgröße");
    txtHandbook_->setOpenLinks(false);
    txtHandbook_->document()->setDocumentMargin(16);
    txtHandbook_->setMarkdown(ToText(EmbeddedHandbook("Handbuch.md")));
    ListChapters();

    auto* const columns = new QSplitter;
    auto* const left = new QWidget;
    auto* const rows = new QVBoxLayout(left);
    rows->setContentsMargins(0, 0, 0, 0);
    auto* const searching = new QHBoxLayout;
    searching->addWidget(lblSearch);
    searching->addWidget(txtSearch_, 1);
    rows->addLayout(searching);
    rows->addWidget(lstChapters_, 1);
    rows->addWidget(lblNothing_);
    columns->addWidget(left);
    columns->addWidget(txtHandbook_);
    columns->setSizes({listWidth, width() - listWidth});
    columns->setStretchFactor(1, 1);
    auto* const all = new QVBoxLayout(this);
    all->addWidget(columns, 1);
    all->addWidget(NewCloseButton(this), 0, Qt::AlignRight);
    lstChapters_->setFocus();

    connect(txtSearch_, &QLineEdit::textChanged, this, &frmHelp::Search);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        txtSearch_->setFocus(Qt::ShortcutFocusReason);
        txtSearch_->selectAll();
    });
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this, [this] { ShowNextMatch(false); });
    connect(new QShortcut(QKeySequence::FindPrevious, this), &QShortcut::activated, this,
            [this] { ShowNextMatch(true); });
    connect(lstChapters_, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (item != nullptr)
            ShowBlock(item->data(Qt::UserRole).toInt());
    });
    connect(txtHandbook_, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& link) { ShowChapter(link.fragment(QUrl::FullyDecoded).toStdString()); });
}

/// Markdown marks headings but gives them no anchors.
void frmHelp::ListChapters() {
    for (QTextBlock block = txtHandbook_->document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level < 2)
            continue;
        if (level <= lastListedLevel)
            lstChapters_->addItem(QString(qsizetype{4} * (level - 2), ' ') + block.text());
        headings_.push_back({ChapterAnchor(block.text().toStdString()), block.position(), lstChapters_->count() - 1});
        if (level <= lastListedLevel)
            lstChapters_->item(headings_.back().row)->setData(Qt::UserRole, block.position());
    }
}

void frmHelp::ShowBlock(int position) {
    const QTextDocument* const document = txtHandbook_->document();
    const QRectF box = document->documentLayout()->blockBoundingRect(document->findBlock(position));
    txtHandbook_->verticalScrollBar()->setValue(static_cast<int>(box.top() - document->documentMargin()));
}

void frmHelp::ShowChapter(std::string_view anchor) {
    const auto heading = std::find_if(headings_.begin(), headings_.end(),
                                      [anchor](const Heading& candidate) { return candidate.anchor == anchor; });
    if (heading == headings_.end())
        return;
    txtSearch_->clear(); // or its chapter might be hidden
    lstChapters_->setCurrentRow(heading->row);
    ShowBlock(heading->position);
}

void frmHelp::Search(const QString& text) {
    const QString wanted = text.trimmed();
    const QString all = txtHandbook_->document()->toPlainText();
    bool isAnyShown = false;
    for (int row = 0; row < lstChapters_->count(); ++row) {
        const auto positionOf = [this](int chapter) { return lstChapters_->item(chapter)->data(Qt::UserRole).toInt(); };
        const int begin = positionOf(row);
        const qsizetype end = row + 1 < lstChapters_->count() ? positionOf(row + 1) : all.size();
        const bool isShown = QStringView(all).mid(begin, end - begin).contains(wanted, Qt::CaseInsensitive);
        lstChapters_->item(row)->setHidden(!isShown);
        isAnyShown = isAnyShown || isShown;
    }
    lblNothing_->setVisible(!isAnyShown);
    MarkMatches(wanted);
    txtHandbook_->moveCursor(QTextCursor::Start);
    if (!wanted.isEmpty())
        ShowNextMatch(false);
}

void frmHelp::MarkMatches(const QString& text) {
    QList<QTextEdit::ExtraSelection> marks;
    const QTextDocument* const document = txtHandbook_->document();
    for (QTextCursor found = text.isEmpty() ? QTextCursor() : document->find(text, 0);
         !found.isNull() && marks.size() < mostMarked; found = document->find(text, found)) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = found;
        mark.format.setBackground(palette().color(QPalette::Highlight));
        mark.format.setForeground(palette().color(QPalette::HighlightedText));
        marks.push_back(mark);
    }
    txtHandbook_->setExtraSelections(marks);
}

void frmHelp::ShowNextMatch(bool backward) {
    const QString text = txtSearch_->text().trimmed();
    const QTextDocument::FindFlags direction = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (text.isEmpty() || txtHandbook_->find(text, direction))
        return;
    txtHandbook_->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    txtHandbook_->find(text, direction);
}

/// Enter would press the button that closes.
void frmHelp::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && txtSearch_->hasFocus())
        ShowNextMatch(event->modifiers().testFlag(Qt::ShiftModifier));
    else
        QDialog::keyPressEvent(event);
}

void frmHelp::ShowFor(QWidget* window) {
    auto* help = window->findChild<frmHelp*>(QString(), Qt::FindDirectChildrenOnly);
    if (help == nullptr)
        help = new frmHelp(window);
    const std::string part =
        window->isAncestorOf(QApplication::focusWidget()) ? HelpAnchorOf(QApplication::focusWidget()) : std::string();
    help->show();
    help->raise();
    help->activateWindow();
    help->ShowChapter(part.empty() ? ChapterOf(window->objectName().toStdString()) : part);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1 ||
        qobject_cast<frmHelp*>(widget->window()) != nullptr)
        return false;
    frmHelp::ShowFor(widget->window());
    return true;
}

} // namespace pirol
