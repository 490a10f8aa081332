// Shell: the main window, its dialogs and the settings of the application.
// The lists of schedules, legs and missing aircraft: what fills them, and what a click on a row does.
#pragma once

#include "foundation/trap.h"
#include "schedule/list_rows.h"

#include <cstdint>
#include <string>
#include <string_view>

class QAbstractButton;
class QGroupBox;
class QLineEdit;

namespace vantor {

namespace Ui {
class AircraftBox;
class AirportBox;
class LegsBox;
class SchedulesBox;
} // namespace Ui
class CommandRunner;
class ListBox;
struct Workspace;

/// What the window shows in its lists. Its functions are for the commands of all groups.
class Lists {
  public:
    /// What they read, fill and press in the window.
    struct Controls {
        Ui::SchedulesBox& schedules;
        Ui::LegsBox& legs;
        Ui::AircraftBox& aircraft;
        Ui::AirportBox& airport;
        QGroupBox* fraList1;
        QGroupBox* fraList2;
        QAbstractButton* cmdListall;
        ListBox* List3;
        QLineEdit* txtICAO1;
    };

    /// Connects the listing buttons and the clicks on rows. All three must outlive the lists.
    Lists(const Controls& ui, Workspace& workspace, CommandRunner& runner);

    /// Fills List1 by filters (rows or codes, empty for none) and empties List2. `keepindex` becomes the current row
    /// without a click. A fault in it is told in a message box.
    void displaylist(std::string_view icao, std::string_view ac, bool unique, int keepindex);
    /// Lists again by the filters of the listing shown.
    void refresh(int keepindex);
    /// Fills List2 with the legs of all schedules of one aircraft (a row or code), at one airport if `icao` tells one.
    void fillsecondlist(std::string_view ac, std::string_view icao) noexcept;
    /// Fills List2 with the legs of one schedule; `icao` is a bare code or empty.
    void displaylegs(std::int32_t recnum, std::string_view icao) noexcept;
    /// Shows the legs of what the current row of List1 stands for.
    void displayselected();
    /// Empties List1 and List2.
    void clear();
    void enablelegbuttons() noexcept;
    /// Disables the buttons of schedules and legs until a row is clicked.
    void disableButtons() noexcept;

    /// The airport of the timetable shown in List2, empty for none; setting it enables or disables cmdPrint.
    [[nodiscard]] const std::string& timetableicao() const noexcept { return m_timetableicao; }
    void settimetableicao(std::string_view icao);

  private:
    std::string listAll(const StandardTrap& trap);
    std::string listFlightsOfAirport(const StandardTrap& trap);
    std::string listFlightsOfAircraft(const StandardTrap& trap);
    std::string listAirportsOfAircraft(const StandardTrap& trap);
    std::string listAircraftOfAirport(const StandardTrap& trap);
    void clickSchedule(const StandardTrap& trap);
    void clickLeg(const StandardTrap& trap);
    void clickMissingAircraft(const StandardTrap& trap);

    std::string list(std::string_view icao, std::string_view ac, bool unique);
    void showLegs(LegListing listing);
    void enableschedbuttons() noexcept;
    void disableschedbuttons() noexcept;
    void disablelegbuttons() noexcept;

    Controls m_ui;
    Workspace& m_workspace;
    bool m_ignorelist1click = false; // while displaylist itself moves the current row of List1
    std::string m_timetableicao;
};

} // namespace vantor
