// Foundation: what the whole program stands on and that knows nothing of traffic.
// The ring of recent actions: the latest faults and notes, kept in memory until the log takes them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// Entries of the ring of recent actions.
inline constexpr int recentActions = 40;

/// The latest entries, each at a place from 1 to 40. The 41st goes to place 1 again.
class ActionRing {
  public:
    struct Action {
        std::string text; ///< empty: never written
        std::string time; ///< HH:MM:SS
    };
    using Dump = void (*)();

    /// `whenFull` takes the entries down before a full ring is turned; without it they are overwritten in silence.
    explicit ActionRing(Dump whenFull = nullptr) noexcept : m_whenFull(whenFull) {}

    /// Puts an entry in. A full ring is dumped first, if `dump`; the entry is stored even when that raises.
    void put(std::string text, bool dump);
    /// The entry at a place, 1 to 40.
    [[nodiscard]] const Action& at(int place) const { return m_actions.at(static_cast<std::size_t>(place - 1)); }
    /// The place of the newest entry; 0 at the start.
    [[nodiscard]] int newest() const noexcept { return m_newest; }
    /// How many entries it has taken.
    [[nodiscard]] std::int64_t count() const noexcept { return m_count; }

  private:
    void store(std::string text);

    std::array<Action, recentActions> m_actions;
    Dump m_whenFull;
    int m_newest = 0;
    std::int64_t m_count = 0;
};

/// The ring of the run.
[[nodiscard]] ActionRing& actionRing() noexcept;

/// Puts "{text} in {procedure} of module {module}" into the ring; an empty name is left out. When the ring is full it
/// is dumped to the log first, which may raise.
void logaction(std::string_view text, std::string_view procedure, std::string_view module);
/// As logaction, marked "DBG: "; a full ring is overwritten without a dump.
void logdebug(std::string_view text, std::string_view procedure, std::string_view module);
/// How many entries the ring has taken: two equal counts tell that nothing failed in between.
[[nodiscard]] std::int64_t actionCount();
/// The newest entry that is no debug note among those that came behind the first `count`; empty for none.
[[nodiscard]] std::string faultSince(std::int64_t count);

} // namespace vantor
