#include "core/hash_table.h"

#include "foundation/numbers.h"

#include <algorithm>
#include <string>
#include <utility>

namespace vantor {

namespace {

constexpr std::int32_t hashBuckets = 100000;

std::size_t bucketOf(std::string_view key) noexcept {
    return static_cast<std::size_t>(cHash(key, hashBuckets));
}

} // namespace

std::int32_t cHash(std::string_view text, std::int32_t size) noexcept {
    std::uint32_t hash = 2166136261U;
    for (const char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    }
    // The low bits of a short text are the least mixed ones.
    hash ^= hash >> 15U;
    return static_cast<std::int32_t>(hash % static_cast<std::uint32_t>(size));
}

template <class Record>
void SlotTable<Record>::Init() {
    HashClear();
    m_recordCount = m_capacity;
    m_initialised = true;
}

template <class Record>
void SlotTable<Record>::HashClear() noexcept {
    m_initialised = false;
    m_highest = 0;
    this->storeAll({});
    m_freed.clear();
}

template <class Record>
void SlotTable<Record>::ensure() {
    if (!m_initialised) {
        Init();
    }
}

template <class Record>
void SlotTable<Record>::Cover(std::int32_t slot) {
    ensure();
    if (slot > m_recordCount) {
        m_recordCount = std::max(slot, toInt32(static_cast<double>(static_cast<float>(m_recordCount) * hashGrowth)));
    }
}

template <class Record>
void SlotTable<Record>::checkSlot(std::int32_t slot) const {
    if (slot < 1 || slot > m_recordCount || !m_initialised) {
        throw Error(ErrorCode::SubscriptOutOfRange);
    }
}

template <class Record>
const Record& SlotTable<Record>::blank(std::int32_t slot) const {
    static const Record none;
    checkSlot(slot);
    return none;
}

template <class Record>
void SlotTable<Record>::HashPutSlot(std::int32_t slot, Record record) {
    checkSlot(slot);
    this->store(slot, std::move(record));
}

template <class Record>
std::int32_t SlotTable<Record>::takeSlot() {
    ensure();
    const std::int32_t slot = m_freed.empty() ? ++m_highest : m_freed.back();
    if (!m_freed.empty()) {
        m_freed.pop_back();
    }
    Cover(slot);
    return slot;
}

template <class Record>
void SlotTable<Record>::freeSlot(std::int32_t slot) {
    m_freed.push_back(slot);
}

template <class Record>
void SlotTable<Record>::remove(std::int32_t slot) {
    if (slot == 0) {
        // Quirk: both kinds of table tell the same words, with the schedules' name in them.
        throw Error(hashErrorBase + 1, "Key not found: cHashSC.Delete ");
    }
    this->store(slot, Record());
    freeSlot(slot);
}

template class SlotTable<ScheduleRec>;
template class SlotTable<AirportRec>;

void clsHashSC::Init() {
    HashClear();
    SlotTable::Init();
}

void clsHashSC::HashClear() noexcept {
    SlotTable::HashClear();
    m_legPool.clear(); // behind the records that stand on it
}

void clsHashSC::HashAdd(ScheduleRec record) {
    const std::int32_t slot = takeSlot();
    journal().newSlot(slot);
    HashPutSlot(slot, std::move(record));
}

ScheduleRec clsHashSC::HashFind(std::string_view key) const {
    const std::int32_t slot = find(key);
    return slot == 0 ? ScheduleRec() : peek(slot);
}

std::int32_t clsHashSC::find(std::string_view key) const {
    std::int32_t slot = highest();
    while (slot > 0 && (peek(slot).recnum == 0 || std::to_string(peek(slot).recnum) != trim(key))) {
        --slot;
    }
    return slot;
}

void clsHashAP::Init() {
    HashClear();
    SlotTable::Init();
}

void clsHashAP::HashClear() noexcept {
    SlotTable::HashClear();
    m_newest.clear();
    m_older.clear();
}

void clsHashAP::HashAdd(AirportRec record) {
    const std::size_t bucket = bucketOf(record.icao.text());
    m_newest.resize(hashBuckets);
    const std::int32_t slot = takeSlot();
    HashPutSlot(slot, std::move(record));
    m_older.resize(std::max(slot, m_older.size()));
    m_older[slot] = std::exchange(m_newest[bucket], slot);
}

std::int32_t clsHashAP::find(std::string_view key) const {
    const std::string_view code = trim(key);
    std::int32_t slot = m_newest.empty() ? 0 : m_newest[bucketOf(code)];
    while (slot != 0 && peek(slot).icao.text() != code) {
        slot = m_older[slot];
    }
    return slot;
}

AirportRec clsHashAP::HashFind(std::string_view key) const {
    const std::int32_t slot = find(key);
    AirportRec record = slot == 0 ? AirportRec() : peek(slot);
    record.slot = slot == 0 ? -1 : slot;
    if (slot == 0) {
        record.icao = "-1";
    }
    return record;
}

const AirportRec* clsHashAP::findInPlace(std::string_view key) const {
    const std::int32_t slot = find(key);
    return slot == 0 ? nullptr : &peek(slot);
}

void clsHashAP::HashDelete(std::string_view key) {
    const std::int32_t slot = find(key);
    if (slot != 0) {
        std::int32_t* link = &m_newest[bucketOf(trim(key))];
        while (*link != slot) {
            link = &m_older[*link];
        }
        *link = m_older[slot];
    }
    remove(slot);
}

} // namespace vantor
