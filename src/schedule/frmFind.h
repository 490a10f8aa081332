// Schedule: looking at schedules and changing them one at a time.
// frmFind, the search in the long combo boxes.
#pragma once

#include <QDialog>

#include <cstdint>
#include <memory>

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
    explicit frmFind(QWidget* parent = nullptr);
    ~frmFind() override;

    /// The copy of the searched box, with one empty closing row. Without a current row nothing was accepted.
    [[nodiscard]] ComboBox& cmbList() const;

    /// Escape and the close box leave as Exit does.
    void reject() override;

  private:
    void cmdFirst_Click() noexcept;
    void cmdNext_Click() noexcept;
    void cmdOK_Click() noexcept;
    void cmdExit_Click() noexcept;
    void search() noexcept;

    std::unique_ptr<Ui::frmFind> ui;
    // Row of the last hit. It starts at 0 and not at -1: Next before any First misses row 0, which is meant.
    std::int16_t m_lastfound = 0;
};

} // namespace vantor
