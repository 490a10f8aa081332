// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The rescue copy: changes that were not saved, kept beside the files that they stand for.
#pragma once

#include "foundation/replacing_file.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// What a rescue copy stands for.
struct RescueNote {
    std::string when;      ///< as in "21 Nov 16:40"
    std::int16_t mode = 0; ///< fsmode
    std::string plansuffix;
    std::string flightplans; ///< the files in use, as messages name them
    std::string aircraft;
    std::string airports;
    std::string flightplansStamp; ///< of the files as they were when they were loaded (see fileStamp)
    std::string aircraftStamp;
    bool flightplansChanged = false; ///< whether there are changes to save
    bool aircraftChanged = false;
    bool setAside = false; ///< whether the copy that stood before it is to be kept with ".1" behind its names
    friend bool operator==(const RescueNote&, const RescueNote&) = default;
};

/// The copies in a folder, which ends in a backslash.
[[nodiscard]] std::string rescuedFlightplans(std::string_view folder);
[[nodiscard]] std::string rescuedAircraft(std::string_view folder);
/// The note of the copy in a folder; nothing where no whole copy is. What a run that broke off left behind is brought
/// to its end first. Faults go to the ring.
[[nodiscard]] std::optional<RescueNote> readRescueNote(std::string_view folder) noexcept;
/// Removes the copy of a folder, but not the one with ".1" behind its names. Faults go to the ring.
void removeRescue(std::string_view folder) noexcept;

/// Writes the traffic as it stands to the rescue copy of a folder, in steps short enough for the pauses of a user. The
/// copy that was there stays until the new one is whole, also when the program is killed; a change of the tables begins
/// it anew.
class RescueWriter {
  public:
    /// The time of the note is told by the writer.
    RescueWriter(std::string folder, RescueNote note);
    /// Goes on for some hundred schedules, with one wait for the disk; true when the copy stands. Raises what the disk
    /// raises: the old copy stays.
    bool step();
    /// The revision of the tables (see Journal) that the copy holds.
    [[nodiscard]] std::int64_t revision() const noexcept { return m_revision; }

  private:
    [[nodiscard]] bool goOn();
    void begin();
    void writeSchedules();
    void writeAircraft();
    void writeNote();

    enum class Stage { Begin, Schedules, Aircraft, Note, Replace };

    std::string m_folder;
    RescueNote m_note;
    Stage m_stage = Stage::Begin;
    std::optional<GrowingFile> m_flightplans;
    std::optional<GrowingFile> m_aircraft;
    std::int64_t m_revision = -1;
    std::int32_t m_recnum = 0; // the last schedule that is in it
    std::string m_piece;
};

} // namespace vantor
