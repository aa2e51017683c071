#include "ui/main/pnlStart.h"

#include "app/ErrorReport.h"
#include "app/FileCommands.h"
#include "app/RecentProjects.h"
#include "base/FileAccess.h"
#include "base/Text.h"
#include "controls/dBild.h"
#include "project/ProjectFile.h"
#include "ui/canvas/picFrame.h"
#include "ui/main/EmbeddedExample.h"
#include "ui/main/frmMain.h"
#include "ui/main/StartCard.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/PackedPicture.h"
#include "ui/parts/RunBeside.h"
#include "ui/parts/Theme.h"

#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QScrollBar>
#include <QStatusBar>

#include <algorithm>
#include <map>
#include <utility>

namespace pirol {
namespace {

constexpr QSize designPicture(128, 96);
constexpr QSize sizePicture(64, 48);
constexpr int margin = tokens::wideGap;
constexpr int gap = tokens::gap;

/// Larger projects open as ever, but painting them here would take longer than the start. This one holds some 1,500
/// components.
constexpr std::uintmax_t largestPainted = std::uintmax_t{128} << 10U;
constexpr std::size_t mostPictureFiles = 20; // of one design

struct Example {
    std::string_view name;
    const char* note;
};

constexpr Example examples[] = {
    {"Taschenrechner", "Knöpfe, Textfeld"}, {"Quiz", "Radiogruppe, Menü"},        {"Vokabeltrainer", "Tabelle, Regler"},
    {"Adressbuch", "Tabelle, Datenbank"},   {"Medienspieler", "Bild, Ton, Film"},
};

using Pictures = std::map<std::string, QImage, std::less<>>;

/// The image files that a design shows. Any thread may call it.
Pictures DecodedPictures(const ProjectModel& model) {
    Pictures pictures;
    const std::size_t end = std::min(model.ElementCount(ComponentKind::Picture), mostPictureFiles + 1);
    for (std::size_t index = 1; index < end; ++index) {
        const auto& picture = static_cast<const dBild&>(model.Element({ComponentKind::Picture, index}));
        if (picture.Visible && !pictures.contains(picture.File))
            pictures.emplace(picture.File, DecodedPicture(picture.File, 1));
    }
    return pictures;
}

/// An empty window of that size, as large against the largest one as it will be.
QImage WindowSketch(const NewWindowSize& size, const QSize& pixels, const QPalette& palette) {
    const QSize largest(std::rbegin(newWindowSizes)->width, std::rbegin(newWindowSizes)->height);
    QImage image(QSize(size.width, size.height) * pixels.width() / largest.width(), QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Base));
    QPainter(&image).fillRect(0, 0, image.width(), pixels.height() / 8, palette.color(roles::surround));
    return image;
}

/// Painted beforehand, for two scales of the screen: painting designs takes as long as the rest of the start.
QImage ExamplePicture(std::string_view name, const QSize& pixels) {
    const bool isUsual = pixels == designPicture;
    const QImage picture = UnpackedPicture(EmbeddedExample(Concatenate(name, isUsual ? "_128.packed" : "_256.packed")));
    return isUsual ? picture : picture.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

bool IsNotThere(const std::error_code& error) {
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

} // namespace

struct pnlStart::Found {
    ProjectModel model;
    Pictures pictures;
    bool isPainted = false; ///< it has a picture
    QString note{};         ///< why not, if the user should know

    static Found Of(ProjectModel design) {
        Found found{std::move(design), {}, true};
        found.pictures = DecodedPictures(found.model);
        return found;
    }

    static Found OfProject(const std::string& path) {
        std::error_code error;
        const std::uintmax_t bytes = std::filesystem::file_size(PathOf(path), error);
        if (error)
            return {{}, {}, false, IsNotThere(error) ? "nicht mehr da" : "nicht erreichbar"};
        Found found;
        if (bytes <= largestPainted)
            static_cast<void>(ErrorOf([&] {
                ProjectModel model;
                if (ReadPRLFile(PathOf(path), model) == ReadResult::Loaded)
                    found = Of(std::move(model));
            }));
        return found;
    }

    static Found OfKept(const KeptDesign& kept) {
        Found found;
        if (kept.bytes <= largestPainted)
            static_cast<void>(ErrorOf([&] { found = Of(ReadDesign(kept).model); }));
        return found;
    }
};

pnlStart::pnlStart(frmMain& window, std::filesystem::path keptFolder)
    : QScrollArea(window.findChild<picFrame*>("picFrame")->parentWidget()), window_(window),
      picFrame_(window.findChild<picFrame*>("picFrame")), keptFolder_(std::move(keptFolder)), page_(new QWidget) {
    Named(this, "pnlStart", "Startseite");
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Window);
    setAutoFillBackground(true); // so that the canvas below is not painted
    page_->setObjectName("pnlStartPage");
    page_->resize(0, 0); // a scroll bar that comes and goes would have the page painted twice
    setWidget(page_);
    painting_.setSingleShot(true);
    connect(&painting_, &QTimer::timeout, this, &pnlStart::PaintNext);
    for (const QAction* const command : window_.findChildren<QAction*>())
        connect(command, &QAction::triggered, this, &pnlStart::Leave);
    window_.CurrentDocument().AddListener(*this);
    qApp->installEventFilter(this);
    PlaceOverCanvas();
    Fill();
    show();
}

pnlStart::~pnlStart() {
    qApp->removeEventFilter(this);
    if (!isHidden())
        window_.CurrentDocument().RemoveListener(*this);
}

void pnlStart::DocumentChanged(const DocumentChange&) {
    Leave();
}

void pnlStart::Leave() {
    if (isHidden())
        return;
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    hide();
    window_.CurrentDocument().RemoveListener(*this);
    if (hadFocus)
        picFrame_->Canvas()->setFocus(Qt::OtherFocusReason);
    QTimer::singleShot(QApplication::doubleClickInterval(), this, [this] {
        if (!target_)
            deleteLater();
    });
}

// --- What it shows ----------------------------------------------------------------------------------------------

void pnlStart::Fill() {
    AddSizes();
    AddProjects();
    AddExamples();
    AddKept();
    QWidget* before = picFrame_->Canvas();
    for (const Section& section : sections_)
        for (StartCard* card : section.cards) {
            setTabOrder(before, card);
            before = card;
        }
}

pnlStart::Section& pnlStart::AddSection(const char* name, const QString& caption) {
    auto* const heading = Named(new QLabel(caption, page_), name, caption);
    SetOff(heading);
    sections_.push_back({heading, {}});
    return sections_.back();
}

StartCard* pnlStart::AddCard(Section& section, const QSize& pictureSize, const QString& caption, const QString& note) {
    const QString name = section.heading->objectName() + QString::number(section.cards.size());
    auto* const card = new StartCard(name, pictureSize, caption, note, page_);
    section.cards.push_back(card);
    return card;
}

void pnlStart::AddSizes() {
    constexpr const char* notes[] = {"klein", "mittel", "groß"};
    static_assert(std::size(notes) == std::size(newWindowSizes));
    Section& section = AddSection("startNew", "Neues Fenster");
    for (std::size_t i = 0; i < std::size(notes); ++i) {
        const NewWindowSize& size = newWindowSizes[i];
        StartCard* const card =
            AddCard(section, sizePicture, QString("%1 x %2").arg(size.width).arg(size.height), notes[i]);
        card->ShowPicture(WindowSketch(size, card->PicturePixels(), PaperPalette()));
        connect(card, &StartCard::clicked, this,
                [this, size] { window_.Run([&] { NewProject(window_.CurrentDocument(), size); }); });
    }
}

void pnlStart::AddProjects() {
    const std::vector<std::string> paths = recentprojects::Load();
    if (paths.empty())
        return;
    Section& section = AddSection("startProject", "Zuletzt benutzt");
    for (const std::string& path : paths) {
        const QFileInfo file(ToText(path));
        QPointer<StartCard> const card = AddCard(section, designPicture, file.completeBaseName(), file.path());
        card->setToolTip(file.filePath());
        const auto isFound = std::make_shared<bool>(false);
        connect(card, &StartCard::clicked, this, [this, path, isFound] {
            if (*isFound)
                emit ProjectWanted(path);
            else
                window_.statusBar()->showMessage("Das Projekt wird noch gesucht.");
        });
        lookups_.Begin([this, path, card, isFound]() -> Lookups::Answer {
            return [this, card, isFound, found = Found::OfProject(path)] {
                *isFound = true;
                if (!found.note.isEmpty())
                    card->ShowNote(found.note);
                Paint(card, found);
            };
        });
    }
}

void pnlStart::AddExamples() {
    Section& section = AddSection("startExample", "Beispiele als Vorlage");
    for (const Example& example : examples) {
        const std::string_view bytes = EmbeddedExample(Concatenate(example.name, ".prl"));
        StartCard* const card = AddCard(section, designPicture, ToText(example.name), example.note);
        connect(card, &StartCard::clicked, this,
                [this, bytes] { window_.Run([&] { BeginWithTemplate(window_.CurrentDocument(), bytes); }); });
        card->ShowPicture(ExamplePicture(example.name, card->PicturePixels()));
    }
}

void pnlStart::AddKept() {
    lookups_.Begin([this, folder = keptFolder_]() -> Lookups::Answer {
        std::vector<std::pair<KeptDesign, Found>> shown;
        static_cast<void>(ErrorOf([&] {
            for (const KeptDesign& kept : KeptDesigns(folder)) {
                if (shown.size() == mostKeptShown)
                    return;
                shown.emplace_back(kept, Found::OfKept(kept));
            }
        }));
        return [this, shown = std::move(shown)] { ShowKept(shown); };
    });
}

void pnlStart::ShowKept(const std::vector<std::pair<KeptDesign, Found>>& kept) {
    if (kept.empty())
        return;
    Section& section = AddSection("startKept", "Frühere Entwürfe");
    QWidget* before = sections_[sections_.size() - 2].cards.back();
    for (const auto& [design, found] : kept) {
        const QString name =
            design.filePath.empty() ? "Ohne Namen" : QFileInfo(ToText(design.filePath)).completeBaseName();
        const QString time = QDateTime::fromSecsSinceEpoch(design.kept).toString("dd.MM., HH:mm");
        StartCard* const card = AddCard(section, designPicture, name, time + " Uhr");
        connect(card, &StartCard::clicked, this, [this, design = design] {
            OpenDesign opened;
            if (window_.Run([&] { RunBeside([&] { opened = ReadDesign(design); }); }))
                emit KeptDesignWanted(opened);
        });
        setTabOrder(std::exchange(before, card), card);
        Paint(card, found);
    }
    Arrange();
    section.heading->show();
    for (StartCard* const card : section.cards)
        card->show();
}

void pnlStart::Paint(StartCard* card, const Found& found) {
    if (!found.isPainted)
        return;
    const auto pictures = [pictures = found.pictures](const std::string& path, double) {
        const auto known = pictures.find(path);
        return known == pictures.end() ? QPixmap() : QPixmap::fromImage(known->second);
    };
    paintings_.push_back({card, DesignPicture(found.model, card->PicturePixels(), pictures)});
    painting_.start();
}

/// One after another and in parts, so that the window answers meanwhile.
void pnlStart::PaintNext() {
    if (paintings_.empty())
        return;
    Painting& next = paintings_.front();
    if (!next.card || !next.picture.PaintMore(std::chrono::milliseconds(10))) {
        if (next.card)
            next.card->ShowPicture(next.picture.Image());
        paintings_.pop_front();
    }
    painting_.start();
}

// --- Where it lies ----------------------------------------------------------------------------------------------

void pnlStart::PlaceOverCanvas() {
    setGeometry(picFrame_->geometry());
    raise();
}

void pnlStart::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    Arrange();
}

