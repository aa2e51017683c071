#pragma once

#include <QDialog>

#include <string_view>

class QListWidget;
class QTextBrowser;

namespace pirol {

/// Shows the handbook beside the window one is working in, which stays usable.
class frmHelp : public QDialog {
    Q_OBJECT

  public:
    explicit frmHelp(QWidget* owner);

    /// Scrolls to the chapter with this anchor, if there is one.
    void ShowChapter(std::string_view anchor);

    /// Shows the chapter on a window, in a help window that belongs to it: the one that is open already, or a new one.
    static void ShowFor(QWidget* window);

  private:
    void ListChapters();
    void ShowBlock(int position);

    QListWidget* lstChapters_;
    QTextBrowser* txtHandbook_;
};

/// Makes the F1 key show the handbook in every window of the program.
class HelpKey : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace pirol
