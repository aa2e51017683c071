#include "Cases.h"
#include "project/Snapshot.h"
#include "ui/dialogs/frmKeptDesigns.h"
#include "ui/dialogs/frmRecovery.h"
#include "ui/main/DesignKeeper.h"
#include "ui/MainWindow.h"

#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>

namespace pirol::test {

namespace fs = std::filesystem;

using namespace std::chrono_literals;

/// As in the program, but everything comes ten times sooner.
constexpr KeepingDelays soon = {200ms, 20ms, 500ms, 1000ms, 100ms};

/// A running program that keeps its designs in a folder of this test.
struct KeptWindow : MainWindow {
    explicit KeptWindow(const fs::path& folder) : keeper(window, dialogs, folder, soon) {}

    void PlaceButton() {
        Command("mnuObjectsObject1")->trigger();
        Drag(100, 100, 200, 150);
    }

    DesignKeeper keeper;
};

class DesignKeeperTest : public QObject {
    Q_OBJECT

  private:
    std::optional<ScratchFolder> scratch_;
    fs::path folder_;

    static std::vector<fs::path> DesignsIn(const fs::path& folder) {
        std::vector<fs::path> designs;
        if (fs::exists(folder))
            for (const auto& entry : fs::directory_iterator(folder))
                if (entry.path().extension() == ".design")
                    designs.push_back(entry.path());
        return designs;
    }
    std::vector<fs::path> Designs() const { return DesignsIn(folder_); }

    /// What a program leaves that is killed with a design by this author.
    void Leave(const char* name, const char* author) {
        OpenDesign design{{}, "/Schule/Quiz.prl"};
        design.model.SetAuthor(author);
        const fs::path elsewhere = *scratch_ / "elsewhere";
        RecoveryFile file(elsewhere);
        file.Write(SnapshotOf(design));
        fs::create_directories(folder_);
        fs::copy_file(DesignsIn(elsewhere).at(0), folder_ / name);
    }

  private slots:
    void init() {
        scratch_.emplace();
        folder_ = *scratch_ / "recovery";
    }

    void KeepsWhatIsNotSavedAndNothingElse() {
        {
            KeptWindow main(folder_);
            main.PlaceButton();
            QTRY_COMPARE_WITH_TIMEOUT(Designs().size(), 1U, 5000);
            const fs::path copies = *scratch_ / "copies";
            fs::copy(folder_, copies);
            QVERIFY(ReadDesign(LeftDesigns(copies).at(0)).model == main.window.Model());
            main.dialogs.paths = {TextOf(*scratch_ / "saved.prl")};
            main.Command("mnuFileSave")->trigger();
            QTRY_COMPARE(Designs().size(), 0U);
            Do(main.window, "Right");
            QTRY_COMPARE_WITH_TIMEOUT(Designs().size(), 1U, 5000);
        }
        QCOMPARE(std::distance(fs::directory_iterator(folder_), {}), 0); // a normal end
    }

    void WaitsForTheEndOfAGestureButNotForever() {
        KeptWindow main(folder_);
        main.PlaceButton();
        main.Press(150, 120);
        QElapsedTimer held;
        held.start();
        while (Designs().empty() && held.elapsed() < 20000) {
            main.MoveTo(150 + static_cast<int>(held.elapsed() / 5), 120);
            QTest::qWait(5);
        }
        QVERIFY2(held.elapsed() > 400 && !Designs().empty(), qPrintable(QString::number(held.elapsed())));
        main.Release(150, 120);
    }

    void ReportsWhatIsDamagedOnceAndOffersTheNewestFirst() {
        Leave("1-0.design", "alt");
        Leave("2-0.design", "neu");
        CreateFileBytes(folder_ / "3-0.design", "kaputt");
        const auto now = fs::file_time_type::clock::now();
        fs::last_write_time(folder_ / "2-0.design", now + std::chrono::hours(1));
        fs::last_write_time(folder_ / "3-0.design", now + std::chrono::hours(2));
        KeptWindow main(folder_);
        WhenShown<frmRecovery>([](frmRecovery& form) {
            const QString text = Part<QLabel>(form, "lblQuestion")->text();
            QVERIFY2(text.contains("„Quiz.prl“") && text.contains("ein älterer"), qPrintable(text));
            Press(Qt::Key_Escape);
        });
        main.keeper.OfferLeftDesigns();
        const std::string seen = main.dialogs.TakeSeen();
        QVERIFY2(seen.find("ist beschädigt") != std::string::npos && seen.find("3-0.damaged") != std::string::npos,
                 seen.c_str());
        QCOMPARE(Designs().size(), 2U);
        QVERIFY(main.window.Model() == ProjectModel());

        WhenShown<frmRecovery>([](frmRecovery& form) {
            WhenShown<frmRecovery>([](frmRecovery& next) {
                QVERIFY(!Part<QLabel>(next, "lblQuestion")->text().contains("älter"));
                Press(Qt::Key_Return);
            });
            Click(form, "cmdDiscard");
        });
        main.keeper.OfferLeftDesigns();
        QCOMPARE(main.dialogs.TakeSeen(), "");
        QCOMPARE(main.window.Model().Author(), "alt");
        QVERIFY(main.window.isWindowModified());
        QCOMPARE(main.window.windowTitle(), "Quiz.prl[*] - Pirol");
        QCOMPARE(Designs().size(), 1U); // the one of the window itself
        main.keeper.OfferLeftDesigns();
    }

