#pragma once

#include "codegen/SyntaxHighlighter.h"

#include <QPlainTextEdit>
#include <QTimer>

#include <vector>

namespace pirol {

/// A read-only box for Java source with its colours. A source of a hundred thousand lines is open at once: its
/// beginning is there immediately and the rest follows while nothing else happens; lines are coloured when they come
/// into sight. The font is the system's monospaced one and can be zoomed.
class CodeBox : public QPlainTextEdit {
    Q_OBJECT

  public:
    enum class Direction {
        Onward,    ///< behind the selection
        Backward,  ///< before the selection
        WithStart, ///< from where the selection begins, so that what is found may grow
    };
    enum class Found { Nowhere, Ahead, PastTheEnd };

    explicit CodeBox(QWidget* parent = nullptr);

    /// Lines end in LF.
    void ShowSource(const QString& source);
    const QString& Source() const { return source_; }
    /// Waits for the rest of the source.
    void FinishLoading();
    /// Finishes loading and colours the lines that were not in sight so far, too.
    void ColourAll();

    /// Selects the next hit, going on at the other end when there is none ahead.
    Found Search(const QString& wanted, Direction direction, Qt::CaseSensitivity sensitivity);

    /// The font's size in percent of the first one.
    int ZoomPercent() const;
    /// That many points larger, or smaller when negative; within readable limits.
    void Zoom(int points);
    void ResetZoom();

  signals:
    void Zoomed();

  protected:
    /// Copies plain text: an editor for Java has no use for the box's colours and font.
    QMimeData* createMimeDataFromSelection() const override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void LoadChunk();
    void SetPointSize(int size);
    void Colour(const QTextBlock& block);

    int firstPointSize_;
    QString source_;
    qsizetype loaded_ = 0; ///< so much of the source is in the box
    QTimer idle_;          ///< runs until all is loaded
    std::vector<ColourSpan> spans_;
    std::vector<bool> coloured_; ///< by line
};

} // namespace pirol
