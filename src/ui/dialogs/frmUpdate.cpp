#include "ui/dialogs/frmUpdate.h"

#include "app/UpdateRecord.h"
#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <chrono>
#include <cmath>
#include <utility>

namespace pirol {
namespace {

constexpr int charactersPerLine = 64;
constexpr int linesOfNotes = 7;
constexpr int linesOfText = 3;
constexpr double bytesPerMegabyte = 1e6;
constexpr int progressSteps = 1000;
constexpr std::chrono::seconds progressSpan{1};

constexpr const char* failedHeading = "Das hat nicht geklappt";

std::chrono::steady_clock::time_point Now() {
    return std::chrono::steady_clock::now();
}

QString Megabytes(double bytes) {
    return QLocale(QLocale::German).toString(bytes / bytesPerMegabyte, 'f', 1);
}

QString TimeText(double seconds) {
    constexpr double minute = 60;
    if (seconds < minute)
        return QString("noch %1 s").arg(std::ceil(seconds));
    return QString("noch %1 min").arg(std::ceil(seconds / minute));
}

QString NotesText(const std::vector<std::string>& notes) {
    QStringList lines;
    for (const std::string& note : notes)
        lines += "• " + ToText(note);
    return lines.join('\n');
}

} // namespace

frmUpdate::frmUpdate(Transport& transport, const UpdateSource& source, const InstalledProgram& program,
                     std::filesystem::path folder, QWidget* owner)
    : QDialog(owner), transport_(transport), program_(program), folder_(std::move(folder)),
      lookup_(transport, source, program, Now, [this] { ShowLookup(); }), source_(source),
      lblState_(Named(new QLabel, "lblState", "Stand")),
      lblText_(Named(NewNote("", charactersPerLine), "lblText", "Erklärung")), lblNotes_(new QLabel("&Neu darin:")),
      txtNotes_(Named(new QPlainTextEdit, "txtNotes", "Neu darin")),
      prgDownload_(Named(new QProgressBar, "prgDownload", "Fortschritt")),
      lblProgress_(Named(new QLabel, "lblProgress", "Geladen")), cmdLoad_(NewButton("cmdLoad", "")),
      cmdDiscard_(NewButton("cmdDiscard", "&Abbrechen", "Hört auf und löscht, was geladen ist")),
      cmdInstall_(NewButton("cmdInstall", "Jetzt &installieren",
                            "Bewahrt den Entwurf auf, beendet Pirol und installiert die neue Version")) {
    setObjectName("frmUpdate");
    setWindowTitle("Pirol - Neue Version");

    auto* const cmdClose = NewButton("cmdClose", "&Schließen", "Was geladen ist, bleibt für das nächste Mal");
    auto* const all = new QVBoxLayout(this);
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(fontMetrics().averageCharWidth() * 3);
    columns->addWidget(NewPicture(CommandIcon("update").pixmap(48, 48)));
    columns->addLayout(NewTexts(), 1);
    all->addLayout(columns, 1);
    all->addLayout(NewButtonRow({cmdInstall_, cmdLoad_, cmdDiscard_, cmdClose}));

    connect(cmdLoad_, &QPushButton::clicked, this, &frmUpdate::Press);
    connect(cmdDiscard_, &QPushButton::clicked, this, [this] { download_->Cancel(); });
    connect(cmdInstall_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    // A server that falls silent tells nobody.
    connect(&progressTimer_, &QTimer::timeout, this, [this] { ShowProgress(); });
    ShowLookup();
    QTimer::singleShot(0, this, &frmUpdate::Look);
}

frmUpdate::~frmUpdate() {
    lookup_.Stop();
    if (download_)
        download_->Pause();
}

QLayout* frmUpdate::NewTexts() {
    constexpr double headingScale = 1.2;
    SetOff(lblState_, headingScale);
    lblText_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lblText_->setFixedHeight(lblText_->fontMetrics().lineSpacing() * linesOfText);
    lblNotes_->setBuddy(txtNotes_);
    txtNotes_->setReadOnly(true);
    txtNotes_->setTabChangesFocus(true);
    txtNotes_->setFixedHeight(txtNotes_->fontMetrics().lineSpacing() * linesOfNotes + 2 * txtNotes_->frameWidth() + 8);
    prgDownload_->setRange(0, progressSteps);
    prgDownload_->setTextVisible(false);
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(lblText_->fontMetrics().lineSpacing() / 2);
    for (QWidget* const part :
         std::initializer_list<QWidget*>{lblState_, lblText_, lblNotes_, txtNotes_, prgDownload_, lblProgress_})
        texts->addWidget(part);
    texts->addStretch();
    return texts;
}

void frmUpdate::Say(const QString& heading, const QString& text) {
    lblState_->setText(heading);
    lblText_->setText(text);
}

void frmUpdate::Look() {
    lookup_.Start();
}

/// The button's caption says what it does next.
void frmUpdate::Press() {
    if (!download_)
        Look();
    else if (download_->CurrentState() == cDownload::State::Loading)
        download_->Pause();
    else
        download_->Start();
}

void frmUpdate::ShowLookup() {
    using State = VersionLookup::State;
    const State state = lookup_.CurrentState();
    for (QWidget* const part :
         std::initializer_list<QWidget*>{lblNotes_, txtNotes_, prgDownload_, lblProgress_, cmdInstall_, cmdDiscard_})
        part->hide();
    cmdLoad_->setVisible(state == State::Failed);
    cmdLoad_->setText("&Noch einmal");
    if (state == State::Idle || state == State::Looking)
        Say("Es wird nachgesehen …", "Pirol fragt den Server, ob es eine neuere Version gibt.");
    else if (state == State::Failed)
        Say(failedHeading, ToText(MessageOf(lookup_.Fault())));
    else if (state == State::UpToDate)
        Say("Pirol ist auf dem neuesten Stand", QString("Version %1 ist die neueste.").arg(ToText(program_.version)));
    if (state == State::Found || state == State::UpToDate)
        updaterecord::AddSerial(lookup_.Serial());
    if (state == State::Found)
        Offered();
}

void frmUpdate::Offered() {
    const Offer& offer = lookup_.Found();
    target_ = std::make_unique<DownloadFolder>(folder_, offer.file);
    download_ = std::make_unique<cDownload>(transport_, *target_, offer.file, source_.UrlOf(offer.file.name), Now,
                                            [this] { ShowDownload(); });
    txtNotes_->setPlainText(NotesText(offer.notes));
    for (QWidget* const part : std::initializer_list<QWidget*>{lblNotes_, txtNotes_})
        part->setVisible(!offer.notes.empty());
    for (QWidget* const part : std::initializer_list<QWidget*>{prgDownload_, lblProgress_, cmdLoad_})
        part->show();
    download_->Prepare();
    cmdLoad_->setDefault(true);
    cmdLoad_->setFocus();
}

void frmUpdate::ShowDownload() {
    using State = cDownload::State;
    const State state = download_->CurrentState();
    ShowProgress();
    if (state == State::Loading)
        progressTimer_.start(progressSpan); // anew with all that comes
    else
        progressTimer_.stop();
    cmdLoad_->setText(state == State::Loading    ? "An&halten"
                      : state == State::Failed   ? "&Noch einmal"
                      : download_->Loaded() == 0 ? "&Herunterladen"
                                                 : "&Weiterladen");
    cmdLoad_->setVisible(state != State::Complete);
    cmdInstall_->setVisible(state == State::Complete);
    cmdDiscard_->setVisible(state == State::Loading || (state != State::Complete && download_->Loaded() > 0));
    if (state == State::Failed) {
        Say(failedHeading, ToText(MessageOf(download_->Fault())));
        if (const std::optional<RuntimeError> error = download_->Error())
            QTimer::singleShot(0, this,
                               [this, error] { ReportErrors(this, [&error] { throw RuntimeError(*error); }); });
    } else if (state == State::Complete) {
        Say(QString("Pirol %1 ist geladen").arg(ToText(lookup_.Found().version)),
            "Die Datei ist vollständig und unverändert. Beim Installieren wird Pirol beendet; ein ungespeicherter "
            "Entwurf "
            "bleibt aufbewahrt und wird Ihnen danach wieder angeboten.");
        cmdInstall_->setDefault(true);
        cmdInstall_->setFocus();
    } else {
        Say(QString("Pirol %1 ist da").arg(ToText(lookup_.Found().version)),
            QString("Sie haben Version %1. Die neue ist %2 MB groß; installiert wird sie erst, wenn Sie es wollen.")
                .arg(ToText(program_.version), Megabytes(static_cast<double>(download_->Size()))));
    }
}

void frmUpdate::ShowProgress() {
    const auto loaded = static_cast<double>(download_->Loaded());
    const auto size = static_cast<double>(download_->Size());
    prgDownload_->setValue(static_cast<int>(loaded / size * progressSteps));
    QString text = QString("%1 von %2 MB").arg(Megabytes(loaded), Megabytes(size));
    if (const double speed = download_->BytesPerSecond(); speed > 0)
        text += QString(", %1 MB/s, %2").arg(Megabytes(speed), TimeText((size - loaded) / speed));
    else if (download_->CurrentState() == cDownload::State::Idle && loaded > 0)
        text += ", angehalten";
    else if (download_->CurrentState() == cDownload::State::Loading)
        text += ", wartet auf den Server …";
    lblProgress_->setText(text);
}

} // namespace pirol
