#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// How a file dialog is set up.
struct FileDialogSetup {
    /// What the common dialogs of the desktop call their flags; others are ignored.
    enum Flag : std::uint32_t {
        PathMustExist = 2048,    ///< the folder of the file must exist
        FileMustExist = 4096,    ///< the file itself must exist; a save dialog asks only for its folder
        BlueJFolder = 1U << 30U, ///< of ours: a BlueJ project's folder may be opened in place of a file
    };

    std::string Title;
    /// Shown texts and patterns in turn, "Text|pattern|Text|pattern"; several patterns of one text are separated by
    /// semicolons. Empty for all files.
    std::string Filter;
    std::uint32_t Flags = 0;
    std::string FileName;  ///< the preset name; with a folder, the dialog opens there
    std::string Name = {}; ///< of the dialog itself, by which the handbook finds its chapter
};

/// One line of a file dialog's filter.
struct FileFilter {
    std::string text;
    std::vector<std::string> patterns;

    bool operator==(const FileFilter&) const = default;
};

/// Takes a filter text apart. A text without a pattern stands for all files.
std::vector<FileFilter> FileFilters(std::string_view filter);

/// What a filter adds to a name without an extension: that of its first pattern, without the point ("prl"). Empty for
/// none, as of "*.*".
std::string ExtensionOf(const FileFilter& filter);

/// A typeface for printing.
struct FontChoice {
    std::string Family;
    std::string Style; ///< as the typeface itself calls it ("Bold Oblique"); empty for its usual one
    double PointSize = 10;

    bool operator==(const FontChoice&) const = default;
};

/// Where and how to print.
struct PrintJob {
    std::string Printer; ///< its name; empty when the pages go into a file
    std::string PdfFile; ///< the file for the pages; empty when they go to a printer
    std::string Paper;   ///< the name of the paper's size, such as "A4"; empty for the printer's own
    bool Landscape = false;
    int Copies = 1;
    int FirstPage = 0; ///< 0 for all pages
    int LastPage = 0;

    bool operator==(const PrintJob&) const = default;
};

/// The dialogs that belong to the platform rather than to a form of ours, so that tests can answer them.
/// All of them are modal over the window in use. Texts are UTF-8; lines may end in CR LF.
class cCommonDialog {
  public:
    virtual ~cCommonDialog() = default;

    /// The chosen file's path, empty when the user cancelled. Neither asks before overwriting. A name typed without
    /// an extension gets that of the chosen filter.
    virtual std::string ShowOpen(const FileDialogSetup& setup) = 0;
    virtual std::string ShowSave(const FileDialogSetup& setup) = 0;

    /// The choice, or nothing when the user cancelled. Colours have red in the low byte.
    virtual std::optional<std::uint32_t> ShowColor(std::uint32_t current) = 0;
    virtual std::optional<FontChoice> ShowFont(const FontChoice& current) = 0;
    /// Raises RuntimeError::FileNotFound where the program's part for printing is missing.
    virtual std::optional<PrintJob> ShowPrinter() = 0;

    /// A message with one OK button and the information icon, or the icon of a serious fault.
    virtual void Information(std::string_view text) = 0;
    virtual void Critical(std::string_view title, std::string_view text) = 0;
    /// A question with the buttons Yes and No and the exclamation icon; true for Yes. Closing the box means No.
    virtual bool Question(std::string_view text) = 0;

    /// Runs work that can take long and returns when it is done; the windows may be painted meanwhile. What it raises
    /// passes through.
    virtual void Wait(const std::function<void()>& work) { work(); }
};

/// Whether a file may be written: asks the user when the path, UTF-8, names one that is there already.
bool MayReplaceFile(std::string_view path, cCommonDialog& dialogs);

} // namespace pirol
