// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The two keyed tables: a store of records with numbered slots and an index of chains over the same slots.
#pragma once

#include "core/records.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vantor {

/// A string hash into 0 .. size - 1 (FNV-1a). No visible result depends on its values.
[[nodiscard]] std::int32_t cHash(std::string_view text, std::int32_t size) noexcept;

/// Number of buckets of both tables; it never changes.
inline constexpr std::int32_t hashBuckets = 100000;
/// Factor by which full arrays grow.
inline constexpr float hashGrowth = 1.5F;
/// Base of the tables' own error numbers.
inline constexpr int hashErrorBase = -2147220992;

/// The pool of slot numbers. Slots are handed out 1, 2, 3, ... as long as nothing is freed: slot n of the schedules is
/// record number n, and the whole program relies on it.
class clsHashNodes {
  public:
    /// The slot freed last, else the one above all others.
    [[nodiscard]] std::int32_t Alloc();
    /// Gives a slot back; it is the next to be handed out.
    void Free(std::int32_t slot);

  private:
    std::vector<std::int32_t> m_freed;
    std::int32_t m_highest = 0;
};

/// How a table tells its keys apart, for each kind of record.
struct ScheduleKey {
    using Record = ScheduleRec;
    static constexpr std::int32_t capacity = 150000;
    static std::string text(const Record& record) { return std::to_string(record.recnum); }
    static bool equals(const Record& record, std::string_view key) { return std::to_string(record.recnum) == key; }
    static void markHit(Record& /*record*/, std::int32_t /*slot*/) {}
    static void markMiss(Record& /*record*/) {}
};

struct AirportKey {
    using Record = AirportRec;
    static constexpr std::int32_t capacity = 15000;
    static std::string_view text(const Record& record) { return record.icao.text(); }
    static bool equals(const Record& record, std::string_view key) { return record.icao.text() == key; }
    static void markHit(Record& record, std::int32_t slot) { record.slot = slot; }
    static void markMiss(Record& record) {
        record.slot = -1;
        record.icao = "-1";
    }
};

/// The table behind a front class. The arrays reach as far as slots are used; those up to the capacity read blank, and
/// beyond it is error 9.
template <class Key>
class HashTable {
  public:
    using Record = typename Key::Record;

    /// Sets up an empty table of `hashsize` buckets, whose slots reach to `capacity` and grow by the factor `growth`.
    void Init(std::int32_t hashsize, std::int32_t capacity, float growth);
    /// Stores a record in the next slot, at the head of the chain of its first-stage hash. Keys may repeat.
    void Add(std::int32_t h1, Record record);
    /// The slot of the newest record with this key, 0 for none. `key` is trimmed already.
    [[nodiscard]] std::int32_t findSlot(std::string_view key) const;
    /// Removes the record nearest the head of its chain whose first-stage hash is `h1`; raises the table's error 1
    /// when there is none.
    void Delete(std::int32_t h1);
    /// Grows the arrays until slot `slot` lies within them.
    void Cover(std::int32_t slot);
    /// Drops all records; until the next Init every slot is error 9.
    void ClearArrays() noexcept;

    /// Upper bound of the slots.
    [[nodiscard]] std::int32_t RecordCount() const noexcept { return m_recordCount; }
    /// The record in a slot, read and overwritten. A slot outside 1 to RecordCount is error 9.
    [[nodiscard]] const Record& slot(std::int32_t slot) const;
    void putSlot(std::int32_t slot, Record record);
    /// The first-stage hash of a key.
    [[nodiscard]] std::int32_t hashOf(std::string_view key) const noexcept { return cHash(key, m_hashsize); }

  private:
    // The bucket comes from the text of the first-stage hash, never from the key itself: two stages everywhere.
    [[nodiscard]] std::size_t bucketOf(std::int32_t h1) const noexcept;
    // Raises error 9 for a slot outside the capacity.
    void checkSlot(std::int32_t slot) const;

    std::int32_t m_recordCount = 0;
    std::int32_t m_hashsize = 0;
    float m_growth = 0;
    clsHashNodes m_nodes;
    OneBased<std::int32_t> m_nextslot;
    OneBased<std::int32_t> m_keys;
    OneBased<Record> m_records;
    std::vector<std::int32_t> m_buckets;
};

/// The front of a table: makes it on first use and hides it. Both kinds share this one body.
template <class Key>
class HashFront {
  public:
    using Record = typename Key::Record;

    /// Drops all records and makes a new table of the initial capacity.
    void Init();
    /// Drops all records; the next HashAdd, HashFind, HashDelete or Cover makes a new table.
    void HashClear() noexcept;
    /// Upper bound of the slots: the capacity, not the number of records.
    [[nodiscard]] std::int32_t RecordCount() const noexcept { return m_table ? m_table->RecordCount() : 0; }
    /// Stores a record in the next slot. One of an equal key stays in its slot, but the newer one is found.
    void HashAdd(Record record);
    /// Makes every slot up to `slot` readable, blank where nothing was added: for a count that runs ahead of the slots.
    void Cover(std::int32_t slot);
    /// A copy of the record of this key (trimmed, case counts), or the blank record of a miss.
    [[nodiscard]] Record HashFind(std::string_view key);
    /// A copy of the record in a slot; blank where nothing was added. A slot outside the capacity is error 9.
    [[nodiscard]] Record HashGetSlot(std::int32_t slot) const { return peek(slot); }
    /// Overwrites the record in a slot, which must keep its key. A slot outside the capacity is error 9.
    void HashPutSlot(std::int32_t slot, Record record);
    /// Removes the record of a key (trimmed) and frees its slot; raises the table's error 1 when there is none.
    void HashDelete(std::string_view key);

    /// The record in a slot in place, for walks that only read. It holds until the table changes.
    [[nodiscard]] const Record& peek(std::int32_t slot) const {
        if (!m_table) {
            throw Error(ErrorCode::SubscriptOutOfRange);
        }
        return m_table->slot(slot);
    }
    /// The record of a key in place, null for a miss. It holds until the table changes.
    [[nodiscard]] const Record* findInPlace(std::string_view key) const;

  private:
    void ensure();

    std::unique_ptr<HashTable<Key>> m_table;
    bool m_initialised = false;
};

extern template class HashTable<ScheduleKey>;
extern template class HashTable<AirportKey>;
extern template class HashFront<ScheduleKey>;
extern template class HashFront<AirportKey>;

/// The schedules, key record number.
class clsHashSC : public HashFront<ScheduleKey> {};
/// The airports, key code.
class clsHashAP : public HashFront<AirportKey> {};

} // namespace vantor
