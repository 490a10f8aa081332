// Schedule: looking at schedules and changing them one at a time.
// The rows of the main window's lists and combo boxes, their captions, and what a row allows.
#pragma once

#include "core/records.h"
#include "foundation/error.h"
#include "foundation/list_row.h"
#include "foundation/trap.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// Schedule rows that the schedule list takes; behind them stands one row that says so.
inline constexpr std::size_t scheduleRowLimit = 32730;

/// "AC#12 - Boeing 737-400 VH-ABC (IFR,4 legs)", with "(DEL) " ahead of a deleted one.
[[nodiscard]] std::string scheduleRow(const ScheduleRec& schedule);
/// "FL#123 - YPPH to YPEA (1234 nm) dpt 12:00:00 every 6h", with "(DEL) " ahead of a deleted leg. A departure that is
/// no time stands as the raw field. A weekday outside 0 to 6 in a weekly schedule raises error 5.
[[nodiscard]] std::string legRow(const ScheduleRec& schedule, const LegRec& leg);

/// The rows of the schedule list and the caption of its frame; without one the frame keeps what it shows.
struct Listing {
    ListRows rows;
    std::optional<std::string> caption;
};

/// A fault while the schedule list is filled. Its description is the whole message for the log and the user:
/// "Error '{description}' showing leg {leg} of schedule {schedule}".
class ListingFault : public Error {
  public:
    using Error::Error;
};

/// Fills the schedule list: every schedule, those of an airport or those of an aircraft; with `unique` the airports
/// that an aircraft visits or the aircraft that visit an airport. `icao` and `ac` are bare codes (as extractcode gives
/// them), empty for no filter. Schedule rows carry their record number, all others 0; one empty row closes the list.
/// Raises a ListingFault, with the caption and the rows so far in `listing`.
void listSchedules(std::string_view icao, std::string_view ac, bool unique, Listing& listing);

/// The rows of the leg list, what its frame shows and which schedule it stands for.
struct LegListing {
    ListRows rows;
    std::optional<std::string> caption; ///< none: the frame keeps what it shows
    std::optional<bool> enabled;        ///< whether the list may be picked in; none: as it was
    bool selectFirst = false;           ///< row 0 becomes the current row, which counts as a click on it
    bool disableButtons = false;        ///< the leg buttons are disabled after that click
};

/// The legs of one schedule alone, item data their hashindex; with an `icao` (a bare code) only those to or from it. A
/// record number of 0 gives a listing without rows that leaves caption and list as they are. A fault ends it and
/// is not told; what was set before it stays.
[[nodiscard]] LegListing listLegs(std::int32_t recnum, std::string_view icao) noexcept;
/// The legs of all schedules of an aircraft; both are bare codes. Caption and enabling are those of the last schedule.
[[nodiscard]] LegListing listLegsOfAircraft(const StandardTrap& trap, std::string_view ac,
                                            std::string_view icao) noexcept;

/// States of the buttons under the schedule list.
struct ScheduleButtons {
    bool editSchedule = false;
    bool copy = false;
    bool deleteSchedule = false;
    bool swapAircraft = false;
    std::optional<std::string_view> deleteCaption; ///< none: as it was
};

/// The schedule buttons for a count of selected rows and the current row's item data (0 for no current row) and text.
[[nodiscard]] ScheduleButtons scheduleButtons(const StandardTrap& trap, std::size_t selectedRows, std::int32_t itemData,
                                              std::string_view rowText) noexcept;

/// What a click on the leg list does to the buttons under it.
struct LegButtons {
    bool enable = false;                           ///< false: both buttons stay as they are
    std::optional<std::string_view> deleteCaption; ///< none: as it was
};

/// The leg buttons for the current row's item data (0 for no rows or no current row).
[[nodiscard]] LegButtons legButtons(const StandardTrap& trap, std::int32_t itemData) noexcept;

/// What a row of the schedule list is.
enum class ScheduleListRow { schedule, aircraftRow, airportRow, nothing };

/// Tells the row's kind by its item data and text.
[[nodiscard]] ScheduleListRow kindOfRow(std::int32_t itemData, std::string_view rowText) noexcept;

} // namespace vantor
