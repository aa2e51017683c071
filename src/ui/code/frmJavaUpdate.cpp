#include "ui/code/frmJavaUpdate.h"

#include "app/cCommonDialog.h"
#include "base/FileAccess.h"
#include "ui/code/DifferenceView.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"

#include <QCheckBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStringListModel>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr QSize firstSize(1100, 720);
constexpr int entriesShare = 1;
constexpr int textsShare = 3;
constexpr std::string_view changedMeanwhile =
    "Die Datei wurde inzwischen geändert, und Pirol hat sie neu gelesen. Sehen Sie bitte noch einmal nach, was jetzt "
    "geschieht.";

QLabel* NewHeading(const QString& text) {
    auto* const heading = new QLabel(text);
    SetOff(heading);
    return heading;
}

} // namespace

frmJavaUpdate::frmJavaUpdate(Prepare prepare, cCommonDialog& dialogs, QWidget* owner)
    : QDialog(owner), prepare_(std::move(prepare)), dialogs_(dialogs), update_(prepare_(false, false)),
      lblFile_(Named(new QLabel, "lblFile", "Java-Datei")), lblSummary_(Named(new QLabel, "lblSummary", {})),
      entries_(new QStringListModel(this)), lstEntries_(Named(new QListView, "lstEntries", "Was geschieht")),
      texts_(Named(new DifferenceView, "texts", "Quelltext bisher und danach")),
      chkWithoutMenu_(Named(new QCheckBox("&Menüleiste herausnehmen"), "chkWithoutMenu", "Menüleiste herausnehmen")),
      chkWithoutDatabase_(Named(new QCheckBox("&Datenbankzugriff herausnehmen"), "chkWithoutDatabase",
                                "Datenbankzugriff herausnehmen")),
      lblCurrent_(Named(new QLabel, "lblCurrent", {})),
      cmdPrevious_(NewIconButton("cmdPrevious", "&Vorheriger", "up", "Zum vorigen Unterschied (Umschalt+F3)")),
      cmdNext_(NewIconButton("cmdNext", "&Nächster", "down", "Zum nächsten Unterschied (F3)")),
      cmdUpdate_(NewButton("cmdUpdate", "&Aktualisieren", "Schreibt die Datei; die Fassung davor bleibt als .bak")),
      cmdCancel_(NewButton("cmdCancel", "A&bbrechen")) {
    setObjectName("frmJavaUpdate");
    setWindowTitle("Pirol - Java-Datei aktualisieren");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    cmdUpdate_->setDefault(true);

    auto* const entries = new QWidget;
    auto* const entryRows = new QVBoxLayout(entries);
    entryRows->setContentsMargins(0, 0, 0, 0);
    entryRows->addWidget(lblSummary_);
    entryRows->addWidget(lstEntries_, 1);
    lstEntries_->setModel(entries_);
    lstEntries_->setEditTriggers(QListView::NoEditTriggers);
    lstEntries_->setUniformItemSizes(true);
    auto* const parts = new QSplitter(Qt::Vertical);
    parts->setChildrenCollapsible(false);
    parts->addWidget(entries);
    parts->addWidget(NewTexts());
    parts->setStretchFactor(0, entriesShare);
    parts->setStretchFactor(1, textsShare);

    auto* const all = new QVBoxLayout(this);
    all->addLayout(NewTopRow());
    all->addWidget(parts, 1);
    all->addLayout(NewFootRow());

    connect(lstEntries_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { GoToEntry(current.row()); });
    connect(texts_, &DifferenceView::CurrentChanged, this, &frmJavaUpdate::ShowCurrent);
    connect(cmdPrevious_, &QPushButton::clicked, this, [this] { GoOn(-1); });
    connect(cmdNext_, &QPushButton::clicked, this, [this] { GoOn(1); });
    connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this, [this] { GoOn(1); });
    connect(new QShortcut(Qt::SHIFT | Qt::Key_F3, this), &QShortcut::activated, this, [this] { GoOn(-1); });
    for (QCheckBox* const box : {chkWithoutMenu_, chkWithoutDatabase_})
        connect(box, &QCheckBox::toggled, this, &frmJavaUpdate::PrepareAgain);
    connect(cmdUpdate_, &QPushButton::clicked, this, &frmJavaUpdate::Write);
    connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);
    FitToScreen(this, firstSize);
    ShowUpdate();
    texts_->setFocus();
}

