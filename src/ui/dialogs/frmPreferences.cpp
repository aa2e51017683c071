#include "ui/dialogs/frmPreferences.h"

#include "designer/Grid.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/TextLine.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionFocusRect>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr QSize tabSize(100, 20);
constexpr QSize colorBoxSize(48, 24);
constexpr QSize previewSize(121, 81);

struct GridStyleRow {
    GridStyle style;
    const char* name;
    const char* caption;
    const char* toolTip;
};

constexpr GridStyleRow gridStyles[] = {
    {GridStyle::Dots, "optGridStyle0", "&Punkte", "Ein Punkt an jeder Stelle des Rasters"},
    {GridStyle::Crosses, "optGridStyle1", "&Kreuze", "Ein kleines Kreuz an jeder Stelle des Rasters"},
    {GridStyle::Lines, "optGridStyle2", "&Linien", "Durchgehende Linien"},
};

/// Tabs of one size, larger only where the font needs it.
class EvenTabBar : public QTabBar {
  protected:
    QSize tabSizeHint(int index) const override { return QTabBar::tabSizeHint(index).expandedTo(tabSize); }
};

class EvenTabWidget : public QTabWidget {
  public:
    EvenTabWidget() { setTabBar(Named(new EvenTabBar, "tabs", "Seiten der Optionen")); }
};

} // namespace

/// A button that shows nothing but a colour.
class ColorBox : public QAbstractButton {
  public:
    std::uint32_t Color() const { return color_; }
    void SetColor(std::uint32_t color) {
        color_ = color;
        setAccessibleDescription(ToColor(color).name());
        update();
    }
    QSize sizeHint() const override { return colorBoxSize; }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(ToColor(color_));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        if (!hasFocus())
            return;
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect().adjusted(2, 2, -2, -2);
        focus.backgroundColor = ToColor(color_);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }

  private:
    std::uint32_t color_ = 0;
};

/// A piece of an empty design with the grid as it would be.
class GridPreview : public QWidget {
  public:
    GridPreview() { setFixedSize(previewSize); }
    void Show(const Preferences& preferences) {
        preferences_ = preferences;
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        const QColor color = ToColor(preferences_.GridColor);
        for (const Rectangle& mark : GridMarks(preferences_.GridStyle, width(), height(), {0, 0, width(), height()}))
            painter.fillRect(ToRect(mark), color);
    }

  private:
    Preferences preferences_;
};

