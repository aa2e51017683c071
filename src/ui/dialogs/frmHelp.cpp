#include "ui/dialogs/frmHelp.h"

#include "app/Handbook.h"
#include "ui/dialogs/EmbeddedHandbook.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/RowList.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextFrame>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr QSize usualSize(960, 680);
constexpr int listWidth = 250;

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
    : QDialog(owner), lstChapters_(Named(new RowList, "lstChapters", "Kapitel")),
      txtHandbook_(Named(new HandbookBrowser, "txtHandbook", "Handbuch")) {
    setObjectName("frmHelp");
    setWindowTitle("Pirol - Handbuch");
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    FitToScreen(this, usualSize);

    lstChapters_->setToolTip("Ein Klick zeigt das Kapitel");
    txtHandbook_->setToolTip("Strg + Mausrad ändert die Schriftgröße");
    txtHandbook_->setOpenLinks(false);
    txtHandbook_->document()->setDocumentMargin(16);
    txtHandbook_->setMarkdown(ToText(EmbeddedHandbook("Handbuch.md")));
    ListChapters();

    auto* const columns = new QSplitter;
    columns->addWidget(lstChapters_);
    columns->addWidget(txtHandbook_);
    columns->setSizes({listWidth, width() - listWidth});
    columns->setStretchFactor(1, 1);
    auto* const all = new QVBoxLayout(this);
    all->addWidget(columns, 1);
    all->addWidget(NewCloseButton(this), 0, Qt::AlignRight);

    connect(lstChapters_, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (item != nullptr)
            ShowBlock(item->data(Qt::UserRole).toInt());
    });
    connect(txtHandbook_, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& link) { ShowChapter(link.fragment(QUrl::FullyDecoded).toStdString()); });
}

/// Markdown marks headings but gives them no anchors; each row of the list knows where its chapter begins.
void frmHelp::ListChapters() {
    for (QTextBlock block = txtHandbook_->document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level < 2)
            continue;
        auto* const item = new QListWidgetItem(QString(qsizetype{4} * (level - 2), ' ') + block.text(), lstChapters_);
        item->setData(Qt::UserRole, block.position());
    }
}

void frmHelp::ShowBlock(int position) {
    const QTextDocument* const document = txtHandbook_->document();
    const QRectF box = document->documentLayout()->blockBoundingRect(document->findBlock(position));
    txtHandbook_->verticalScrollBar()->setValue(static_cast<int>(box.top() - document->documentMargin()));
}

void frmHelp::ShowChapter(std::string_view anchor) {
    for (int row = 0; row < lstChapters_->count(); ++row)
        if (ChapterAnchor(lstChapters_->item(row)->text().trimmed().toStdString()) == anchor) {
            lstChapters_->setCurrentRow(row);
            ShowBlock(lstChapters_->item(row)->data(Qt::UserRole).toInt());
        }
}

void frmHelp::ShowFor(QWidget* window) {
    auto* help = window->findChild<frmHelp*>(QString(), Qt::FindDirectChildrenOnly);
    if (help == nullptr)
        help = new frmHelp(window);
    help->show();
    help->raise();
    help->activateWindow();
    help->ShowChapter(ChapterOf(window->objectName().toStdString()));
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
