#include "core/journal.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <type_traits>
#include <utility>

namespace vantor {

namespace {

using Word = std::uint64_t;
using Mask = std::uint16_t;
using PartNumber = std::uint16_t; // 0 for the header, else the number of the leg

template <class Part>
constexpr std::size_t wordsOf = (sizeof(Part) + sizeof(Word) - 1) / sizeof(Word);

template <class Part>
using Words = std::array<Word, wordsOf<Part>>;

template <class Part>
Words<Part> wordsIn(const Part& part) {
    static_assert(std::is_trivially_copyable_v<Part> && wordsOf<Part> <= 16);
    Words<Part> words{};
    std::memcpy(words.data(), &part, sizeof(Part));
    return words;
}

template <class Value>
void append(std::vector<std::byte>& bytes, const Value& value) {
    const auto* const begin = reinterpret_cast<const std::byte*>(&value);
    bytes.insert(bytes.end(), begin, begin + sizeof(Value));
}

template <class Value>
Value take(const std::byte*& at) {
    Value value;
    std::memcpy(&value, at, sizeof(Value));
    at += sizeof(Value);
    return value;
}

// What differs in a header or leg: its number, a mask of the words that differ, and these.
template <class Part>
void appendDifference(std::vector<std::byte>& bytes, PartNumber number, const Part& before, const Part& after) {
    const Words<Part> old = wordsIn(before);
    Words<Part> words = wordsIn(after);
    unsigned mask = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
        words[i] ^= old[i];
        mask |= static_cast<unsigned>(words[i] != 0) << i;
    }
    if (mask == 0) {
        return;
    }
    append(bytes, number);
    append(bytes, static_cast<Mask>(mask));
    for (const Word word : words) {
        if (word != 0) {
            append(bytes, word);
        }
    }
}

template <class Part>
void applyDifference(const std::byte*& at, Part& part) {
    Words<Part> words = wordsIn(part);
    for (unsigned mask = take<Mask>(at); mask != 0; mask &= mask - 1) {
        words[static_cast<std::size_t>(std::countr_zero(mask))] ^= take<Word>(at);
    }
    std::memcpy(static_cast<void*>(&part), words.data(), sizeof(Part));
}

} // namespace

void JournalStep::patch(const JournalEntry& entry, ScheduleRec& schedule) const {
    // A patch ends where the next one begins; no other kind of entry puts anything between them.
    const std::byte* at = patches.data() + entry.at;
    const auto next = std::find_if(entries.begin() + (&entry - entries.data()) + 1, entries.end(),
                                   [](const JournalEntry& other) { return other.kind == JournalEntry::Kind::Patch; });
    const std::byte* const end = next == entries.end() ? patches.data() + patches.size() : patches.data() + next->at;
    while (at != end) {
        const auto number = take<PartNumber>(at);
        if (number == 0) {
            applyDifference(at, static_cast<ScheduleHeader&>(schedule));
        } else {
            applyDifference(at, schedule.legs[number]);
        }
    }
}

std::size_t JournalStep::bytes() const noexcept {
    std::size_t sum = sizeof(JournalStep) + entries.capacity() * sizeof(JournalEntry) + patches.capacity() +
                      aircraft.capacity() * sizeof(AircraftRec);
    for (const auto& others : rows) {
        sum += others.capacity() * sizeof(AircraftRec);
    }
    for (const ScheduleRec& schedule : schedules) {
        sum += sizeof(ScheduleRec) + static_cast<std::size_t>(schedule.legs.size()) * sizeof(LegRec);
    }
    return sum;
}

void Journal::record(std::int32_t slot, const ScheduleRec& before, const ScheduleRec& after) {
    JournalStep& step = *m_open;
    constexpr std::int32_t numbers = 65535; // legs that a patch can name
    if (before.legs.size() != after.legs.size() || after.legs.size() > numbers) {
        step.entries.push_back({JournalEntry::Kind::Replace, slot, static_cast<std::uint32_t>(step.schedules.size())});
        step.schedules.push_back(before);
        return;
    }
    const std::size_t start = step.patches.size();
    appendDifference<ScheduleHeader>(step.patches, 0, before, after);
    PartNumber number = 0;
    // One look at all legs: most changes leave all of them, or most, as they are.
    const auto size = static_cast<std::size_t>(after.legs.size());
    if (size != 0 && std::memcmp(&*before.legs.begin(), &*after.legs.begin(), size * sizeof(LegRec)) != 0) {
        for (auto old = before.legs.begin(); const LegRec& leg : after.legs) {
            appendDifference(step.patches, ++number, *old++, leg);
        }
    }
    if (step.patches.size() != start) {
        step.entries.push_back({JournalEntry::Kind::Patch, slot, static_cast<std::uint32_t>(start)});
    }
}

void Journal::record(std::int32_t row, const AircraftRec& before, const AircraftRec& after) {
    if (before != after) {
        const auto at = static_cast<std::uint32_t>(m_open->aircraft.size());
        m_open->entries.push_back({JournalEntry::Kind::Aircraft, row, at});
        m_open->aircraft.push_back(before);
    }
}

void Journal::willStoreAll(const OneBased<AircraftRec>& before, const OneBased<AircraftRec>& after) {
    ++m_aircraftRevision;
    if (after.size() == 0 && !m_replaying) { // an undo can lead back to an empty table
        clear();
    }
    if (!takes() || before == after) {
        return;
    }
    const auto from = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
    const auto row = static_cast<std::int32_t>(from - before.begin()) + 1;
    m_open->entries.push_back({JournalEntry::Kind::Rows, row, static_cast<std::uint32_t>(m_open->rows.size())});
    m_open->rows.emplace_back(from, before.end());
}

void Journal::clear() noexcept {
    if (!m_steps.empty()) { // looked at first: a load comes here for each record
        m_steps.clear();
    }
    m_done = 0;
    m_bytes = 0;
    m_open.reset();
    m_base = ++m_lastState;
}

void Journal::open(std::string name, const TableCounts& counts) {
    if (m_depth++ == 0) {
        m_open.emplace();
        m_open->name = std::move(name);
        m_open->before = counts;
    }
}

void Journal::rename(std::string name) {
    if (m_open) {
        m_open->name = std::move(name);
    }
}

void Journal::close(const TableCounts& counts) {
    if (--m_depth > 0 || !m_open) { // a load in the step has emptied the journal
        return;
    }
    JournalStep step = *std::exchange(m_open, {});
    step.after = counts;
    if (step.entries.empty() && step.before == step.after) {
        return;
    }
    for (; m_steps.size() > m_done; m_steps.pop_back()) {
        m_bytes -= m_steps.back().size;
    }
    step.state = ++m_lastState;
    step.size = step.bytes();
    m_bytes += step.size;
    m_steps.push_back(std::move(step));
    ++m_done;
}

void Journal::trim(std::size_t limit) noexcept {
    for (; m_bytes > limit && m_done > 1; m_steps.pop_front(), --m_done) {
        m_bytes -= m_steps.front().size;
        m_base = m_steps.front().state;
    }
}

} // namespace vantor
