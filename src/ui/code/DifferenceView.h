#pragma once

#include "codegen/LineDifferences.h"
#include "codegen/SyntaxHighlighter.h"

#include <QAbstractScrollArea>
#include <QString>

#include <array>
#include <string_view>
#include <vector>

namespace pirol {

/// Two Java sources side by side with their colours and line numbers, the old one on the left. Lines that differ are
/// tinted, and one difference is the current one. Only what is in sight is laid out, so that a hundred thousand lines
/// are there at once. Arrow keys, page keys, Home and End scroll.
class DifferenceView : public QAbstractScrollArea {
    Q_OBJECT

  public:
    explicit DifferenceView(QWidget* parent = nullptr);

    /// Texts are UTF-8. The first difference becomes the current one.
    void ShowSources(std::string_view before, std::string_view after);

    int DifferenceCount() const { return static_cast<int>(rows_.DifferenceCount()); }
    /// From 0; -1 without any difference.
    int CurrentDifference() const { return current_; }
    /// Makes a difference the current one and brings it into sight.
    void GoToDifference(int difference);
    /// Brings a line, from 0, of one of the sources into sight; where it lies in a difference, that one is current
    /// then.
    void GoToOldLine(std::size_t line);
    void GoToNewLine(std::size_t line);

  signals:
    void CurrentChanged();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    struct Source {
        QString text;
        std::vector<qsizetype> lineBegins; ///< and the text's length
        std::vector<ColourSpan> spans;

        std::size_t LineCount() const { return lineBegins.size() - 1; }
    };
    enum Side { Old, New };

    static Source SourceOf(std::string_view text);
    void GoToRow(std::size_t row);
    void SetCurrent(int difference);
    void SetUpBars();
    int RowHeight() const;
    int GutterWidth() const;
    QRect ColumnOf(Side side) const;
    void PaintRow(QPainter& painter, std::size_t row, int top) const;
    void PaintSide(QPainter& painter, Side side, std::size_t line, const QRect& box) const;
    QString LineText(const Source& source, std::size_t line) const;

    std::array<Source, 2> sources_;
    SideBySide rows_;
    int current_ = -1;
    int longestLine_ = 0; ///< in characters
};

} // namespace pirol
