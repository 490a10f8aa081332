// Simulator: what the traffic needs of the simulator's own files.
// frmAircraftSub, the one dialog for picking an aircraft.
#pragma once

#include <QDialog>

#include <memory>
#include <string>
#include <string_view>

namespace vantor {

namespace Ui {
class frmAircraftSub;
}

class ListBox;

/// Lives for one use: the caller fills List2, calls GetSub and reads the two texts.
class frmAircraftSub : public QDialog {
    Q_OBJECT
  public:
    explicit frmAircraftSub(QWidget* parent = nullptr);
    ~frmAircraftSub() override;

    /// All rows on offer, hidden.
    [[nodiscard]] ListBox& List2() const;
    /// Shows the dialog for the aircraft to be replaced (a row or code) and returns when it is closed.
    void GetSub(std::string_view current) noexcept;

    /// "{current code} - {new title}" and the whole row chosen; both empty unless OK succeeded.
    std::string substitutetext;
    std::string substituterow;

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
};

} // namespace vantor
