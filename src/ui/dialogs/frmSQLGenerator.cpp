#include "ui/dialogs/frmSQLGenerator.h"

#include "ui/dialogs/StepRail.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/TextLine.h"
#include "ui/parts/Tokens.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr int charactersPerLine = 92;

/// A caption whose first letter is also its key.
QString WithKey(std::string_view caption) {
    QString text = ToText(caption);
    const auto letter = std::find_if(text.cbegin(), text.cend(), [](QChar sign) { return sign.isLetter(); });
    text.insert(letter - text.cbegin(), '&');
    return text;
}

QLabel* NewNotes(const SQLWizardStep& step) {
    QStringList lines;
    for (const std::string_view note : step.notes)
        lines << ToText(note);
    QLabel* const notes = NewNote(lines.join('\n'), charactersPerLine);
    notes->setObjectName("lblNotes");
    return notes;
}

/// What the steps are called beside their numbers.
QStringList StepNames() {
    QStringList names;
    for (const SQLWizardStep& step : SQLWizard::Steps())
        names << ToText(step.title).section(" - ", 1);
    return names;
}

/// The note that explains a field; a step with one field explains it in its first note.
QString NoteOn(const SQLWizardStep& step, const QString& fieldName) {
    const QString beginning = "- " + fieldName + ": ";
    for (const std::string_view note : step.notes)
        if (const QString text = ToText(note); text.startsWith(beginning))
            return text.mid(beginning.size());
    return ToText(step.notes.front());
}

} // namespace

frmSQLGenerator::frmSQLGenerator(SQLSettings& settings, QWidget* owner)
    : QDialog(owner), settings_(settings), wizard_(settings), lblStep_(Named(new QLabel, "lblStep", "Schritt")),
      rail_(Named(new StepRail(StepNames()), "picSteps", "Schritte")), steps_(new QStackedWidget),
      cmdStepBack_(NewButton("cmdStepBack", WithKey(SQLWizard::backCaption))),
      cmdStepForward_(NewButton("cmdStepForward", WithKey(wizard_.Step().forwardCaption))) {
    setObjectName("frmSQLGenerator");
    setWindowTitle(ToText(SQLWizard::title));

    SetOff(lblStep_, tokens::headingScale);
    for (const SQLWizardStep& step : SQLWizard::Steps())
        steps_->addWidget(NewStep(step, &step == &SQLWizard::Steps().back()));
    cmdStepForward_->setDefault(true);
    auto* const cmdCancel = NewButton("cmdCancel", "Abbrechen", "Den Assistenten schließen und nichts ändern");

    auto* const columns = new QHBoxLayout;
    columns->addWidget(rail_, 0, Qt::AlignTop);
    columns->addWidget(steps_, 1);
    auto* const all = new QVBoxLayout(this);
    all->addWidget(lblStep_);
    all->addSpacing(tokens::gap);
    all->addLayout(columns, 1);
    all->addLayout(NewButtonRow({cmdStepBack_, cmdStepForward_, cmdCancel}));

    connect(cmdStepBack_, &QPushButton::clicked, this, [this] {
        wizard_.Back();
        ShowStep();
    });
    connect(cmdStepForward_, &QPushButton::clicked, this, &frmSQLGenerator::Forward);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ShowStep();
}

QWidget* frmSQLGenerator::NewStep(const SQLWizardStep& step, bool withMethods) {
    auto* const picStep = Named(new QWidget, "picStep", ToText(step.title));
    auto* const group = new QGroupBox(ToText(step.heading));
    auto* const form = new QFormLayout(group);
    for (const SQLField& field : step.fields) {
        const QString name = ToText(field.label).trimmed().remove(':');
        auto* const edit = Named(new TextLine(ToText(wizard_.Text(field))), field.control.data(), name);
        edit->setToolTip(NoteOn(step, name));
        edit->setEchoMode(field.unreadable ? QLineEdit::Password : QLineEdit::Normal);
        connect(edit, &QLineEdit::textChanged, this,
                [this, &field](const QString& text) { wizard_.SetText(field, text.toStdString()); });
        form->addRow(WithKey(field.label), edit);
    }
    if (withMethods)
        form->addRow(NewMethodList());

    auto* const layout = new QVBoxLayout(picStep);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(group, withMethods ? 1 : 0);
    layout->addWidget(NewNotes(step));
    if (!withMethods)
        layout->addStretch(1);
    return picStep;
}

QWidget* frmSQLGenerator::NewMethodList() {
    auto* const lstDefined = Named(new QTreeWidget, "lstDefined", "Vordefinierte Abfragen");
    QStringList columns;
    for (const std::string_view column : SQLWizard::columns)
        columns << ToText(column);
    lstDefined->setHeaderLabels(columns);
    lstDefined->setRootIsDecorated(false);
    lstDefined->setUniformRowHeights(true);
    lstDefined->setToolTip("Angekreuzte Abfragen werden in die erzeugte Klasse geschrieben");
    for (std::size_t row = 0; row < SQLFunctions().size(); ++row) {
        const cSQLFunction& function = SQLFunctions()[row];
        auto* const item = new QTreeWidgetItem(lstDefined, {ToText(function.Name()), ToText(function.Description())});
        item->setCheckState(0, wizard_.IsChosen(row) ? Qt::Checked : Qt::Unchecked);
    }
    lstDefined->setCurrentItem(lstDefined->topLevelItem(0));
    lstDefined->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstDefined->setMinimumHeight(lstDefined->fontMetrics().lineSpacing() * 8);
    connect(lstDefined, &QTreeWidget::itemChanged, this, [this, lstDefined](QTreeWidgetItem* item) {
        wizard_.Choose(static_cast<std::size_t>(lstDefined->indexOfTopLevelItem(item)),
                       item->checkState(0) == Qt::Checked);
    });
    return lstDefined;
}

void frmSQLGenerator::Forward() {
    if (wizard_.IsLastStep()) {
        wizard_.Finish(settings_);
        return accept();
    }
    wizard_.Forward();
    ShowStep();
}

void frmSQLGenerator::ShowStep() {
    lblStep_->setText(ToText(wizard_.Step().title));
    rail_->ShowStep(static_cast<int>(wizard_.StepIndex()));
    steps_->setCurrentIndex(static_cast<int>(wizard_.StepIndex()));
    cmdStepBack_->setEnabled(!wizard_.IsFirstStep());
    const QString caption = WithKey(wizard_.Step().forwardCaption);
    cmdStepForward_->setText(caption);
    cmdStepForward_->setAccessibleName(QString(caption).remove('&'));
    // Each step begins at its first field or its list.
    for (QWidget* const child : steps_->currentWidget()->findChildren<QWidget*>())
        if (child->focusPolicy() & Qt::TabFocus)
            return child->setFocus();
}

} // namespace pirol
