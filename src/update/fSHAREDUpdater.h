// Update: asks the update server for newer versions and fetches the setup program.
// The updater's form: what a check found, the details of a version, and the download of its setup file.
#pragma once

#include "update/updater.h"

#include <QDialog>
#include <QPointer>

#include <memory>
#include <optional>
#include <string_view>

namespace vantor {

namespace Ui {
class fSHAREDUpdater;
}

/// Kept by its owner from the first need on; closing it only takes it off the screen, and cancels what runs. It must
/// not be destroyed while one of the updater's calls runs.
class fSHAREDUpdater : public QDialog, private UpdaterForm {
    Q_OBJECT

  public:
    /// Transfers go through the control given, or through the program's own.
    explicit fSHAREDUpdater(QWidget* parent = nullptr, std::unique_ptr<TransferControl> control = nullptr);
    ~fSHAREDUpdater() override;

    /// Checks and downloads, with what they raise.
    [[nodiscard]] Updater& updater() noexcept { return m_updater; }

    void done(int result) override;

  private:
    void fitForm();
    void Form_Load() noexcept;
    void cmdProxy_Click() noexcept;

    void load() override;
    void showForm() override;
    void showModally() override;
    void unload() override;
    [[nodiscard]] bool isShown() const override { return isVisible(); }
    void setProgram(std::string_view text) override;
    void setUpdate(std::string_view text, std::optional<Colour> colour) override;
    void setDetails(std::string_view text) override;
    void setDisableAutoUpdate(bool value) override;
    [[nodiscard]] bool disableAutoUpdate() const override;
    void enableCommands(bool enabled) override;
    [[nodiscard]] Canvas& picStatus() override;

    std::unique_ptr<Ui::fSHAREDUpdater> m_ui;
    Updater m_updater;
    QPointer<QWidget> m_pressed; // had the focus when the commands went out of reach
    QPointer<QWidget> m_standIn; // got it then
    bool m_loaded = false;
};

} // namespace vantor
