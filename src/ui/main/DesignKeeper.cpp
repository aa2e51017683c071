#include "ui/main/DesignKeeper.h"

#include "app/cCommonDialog.h"
#include "app/ErrorReport.h"
#include "base/FileAccess.h"
#include "project/Snapshot.h"
#include "ui/dialogs/frmRecovery.h"
#include "ui/main/frmMain.h"
#include "ui/parts/FormParts.h"

#include <QDateTime>
#include <QStatusBar>

namespace pirol {
namespace {

using namespace std::chrono_literals;

constexpr auto delay = 2s;
/// Nobody shall feel the snapshot in the hand that drags; but who drags on and on is kept all the same.
constexpr auto delayDuringGesture = 200ms;
constexpr auto longestDelay = 5s;
constexpr auto delayAfterFailure = 10s;

constexpr int messageMilliseconds = 10'000;

} // namespace

DesignKeeper::DesignKeeper(frmMain& window, cCommonDialog& dialogs, const std::filesystem::path& folder)
    : window_(window), dialogs_(dialogs), folder_(folder), file_(folder) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &DesignKeeper::Keep);
    connect(&window, &frmMain::DesignChanged, this, &DesignKeeper::TakeNote);
}

DesignKeeper::~DesignKeeper() {
    if (writing_.valid())
        writing_.wait();
}

void DesignKeeper::TakeNote() {
    if (!sinceChange_.isValid())
        sinceChange_.start();
    if (!window_.Model().IsChanged())
        Keep();
    else if (!timer_.isActive())
        timer_.start(delay);
}

void DesignKeeper::Keep() {
    if (isWriting_)
        return; // its end leads here again
    if (!window_.Model().IsChanged()) {
        timer_.stop();
        sinceChange_.invalidate();
        file_.Remove();
        return;
    }
    if (window_.Canvas().IsInGesture() && !sinceChange_.hasExpired(std::chrono::milliseconds(longestDelay).count())) {
        timer_.start(delayDuringGesture);
        return;
    }
    const std::optional<RuntimeError> error = ErrorOf([this] {
        writing_ = std::async(std::launch::async, [this, snapshot = SnapshotOf(window_.Model())] {
            const std::optional<RuntimeError> failure = ErrorOf([&] { file_.Write(snapshot); });
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
    if (!window_.Model().IsChanged())
        Keep();
    else if (!failure.empty())
        timer_.start(delayAfterFailure);
    else if (sinceChange_.isValid() && !timer_.isActive())
        timer_.start(delay);
}

/// Working goes on without recovery; one message a failure says so, and no more until writing has worked again.
void DesignKeeper::TellFailure(const std::string& failure) {
    if (!failure.empty() && !toldFailure_)
        window_.statusBar()->showMessage(
            "Für eine Wiederherstellung kann gerade nichts aufbewahrt werden: " + ToText(failure), messageMilliseconds);
    toldFailure_ = !failure.empty();
}

void DesignKeeper::OfferLeftDesigns() {
    std::vector<LeftDesign> left;
    if (const auto error = ErrorOf([&] { left = LeftDesigns(folder_); }))
        TellFailure(error->Description());
    std::size_t others = left.size();
    for (const LeftDesign& design : left)
        if (!Offer(design, --others))
            return;
}

/// Whether the next one shall be offered.
bool DesignKeeper::Offer(const LeftDesign& left, std::size_t others) {
    ProjectModel design;
    if (ErrorOf([&] { design = ReadDesign(left); })) {
        SetAsideDamaged(left);
        return true;
    }
    frmRecovery form(design.FilePath(), left.written, others, &window_);
    form.exec();
    if (form.Chosen() == frmRecovery::Answer::Restore) {
        // The new recovery file first: between the two there is no moment without one.
        const std::string snapshot = SnapshotOf(design);
        window_.Run([&] { window_.Model() = std::move(design); });
        window_.LoadProperties();
        if (!ErrorOf([&] { file_.Write(snapshot); }))
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
