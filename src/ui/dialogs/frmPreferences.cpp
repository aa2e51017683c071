#include "ui/dialogs/frmPreferences.h"

#include "app/JavaPlaces.h"
#include "app/UpdateFault.h"
#include "base/FileAccess.h"
#include "designer/Grid.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/TextLine.h"
#include "ui/parts/Tokens.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionFocusRect>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

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
    {GridStyle::Lines, "optGridStyle2", "L&inien", "Durchgehende Linien"},
};

struct AppearanceRow {
    Appearance appearance;
    const char* name;
    const char* caption;
    const char* toolTip;
};

constexpr AppearanceRow appearances[] = {
    {Appearance::System, "optAppearance0", "&Wie das System", "Hell oder dunkel, wie es das System vorgibt"},
    {Appearance::Light, "optAppearance1", "&Hell", "Dunkle Schrift auf hellem Grund"},
    {Appearance::Dark, "optAppearance2", "Dunke&l", "Helle Schrift auf dunklem Grund"},
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
        painter.fillRect(rect(), palette().color(QPalette::Mid));
        painter.fillRect(rect().adjusted(1, 1, -1, -1), ToColor(color_));
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

/// Looks for Java and SuM beside the window's own thread, as the folders may lie on a slow network: nobody waits for
/// the answer, and one that comes too late is lost.
class JavaSearch : public QObject {
  public:
    struct Answer {
        QString jdk;
        QString sum;
    };

    JavaSearch(QObject* parent, std::function<void(const Answer&)> tell) : QObject(parent), tell_(std::move(tell)) {
        look_.setInterval(lookTime);
        connect(&look_, &QTimer::timeout, this, &JavaSearch::Look);
    }

    void Begin(const Preferences& preferences) {
        box_ = std::make_shared<Box>();
        std::thread([box = box_, preferences] {
            const JavaSurroundings surroundings = JavaSurroundings::OfSystem();
            Answer answer{ToText(JdkText(ChooseJdk(preferences, surroundings))),
                          ToText(LibraryText(FindLibraries(preferences, surroundings)))};
            const std::scoped_lock lock(box->mutex);
            box->answer = std::move(answer);
        }).detach();
        look_.start();
    }

  private:
    static constexpr std::chrono::milliseconds lookTime{50};
    struct Box {
        std::mutex mutex;
        std::optional<Answer> answer;
    };

    void Look() {
        std::unique_lock lock(box_->mutex);
        if (!box_->answer)
            return;
        const Answer answer = std::move(*box_->answer);
        lock.unlock();
        look_.stop();
        tell_(answer);
    }

    std::function<void(const Answer&)> tell_;
    std::shared_ptr<Box> box_;
    QTimer look_;
};

frmPreferences::frmPreferences(Preferences& preferences, cCommonDialog& dialogs, QWidget* owner)
    : QDialog(owner), preferences_(preferences), dialogs_(dialogs), optAppearance_(new QButtonGroup(this)),
      optGridStyle_(new QButtonGroup(this)), picGridColor_(Named(new ColorBox, "picGridColor", "Rasterfarbe")),
      picPreview_(Named(new GridPreview, "picPreview", "Vorschau des Rasters")),
      txtBlueJPath_(Named(new TextLine(ToText(preferences.BlueJPath)), "txtBlueJPath", "BlueJ-Pfad")),
      txtJdkPath_(Named(new TextLine(ToText(preferences.JdkPath)), "txtJdkPath", "Ordner des JDK")),
      txtSumPath_(Named(new TextLine(ToText(preferences.SumPath)), "txtSumPath", "Archiv oder Ordner von SuM")),
      lblJdk_(Named(new QLabel, "lblJdk", "Gefundenes Java")), lblSum_(Named(new QLabel, "lblSum", "Gefundenes SuM")),
      javaSearch_(new JavaSearch(this,
                                 [this](const JavaSearch::Answer& answer) {
                                     lblJdk_->setText(answer.jdk);
                                     lblSum_->setText(answer.sum);
                                 })),
      chkUpdate_(Named(new QCheckBox("&Einmal in der Woche nach einer neuen Version suchen"), "chkUpdate",
                       "Einmal in der Woche nach einer neuen Version suchen")) {
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
    ShowJava();
}

QWidget* frmPreferences::NewGeneralPage() {
    auto* const page = new QWidget;
    auto* const layout = new QVBoxLayout(page);
    layout->addWidget(NewAppearanceGroup());
    layout->addWidget(NewGridGroup());
    layout->addWidget(NewBlueJGroup());
    layout->addWidget(NewJavaGroup());
    layout->addWidget(NewUpdateGroup());
    layout->addStretch();
    return page;
}

/// What is chosen is seen at once, also behind this dialog.
QWidget* frmPreferences::NewAppearanceGroup() {
    auto* const group = new QGroupBox("Erscheinungsbild");
    auto* const layout = new QHBoxLayout(group);
    layout->setSpacing(2 * tokens::wideGap);
    for (const AppearanceRow& row : appearances) {
        auto* const option = NewOption(row.name, row.caption, row.toolTip);
        option->setChecked(row.appearance == preferences_.Look);
        optAppearance_->addButton(option, static_cast<int>(row.appearance));
        layout->addWidget(option);
    }
    layout->addStretch();
    connect(optAppearance_, &QButtonGroup::idClicked, this, [this] { emit AppearanceChosen(Entered().Look); });
    return group;
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

/// What is found stands below the fields: empty ones mean that Pirol looks itself.
QWidget* frmPreferences::NewJavaGroup() {
    auto* const group = new QGroupBox("Programme testen");
    auto* const layout = new QGridLayout(group);
    const auto addRow = [&](int row, const QString& caption, QLineEdit* field, QPushButton* browse, QLabel* found) {
        auto* const label = new QLabel(caption);
        label->setBuddy(field);
        field->setPlaceholderText("selbst suchen");
        found->setWordWrap(true);
        found->setTextFormat(Qt::PlainText);
        // Two lines, so that nothing moves when the answer comes.
        found->setMinimumHeight(2 * found->fontMetrics().lineSpacing());
        found->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        layout->addWidget(label, row, 0);
        layout->addWidget(field, row, 1);
        layout->addWidget(browse, row, 2);
        layout->addWidget(found, row + 1, 1, 1, 2);
        connect(field, &QLineEdit::editingFinished, this, &frmPreferences::ShowJava);
    };
    auto* const cmdBrowseJdk = NewButton("cmdBrowseJdk", "D&urchsuchen …", "Das Programm java eines JDK suchen");
    auto* const cmdBrowseSum = NewButton("cmdBrowseSum", "Durchsu&chen …", "Das Archiv der Bibliothek SuM suchen");
    txtJdkPath_->setToolTip("Der Ordner des JDK, mit dem Programme getestet werden");
    txtSumPath_->setToolTip("Das Archiv oder der Ordner der Bibliothek SuM");
    addRow(0, "&JDK:", txtJdkPath_, cmdBrowseJdk, lblJdk_);
    addRow(2, "&SuM:", txtSumPath_, cmdBrowseSum, lblSum_);
    connect(cmdBrowseJdk, &QPushButton::clicked, this, &frmPreferences::BrowseJdk);
    connect(cmdBrowseSum, &QPushButton::clicked, this, &frmPreferences::BrowseSum);
    return group;
}

void frmPreferences::ShowJava() {
    lblJdk_->setText("Java wird gesucht …");
    lblSum_->setText("SuM wird gesucht …");
    javaSearch_->Begin(Entered());
}

void frmPreferences::BrowseJdk() {
    const std::string chosen = dialogs_.ShowOpen({.Title = "Java suchen",
                                                  .Filter = std::string(javaFilter),
                                                  .Flags = FileDialogSetup::FileMustExist,
                                                  .FileName = {},
                                                  .Name = "programDialog"});
    if (chosen.empty())
        return;
    const std::optional<Jdk> jdk = JdkAt(PathOf(chosen));
    txtJdkPath_->setText(ToText(jdk ? TextOf(jdk->home) : chosen));
    ShowJava();
}

void frmPreferences::BrowseSum() {
    const std::string chosen = dialogs_.ShowOpen({.Title = "SuM suchen",
                                                  .Filter = "Java-Archive (*.jar)|*.jar",
                                                  .Flags = FileDialogSetup::FileMustExist,
                                                  .FileName = {},
                                                  .Name = "programDialog"});
    if (chosen.empty())
        return;
    txtSumPath_->setText(ToText(chosen));
    ShowJava();
}

QWidget* frmPreferences::NewUpdateGroup() {
    auto* const group = new QGroupBox("Neue Versionen");
    auto* const layout = new QVBoxLayout(group);
    layout->addWidget(chkUpdate_);
    chkUpdate_->setChecked(preferences_.LooksForUpdates);
    OfferUpdates(false);
    return group;
}

void frmPreferences::OfferUpdates(bool offer) {
    chkUpdate_->setEnabled(offer);
    chkUpdate_->setToolTip(offer ? QString("Kurz nach dem Start; in der Statusleiste steht, was gefunden wurde")
                                 : ToText(noUpdateSource));
}

Preferences frmPreferences::Entered() const {
    const int style = optGridStyle_->checkedId();
    return {.BlueJPath = txtBlueJPath_->text().toStdString(),
            .GridStyle = static_cast<std::int16_t>(style < 0 ? 2 : style),
            .GridColor = picGridColor_->Color(),
            .JdkPath = txtJdkPath_->text().toStdString(),
            .SumPath = txtSumPath_->text().toStdString(),
            .LooksForUpdates = chkUpdate_->isChecked(),
            .Look = static_cast<Appearance>(optAppearance_->checkedId())};
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

void frmPreferences::reject() {
    if (Entered().Look != preferences_.Look)
        emit AppearanceChosen(preferences_.Look);
    QDialog::reject();
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
