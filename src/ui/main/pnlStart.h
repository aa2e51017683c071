#pragma once

#include "designer/Document.h"
#include "project/KeptDesigns.h"
#include "ui/canvas/DesignImage.h"
#include "ui/parts/Lookups.h"

#include <QMouseEvent>
#include <QPointer>
#include <QScrollArea>
#include <QTimer>

#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QLabel;

namespace pirol {

class frmMain;
class picFrame;
class StartCard;

/// What an empty start shows in the canvas's place: new windows, the last projects, templates and kept designs, each
/// with its picture. It goes with the first use of anything else, and a press that meets no card does what it does on
/// the canvas below; so does a drag that begins on a card. No disk is waited for.
class pnlStart : public QScrollArea, private DocumentListener {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(pnlStart)

  public:
    /// How many kept designs it shows.
    static constexpr std::size_t mostKeptShown = 5;

    /// `keptFolder` is where the kept designs lie. The page deletes itself when it has gone.
    pnlStart(frmMain& window, std::filesystem::path keptFolder);
    ~pnlStart() override;

  signals:
    void ProjectWanted(const std::string& path);
    void KeptDesignWanted(const pirol::OpenDesign& design);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// Cards of one sort below their heading.
    struct Section {
        QLabel* heading;
        std::vector<StartCard*> cards;
    };
    /// What a project or kept design looks like, as it was read beside the window's thread.
    struct Found;
    /// A picture that is to be painted, in parts.
    struct Painting {
        QPointer<StartCard> card;
        DesignPicture picture;
    };

    void DocumentChanged(const DocumentChange& change) override;
    void Fill();
    Section& AddSection(const char* name, const QString& caption);
    StartCard* AddCard(Section& section, const QSize& pictureSize, const QString& caption, const QString& note);
    void AddSizes();
    void AddProjects();
    void AddExamples();
    void AddKept();
    void ShowKept(const std::vector<std::pair<KeptDesign, Found>>& kept);
    void Paint(StartCard* card, const Found& found);
    void PaintNext();
    void Arrange();
    void PlaceOverCanvas();
    void Leave();
    bool Mouse(QWidget& widget, const QMouseEvent& event);
    bool Key(const QWidget& widget, const QKeyEvent& event);
    void PassOn(const QMouseEvent& event);

    frmMain& window_;
    picFrame* picFrame_;
    std::filesystem::path keptFolder_;
    QWidget* page_;
    std::deque<Section> sections_;
    Lookups lookups_{nullptr};
    std::deque<Painting> paintings_;
    QTimer painting_;
    std::unique_ptr<QMouseEvent> pressed_; ///< on a card, as long as it is no drag
    bool wasClicked_ = false;              ///< a card
    QPointer<QWidget> target_;             ///< of the canvas, which gets a press that met no card and what follows
};

} // namespace pirol
