#include "app/RecentProjects.h"
#include "app/Registry.h"
#include "Cases.h"
#include "project/ProjectFile.h"
#include "ui/canvas/DesignImage.h"
#include "ui/main/EmbeddedExample.h"
#include "ui/main/pnlStart.h"
#include "ui/main/RecentMenu.h"
#include "ui/main/StartCard.h"
#include "ui/MainWindow.h"
#include "ui/parts/PackedPicture.h"

#include <QMenu>
#include <QScrollBar>

#include <future>

namespace pirol::test {

namespace fs = std::filesystem;

/// An empty start of a user who has a folder of his own.
struct StartedWindow : MainWindow {
    explicit StartedWindow(const fs::path& kept) : page(new pnlStart(window, kept)) {
        QObject::connect(page, &pnlStart::ProjectWanted, &menu, &RecentMenu::Open);
        if (!QTest::qWaitFor([this] { return page->findChild<StartCard*>("startExample4") != nullptr; }))
            qFatal("the page stays empty");
    }
    ~StartedWindow() { delete page; }

    bool IsShown() const { return page != nullptr && page->isVisible(); }
    StartCard* Card(const char* name) { return Part<StartCard>(*page, name); }
    /// Drags on a part of the page as the system tells it: all goes to the part that got the press.
    void DragOn(QWidget* part, const QPoint& from, const QPoint& to) {
        QTest::mousePress(part, Qt::LeftButton, {}, from);
        QPointer<QWidget> receiver = part;
        QMouseEvent move(QEvent::MouseMove, to, part->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(receiver, &move);
        QTest::mouseRelease(receiver, Qt::LeftButton, {}, to);
    }

    RecentMenu menu{window, dialogs};
    QPointer<pnlStart> page;
};

class PnlStartTest : public QObject {
    Q_OBJECT

  private:
    std::optional<ScratchFolder> scratch_;

    /// A project file and its path.
    std::string Project(const char* name, std::int16_t width) {
        ProjectModel model;
        model.SetWindowSize(width, 300);
        ReplaceFileBytes(*scratch_ / name, GeneratePRLCode(model));
        return TextOf(*scratch_ / name);
    }

  private slots:
    void init() {
        scratch_.emplace();
        qputenv("XDG_CONFIG_HOME", (*scratch_ / "config").c_str());
    }

    void BeginsWithWhatIsChosen() {
        recentprojects::Add(Project("a.prl", 444));
        const std::tuple<const char*, int, bool> cases[] = {{"startNew0", 320, false},
                                                            {"startNew2", 800, false},
                                                            {"startProject0", 444, true},
                                                            {"startExample0", 340, false}};
        for (const auto& [card, width, hasFile] : cases)
            for (const bool byKey : {false, true}) {
                StartedWindow main(*scratch_ / "kept");
                QTest::qWait(50); // the project is found
                if (byKey)
                    QTest::keyClick(main.Card(card), Qt::Key_Return);
                else
                    QTest::mouseClick(main.Card(card), Qt::LeftButton);
                QCOMPARE(main.window.Model().WindowWidth(), width);
                QCOMPARE(!main.window.CurrentDocument().FilePath().empty(), hasFile);
                QVERIFY(!main.window.CurrentDocument().IsChanged());
                QVERIFY(!main.IsShown());
                QVERIFY(main.canvas->hasFocus());
            }
    }

    /// The pictures were painted beforehand, so they must be painted anew when an example or the painting changes.
    void ShowsTheExamplesAsTheyAre() {
        for (const char* const name : {"Adressbuch", "Medienspieler", "Quiz", "Taschenrechner", "Vokabeltrainer"})
            for (const QSize size : {QSize(128, 96), QSize(256, 192)}) {
                ProjectModel model;
                ReadPRLBytes(EmbeddedExample(std::string(name) + ".prl"), model);
                const QImage design = DesignImage(model, size, PicturesOf(model));
                const std::string picture = name + ("_" + std::to_string(size.width())) + ".packed";
                const QImage shown = UnpackedPicture(EmbeddedExample(picture));
                QCOMPARE(shown.size(), design.size());
                double difference = 0;
                for (int y = 0; y < design.height(); ++y)
                    for (int x = 0; x < design.width(); ++x)
                        difference += std::abs(qGray(design.pixel(x, y)) - qGray(shown.pixel(x, y)));
                QVERIFY2(difference / (design.width() * design.height()) < 6, picture.c_str());
            }
    }