void pnlStart::Arrange() {
    const int width = viewport()->width();
    int top = margin;
    for (const Section& section : sections_) {
        section.heading->setGeometry(margin, top, width - 2 * margin, section.heading->sizeHint().height());
        top += section.heading->height() + gap;
        const QSize card = section.cards.front()->sizeHint();
        const int columns = std::max((width - 2 * margin + gap) / (card.width() + gap), 1);
        for (int i = 0; i < static_cast<int>(section.cards.size()); ++i)
            section.cards[static_cast<std::size_t>(i)]->setGeometry(QRect(
                QPoint(margin + i % columns * (card.width() + gap), top + i / columns * (card.height() + gap)), card));
        const int rows = (static_cast<int>(section.cards.size()) + columns - 1) / columns;
        top += rows * (card.height() + gap) + margin - gap;
    }
    page_->resize(width, top);
}

// --- When it goes -----------------------------------------------------------------------------------------------

bool pnlStart::eventFilter(QObject* watched, QEvent* event) {
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return widget->window() == &window_ && Mouse(*widget, *static_cast<QMouseEvent*>(event));
    case QEvent::KeyPress:
        return widget->window() == &window_ && Key(*widget, *static_cast<QKeyEvent*>(event));
    case QEvent::FocusIn:
        if (isAncestorOf(widget))
            ensureWidgetVisible(widget, 0, margin);
        return false;
    case QEvent::Move:
    case QEvent::Resize:
        if (widget == picFrame_ && !isHidden())
            PlaceOverCanvas();
        return false;
    default:
        return QScrollArea::eventFilter(watched, event);
    }
}

