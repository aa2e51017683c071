#include "ui/dialogs/frmRecovery.h"

#include "ui/canvas/DesignLabel.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/Tokens.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr int charactersPerLine = 45;
constexpr QSize largestPicture(240, 180);

QString Question(const std::string& project, std::time_t written, std::size_t others) {
    const QString name = project.empty() ? "ein Entwurf, der noch nicht gespeichert war"
                                         : "der Entwurf „" + QFileInfo(ToText(project)).fileName() + "“";
    const QString time = QDateTime::fromSecsSinceEpoch(written).toString("dd.MM.yyyy, HH:mm:ss");
    QString text = "Pirol wurde nicht richtig beendet. Erhalten ist " + name + ", Stand " + time +
                   " Uhr.\n\nSoll er wiederhergestellt werden?";
    if (others > 0)
        text += others == 1 ? "\n\nDanach ist noch ein älterer da."
                            : QString("\n\nDanach sind noch %1 ältere da.").arg(others);
    return text;
}

} // namespace

frmRecovery::frmRecovery(const OpenDesign& design, std::time_t written, std::size_t others, QWidget* owner)
    : QDialog(owner) {
    setObjectName("frmRecovery");
    setWindowTitle("Pirol - Wiederherstellung");

    auto* const lblQuestion = Named(NewNote(Question(design.filePath, written, others), charactersPerLine),
                                    "lblQuestion", "Was erhalten ist");
    lblQuestion->setMinimumHeight(lblQuestion->heightForWidth(lblQuestion->minimumWidth()));

    auto* const cmdRestore = NewButton("cmdRestore", "&Wiederherstellen", "Den Entwurf in das Fenster holen");
    auto* const cmdDiscard =
        NewButton("cmdDiscard", "&Verwerfen", "Den Entwurf nicht mehr anbieten; er bleibt unter „Frühere Entwürfe“");
    auto* const cmdLater = NewButton("cmdLater", "&Später", "Beim nächsten Start noch einmal fragen");
    cmdRestore->setDefault(true);

    auto* const question = new QHBoxLayout;
    question->setSpacing(tokens::wideGap);
    question->addWidget(Named(new DesignLabel(design.model, largestPicture), "picDesign", "Bild des Entwurfs"));
    question->addWidget(lblQuestion, 1);
    auto* const all = new QVBoxLayout(this);
    all->addLayout(question, 1);
    all->addLayout(NewButtonRow({cmdRestore, cmdDiscard, cmdLater}));

    connect(cmdRestore, &QPushButton::clicked, this, [this] { Choose(Answer::Restore); });
    connect(cmdDiscard, &QPushButton::clicked, this, [this] { Choose(Answer::Discard); });
    connect(cmdLater, &QPushButton::clicked, this, &QDialog::reject);
    cmdRestore->setFocus();
}

void frmRecovery::Choose(Answer answer) {
    chosen_ = answer;
    accept();
}

} // namespace pirol