frmPreferences::frmPreferences(Preferences& preferences, cCommonDialog& dialogs, QWidget* owner)
    : QDialog(owner), preferences_(preferences), dialogs_(dialogs), optGridStyle_(new QButtonGroup(this)),
      picGridColor_(Named(new ColorBox, "picGridColor", "Rasterfarbe")),
      picPreview_(Named(new GridPreview, "picPreview", "Vorschau des Rasters")),
      txtBlueJPath_(Named(new TextLine(ToText(preferences.BlueJPath)), "txtBlueJPath", "BlueJ-Pfad")) {
    setObjectName("frmPreferences");
    setWindowTitle("Pirol - Optionen");

    auto* const tbPreferences = Named(new EvenTabWidget, "tbPreferences", "Optionen");
    tbPreferences->addTab(NewGeneralPage(), "Allgemein");
    auto* const cmdAccept = NewButton("cmdAccept", "Über&nehmen", "Die Optionen speichern");
    auto* const cmdCancel = NewButton("cmdCancel", "Abbrechen", "Die Optionen lassen, wie sie sind");
    cmdAccept->setDefault(true);
    auto* const all = new QVBoxLayout(this);
    all->addWidget(tbPreferences, 1);
    all->addLayout(NewButtonRow({cmdAccept, cmdCancel}));

    connect(cmdAccept, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    picGridColor_->SetColor(preferences.GridColor);
    if (QAbstractButton* const option = optGridStyle_->button(preferences.GridStyle))
        option->setChecked(true);
    ShowPreview();
}

QWidget* frmPreferences::NewGeneralPage() {
    auto* const page = new QWidget;
    auto* const layout = new QVBoxLayout(page);
    layout->addWidget(NewGridGroup());
    layout->addWidget(NewBlueJGroup());
    layout->addStretch();
    return page;
}

QWidget* frmPreferences::NewGridGroup() {
    auto* const group = new QGroupBox("Raster der Entwurfsfläche");
    auto* const styles = new QVBoxLayout;
    for (const GridStyleRow& row : gridStyles) {
        auto* const option = NewOption(row.name, row.caption, row.toolTip);
        optGridStyle_->addButton(option, static_cast<int>(row.style));
        styles->addWidget(option);
    }
    auto* const cmdBrowseGridColor = NewButton("cmdBrowseGridColor", "&Farbe wählen …", "Die Farbe des Rasters wählen");
    picGridColor_->setToolTip("Die Farbe des Rasters; ein Klick wählt eine andere");
    auto* const color = new QHBoxLayout;
    color->addWidget(picGridColor_);
    color->addWidget(cmdBrowseGridColor);
    color->addStretch();
    styles->addLayout(color);

    auto* const layout = new QHBoxLayout(group);
    layout->addLayout(styles, 1);
    layout->addWidget(picPreview_, 0, Qt::AlignCenter);

    connect(optGridStyle_, &QButtonGroup::idToggled, this, &frmPreferences::ShowPreview);
    connect(picGridColor_, &QAbstractButton::clicked, this, &frmPreferences::BrowseGridColor);
    connect(cmdBrowseGridColor, &QPushButton::clicked, this, &frmPreferences::BrowseGridColor);
    return group;
}

QWidget* frmPreferences::NewBlueJGroup() {
    auto* const group = new QGroupBox("BlueJ");
    auto* const caption = new QLabel("Pfad der P&rogrammdatei:");
    caption->setBuddy(txtBlueJPath_);
    txtBlueJPath_->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    txtBlueJPath_->setToolTip(
        "Dieses Programm wird gestartet, wenn Sie BlueJ starten oder ein BlueJ-Projekt exportieren");
    auto* const cmdBrowseBlueJ = NewButton("cmdBrowseBlueJ", "&Durchsuchen …", "Die Programmdatei von BlueJ suchen");
    auto* const path = new QHBoxLayout;
    path->addWidget(txtBlueJPath_, 1);
    path->addWidget(cmdBrowseBlueJ);
    auto* const layout = new QVBoxLayout(group);
    layout->addWidget(caption);
    layout->addLayout(path);
    connect(cmdBrowseBlueJ, &QPushButton::clicked, this, &frmPreferences::BrowseBlueJ);
    return group;
}

Preferences frmPreferences::Entered() const {
    const int style = optGridStyle_->checkedId();
    return {.BlueJPath = txtBlueJPath_->text().toStdString(),
            .GridStyle = static_cast<std::int16_t>(style < 0 ? 2 : style),
            .GridColor = picGridColor_->Color()};
}

void frmPreferences::ShowPreview() {
    picPreview_->Show(Entered());
}

void frmPreferences::BrowseGridColor() {
    if (const auto color = dialogs_.ShowColor(picGridColor_->Color())) {
        picGridColor_->SetColor(*color);
        ShowPreview();
    }
}

void frmPreferences::BrowseBlueJ() {
    const std::string chosen = dialogs_.ShowOpen({.Title = "BlueJ suchen",
                                                  .Filter = std::string(blueJFilter),
                                                  .Flags = FileDialogSetup::FileMustExist,
                                                  .FileName = {},
                                                  .Name = "programDialog"});
    txtBlueJPath_->setText(ToText(BlueJPathAfterBrowsing(txtBlueJPath_->text().toStdString(), chosen)));
}

void frmPreferences::accept() {
    const Preferences entered = Entered();
    if (const auto warning = BlueJPathWarning(entered.BlueJPath))
        dialogs_.Information(*warning);
    preferences_ = entered;
    preferences_.Save();
    QDialog::accept();
}

} // namespace pirol