QLayout* frmJavaUpdate::NewTopRow() {
    auto* const cmdOther = NewIconButton("cmdOther", "Andere &Datei …", "open", "Eine andere Java-Datei wählen");
    connect(cmdOther, &QPushButton::clicked, this, [this] { done(otherFile); });
    lblFile_->setTextFormat(Qt::PlainText);
    lblFile_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblFile_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* const row = new QHBoxLayout;
    row->addWidget(lblFile_, 1);
    row->addWidget(cmdOther);
    return row;
}

/// The view with a heading over each of its columns.
QWidget* frmJavaUpdate::NewTexts() {
    auto* const headings = new QHBoxLayout;
    headings->addWidget(NewHeading("Bisher"), 1);
    headings->addWidget(NewHeading("Danach"), 1);
    auto* const box = new QWidget;
    auto* const rows = new QVBoxLayout(box);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addLayout(headings);
    rows->addWidget(texts_, 1);
    auto* const steps = new QHBoxLayout;
    steps->addWidget(chkWithoutMenu_);
    steps->addWidget(chkWithoutDatabase_);
    steps->addStretch();
    steps->addWidget(lblCurrent_);
    steps->addWidget(cmdPrevious_);
    steps->addWidget(cmdNext_);
    rows->addLayout(steps);
    return box;
}

QLayout* frmJavaUpdate::NewFootRow() {
    return NewButtonRow({cmdUpdate_, cmdCancel_});
}

void frmJavaUpdate::ShowUpdate() {
    const std::vector<UpdateEntry>& entries = update_.update.entries;
    const QString path = QDir::toNativeSeparators(ToText(TextOf(update_.path)));
    lblFile_->setText(path);
    lblFile_->setToolTip(path);
    QStringList lines;
    lines.reserve(static_cast<qsizetype>(entries.size()));
    for (const UpdateEntry& entry : entries)
        lines << ToText(LineOf(entry));
    entries_->setStringList(lines);
    QString summary = "Die Datei ist auf dem Stand des Entwurfs.";
    if (update_.Changes())
        summary = entries.empty() ? QStringLiteral("Nur die Anordnung ändert sich.")
                                  : "Was geschieht: " + ToText(SummaryOf(entries));
    lblSummary_->setText(summary);
    chkWithoutMenu_->setEnabled(update_.update.held.menu);
    chkWithoutDatabase_->setEnabled(update_.update.held.database);
    cmdUpdate_->setEnabled(update_.Changes());
    cmdCancel_->setText(update_.Changes() ? "A&bbrechen" : "S&chließen");
    texts_->ShowSources(update_.source, update_.update.source);
}

/// A file that cannot be brought up to date any more ends the form: there is nothing left to decide on.
void frmJavaUpdate::PrepareAgain() {
    const auto prepare = [this] {
        try {
            update_ = prepare_(chkWithoutMenu_->isChecked(), chkWithoutDatabase_->isChecked());
            ShowUpdate();
        } catch (const UpdateRefusal& refusal) {
            dialogs_.Critical("Java-Datei aktualisieren", refusal.what());
            reject();
        }
    };
    if (!ReportErrors(this, prepare))
        reject();
}

void frmJavaUpdate::Write() {
    bool isWritten = false;
    if (!ReportErrors(this, [&] { isWritten = WriteUpdate(update_); }))
        return;
    if (isWritten) {
        accept();
        return;
    }
    dialogs_.Information(changedMeanwhile);
    PrepareAgain();
}

void frmJavaUpdate::GoToEntry(int row) {
    if (row < 0 || static_cast<std::size_t>(row) >= update_.update.entries.size())
        return;
    const UpdateEntry& entry = update_.update.entries[static_cast<std::size_t>(row)];
    if (entry.newLine != 0)
        texts_->GoToNewLine(entry.newLine - 1);
    else if (entry.oldLine != 0)
        texts_->GoToOldLine(entry.oldLine - 1);
}

void frmJavaUpdate::GoOn(int differences) {
    const int wanted = texts_->CurrentDifference() + differences;
    if (wanted >= 0 && wanted < texts_->DifferenceCount())
        texts_->GoToDifference(wanted);
}

void frmJavaUpdate::ShowCurrent() {
    const int current = texts_->CurrentDifference();
    const int count = texts_->DifferenceCount();
    lblCurrent_->setText(count == 0 ? QStringLiteral("Keine Unterschiede")
                                    : QString("Unterschied %1 von %2").arg(current + 1).arg(count));
    cmdPrevious_->setEnabled(current > 0);
    cmdNext_->setEnabled(current + 1 < count);
}

} // namespace pirol
