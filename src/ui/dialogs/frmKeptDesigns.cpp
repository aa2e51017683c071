#include "ui/dialogs/frmKeptDesigns.h"

#include "app/cCommonDialog.h"
#include "app/ErrorReport.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"
#include "ui/parts/RunBeside.h"
#include "ui/parts/Theme.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr QSize pictureSize(160, 120);
constexpr QSize firstSize(620, 560);

QString TextOfRow(const KeptDesign& kept) {
    const QString name =
        kept.filePath.empty() ? "Noch nicht gespeicherter Entwurf" : QFileInfo(ToText(kept.filePath)).fileName();
    const QString time = QDateTime::fromSecsSinceEpoch(kept.kept).toString("dd.MM.yyyy, HH:mm:ss");
    return name + "\n" + time + " Uhr\n" + ToText(kept.reason);
}

/// A picture that a selected row does not tint.
QIcon IconOf(const QPixmap& picture) {
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected);
    return icon;
}

/// In the middle of a picture that is as large as all others, with a frame.
QPixmap Framed(const QImage& image, const QPalette& palette) {
    QPixmap picture(pictureSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QRect box(QPoint(0, 0), image.size());
    box.moveCenter(picture.rect().center());
    painter.drawImage(box, image);
    painter.setPen(palette.color(roles::outline));
    painter.drawRect(box.adjusted(-1, -1, 0, 0));
    return picture;
}

QPixmap EmptyPicture() {
    QPixmap picture(pictureSize);
    picture.fill(Qt::transparent);
    return picture;
}

} // namespace

frmKeptDesigns::frmKeptDesigns(std::filesystem::path folder, cCommonDialog& dialogs, QWidget* owner)
    : QDialog(owner), folder_(std::move(folder)), dialogs_(dialogs),
      lstKept_(Named(new QListWidget, "lstKept", "Frühere Entwürfe")),
      cmdRestore_(NewButton("cmdRestore", "&Wiederherstellen", "Den Entwurf in das Fenster holen")),
      cmdDelete_(NewButton("cmdDelete", "&Löschen", "Den Entwurf löschen")),
      cmdDeleteAll_(NewButton("cmdDeleteAll", "&Alle löschen", "Alle früheren Entwürfe löschen")) {
    setObjectName("frmKeptDesigns");
    setWindowTitle("Pirol - Frühere Entwürfe");
    resize(firstSize);
    lstKept_->setIconSize(pictureSize);
    lstKept_->setSpacing(tokens::hairGap);
    auto* const note = NewNote("Was ungespeichert aus dem Fenster verschwindet, bleibt 30 Tage hier, höchstens 50 "
                               "Entwürfe und zusammen 100 MB. Die ältesten gehen zuerst.",
                               80);
    auto* const cmdClose = NewButton("cmdClose", "&Schließen");
    cmdRestore_->setDefault(true);

    auto* const all = new QVBoxLayout(this);
    all->addWidget(lstKept_, 1);
    all->addWidget(note);
    all->addLayout(NewButtonRow({cmdRestore_, cmdDelete_, cmdDeleteAll_, cmdClose}));

    connect(cmdRestore_, &QPushButton::clicked, this, &frmKeptDesigns::Restore);
    connect(lstKept_, &QListWidget::itemDoubleClicked, this, &frmKeptDesigns::Restore);
    connect(cmdDelete_, &QPushButton::clicked, this, &frmKeptDesigns::DeleteChosen);
    connect(cmdDeleteAll_, &QPushButton::clicked, this, &frmKeptDesigns::DeleteAll);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(lstKept_, &QListWidget::currentRowChanged, this, &frmKeptDesigns::ShowButtons);
    painting_.setSingleShot(true);
    connect(&painting_, &QTimer::timeout, this, &frmKeptDesigns::PaintNext);
    connect(&loader_, &PictureLoader::Loaded, this, &frmKeptDesigns::PaintAll);
    ShowList();
    lstKept_->setFocus();
}

void frmKeptDesigns::ShowList() {
    const int row = lstKept_->currentRow();
    lstKept_->clear();
    kept_.clear();
    ReportErrorsLater(this, [this] { RunBeside([this] { kept_ = KeptDesigns(folder_); }); });
    for (const KeptDesign& kept : kept_)
        lstKept_->addItem(new QListWidgetItem(EmptyPicture(), TextOfRow(kept)));
    lstKept_->setCurrentRow(std::clamp(row, 0, std::max(lstKept_->count() - 1, 0)));
    ShowButtons();
    PaintAll();
}

void frmKeptDesigns::PaintAll() {
    picture_.reset();
    painted_ = 0;
    painting_.start();
}

/// One after another and in parts, so that the form is there at once.
void frmKeptDesigns::PaintNext() {
    if (painted_ >= kept_.size())
        return;
    bool hasMore = false;
    // A damaged one has no picture; restoring it says why.
    static_cast<void>(ErrorOf([this, &hasMore] {
        if (!picture_) {
            OpenDesign design;
            RunBeside([&] { design = ReadDesign(kept_[painted_]); });
            picture_.emplace(design.model, pictureSize - QSize(2, 2), loader_.Source());
        }
        hasMore = picture_->PaintMore(std::chrono::milliseconds(10));
        if (!hasMore)
            lstKept_->item(static_cast<int>(painted_))->setIcon(IconOf(Framed(picture_->Image(), palette())));
    }));
    if (!hasMore) {
        picture_.reset();
        ++painted_;
    }
    painting_.start();
}

void frmKeptDesigns::ShowButtons() {
    cmdRestore_->setEnabled(lstKept_->currentRow() >= 0);
    cmdDelete_->setEnabled(lstKept_->currentRow() >= 0);
    cmdDeleteAll_->setEnabled(!kept_.empty());
}

void frmKeptDesigns::Restore() {
    const int row = lstKept_->currentRow();
    if (row >= 0 &&
        ReportErrors(this, [&] { RunBeside([&] { chosen_ = ReadDesign(kept_[static_cast<std::size_t>(row)]); }); }))
        accept();
}

void frmKeptDesigns::DeleteChosen() {
    const int row = lstKept_->currentRow();
    if (row < 0)
        return;
    ReportErrors(this, [&] { Delete(kept_[static_cast<std::size_t>(row)]); });
    ShowList();
}

void frmKeptDesigns::DeleteAll() {
    if (!dialogs_.Question("Sollen wirklich alle früheren Entwürfe gelöscht werden?"))
        return;
    ReportErrors(this, [this] {
        for (const KeptDesign& kept : kept_)
            Delete(kept);
    });
    ShowList();
}

} // namespace pirol
