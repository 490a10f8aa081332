// Shell: the main window, its dialogs and the settings of the application.
// The dialog of the simulators' folders, the traffic files of both modes and the GMT offset.
#pragma once

#include <QDialog>

#include <array>
#include <memory>
#include <string>
#include <string_view>

class QPushButton;

namespace vantor {

class PathLabel;

namespace Ui {
class frmSettings;
}

/// Asks for a simulator folder, beginning at `start`: a folder with an "Aircraft" folder in it, with its trailing
/// backslash. Empty when the user cancels.
[[nodiscard]] std::string askforfspath(std::string_view start) noexcept;

/// Shown modally; OK stores the controls, writes the settings file and reads the settings anew, Cancel does nothing.
class frmSettings : public QDialog {
    Q_OBJECT

  public:
    explicit frmSettings(QWidget* parent = nullptr);
    ~frmSettings() override;

  private:
    /// The labels of one kind of file, and the buttons that choose it: 0 for FS2002, 1 for FS2004.
    struct FileRow {
        std::string_view key; ///< key of the store without the mode
        std::array<PathLabel*, 2> labels{};
        std::array<QPushButton*, 2> buttons{};
    };

    void Form_Load();
    void connectControls();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdGetFS2k2Path_Click();
    void cmdGetFS2k4Path_Click();
    void cmdPickAircraft_Click(std::size_t index);
    void cmdPickAirports_Click(std::size_t index);
    void cmdPickFlightplans_Click(std::size_t index);

    [[nodiscard]] bool checkGmtBoxes();
    void storeControls();

    std::unique_ptr<Ui::frmSettings> m_ui;
    FileRow m_aircraft;
    FileRow m_airports;
    FileRow m_flightplans;
};

} // namespace vantor