bool pnlStart::Mouse(QWidget& widget, const QMouseEvent& event) {
    if (target_) {
        PassOn(event);
        return true;
    }
    // The second click of a double click shall not meet what the first has brought.
    if (isHidden())
        return wasClicked_ && event.type() == QEvent::MouseButtonDblClick;
    const bool isOnPage = isAncestorOf(&widget);
    if (event.type() == QEvent::MouseButtonPress && isOnPage && qobject_cast<StartCard*>(&widget) != nullptr &&
        event.button() == Qt::LeftButton) {
        pressed_.reset(event.clone());
    } else if (event.type() == QEvent::MouseButtonPress && isOnPage) {
        if (qobject_cast<QScrollBar*>(&widget) != nullptr)
            return false;
        Leave();
        PassOn(event);
        return true;
    } else if (event.type() == QEvent::MouseButtonPress && qobject_cast<QMenuBar*>(&widget) == nullptr) {
        Leave();
    } else if (event.type() == QEvent::MouseMove && pressed_ &&
               (event.globalPosition() - pressed_->globalPosition()).manhattanLength() >=
                   QApplication::startDragDistance()) {
        Leave();
        PassOn(*std::exchange(pressed_, nullptr));
        PassOn(event);
        return true;
    } else if (event.type() == QEvent::MouseButtonRelease) {
        wasClicked_ = std::exchange(pressed_, nullptr) != nullptr;
    }
    return false;
}

