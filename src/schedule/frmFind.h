// Schedule: looking at schedules and changing them one at a time.
// frmFind, the search in the long combo boxes.
#pragma once

#include <QDialog>

#include <cstdint>
#include <memory>
#include <optional>

namespace vantor {

namespace Ui {
class frmFind;
}

class ComboBox;

/// The whole Find dialog on a box: when the user accepts, the box goes to the row found, which is a click on it.
/// The box should have rows.
void findstring(ComboBox& combo, QWidget* parent) noexcept;

/// The dialog that findstring shows.
class frmFind : public QDialog {
    Q_OBJECT
  public:
    /// Takes over the rows of the searched box, with one empty closing row, and where it stands.
    frmFind(const ComboBox& searched, QWidget* parent);
    ~frmFind() override;

    /// The row that the user accepted, nothing after Exit.
    [[nodiscard]] std::optional<int> found() const;

    /// Escape and the close box leave as Exit does.
    void reject() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void cmdFirst_Click() noexcept;
    void cmdNext_Click() noexcept;
    void cmdOK_Click() noexcept;
    void cmdExit_Click() noexcept;
    void search() noexcept;

    std::unique_ptr<Ui::frmFind> ui;
    // Quirk: the row of the last hit starts at 0 and not at -1, so Next before any First misses row 0.
    std::int16_t m_lastfound = 0;
    std::optional<QString> m_sought; // the text of the last search
};

} // namespace vantor