    void FetchesKeptDesignsBack() {
        OpenDesign design{{}, "/Schule/Quiz.prl"};
        design.model.SetAuthor("Eva");
        KeepDesign(*scratch_ / "kept", design, "Neuer Entwurf", 1'600'000'000);
        StartedWindow main(*scratch_ / "kept");
        std::string author;
        connect(main.page, &pnlStart::KeptDesignWanted, this,
                [&author](const OpenDesign& wanted) { author = wanted.model.Author(); });
        QTRY_VERIFY(main.page->findChild<StartCard*>("startKept0") != nullptr);
        QTest::mouseClick(main.Card("startKept0"), Qt::LeftButton);
        QCOMPARE(author, "Eva");
    }

    /// A press that meets no card, and a drag that begins on one, do what they do on the canvas.
    void LetsTheMouseDrawAtOnce() {
        for (const char* const name : {"pnlStartPage", "startNew1", "startExample1"}) {
            StartedWindow main(*scratch_ / "kept");
            auto* const part = Part<QWidget>(*main.page, name);
            const QPoint from = part->mapFrom(&main.window, main.canvas->mapTo(&main.window, QPoint(60, 120)));
            const QPoint begin = part->rect().contains(from) ? from : QPoint(20, 20);
            const QPoint place = part->mapTo(&main.window, begin) - main.canvas->mapTo(&main.window, QPoint(0, 0));
            main.DragOn(part, begin, begin + QPoint(100, 50));
            QVERIFY(!main.IsShown());
            const bool isOnCanvas = main.canvas->rect().contains(place);
            QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label), isOnCanvas ? 2U : 1U);
            if (isOnCanvas)
                QVERIFY(std::abs(main.SelectedBox().left - place.x()) <= 10);
        }
    }

    void GoesWithTheFirstUse() {
        const std::pair<const char*, std::function<void(StartedWindow&)>> uses[] = {
            {"toolbox", [](StartedWindow& main) { Click(main.window, "tbComponents"); }},
            {"command", [](StartedWindow& main) { main.Command("mnuViewZoomIn")->trigger(); }},
            {"key", [](StartedWindow& main) { QTest::keyClick(main.canvas, Qt::Key_Insert); }},
            {"escape", [](StartedWindow& main) { QTest::keyClick(main.Card("startNew0"), Qt::Key_Escape); }},
            {"key on a card", [](StartedWindow& main) { QTest::keyClick(main.Card("startNew0"), Qt::Key_Insert); }},
        };
        for (const auto& [name, use] : uses) {
            StartedWindow main(*scratch_ / "kept");
            use(main);
            QVERIFY2(!main.IsShown(), name);
            QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label),
                     std::string_view(name).starts_with("key") ? 2U : 1U);
            QTRY_VERIFY(main.page == nullptr);
        }
        StartedWindow main(*scratch_ / "kept");
        QTest::keyClick(main.canvas, Qt::Key_Tab);
        QVERIFY(main.IsShown());
        QVERIFY(main.Card("startNew0")->hasFocus());
    }

    /// The second click of a double click shall not meet the design that the first one has brought.
    void TakesADoubleClickAsOne() {
        StartedWindow main(*scratch_ / "kept");
        QTest::mouseClick(main.Card("startExample0"), Qt::LeftButton);
        QTest::mouseDClick(main.canvas, Qt::LeftButton, {}, {60, 60});
        QCOMPARE(main.canvas->findChild<QWidget*>("txtInPlace"), nullptr);
    }

    void RemembersProjectsAndForgetsThoseThatAreGone() {
        const std::string a = Project("a.prl", 300);
        const std::string b = Project("b.prl", 310);
        MainWindow main;
        const RecentMenu recentMenu(main.window, main.dialogs);
        for (const std::string& path : {std::string(PIROL_EXAMPLES "/Quiz.prl"), a, b, a})
            main.window.ReadPRLFile(path);
        emit main.Find<QMenu>("mnuFile")->aboutToShow();
        const std::vector<std::string> expected = {a, b, PIROL_EXAMPLES "/Quiz.prl"};
        QVERIFY(recentprojects::Load() == expected);
        auto* const recent = main.Find<QMenu>("mnuFileRecent");
        emit recent->aboutToShow();
        QVERIFY(recent->actions().at(1)->text().contains("b.prl"));
        fs::remove(PathOf(b));
        recent->actions().at(1)->trigger();
        QVERIFY(main.dialogs.TakeSeen().find("b.prl") != std::string::npos);
        QCOMPARE(main.window.Model().WindowWidth(), 300);
        QCOMPARE(recentprojects::Load().size(), 2U);
        recent->actions().back()->trigger();
        QVERIFY(recentprojects::Load().empty());
    }

    /// A disk that does not answer holds up neither other looks nor the end.
    void WaitsForNoDisk() {
        std::promise<void> answer;
        std::shared_future<void> disk = answer.get_future().share();
        bool hasAnswered = false;
        QElapsedTimer time;
        {
            Lookups lookups(nullptr);
            lookups.Begin([disk]() -> Lookups::Answer {
                disk.wait();
                return [] { qFatal("nobody is there any more"); };
            });
            lookups.Begin([&]() -> Lookups::Answer { return [&] { hasAnswered = true; }; });
            QTRY_VERIFY(hasAnswered);
            time.start();
        }
        QVERIFY(time.elapsed() < 2000);
        answer.set_value();
        QTest::qWait(20);
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::PnlStartTest)
#include "pnlStart_test.moc"