/// To the canvas, or what lies around it, from a press to the release of the last button.
void pnlStart::PassOn(const QMouseEvent& event) {
    if (event.type() == QEvent::MouseButtonPress && !target_) {
        const QPoint place = picFrame_->mapFromGlobal(event.globalPosition().toPoint());
        QWidget* const under = picFrame_->childAt(place);
        target_ = under != nullptr ? under : picFrame_;
    }
    QPointer<QWidget> const target = target_;
    if (event.buttons() == Qt::NoButton) {
        target_.clear();
        deleteLater();
    }
    QMouseEvent passed(event.type(), target->mapFromGlobal(event.globalPosition()), event.globalPosition(),
                       event.button(), event.buttons(), event.modifiers());
    qApp->removeEventFilter(this);
    QApplication::sendEvent(target, &passed);
    qApp->installEventFilter(this);
}

bool pnlStart::Key(const QWidget& widget, const QKeyEvent& event) {
    constexpr int ownKeys[] = {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Shift, Qt::Key_Control,
                               Qt::Key_Alt, Qt::Key_AltGr,   Qt::Key_Meta,  Qt::Key_CapsLock};
    constexpr int cardKeys[] = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Select,
                                Qt::Key_Left,   Qt::Key_Right, Qt::Key_Up,    Qt::Key_Down};
    const auto isAmong = [key = event.key()](const auto& keys) {
        return std::find(std::begin(keys), std::end(keys), key) != std::end(keys);
    };
    const bool isOnPage = isAncestorOf(&widget);
    if (isHidden() || isAmong(ownKeys) || (isOnPage && isAmong(cardKeys)))
        return false;
    Leave();
    if (!isOnPage || event.key() == Qt::Key_Escape)
        return isOnPage;
    const std::unique_ptr<QKeyEvent> passed(event.clone());
    QApplication::sendEvent(picFrame_->Canvas(), passed.get());
    return true;
}

} // namespace pirol
