#include "codegen/UpdateOutput.h"

#include "codegen/SourceLines.h"
#include "codegen/UpdateReport.h"

#include <algorithm>

namespace pirol {

UpdateOutput::UpdateOutput(std::string_view source, std::string_view lineEnd) : source_(source), lineEnd_(lineEnd) {
    text_.reserve(source.size() + source.size() / 16);
}

std::size_t UpdateOutput::Copy(std::size_t begin, std::size_t end, std::size_t indent) {
    if (begin != copiedEnd_) {
        BeginLine();
        if (begin > 0 && !IsLineEnd(source_[begin - 1])) {
            while (begin < end && IsBlank(source_.substr(begin, 1)))
                ++begin;
            text_.append(indent, ' ');
        }
        copiedBegin_ = begin;
    }
    const std::size_t place = text_.size() + (begin - copiedBegin_);
    copiedEnd_ = end;
    return place;
}

void UpdateOutput::CopyOwn(std::size_t begin, std::size_t end) {
    if (begin < end)
        own_.push_back({begin, end, Copy(begin, end)});
}

std::size_t UpdateOutput::Replace(std::string_view code, std::size_t end) {
    Flush();
    const std::size_t place = text_.size();
    AppendCode(code);
    copiedBegin_ = copiedEnd_ = end;
    return place;
}

std::size_t UpdateOutput::AddLine(const GeneratedPiece& piece) {
    BeginLine();
    text_.append(piece.indent, ' ');
    const std::size_t place = text_.size();
    AppendCode(piece.code);
    text_ += lineEnd_;
    if (piece.blankBehind)
        text_ += lineEnd_;
    return place;
}

void UpdateOutput::AddText(std::string_view line) {
    BeginLine();
    text_ += line;
}

const std::string& UpdateOutput::Text() {
    Flush();
    return text_;
}

std::size_t UpdateOutput::NewPosition(std::size_t position) const {
    const auto own =
        std::partition_point(own_.begin(), own_.end(), [position](const Own& range) { return range.end <= position; });
    return own == own_.end() || own->begin > position ? noPosition : own->place + (position - own->begin);
}

/// Appends the range that was copied last. It waits as long as the next one goes on directly behind it: most of a
/// source is copied in few pieces so.
void UpdateOutput::Flush() {
    if (copiedEnd_ != noPosition)
        text_ += source_.substr(copiedBegin_, copiedEnd_ - copiedBegin_);
    copiedBegin_ = copiedEnd_ = noPosition;
}

void UpdateOutput::BeginLine() {
    Flush();
    if (!text_.empty() && !IsLineEnd(text_.back()))
        text_ += lineEnd_;
}

void UpdateOutput::AppendCode(std::string_view code) {
    for (std::size_t end = code.find("\r\n"); end != std::string_view::npos; end = code.find("\r\n")) {
        text_ += code.substr(0, end);
        text_ += lineEnd_;
        code.remove_prefix(end + 2);
    }
    text_ += code;
}

} // namespace pirol
