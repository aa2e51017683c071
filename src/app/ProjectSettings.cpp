#include "app/ProjectSettings.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"

namespace pirol {
namespace {

/// Puts a text, or the stored size when it is no number, into a field. False when that is what the field has already.
bool PutInto(std::string& field, const std::string& text, std::int16_t stored) {
    if (text == field)
        return false;
    field = IsNumeric(text) ? text : std::to_string(stored);
    return true;
}

/// Puts the size that the function computes into a field, unless it cannot.
template <class Function>
void Follow(std::string& field, Function&& size) {
    try {
        field = std::to_string(ToInt16(size()));
    } catch (const RuntimeError&) {
        // A number that is too large must not stop a user who is still typing; accepting the dialog reports it.
    }
}

} // namespace

ProjectSettings::ProjectSettings(const WindowSettings& stored)
    : stored_(stored), widthText_(std::to_string(stored.Width)), heightText_(std::to_string(stored.Height)),
      authorText_(stored.Author) {
    if (stored.Width != 0 && stored.Height != 0)
        aspectRatio_ = static_cast<double>(stored.Width) / stored.Height;
}

void ProjectSettings::ChangeWidth(const std::string& text) {
    if (PutInto(widthText_, text, stored_.Width) && aspectRatio_ != 0)
        Follow(heightText_, [this] { return ToInt16(widthText_) / aspectRatio_; });
}

void ProjectSettings::ChangeHeight(const std::string& text) {
    if (PutInto(heightText_, text, stored_.Height) && aspectRatio_ != 0)
        Follow(widthText_, [this] { return ToInt16(heightText_) * aspectRatio_; });
}

WindowSettings ProjectSettings::Accept() const {
    return {ToInt16(widthText_), ToInt16(heightText_), authorText_};
}

} // namespace pirol
