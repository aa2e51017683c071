// The form of the online update and the main window's way to it, with a server made of two texts.

#include "app/DownloadFolder.h"
#include "app/UpdateRecord.h"
#include "base/Signature.h"
#include "Cases.h"
#include "Signer.h"
#include "ui/dialogs/frmUpdate.h"
#include "ui/main/OnlineUpdate.h"
#include "ui/MainWindow.h"

#include <QAction>
#include <QCheckBox>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>

#include <algorithm>

using namespace pirol;
using namespace pirol::test;

namespace {

const std::string content(1'500'000, 'p');

const Signer& Author() {
    static const Signer signer;
    return signer;
}

std::string ListOf(const std::string& version) {
    Sha256 hash;
    hash.Add(content);
    return Author().Signed("#Pirol.Versions 1\nserial: 3\nexpires: 2999-01-01\nversion: " + version +
                           "\nnote: Größer\nfile: " + std::string(updateSystem) + " Pirol" +
                           (updateSystem == "debian" ? ".deb " : ".exe ") + std::to_string(content.size()) + " " +
                           hash.Digits() + "\n");
}

/// Sends as much of the file as it is told, and then waits.
struct Server : Transport {
    std::string list = ListOf("2.0");
    int status = 200;
    std::size_t sends = content.size();

    void Start(const WebRequest& request, TransportListener& listener) override {
        const bool isList = request.url.ends_with(versionListName);
        runs = true;
        WebAnswer answer;
        answer.status = !isList && request.from > 0 ? 206 : status;
        answer.range = "bytes " + std::to_string(request.from) + "-" + std::to_string(content.size() - 1) + "/" +
                       std::to_string(content.size());
        listener.Answered(answer);
        if (runs)
            listener.Received(isList ? list : content.substr(request.from, sends));
        if (runs && (isList || request.from + sends >= content.size()))
            listener.Ended(std::nullopt);
    }
    void Stop() override { runs = false; }

    bool runs = false;
};

/// Passes everything on, so that a test keeps hold of the server.
struct Line : Transport {
    explicit Line(Server& to) : server(to) {}
    void Start(const WebRequest& request, TransportListener& listener) override { server.Start(request, listener); }
    void Stop() override { server.Stop(); }
    Server& server;
};

} // namespace

class UpdateFormTest : public QObject {
    Q_OBJECT

    ScratchFolder scratch_;
    Server server_;
    const UpdateSource source_{"http://h/", {Author().PublicKey()}, ""};

    std::filesystem::path Folder() { return scratch_ / "update"; }
    UpdateSurroundings Surroundings(bool& kept) {
        return {.source = source_,
                .folder = Folder(),
                .newTransport = [this] { return std::make_unique<Line>(server_); },
                .keepDesign = [&kept] { kept = true; },
                .delay = {}};
    }

  private slots:
    void init() {
        qputenv("XDG_CONFIG_HOME", (scratch_ / "config").c_str());
        std::filesystem::remove_all(Folder());
        std::filesystem::remove_all(scratch_ / "config");
        server_ = {};
        QCoreApplication::setApplicationVersion("1.0");
    }

    void SaysWhatItFound() {
        struct Row {
            std::string list;
            int status;
            QString heading;
        };
        for (const Row& row :
             {Row{ListOf("2.0"), 200, "Pirol 2.0 ist da"}, Row{ListOf("1.0"), 200, "Pirol ist auf dem neuesten Stand"},
              Row{ListOf("0.9"), 200, "Das hat nicht geklappt"}, Row{"", 404, "Das hat nicht geklappt"}}) {
            server_.list = row.list;
            server_.status = row.status;
            frmUpdate form(server_, source_, {"1.0", std::string(updateSystem), 0, 0}, Folder(), nullptr);
            Show(form);
            QTRY_COMPARE(Part<QLabel>(form, "lblState")->text(), row.heading);
            QCOMPARE(Part<QPlainTextEdit>(form, "txtNotes")->isVisible(), row.heading.contains("ist da"));
            QCOMPARE(Part<QPushButton>(form, "cmdLoad")->isVisible(), !row.heading.contains("neuesten"));
            QVERIFY(!Part<QPushButton>(form, "cmdInstall")->isVisible());
        }
    }

