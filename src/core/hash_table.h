// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The two tables whose records stand in numbered slots: the schedules and the airports.
#pragma once

#include "core/record_store.h"

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor {

/// A string hash into 0 .. size - 1 (FNV-1a). No visible result depends on its values.
[[nodiscard]] std::int32_t cHash(std::string_view text, std::int32_t size) noexcept;

/// Factor by which the capacity of a full table grows.
inline constexpr float hashGrowth = 1.5F;
/// Base of the tables' own error numbers.
inline constexpr int hashErrorBase = -2147220992;

/// What both tables share. Slots are handed out 1, 2, 3, ... as long as nothing is deleted: slot n of the schedules is
/// record number n, and the whole program relies on it. Slots up to the capacity read blank where nothing was added;
/// any other slot is error 9. A new table has none until the first Init, which the operations below call where it
/// matters.
template <class Record>
class SlotTable : protected RecordStore<Record> {
  public:
    /// Drops all records and sets the initial capacity.
    void Init();
    /// Drops all records; every slot is error 9 until the next Init.
    void HashClear() noexcept;
    /// Upper bound of the slots: the capacity, not the number of records.
    [[nodiscard]] std::int32_t RecordCount() const noexcept { return m_recordCount; }
    /// Makes every slot up to `slot` readable: for a count that runs ahead of the slots. Calls Init first if need be.
    void Cover(std::int32_t slot);
    /// A copy of the record in a slot.
    [[nodiscard]] Record HashGetSlot(std::int32_t slot) const { return peek(slot); }
    /// Overwrites the record in a slot, which must keep its key.
    void HashPutSlot(std::int32_t slot, Record record);
    /// The record in a slot in place, for walks that only read. It holds until the table changes.
    [[nodiscard]] const Record& peek(std::int32_t slot) const { return this->has(slot) ? (*this)[slot] : blank(slot); }

  protected:
    explicit SlotTable(std::int32_t capacity) noexcept : m_capacity(capacity) {}
    /// Hands out the slot that was freed last, else the one above all others. Calls Init first if need be.
    std::int32_t takeSlot();
    /// Gives a slot back, to be handed out again next.
    void freeSlot(std::int32_t slot);
    /// Blanks a slot and frees it. A slot of 0 (no such key) raises the table's error 1.
    void remove(std::int32_t slot);
    /// The highest slot that was ever in use.
    [[nodiscard]] std::int32_t highest() const noexcept { return m_highest; }

  private:
    void ensure();
    void checkSlot(std::int32_t slot) const;
    [[nodiscard]] const Record& blank(std::int32_t slot) const;

    std::int32_t m_capacity;
    std::int32_t m_recordCount = 0;
    std::int32_t m_highest = 0;
    bool m_initialised = false;
    std::vector<std::int32_t> m_freed;
};

extern template class SlotTable<ScheduleRec>;
extern template class SlotTable<AirportRec>;

/// The schedules. They are reached by slot; the operations by key, the record number as text, are there for
/// completeness and walk the slots from the highest down.
class clsHashSC : public SlotTable<ScheduleRec> {
  public:
    clsHashSC() noexcept : SlotTable(150000) {}
    void Init();
    void HashClear() noexcept;
    /// Stores a record in the next slot.
    void HashAdd(ScheduleRec record);
    /// A copy of the record of a number, blank for a miss.
    [[nodiscard]] ScheduleRec HashFind(std::string_view key) const;
    /// Removes the record of a number and frees its slot; raises the table's error 1 when there is none.
    void HashDelete(std::string_view key) { remove(find(key)); }
    /// Memory for the legs of the records that a load adds: it lasts until the next Init or HashClear.
    [[nodiscard]] LendingPool<LegRec>& legPool() noexcept { return m_legPool; }
    // For undo and redo, which put the records themselves.
    template <class Change>
    void patch(std::int32_t slot, const Change& change) {
        storePatched(slot, change);
    }
    using SlotTable::freeSlot;
    using SlotTable::takeSlot;
    // For a load that knows how many records to expect.
    using RecordStore::reserve;

  private:
    [[nodiscard]] std::int32_t find(std::string_view key) const;

    LendingPool<LegRec> m_legPool;
};

/// The airports, by slot and by code. Codes are trimmed, and their case counts.
class clsHashAP : public SlotTable<AirportRec> {
  public:
    clsHashAP() noexcept : SlotTable(15000) {}
    void Init();
    void HashClear() noexcept;
    /// Stores a record in the next slot. One of an equal code stays in its slot, but the newer one is found.
    void HashAdd(AirportRec record);
    /// A copy of the record of a code with its slot, or the blank record of a miss: slot -1 and code "-1".
    [[nodiscard]] AirportRec HashFind(std::string_view key) const;
    /// Removes the newest record of a code and frees its slot; raises the table's error 1 when there is none.
    void HashDelete(std::string_view key);
    /// The record of a code in place, null for a miss. It holds until the table changes.
    [[nodiscard]] const AirportRec* findInPlace(std::string_view key) const;

  private:
    [[nodiscard]] std::int32_t find(std::string_view key) const;

    std::vector<std::int32_t> m_newest; // slot of the newest code of each hash, 0 for none; empty without airports
    OneBased<std::int32_t> m_older;     // for each slot the one that its hash led to before
};

} // namespace vantor
