// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Where the records of a table stand: free to read, written through one function.
#pragma once

#include "core/journal.h"
#include "core/records.h"

#include <cstdint>
#include <utility>

namespace vantor {

/// The records of a table, the first of them number 1. Everybody may read them in place, which holds until the table
/// changes. An index outside them is error 9. The tables' own operations write them.
template <class Record>
class RecordStore {
  public:
    [[nodiscard]] std::int32_t size() const noexcept { return m_records.size(); }
    [[nodiscard]] bool has(std::int32_t index) const noexcept { return m_records.has(index); }
    [[nodiscard]] const Record& operator[](std::int32_t index) const { return m_records[index]; }
    [[nodiscard]] auto begin() const noexcept { return m_records.begin(); }
    [[nodiscard]] auto end() const noexcept { return m_records.end(); }

  protected:
    /// Writes one record, with blank ones ahead of it where there is a gap. Each record that is stored in a table comes
    /// through here, where the journal takes down how it differs from the one that it replaces.
    void store(std::int32_t index, Record record) {
        if (index == m_records.size() + 1) { // as a load does
            static const Record blank;
            journal().willStore(index, blank, record);
            m_records.append(std::move(record));
            return;
        }
        if (!m_records.has(index)) {
            m_records.resize(index);
        }
        Record& stored = m_records[index];
        journal().willStore(index, stored, record);
        stored = std::move(record);
    }
    /// Changes a record in place, as undo and redo do, of which the journal takes nothing down.
    template <class Change>
    void storePatched(std::int32_t index, const Change& change) {
        journal().willPatch();
        change(m_records[index]);
    }
    /// Puts other records in the place of all.
    void storeAll(OneBased<Record> records) {
        journal().willStoreAll(m_records, records);
        m_records = std::move(records);
    }
    /// Makes room for as many records.
    void reserve(std::int32_t count) { m_records.reserve(count); }
    [[nodiscard]] const OneBased<Record>& all() const noexcept { return m_records; }

  private:
    OneBased<Record> m_records;
};

} // namespace vantor
