// Schedule: looking at schedules and changing them one at a time.
// frmSchedEdit, the editor of one schedule and its legs. It works on a copy; the caller writes it back after OK.
#pragma once

#include "core/records.h"
#include "schedule/leg_editing.h"
#include "schedule/leg_store.h"

#include <QDialog>

#include <cstdint>
#include <memory>

namespace vantor {

namespace Ui {
class frmSchedEdit;
}

class ComboBox;
class ListBox;

/// One dialog serves one edit: fill its boxes, lock it, transfersched, unlock it, exec, then read cancelled and
/// editedsched.
class frmSchedEdit : public QDialog {
    Q_OBJECT
  public:
    explicit frmSchedEdit(QWidget* parent = nullptr);
    ~frmSchedEdit() override;

    /// Loads a copy of the record and shows its first leg. `locked` is true afterwards; the caller clears it.
    void transfersched(const ScheduleRec& rec) noexcept;
    /// A copy of the working copy.
    [[nodiscard]] ScheduleRec editedsched() const { return m_draft.sched; }

    [[nodiscard]] ListBox& List1() const;
    [[nodiscard]] ComboBox& cmbAircraft() const;
    /// Departure (0) or destination (any other).
    [[nodiscard]] ComboBox& cmbAirport(int index) const;

    /// While true, clicks on the list and the airport boxes do nothing.
    bool locked = false;
    /// The dialog ended by Cancel, Escape or its close box.
    bool cancelled = false;

    /// Escape and the close box end the dialog as Cancel does.
    void reject() override;

  private:
    void keepRoom();
    void guardFields();
    void connectControls();
    void Form_Load() noexcept;

    void fillschedinfo() noexcept;
    void fillleglist(int selected) noexcept;
    void displayleginfo(std::int16_t leg) noexcept;
    void displaydistance(std::int16_t leg, std::string_view from, std::string_view to) noexcept;
    void addleg() noexcept;
    void insertleg() noexcept;
    void addlegtosched(bool atend) noexcept;
    /// Stores the current leg; raises the invalid time error.
    void storeleg();
    /// Stores the leg shown, if any; false when its time was invalid and the user was told.
    bool storeCurrentLeg() noexcept;
    [[nodiscard]] LegControls shownControls() const;

    void cmbRepeat_click() noexcept;
    void List1_click() noexcept;
    void cmbAirport_click(int index) noexcept;
    void chkFix_click() noexcept;
    void chkUseRego_click() noexcept;
    void cmdAddLeg_Click() noexcept;
    void cmdInsertLeg_Click() noexcept;
    void cmdDeleteLeg_Click() noexcept;
    void cmdFind_Click(int index) noexcept;
    void cmdOK_Click() noexcept;
    void cmdCancel_Click() noexcept;

    std::unique_ptr<Ui::frmSchedEdit> ui;
    ScheduleDraft m_draft;
    std::int16_t m_currentleg = 0; // the leg in Frame2, 0 for none
};

} // namespace vantor
