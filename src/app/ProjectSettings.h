#pragma once

#include <cstdint>
#include <string>

namespace pirol {

/// The settings of the designed window: its size in pixels and who made it.
struct WindowSettings {
    std::int16_t Width = 0;
    std::int16_t Height = 0;
    std::string Author;

    bool operator==(const WindowSettings&) const = default;
};

/// The project settings dialog without its window: the texts of its three fields. Width and height keep the proportion
/// that they had when the dialog opened; when one of them was zero then, there was none, and they change independently.
class ProjectSettings {
  public:
    explicit ProjectSettings(const WindowSettings& stored);

    const std::string& WidthText() const { return widthText_; }
    const std::string& HeightText() const { return heightText_; }
    const std::string& AuthorText() const { return authorText_; }

    /// Tells what a size field holds now; its text and the other field's may change because of that and are to be shown
    /// again. A text that is no number is replaced by the size with which the dialog opened. The other field follows in
    /// proportion, unless one of the two sizes leaves the 16-bit range: then it stays.
    /// A text that the field already has changes nothing, so showing a new text cannot set off further changes.
    void ChangeWidth(const std::string& text);
    void ChangeHeight(const std::string& text);
    void ChangeAuthor(const std::string& text) { authorText_ = text; }

    /// The settings to store. Raises RuntimeError::Overflow when a size leaves the 16-bit range.
    WindowSettings Accept() const;

  private:
    WindowSettings stored_;
    std::string widthText_;
    std::string heightText_;
    std::string authorText_;
    double aspectRatio_ = 0; // width by height; 0 for none
};

} // namespace pirol
