// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Steps of the journal: what a command opens around its work, undo, and redo.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantor {

/// Around the work of a command: all that it writes to the tables becomes one step of the journal, which can be undone.
/// One that changes nothing leaves no step. Inside another it belongs to that one, and its name is not used.
class Step {
  public:
    /// `name` is what a person reads behind "Undo": "Delete 3 schedules".
    explicit Step(std::string name);
    ~Step();
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
};

/// Names the step that is open anew, for a command that knows only afterwards what it did. Does nothing without one.
void nameStep(std::string name);

/// What an undo or redo changed.
struct StepRecords {
    std::string name;
    std::vector<std::int32_t> recnums; ///< slots of the schedules, each once, in ascending order
    bool aircraft = false;             ///< whether any aircraft is among them
};

/// What "Undo" and "Redo" would do; empty for nothing.
[[nodiscard]] std::string undoName();
[[nodiscard]] std::string redoName();
/// Takes the latest step back, or does the latest undone one again: both tables and what stands beside them are bit for
/// bit as they were. Nothing happens where there is none, or while a step is open.
std::optional<StepRecords> undo();
std::optional<StepRecords> redo();

} // namespace vantor
