#pragma once

#include "base/Rectangle.h"
#include "model/ProjectModel.h"

#include <functional>
#include <optional>
#include <vector>

namespace pirol {

/// A component as guides see it; all in pixels of the design.
struct GuideBox {
    Rectangle box;
    std::optional<int> baseline; ///< of its text, from the window's top; nothing where it has none in its middle
};

/// A thin line that says what lines up. Its pixels lie in one column or row.
struct GuideLine {
    bool isUpright = true;
    int position = 0; ///< the column of an upright line, the row of a lying one
    int begin = 0;    ///< along the line
    int end = 0;      ///< behind its last pixel
    int distance = 0; ///< the number that stands beside it; 0 for none
    int numberAt = 0; ///< where along the line

    bool operator==(const GuideLine&) const = default;
};

/// Which sides of a box move. Its middle and its baseline move only when all do.
struct MovingSides {
    bool left = true;
    bool top = true;
    bool right = true;
    bool bottom = true;
};

/// Says what a box that is moved, resized or drawn lines up with: edges, middles, baselines and equal gaps of the
/// others and the edges, the middle and equal margins of the window. Made once for a drag, in time n log n; each
/// question costs the logarithm.
class Guides {
  public:
    /// So far a box is pulled, in pixels.
    static constexpr int reach = 6;

    Guides(const std::vector<GuideBox>& others, int windowWidth, int windowHeight);

    struct Found {
        int x = 0; ///< by how much the moving sides are pulled
        int y = 0;
        std::vector<GuideLine> lines; ///< for the box as pulled
    };
    /// Without `pulls`, nothing is pulled and only what lines up already is found.
    Found Find(const GuideBox& moved, MovingSides sides, bool pulls) const;

  private:
    /// From here on one direction is called along and the other one across, so that all is said once for both.
    struct Span {
        int begin = 0;
        int end = 0;
        int acrossBegin = 0;
        int acrossEnd = 0;
        std::optional<int> baseline;
    };
    /// A place to line up with, and how far what lies there reaches across.
    struct Mark {
        int position = 0;
        int begin = 0;
        int end = 0;
    };
    using Marks = std::vector<Mark>;
    struct Side {
        bool begin = true;
        bool end = true;
        bool IsWhole() const { return begin && end; }
    };

    class Direction {
      public:
        Direction(std::vector<Span> others, int length, int acrossLength, bool isUpright);
        int Pull(const Span& moved, Side side) const;
        void AddLines(const Span& moved, Side side, std::vector<GuideLine>& lines) const;

      private:
        const Span* Before(const Span& span, int slack) const;
        const Span* After(const Span& span, int slack) const;
        void AddGapPulls(const Span& moved, const std::function<void(int)>& consider) const;
        void AddAligned(const Marks& marks, int place, int shownAt, const Span& moved,
                        std::vector<GuideLine>& lines) const;
        void AddGaps(const Span& moved, std::vector<GuideLine>& lines) const;
        void AddMargins(const Span& moved, Side side, std::vector<GuideLine>& lines) const;
        void AddDistance(int begin, int end, const Span& beside, std::vector<GuideLine>& lines) const;

        int length_;
        bool isUpright_; ///< the lines that say what lines up in this direction
        Marks edges_;
        Marks middles_;
        Marks baselines_;
        std::vector<Span> byBegin_;
        std::vector<Span> byEnd_;
        int leastBegin_; ///< the margins that the others keep
        int leastRest_;
    };

    static Span SpanOf(const GuideBox& box, bool isX);
    static std::vector<Span> SpansOf(const std::vector<GuideBox>& boxes, bool isX);

    Direction x_;
    Direction y_;
};

/// The guides for what lies in the design beside the components that are dragged themselves.
Guides GuidesIn(const ProjectModel& model, const std::function<bool(ComponentRef)>& isDragged);

} // namespace pirol
