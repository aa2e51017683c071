#include "ui/main/DesignKeeper.h"

#include "app/cCommonDialog.h"
#include "app/ErrorReport.h"
#include "base/FileAccess.h"
#include "project/Snapshot.h"
#include "ui/dialogs/frmKeptDesigns.h"
#include "ui/dialogs/frmRecovery.h"
#include "ui/main/frmMain.h"
#include "ui/parts/FormParts.h"

#include <QDateTime>
#include <QLabel>
#include <QStatusBar>

namespace pirol {
namespace {

constexpr int messageMilliseconds = 10'000;

} // namespace

DesignKeeper::DesignKeeper(frmMain& window, cCommonDialog& dialogs, const std::filesystem::path& folder,
                           const KeepingDelays& delays)
    : window_(window), document_(window.CurrentDocument()), dialogs_(dialogs), folder_(folder), delays_(delays),
      file_(folder), lblKeeping_(Named(new QLabel("⚠ Nicht gesichert"), "lblKeeping", "Nicht gesichert")) {
    lblKeeping_->hide();
    window.statusBar()->insertPermanentWidget(1, lblKeeping_);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &DesignKeeper::Keep);
    document_.AddListener(*this);
    connect(&window_, &frmMain::KeptDesignsWanted, this, &DesignKeeper::ShowKeptDesigns);
}

DesignKeeper::~DesignKeeper() {
    document_.RemoveListener(*this);
    if (writing_.valid())
        writing_.wait();
    // What cannot be kept here is offered at the next start.
    if (!file_.StaysBehind() && !KeepFormer("Pirol beendet"))
        file_.StayBehind(true);
}

void DesignKeeper::DocumentChanged(const DocumentChange& change) {
    if (!change.design.Any() && !change.file)
        return;
    if (change.replaced)
        KeepFormer(document_.CanRedo() ? "Rückgängig" : document_.UndoLabel());
    shown_ = {document_.Model(), document_.FilePath()};
    shownIsChanged_ = document_.IsChanged();
    file_.StayBehind(false);
    if (!sinceChange_.isValid())
        sinceChange_.start();
    if (!document_.IsChanged())
        Keep();
    else if (!timer_.isActive())
        timer_.start(delays_.afterChange);
}

/// Before its recovery file goes. True unless that failed.
bool DesignKeeper::KeepFormer(const std::string& reason) {
    if (!shownIsChanged_)
        return true;
    const auto error = ErrorOf([&] { KeepDesign(KeptFolder(folder_), shown_, reason, std::time(nullptr)); });
    if (error)
        TellFailure(error->Description());
    return !error;
}

void DesignKeeper::ShowKeptDesigns() {
    frmKeptDesigns form(KeptFolder(folder_), dialogs_, &window_);
    if (form.exec() == QDialog::Accepted)
        window_.Run([&] {
            document_.Replace("Entwurf wiederherstellen", [&](ProjectModel& model) {
                model = form.Chosen()->model;
                return Document::Origin{.path = form.Chosen()->filePath};
            });
        });
}

void DesignKeeper::Keep() {
    if (isWriting_)
        return; // its end leads here again
    if (!document_.IsChanged()) {
        timer_.stop();
        sinceChange_.invalidate();
        file_.Remove();
        return;
    }
    if (document_.IsInGesture() && !sinceChange_.hasExpired(delays_.longest.count())) {
        timer_.start(delays_.duringGesture);
        return;
    }
    const std::optional<RuntimeError> error = ErrorOf([this] {
        const OpenDesign design{document_.Model(), document_.FilePath()};
        writing_ = std::async(std::launch::async, [this, design] {
            const std::optional<RuntimeError> failure = ErrorOf([&] { file_.Write(SnapshotOf(design)); });
            QMetaObject::invokeMethod(
                this, [this, text = failure ? failure->Description() : ""] { Kept(text); }, Qt::QueuedConnection);
        });
        isWriting_ = true;
        sinceChange_.invalidate();
    });
    if (error)
        Kept(error->Description());
}

void DesignKeeper::Kept(const std::string& failure) {
    isWriting_ = false;
    TellFailure(failure);
    if (!document_.IsChanged())
        Keep();
    else if (!failure.empty())
        timer_.start(delays_.afterFailure);
    else if (sinceChange_.isValid() && !timer_.isActive())
        timer_.start(delays_.afterChange);
}

void DesignKeeper::KeepForNextStart() {
    if (writing_.valid())
        writing_.wait();
    if (!document_.IsChanged())
        return;
    file_.StayBehind(true);
    const auto error = ErrorOf([this] { file_.Write(SnapshotOf({document_.Model(), document_.FilePath()})); });
    TellFailure(error ? error->Description() : "");
}

/// Working goes on without recovery. One message a failure says so, and a word in the status bar as long as it holds.
void DesignKeeper::TellFailure(const std::string& failure) {
    const QString text = "Für eine Wiederherstellung kann gerade nichts aufbewahrt werden: " + ToText(failure);
    if (!failure.empty() && !toldFailure_)
        window_.statusBar()->showMessage(text, messageMilliseconds);
    toldFailure_ = !failure.empty();
    lblKeeping_->setVisible(toldFailure_);
    lblKeeping_->setToolTip(text);
    lblKeeping_->setAccessibleDescription(text);
}

void DesignKeeper::OfferLeftDesigns() {
    std::vector<LeftDesign> left;
    if (const auto error = ErrorOf([&] { left = LeftDesigns(folder_); }))
        TellFailure(error->Description());
    std::size_t others = left.size();
    for (const LeftDesign& design : left) {
        --others;
        // Another program may offer it meanwhile, or have removed it.
        if (const std::optional<HeldDesign> held = Hold(design); held && !Offer(design, others))
            return;
    }
}

/// Whether the next one shall be offered.
bool DesignKeeper::Offer(const LeftDesign& left, std::size_t others) {
    OpenDesign design;
    if (ErrorOf([&] { design = ReadDesign(left); })) {
        SetAsideDamaged(left);
        return true;
    }
    frmRecovery form(design.filePath, left.written, others, &window_);
    form.exec();
    if (form.Chosen() == frmRecovery::Answer::Restore) {
        // The new recovery file first: between the two there is no moment without one.
        window_.Run([&] {
            document_.Replace("Entwurf wiederherstellen", [&](ProjectModel& model) {
                model = design.model;
                return Document::Origin{.path = design.filePath};
            });
        });
        if (!ErrorOf([&] { file_.Write(SnapshotOf(design)); }))
            Discard(left);
        return false;
    }
    if (form.Chosen() == frmRecovery::Answer::Discard)
        Discard(left);
    return form.Chosen() == frmRecovery::Answer::Discard;
}

void DesignKeeper::SetAsideDamaged(const LeftDesign& left) {
    const std::string time = QDateTime::fromSecsSinceEpoch(left.written).toString("dd.MM.yyyy, HH:mm:ss").toStdString();
    const std::filesystem::path aside = SetAside(left);
    dialogs_.Critical("Pirol - Wiederherstellung",
                      "Ein Entwurf vom " + time +
                          " Uhr ist beschädigt und kann nicht wiederhergestellt werden.\r\n"
                          "Die Datei bleibt aufbewahrt: " +
                          TextOf(aside));
}

} // namespace pirol
