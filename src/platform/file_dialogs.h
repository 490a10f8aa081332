// Platform: the Qt side of the program.
// Asking the user for a file or a folder. All paths are the program's own, with backslashes.
#pragma once

#include <string>
#include <string_view>

namespace vantor {

/// One question for a file or a folder. Tests find its dialog by the object name "fileDialog".
class cSharedFileSel {
  public:
    /// The dialog's title.
    void SetCaption(std::string_view title);
    /// The start folder; of two backslashes at the end of a text of over 2 characters one is dropped. Empty: the
    /// program's folder.
    void DefaultPath(std::string_view folder);
    [[nodiscard]] const std::string& DefaultPath() const noexcept { return m_defaultPath; }
    /// The one file filter, as in "*.TXT". Letters count as capitals and small ones alike on every desktop.
    void Filepattern(std::string_view pattern);

    /// Asks for a folder that exists; Path is the result.
    void GetPath() noexcept;
    /// Asks for a file, which need not exist.
    void GetFilename() noexcept;
    /// Asks for a file that exists.
    void GetExistingFilename() noexcept;

    /// Whether the last dialog was cancelled.
    [[nodiscard]] bool Cancelled() const noexcept { return m_cancelled; }
    /// The chosen file's name without folder.
    [[nodiscard]] const std::string& Filename() const noexcept { return m_filename; }
    /// The chosen folder, without a trailing backslash unless it is one character long: C:\ comes back as C:.
    [[nodiscard]] const std::string& Path() const noexcept { return m_path; }

  private:
    enum class Kind { File, ExistingFile, Folder };
    void DisplayDialog(Kind kind);

    std::string m_caption;
    std::string m_defaultPath;
    std::string m_pattern;
    std::string m_filename;
    std::string m_path;
    bool m_cancelled = false;
};

/// Asks for a file, starting in the folder of `startFile`. The path of the chosen file, or an empty text when the
/// dialog was cancelled.
[[nodiscard]] std::string askforFilename(std::string_view title, std::string_view startFile,
                                         std::string_view pattern = {}) noexcept;

/// Asks where to save a file, proposing `startFile`; one that exists is only taken after a question. `patterns` are as
/// in "PNG picture (*.png);;SVG picture (*.svg)", and a name without a suffix gets that of the chosen one. The path, or
/// an empty text when the dialog was cancelled. Tests find the dialog by the object name "fileDialog".
[[nodiscard]] std::string askforSaveFilename(std::string_view title, std::string_view startFile,
                                             std::string_view patterns) noexcept;

} // namespace vantor