    void LoadsPausesAndGoesOn() {
        server_.sends = 600'000;
        {
            frmUpdate form(server_, source_, {"1.0", std::string(updateSystem), 0, 0}, Folder(), nullptr);
            Show(form);
            QTRY_COMPARE(Part<QPushButton>(form, "cmdLoad")->text(), "&Herunterladen");
            QCOMPARE(Part<QPlainTextEdit>(form, "txtNotes")->toPlainText(), "• Größer");
            Click(form, "cmdLoad");
            QCOMPARE(Part<QPushButton>(form, "cmdLoad")->text(), "An&halten");
            QCOMPARE(Part<QProgressBar>(form, "prgDownload")->value(), 400);
            Click(form, "cmdLoad");
            QCOMPARE(Part<QPushButton>(form, "cmdLoad")->text(), "&Weiterladen");
            QCOMPARE(Part<QLabel>(form, "lblProgress")->text(), "0,6 von 1,5 MB, angehalten");
        }
        frmUpdate form(server_, source_, {"1.0", std::string(updateSystem), 0, 0}, Folder(), nullptr);
        Show(form);
        QTRY_COMPARE(Part<QPushButton>(form, "cmdLoad")->text(), "&Weiterladen");
        Click(form, "cmdLoad");
        Click(form, "cmdDiscard");
        QCOMPARE(Part<QPushButton>(form, "cmdLoad")->text(), "&Herunterladen");
        server_.sends = content.size();
        Click(form, "cmdLoad");
        QCOMPARE(Part<QLabel>(form, "lblState")->text(), "Pirol 2.0 ist geladen");
        QVERIFY(!Part<QPushButton>(form, "cmdLoad")->isVisible());
        Click(form, "cmdInstall");
        QCOMPARE(form.result(), int(QDialog::Accepted));
        QCOMPARE(std::filesystem::file_size(form.Setup()), content.size());
    }

    void TheCommandSaysThatThereIsNoSource() {
        MainWindow window;
        OnlineUpdate update(window.window, window.dialogs, window.starter, {});
        QVERIFY(!window.Command("mnuHelpUpdate")->isEnabled());
        QVERIFY(window.Command("mnuHelpUpdate")->statusTip().contains("keinen Server"));
        WhenShown<QDialog>([](QDialog& form) {
            QVERIFY(!Part<QCheckBox>(form, "chkUpdate")->isEnabled());
            form.reject();
        });
        window.Command("mnuFileOptions")->trigger();
    }

    void KeepsTheDesignAndEndsForTheSetup() {
        for (const bool refuses : {true, false}) {
            MainWindow window;
            window.starter.refuses = refuses;
            bool kept = false;
            OnlineUpdate update(window.window, window.dialogs, window.starter, Surroundings(kept));
            WhenShown<frmUpdate>([refuses](frmUpdate& form) {
                if (refuses)
                    Click(form, "cmdLoad");
                QTRY_VERIFY(Part<QPushButton>(form, "cmdInstall")->isVisible()); // it lies there from the first time
                Click(form, "cmdInstall");
            });
            window.Command("mnuHelpUpdate")->trigger();
            QVERIFY(kept);
            QCOMPARE(window.window.isVisible(), refuses);
            QCOMPARE(window.starter.started.empty(), refuses);
            QCOMPARE(window.dialogs.TakeSeen().find((scratch_ / "update").string()) != std::string::npos, refuses);
            QCOMPARE(updaterecord::HighestSerial(), 3U);
        }
    }

    void LooksOnceAWeek() {
        Preferences preferences;
        for (const bool wants : {false, true, true}) {
            preferences.LooksForUpdates = wants;
            MainWindow window(preferences);
            bool kept = false;
            OnlineUpdate update(window.window, window.dialogs, window.starter, Surroundings(kept));
            const bool isDue = wants && updaterecord::IsLookDue(std::time(nullptr));
            window.window.statusBar()->clearMessage();
            update.LookWeekly();
            QCoreApplication::processEvents();
            QCOMPARE(window.window.statusBar()->currentMessage(),
                     isDue ? "Pirol 2.0 ist da: »Hilfe, Nach neuer Version suchen …«" : "");
            QCOMPARE(window.dialogs.TakeSeen(), "");
        }
        QVERIFY(!updaterecord::IsLookDue(std::time(nullptr)));
    }
};

QTEST_MAIN(UpdateFormTest)
#include "frmUpdate_test.moc"