    void AFailureIsOneMessageInTheStatusBar() {
        CreateFileBytes(folder_, "a file where the folder should be");
        KeptWindow main(folder_);
        main.PlaceButton();
        QTRY_COMPARE_WITH_TIMEOUT(
            main.window.statusBar()->currentMessage(),
            "Für eine Wiederherstellung kann gerade nichts aufbewahrt werden: Pfad nicht gefunden", 5000);
        auto* const lasting = Part<QLabel>(main.window, "lblKeeping");
        QVERIFY(!lasting->isHidden());
        fs::remove(folder_);
        QTRY_COMPARE_WITH_TIMEOUT(Designs().size(), 1U, 15'000);
        QTRY_VERIFY(lasting->isHidden());
    }

    void WhatLeavesTheScreenUnsavedCanBeFetchedBack() {
        const fs::path kept = KeptFolder(folder_);
        ProjectModel dropped;
        {
            KeptWindow main(folder_);
            main.Command("mnuFileNew")->trigger();
            QVERIFY(KeptDesigns(kept).empty()); // there was nothing to keep
            main.PlaceButton();
            dropped = main.window.Model();
            main.Command("mnuFileNew")->trigger();
            main.PlaceButton();
            main.PlaceButton();
        }
        const std::vector<KeptDesign> both = KeptDesigns(kept);
        QCOMPARE(both.size(), 2U);
        QCOMPARE(both[0].reason + both[1].reason, "Pirol beendetNeuer Entwurf");
        QVERIFY(ReadDesign(both[1]).model == dropped);

        KeptWindow main(folder_);
        WhenShown<frmKeptDesigns>([](frmKeptDesigns& form) {
            auto* const list = Part<QListWidget>(form, "lstKept");
            QCOMPARE(list->count(), 2);
            list->setCurrentRow(1);
            Click(form, "cmdRestore");
        });
        main.Command("mnuFileKeptDesigns")->trigger();
        QVERIFY(main.window.Model() == dropped);
        QVERIFY(main.window.isWindowModified());
        main.Command("mnuEditUndo")->trigger();
        QVERIFY(main.window.Model() == ProjectModel());
        main.dialogs.yes = {true};
        WhenShown<frmKeptDesigns>([](frmKeptDesigns& form) {
            Click(form, "cmdDelete");
            QVERIFY(Part<QListWidget>(form, "lstKept")->count() > 0);
            Click(form, "cmdDeleteAll");
            QVERIFY(!Part<QPushButton>(form, "cmdRestore")->isEnabled());
            form.reject();
        });
        main.Command("mnuFileKeptDesigns")->trigger();
        QVERIFY(KeptDesigns(kept).empty());
    }

    /// As at the end of the desktop's session; what the user does after one that was called off counts as ever.
    void AnEndThatTheUserDoesNotWantLeavesTheDesign() {
        for (const bool calledOff : {false, true}) {
            {
                KeptWindow main(folder_);
                main.PlaceButton();
                main.keeper.KeepForNextStart("Sitzung beendet");
                QCOMPARE(Designs().size(), 1U);
                QCOMPARE(KeptDesigns(KeptFolder(folder_)).at(0).reason, "Sitzung beendet");
                if (calledOff)
                    main.PlaceButton();
            }
            QCOMPARE(LeftDesigns(folder_).size(), calledOff ? 0U : 1U);
            QCOMPARE(KeptDesigns(KeptFolder(folder_)).size(), calledOff ? 2U : 1U);
            fs::remove_all(KeptFolder(folder_));
            fs::remove_all(folder_);
        }
    }

    void WhatIsDiscardedAfterAKillIsKeptOnce() {
        Leave("1-0.design", "alt");
        KeptWindow main(folder_);
        for (const auto answer : {"cmdLater", "cmdDiscard"}) {
            WhenShown<frmRecovery>([answer](frmRecovery& form) { Click(form, answer); });
            main.keeper.OfferLeftDesigns();
            QCOMPARE(KeptDesigns(KeptFolder(folder_)).size(), 1U);
        }
        QCOMPARE(Designs().size(), 0U);
        QCOMPARE(ReadDesign(KeptDesigns(KeptFolder(folder_)).at(0)).model.Author(), "alt");
    }

    void ARemovedRecoveryFolderIsMadeAgainWithoutAChange() {
        KeptWindow main(folder_);
        main.PlaceButton();
        QTRY_COMPARE_WITH_TIMEOUT(Designs().size(), 1U, 5000);
        fs::remove_all(folder_);
        QTRY_COMPARE_WITH_TIMEOUT(Designs().size(), 1U, 5000);
    }

    /// Where it cannot be kept it gets a recovery file of its own, until it can.
    void WhatLeavesTheScreenWaitsForAPlace() {
        CreateFileBytes(KeptFolder(folder_), "a file where the folder should be");
        KeptWindow main(folder_);
        main.PlaceButton();
        main.Command("mnuFileNew")->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(Designs().size(), 1U, 5000);
        QVERIFY(LeftDesigns(folder_).empty()); // it is not another program's
        fs::remove(KeptFolder(folder_));
        QTRY_COMPARE_WITH_TIMEOUT(Designs().size(), 0U, 5000);
        QCOMPARE(KeptDesigns(KeptFolder(folder_)).size(), 1U);
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::DesignKeeperTest)
#include "DesignKeeper_test.moc"
