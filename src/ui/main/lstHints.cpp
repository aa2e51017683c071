#include "ui/main/lstHints.h"

#include "app/Handbook.h"
#include "designer/MainLayout.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/HelpAnchor.h"

#include <QIcon>
#include <QListWidget>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pirol {
namespace {

/// More lines would take the canvas's room.
constexpr int linesShown = 4;
constexpr int iconSize = 14;

QString Count(std::size_t hints) {
    return hints < mostHints ? QString::number(hints) : QString("%1 und mehr").arg(mostHints);
}

/// The icons of the lines. The style makes an icon anew at each call, which would be slow with many hints.
struct EffectIcons {
    explicit EffectIcons(const QStyle& style)
        : worksWrongly(style.standardIcon(QStyle::SP_MessageBoxWarning)),
          doesNotCompile(style.standardIcon(QStyle::SP_MessageBoxCritical)) {}

    QIcon worksWrongly;
    QIcon doesNotCompile;
};

QListWidgetItem* NewLine(const Hint& hint, const EffectIcons& icons) {
    const bool compiles = hint.rule->effect == HintEffect::WorksWrongly;
    const QString text = ToText(hint.text);
    const QString effect =
        compiles ? "Das Programm läuft anders als gezeichnet." : "Java kann das Programm so nicht übersetzen.";
    const QString where = ToText(WhereToMend(hint.subject));
    auto* line = new QListWidgetItem(compiles ? icons.worksWrongly : icons.doesNotCompile, text);
    // As markup, so that long lines are broken; the hint's text is escaped, as it is none.
    line->setToolTip("<qt>" + QStringList{text.toHtmlEscaped(), effect, where}.join("<br>") + "</qt>");
    line->setData(Qt::AccessibleDescriptionRole, effect + ' ' + where);
    return line;
}

} // namespace

lstHints::lstHints(QWidget* parent)
    : QWidget(parent), heading_(Named(new QToolButton, "cmdHints", "Hinweise")),
      list_(Named(new QListWidget, "lstHints", "Hinweise")) {
    heading_->setFixedHeight(rowHeight);
    heading_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    heading_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    heading_->setAutoRaise(true);
    heading_->setCheckable(true);
    heading_->setStatusTip("F6: zeigt die Hinweise zum erzeugten Programm; ein Klick verbirgt sie wieder");
    SetOff(heading_);
    connect(heading_, &QToolButton::toggled, this, &lstHints::Fold);

    list_->setUniformItemSizes(true);
    list_->setIconSize({iconSize, iconSize});
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setTextElideMode(Qt::ElideRight);
    connect(list_, &QListWidget::clicked, this, [this](const QModelIndex& line) { Choose(line.row()); });
    connect(list_, &QListWidget::activated, this, [this](const QModelIndex& line) { Choose(line.row()); });
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
        SetHelpAnchor(list_, row < 0 ? std::string() : AnchorOf(*hints_[static_cast<std::size_t>(row)].rule));
    });

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(heading_);
    rows->addWidget(list_);
    // As high for no lines as for many.
    list_->addItem(new QListWidgetItem(QIcon(QPixmap(iconSize, iconSize)), " "));
    list_->setFixedHeight(linesShown * list_->sizeHintForRow(0) + 2 * list_->frameWidth());
    list_->clear();
    ShowCount();
    Fold(false);
}

void lstHints::Open() {
    heading_->setChecked(true);
    list_->setFocus(Qt::ShortcutFocusReason);
}

void lstHints::ShowCount() {
    heading_->setText(QString("Hinweise (%1)").arg(Count(hints_.size())));
    heading_->setAccessibleName(heading_->text());
}

void lstHints::ShowHints(std::vector<Hint> hints) {
    if (hints == hints_)
        return;
    hints_ = std::move(hints);
    const int current = list_->currentRow();
    list_->clear();
    ShowCount();
    const EffectIcons icons(*style());
    for (const Hint& hint : hints_)
        list_->addItem(NewLine(hint, icons));
    // No line is marked until the user has been in the list.
    if (current >= 0)
        list_->setCurrentRow(std::min(current, list_->count() - 1));
}

void lstHints::Choose(int row) {
    // A copy: the list may change while it is acted on.
    const Hint hint = hints_[static_cast<std::size_t>(row)];
    emit HintChosen(hint);
}

void lstHints::Fold(bool open) {
    heading_->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    list_->setVisible(open);
}

} // namespace pirol
