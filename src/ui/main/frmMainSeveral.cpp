#include "designer/Arranging.h"
#include "designer/Clipboard.h"
#include "ui/canvas/DesignImage.h"
#include "ui/canvas/picContainer.h"
#include "ui/main/frmMain.h"
#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>

#include <algorithm>
#include <limits>

namespace pirol {
namespace {

/// The picture of a part alone, as large as what it holds.
QImage PictureOf(const ProjectModel& part, const PictureSource& pictures) {
    constexpr QSize largest(2000, 2000);
    QRect area;
    part.ForEachVisible(
        [&area](const Control& control) { area |= QRect(control.Left, control.Top, control.Width, control.Height); });
    ProjectModel moved = part;
    constexpr int most = std::numeric_limits<std::int16_t>::max();
    moved.SetWindowSize(static_cast<std::int16_t>(std::clamp(area.width(), 1, most)),
                        static_cast<std::int16_t>(std::clamp(area.height(), 1, most)));
    for (const ComponentRef component : part.CreationOrder()) {
        Control& control = moved.EditElement(component);
        control.Left = static_cast<std::int16_t>(std::min(control.Left - area.left(), most));
        control.Top = static_cast<std::int16_t>(std::min(control.Top - area.top(), most));
    }
    return DesignImage(moved, largest, pictures);
}

QString TypeName() {
    return ToText(componentsType);
}

} // namespace

// --- The clipboard ----------------------------------------------------------------------------------------------

/// False when it is too much for the clipboard.
bool frmMain::CopySelected() {
    bool copied = false;
    Run([&] {
        const ProjectModel part = SelectedPart(document_);
        const std::string bytes = ClipboardBytes(document_, part);
        copied = !bytes.empty();
        if (!copied)
            return dialogs_.Information("Das ist zu viel für die Zwischenablage. Wählen Sie weniger Komponenten aus.");
        // All of it at once: what is only promised is gone when the program ends.
        auto* const data = new QMimeData;
        data->setData(TypeName(), QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
        data->setText(ToText(JavaLines(part)));
        data->setImageData(PictureOf(part, picContainer_->Pictures()));
        QGuiApplication::clipboard()->setMimeData(data);
    });
    return copied;
}

void frmMain::mnuEditCopy() {
    CopySelected();
}

void frmMain::mnuEditCut() {
    if (CopySelected())
        Run([this] { canvas_.DeleteSelected("ausschneiden"); });
}

/// The clipboard is asked only here: its owner may be slow or gone.
void frmMain::mnuEditPaste() {
    if (canvas_.IsInGesture())
        return;
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr || !data->hasFormat(TypeName())) {
        statusBar()->showMessage("Die Zwischenablage enthält keine Komponenten.", messageTime);
        return;
    }
    const QByteArray bytes = data->data(TypeName());
    std::string message;
    Run([&] { message = PasteComponents(document_, {bytes.constData(), static_cast<std::size_t>(bytes.size())}); });
    ScrollToSelection();
    if (!message.empty())
        dialogs_.Information(message);
}

void frmMain::mnuEditDuplicate() {
    if (canvas_.IsInGesture())
        return;
    Run([this] { DuplicateSelected(document_); });
    ScrollToSelection();
}

void frmMain::mnuEditDelete() {
    DeleteSelected();
}

void frmMain::mnuEditSelectAll() {
    Run([this] { canvas_.SelectAll(); });
}

// --- Arranging --------------------------------------------------------------------------------------------------

/// The command of each arrangement, in their order.
static constexpr std::array<const char*, arrangementCount> arrangeCommands = {
    "mnuArrangeLeft",     "mnuArrangeCenter",           "mnuArrangeRight",          "mnuArrangeTop",
    "mnuArrangeMiddle",   "mnuArrangeBottom",           "mnuArrangeSameWidth",      "mnuArrangeSameHeight",
    "mnuArrangeSameSize", "mnuArrangeDistributeAcross", "mnuArrangeDistributeDown", "mnuArrangeGapsAcross",
    "mnuArrangeGapsDown", "mnuArrangeWindowAcross",     "mnuArrangeWindowDown",     "mnuArrangeGrid",
};

void frmMain::ArrangeSelected(Arrangement arrangement) {
    if (!canvas_.IsInGesture())
        Run([this, arrangement] { Arrange(document_, arrangement); });
}

/// What cannot apply is disabled.
void frmMain::ShowSelectionCommands() {
    const Selection& selected = document_.AllSelected();
    if (!selected.IsEmpty())
        OfferArranging();
    for (const char* command : {"mnuEditCut", "mnuEditCopy", "mnuEditDuplicate", "mnuEditDelete"})
        Command(command)->setEnabled(!selected.IsEmpty());
    for (std::size_t i = 0; i < arrangeCommands.size(); ++i)
        Command(arrangeCommands.at(i))->setEnabled(CanArrange(static_cast<Arrangement>(i), selected));
}

// --- Typing on the canvas ---------------------------------------------------------------------------------------

/// Behind an edit that began on the canvas the keyboard goes back there; with Tab to the next component.
void frmMain::GoOnBehindEdit(int components) {
    picContainer_->setFocus(Qt::OtherFocusReason);
    if (components == 0)
        return;
    Run([this, components] { canvas_.SelectNext(components > 0); });
    ScrollToSelection();
}

} // namespace pirol
