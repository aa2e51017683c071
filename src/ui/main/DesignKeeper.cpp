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
      lblKeeping_(Named(new QLabel("⚠ Nicht gesichert"), "lblKeeping", "Nicht gesichert")),
      thread_(folder, [this](const std::string& failure) {
          QMetaObject::invokeMethod(
              this, [this, failure] { Kept(failure); }, Qt::QueuedConnection);
      }) {
    lblKeeping_->hide();
    window.statusBar()->insertPermanentWidget(1, lblKeeping_);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &DesignKeeper::Keep);
    checking_.setSingleShot(true);
    connect(&checking_, &QTimer::timeout, this, &DesignKeeper::CheckFiles);
    document_.AddListener(*this);
    connect(&window_, &frmMain::KeptDesignsWanted, this, &DesignKeeper::ShowKeptDesigns);
}

/// The thread does what it is asked here before the program ends.
DesignKeeper::~DesignKeeper() {
    document_.RemoveListener(*this);
    if (!staysBehind_)
        KeepFormer("Pirol beendet");
}

OpenDesign DesignKeeper::Shown() const {
    return {document_.Model(), document_.FilePath()};
}

void DesignKeeper::Ask(const std::function<void()>& work) {
    if (const auto error = ErrorOf(work))
        Kept(error->Description());
}

void DesignKeeper::DocumentChanged(const DocumentChange& change) {
    if (!change.design.Any() && !change.file)
        return;
    if (change.replaced)
        KeepFormer(document_.CanRedo() ? "Rückgängig" : document_.UndoLabel());
    shown_ = Shown();
    shownIsChanged_ = document_.IsChanged();
    staysBehind_ = false;
    thread_.StayBehind(false);
    if (!sinceChange_.isValid())
        sinceChange_.start();
    if (!document_.IsChanged())
        Keep();
    else if (!timer_.isActive())
        timer_.start(delays_.afterChange);
}

void DesignKeeper::KeepFormer(const std::string& reason) {
    if (shownIsChanged_)
        Ask([&] { thread_.KeepFormer({shown_, reason, std::time(nullptr)}); });
}

void DesignKeeper::ShowKeptDesigns() {
    // What a second program that was killed meanwhile has left belongs to the list, too.
    Ask([this] { thread_.KeepLeft(); });
    TellFailure(thread_.Wait());
    frmKeptDesigns form(KeptFolder(folder_), dialogs_, &window_);
    if (form.exec() == QDialog::Accepted)
        Restore(*form.Chosen());
}

void DesignKeeper::Restore(const OpenDesign& design) {
    window_.Run([&] {
        document_.Replace("Entwurf wiederherstellen", [&](ProjectModel& model) {
            model = design.model;
            return Document::Origin{.path = design.filePath};
        });
    });
}

void DesignKeeper::Keep() {
    if (!document_.IsChanged()) {
        timer_.stop();
        sinceChange_.invalidate();
        Ask([this] { thread_.ForgetShown(); });
        return;
    }
    if (document_.IsInGesture() && !sinceChange_.hasExpired(delays_.longest.count())) {
        timer_.start(delays_.duringGesture);
        return;
    }
    sinceChange_.invalidate();
    Ask([this] { thread_.KeepShown(Shown()); });
}

void DesignKeeper::CheckFiles() {
    Ask([this] { thread_.CheckFiles(); });
}

void DesignKeeper::Kept(const std::string& failure) {
    TellFailure(failure);
    if (!failure.empty() && document_.IsChanged() && !timer_.isActive())
        timer_.start(delays_.afterFailure);
    if (document_.IsChanged() || !failure.empty())
        checking_.start(failure.empty() ? delays_.betweenChecks : delays_.afterFailure);
}

void DesignKeeper::KeepForNextStart(const std::string& reason) {
    if (document_.IsChanged()) {
        staysBehind_ = true;
        thread_.StayBehind(true);
        Ask([this] { thread_.KeepShown(Shown()); });
        KeepFormer(reason);
    }
    TellFailure(thread_.Wait());
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
    if (left.empty())
        return;
    // Whatever the user answers, they can be fetched later on, too.
    Ask([this] { thread_.KeepLeft(); });
    TellFailure(thread_.Wait());
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
    frmRecovery form(design, left.written, others, &window_);
    form.exec();
    if (form.Chosen() == frmRecovery::Answer::Restore) {
        // The new recovery file first: between the two there is no moment without one.
        Restore(design);
        Ask([this] { thread_.KeepShown(Shown()); });
        if (thread_.Wait().empty())
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
