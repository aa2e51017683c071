#include "ui/dialogs/frmPicture.h"

#include "app/cCommonDialog.h"
#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr QSize previewSize(560, 420);

FileDialogSetup DialogFor(const char* title, const char* filter, const char* fileName) {
    return {.Title = title,
            .Filter = std::string(filter) + "|Alle Dateien (*.*)|*.*",
            .Flags = FileDialogSetup::PathMustExist,
            .FileName = fileName,
            .Name = "pictureDialog"};
}

} // namespace

frmPicture::frmPicture(ProjectModel model, cCommonDialog& dialogs, QWidget* owner)
    : QDialog(owner), model_(std::move(model)), dialogs_(dialogs),
      lblPicture_(Named(new QLabel, "lblPicture", "Bild des Fensters")),
      chkFrame_(Named(new QCheckBox("Mit &Fensterrahmen"), "chkFrame", "Mit Fensterrahmen")) {
    setObjectName("frmPicture");
    setWindowTitle("Pirol - Als Bild exportieren");
    lblPicture_->setAlignment(Qt::AlignCenter);
    lblPicture_->setMinimumSize(previewSize);
    chkFrame_->setChecked(true);

    auto* const cmdPng = NewIconButton("cmdPng", "Als &PNG speichern …", "export", "Ein Bild aus Pixeln");
    auto* const cmdPdf = NewIconButton("cmdPdf", "Als P&DF speichern …", "export",
                                       "Buchstaben bleiben Buchstaben, in jeder Größe scharf");
    auto* const cmdCopy = NewIconButton("cmdCopy", "&Kopieren", "copy", "Das Bild in die Zwischenablage legen");
    auto* const cmdClose = NewButton("cmdClose", "&Schließen");
    cmdPng->setDefault(true);
    auto* const all = new QVBoxLayout(this);
    all->addWidget(lblPicture_, 1);
    all->addWidget(chkFrame_);
    all->addLayout(NewButtonRow({cmdPng, cmdPdf, cmdCopy, cmdClose}));

    connect(chkFrame_, &QCheckBox::toggled, this, &frmPicture::ShowPicture);
    connect(&loader_, &PictureLoader::Loaded, this, &frmPicture::ShowPicture);
    connect(cmdPng, &QPushButton::clicked, this, [this] {
        Save(DialogFor("Als PNG speichern", "PNG-Bilder (*.png)|*.png", "SuMAnwendung.png"), WindowPng);
    });
    connect(cmdPdf, &QPushButton::clicked, this, [this] {
        Save(DialogFor("Als PDF speichern", "PDF-Dateien (*.pdf)|*.pdf", "SuMAnwendung.pdf"), WindowPdf);
    });
    connect(cmdCopy, &QPushButton::clicked, this, &frmPicture::Copy);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    ShowPicture();
    cmdPng->setFocus();
}

WindowFrame frmPicture::Frame() const {
    return chkFrame_->isChecked() ? WindowFrame::With : WindowFrame::Without;
}

void frmPicture::ShowPicture() {
    ReportErrorsLater(this, [this] {
        QImage image = WindowImage(model_, Frame(), loader_.Source());
        const double scale = devicePixelRatio();
        const QSize room = previewSize * scale;
        const QSize own = image.size() * scale;
        const QSize shown = own.boundedTo(room) == own ? own : own.scaled(room, Qt::KeepAspectRatio);
        if (shown != image.size())
            image = image.scaled(shown, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        image.setDevicePixelRatio(scale);
        lblPicture_->setPixmap(QPixmap::fromImage(image));
    });
}

void frmPicture::Save(const FileDialogSetup& setup,
                      QByteArray (*bytes)(const ProjectModel&, WindowFrame, const PictureSource&)) {
    const std::string path = dialogs_.ShowSave(setup);
    if (path.empty() || !MayReplaceFile(path, dialogs_))
        return;
    const auto save = [&] {
        UnderLabel("Main.Project.ExportPicture", [&] {
            const QByteArray picture = bytes(model_, Frame(), PicturesOf(model_));
            ReplaceFileBytes(PathOf(path), {picture.constData(), static_cast<std::size_t>(picture.size())});
        });
    };
    if (!ReportErrors(this, save))
        return;
    saved_ = path;
    accept();
}

/// As bytes, too: some programs take nothing but PNG, and a picture that is made only when it is asked for arrives
/// empty there.
void frmPicture::Copy() {
    ReportErrors(this, [this] {
        const PictureSource pictures = PicturesOf(model_);
        auto* const data = new QMimeData;
        data->setImageData(WindowImage(model_, Frame(), pictures));
        data->setData("image/png", WindowPng(model_, Frame(), pictures));
        QApplication::clipboard()->setMimeData(data);
    });
}

} // namespace pirol
