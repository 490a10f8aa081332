#include "core/journal.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <type_traits>
#include <utility>

namespace vantor {

namespace {

using PartNumber = std::uint16_t; // 0 for the header, else the number of the leg
using Mask = std::uint16_t;
using Half = std::uint32_t; // what is kept where it differs
using Word = std::uint64_t; // what is compared at once

constexpr PartNumber patchEnd = 65535;
constexpr std::int32_t mostLegs = 10000; // of a patch, which then fits a piece of the log
constexpr std::size_t largestPiece = std::size_t{1} << 20U;
constexpr std::size_t smallestPiece = 128;

template <class Part>
constexpr std::size_t wordsOf = (sizeof(Part) + sizeof(Word) - 1) / sizeof(Word);

template <class Part>
using Words = std::array<Word, wordsOf<Part>>;

template <class Part>
Words<Part> wordsIn(const Part& part) {
    static_assert(std::is_trivially_copyable_v<Part> && wordsOf<Part> <= 8);
    Words<Part> words{};
    std::memcpy(words.data(), &part, sizeof(Part));
    return words;
}

// The most bytes that a patch takes.
std::size_t patchRoom(std::int32_t legs) {
    constexpr std::size_t head = sizeof(PartNumber) + sizeof(Mask);
    return head + sizeof(Words<ScheduleHeader>) + static_cast<std::size_t>(legs) * (head + sizeof(Words<LegRec>)) +
           sizeof(patchEnd);
}

template <class Value>
void put(std::byte*& at, const Value& value) {
    std::memcpy(at, &value, sizeof(Value));
    at += sizeof(Value);
}

template <class Value>
Value take(const std::byte*& at) {
    Value value;
    std::memcpy(&value, at, sizeof(Value));
    at += sizeof(Value);
    return value;
}

// What differs in a header or leg: its number, a mask of the half words that differ, and these.
template <class Part>
void putDifference(std::byte*& at, PartNumber number, const Part& before, const Part& after) {
    const Words<Part> old = wordsIn(before);
    const Words<Part> words = wordsIn(after);
    std::byte* end = at + sizeof(PartNumber) + sizeof(Mask);
    unsigned mask = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
        Word word = words[i] ^ old[i];
        for (std::size_t half = 2 * i; word != 0; word >>= 32U, ++half) {
            if (const auto low = static_cast<Half>(word); low != 0) {
                mask |= 1U << half;
                put(end, low);
            }
        }
    }
    if (mask != 0) {
        put(at, number);
        put(at, static_cast<Mask>(mask));
        at = end;
    }
}

template <class Part>
void applyDifference(const std::byte*& at, Part& part) {
    Words<Part> words = wordsIn(part);
    for (unsigned mask = take<Mask>(at); mask != 0; mask &= mask - 1) {
        const auto half = static_cast<unsigned>(std::countr_zero(mask));
        words[half / 2] ^= Word{take<Half>(at)} << 32U * (half % 2);
    }
    std::memcpy(static_cast<void*>(&part), words.data(), sizeof(Part));
}

} // namespace

std::byte* PatchLog::room(std::size_t most) {
    if (m_size - m_used < most) {
        m_size = std::max(most, std::clamp(2 * m_size, smallestPiece, largestPiece));
        m_used = 0;
        m_pieces.push_back(std::make_unique_for_overwrite<std::byte[]>(m_size));
        m_bytes += m_size;
    }
    return m_pieces.back().get() + m_used;
}

std::uint32_t PatchLog::keep(const std::byte* end) noexcept {
    const std::size_t place = (m_pieces.size() - 1) * largestPiece + m_used;
    m_used = static_cast<std::size_t>(end - m_pieces.back().get());
    return static_cast<std::uint32_t>(place);
}

const std::byte* PatchLog::at(std::uint32_t place) const noexcept {
    return m_pieces[place / largestPiece].get() + place % largestPiece;
}

void JournalStep::patch(const JournalEntry& entry, ScheduleRec& schedule) const {
    const std::byte* at = patches.at(entry.at);
    for (auto number = take<PartNumber>(at); number != patchEnd; number = take<PartNumber>(at)) {
        if (number == 0) {
            applyDifference(at, static_cast<ScheduleHeader&>(schedule));
        } else {
            applyDifference(at, schedule.legs[number]);
        }
    }
}

std::size_t JournalStep::bytes() const noexcept {
    std::size_t sum = sizeof(JournalStep) + entries.capacity() * sizeof(JournalEntry) + patches.bytes() +
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
    if (before.legs.size() != after.legs.size() || after.legs.size() > mostLegs) {
        step.entries.push_back({JournalEntry::Kind::Replace, slot, static_cast<std::uint32_t>(step.schedules.size())});
        step.schedules.push_back(before);
        return;
    }
    std::byte* const start = step.patches.room(patchRoom(after.legs.size()));
    std::byte* at = start;
    if (const ScheduleHeader& header = after; header != before) { // compared by members: copies leave the bytes between
        putDifference<ScheduleHeader>(at, 0, before, after);
    }
    PartNumber number = 0;
    // One look at all legs: most changes leave all of them, or most, as they are.
    const auto size = static_cast<std::size_t>(after.legs.size());
    if (size != 0 && std::memcmp(&*before.legs.begin(), &*after.legs.begin(), size * sizeof(LegRec)) != 0) {
        for (auto old = before.legs.begin(); const LegRec& leg : after.legs) {
            putDifference(at, ++number, *old++, leg);
        }
    }
    if (at != start) {
        put(at, patchEnd);
        step.entries.push_back({JournalEntry::Kind::Patch, slot, step.patches.keep(at)});
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
