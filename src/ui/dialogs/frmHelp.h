#pragma once

#include <QDialog>

#include <string>
#include <string_view>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace pirol {

/// Shows the handbook beside the window one is working in, which stays usable. What is searched leaves the chapters
/// that hold it, and marks it in their text.
class frmHelp : public QDialog {
    Q_OBJECT

  public:
    explicit frmHelp(QWidget* owner);

    /// Scrolls to the heading with this anchor, if there is one.
    void ShowChapter(std::string_view anchor);

    /// Shows what the handbook says on the part of the window that has the keyboard, or else on the window, in a help
    /// window that belongs to it: the one that is open already, or a new one.
    static void ShowFor(QWidget* window);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct Heading {
        std::string anchor;
        int position; ///< of its block in the text
        int row;      ///< of the chapter in the list that it belongs to
    };

    void ListChapters();
    void ShowBlock(int position);
    void Search(const QString& text);
    void MarkMatches(const QString& text);
    void ShowNextMatch(bool backward);

    std::vector<Heading> headings_;
    QLineEdit* txtSearch_;
    QListWidget* lstChapters_;
    QLabel* lblNothing_;
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
