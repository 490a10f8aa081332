// Schedule: looking at schedules and changing them one at a time.
// frmSchedEdit, the editor of one schedule and its legs. It works on a copy; the caller writes it back after OK.
#pragma once

#include "core/records.h"
#include "foundation/list_row.h"
#include "schedule/leg_editing.h"
#include "schedule/leg_store.h"

#include <QDialog>

#include <cstdint>
#include <memory>
#include <optional>

namespace vantor {

namespace Ui {
class frmSchedEdit;
}

class ComboBox;

/// What the editor's boxes offer.
struct EditorRows {
    ListRows aircraft; ///< the first is taken where none is the schedule's own
    ListRows airports;
};

/// The whole editor on a schedule, shown with the leg of row `startRow` of its list. The edited copy after OK; nothing
/// after Cancel, Escape or the close box.
[[nodiscard]] std::optional<ScheduleRec> editSchedule(QWidget* parent, const ScheduleRec& record, EditorRows rows,
                                                      int startRow = 0) noexcept;

/// The dialog that editSchedule shows. One serves one edit.
class frmSchedEdit : public QDialog {
    Q_OBJECT
  public:
    frmSchedEdit(QWidget* parent, const ScheduleRec& record, EditorRows rows, int startRow = 0);
    ~frmSchedEdit() override;

    /// A copy of the schedule as it is edited so far, without the leg in the frame; nothing once it was cancelled.
    [[nodiscard]] std::optional<ScheduleRec> edited() const;

    /// Escape and the close box end the dialog as Cancel does.
    void reject() override;

  private:
    void keepRoom();
    void guardFields();
    void connectControls();
    void Form_Load() noexcept;
    void offer(EditorRows rows) noexcept;
    void transfersched(const ScheduleRec& rec) noexcept;

    void fillschedinfo() noexcept;
    void fillleglist(int selected) noexcept;
    void showperiod();
    void displayleginfo(std::int16_t number) noexcept;
    static void showairport(ComboBox& box, std::string_view icao);
    void displaydistance(const LegRec& leg) noexcept;
    void addlegtosched(bool atend) noexcept;
    /// Stores the current leg; raises the invalid time error.
    void storeleg();
    /// Stores the leg shown, if any; false when its time was invalid and the user was told.
    bool storeCurrentLeg() noexcept;
    [[nodiscard]] LegControls shownControls() const;
    /// The box of the departure (0) or of the destination (any other).
    [[nodiscard]] ComboBox& cmbAirport(int index) const;

    void cmbRepeat_click() noexcept;
    void List1_click() noexcept;
    void cmbAirport_click(int index) noexcept;
    void chkFix_click() noexcept;
    void chkUseRego_click() noexcept;
    void cmdDeleteLeg_Click() noexcept;
    void cmdFind_Click(int index) noexcept;
    void cmdOK_Click() noexcept;
    void cmdCancel_Click() noexcept;

    std::unique_ptr<Ui::frmSchedEdit> ui;
    ScheduleDraft m_draft;
    std::int16_t m_currentleg = 0; // the leg in Frame2, 0 for none
    bool m_locked = false;         // clicks on the list and the airport boxes do nothing
    bool m_cancelled = false;
};

} // namespace vantor
