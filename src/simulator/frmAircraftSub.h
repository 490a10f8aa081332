// Simulator: what the traffic needs of the simulator's own files.
// frmAircraftSub, the one dialog for picking an aircraft.
#pragma once

#include "foundation/list_row.h"

#include <QDialog>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vantor {

namespace Ui {
class frmAircraftSub;
}

/// The aircraft that the user chose.
struct ChosenAircraft {
    std::string substitutetext; ///< "{current code} - {new title}"
    std::string row;            ///< as it was offered; empty for the closing row
};

/// The whole dialog for another aircraft in place of `current` (a row or code), of those in `rows`. Nothing unless the
/// user pressed OK on one.
[[nodiscard]] std::optional<ChosenAircraft> chooseAircraft(QWidget* parent, std::string_view current,
                                                           ListRows rows) noexcept;

/// The dialog that chooseAircraft shows. It lives for one use.
class frmAircraftSub : public QDialog {
    Q_OBJECT
  public:
    frmAircraftSub(QWidget* parent, std::string_view current, ListRows rows);
    ~frmAircraftSub() override;

    [[nodiscard]] const std::optional<ChosenAircraft>& chosen() const noexcept { return m_chosen; }

    /// Escape and the close box leave as Cancel does.
    void reject() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void refilllist() noexcept;
    void cmdApply_Click() noexcept;
    void cmdClear_Click() noexcept;
    void cmdOK_Click() noexcept;
    void cmdCancel_Click() noexcept;

    std::unique_ptr<Ui::frmAircraftSub> ui;
    std::string m_current;
    std::optional<ChosenAircraft> m_chosen;
};

} // namespace vantor
