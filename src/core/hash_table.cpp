#include "core/hash_table.h"

#include "foundation/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace vantor {

namespace {

std::int32_t grown(std::int32_t bound, float growth) {
    return toInt32(static_cast<double>(static_cast<float>(bound) * growth));
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

std::int32_t clsHashNodes::Alloc() {
    if (m_freed.empty()) {
        return ++m_highest;
    }
    const std::int32_t slot = m_freed.back();
    m_freed.pop_back();
    return slot;
}

void clsHashNodes::Free(std::int32_t slot) {
    m_freed.push_back(slot);
}

template <class Key>
void HashTable<Key>::Init(std::int32_t hashsize, std::int32_t capacity, float growth) {
    m_hashsize = hashsize;
    m_growth = growth;
    m_buckets.assign(static_cast<std::size_t>(hashsize), 0);
    m_recordCount = capacity;
}

template <class Key>
std::size_t HashTable<Key>::bucketOf(std::int32_t h1) const noexcept {
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), h1);
    return static_cast<std::size_t>(
        cHash({digits.data(), static_cast<std::size_t>(end.ptr - digits.data())}, m_hashsize));
}

template <class Key>
void HashTable<Key>::Cover(std::int32_t slot) {
    if (slot > m_recordCount) {
        m_recordCount = std::max(slot, grown(m_recordCount, m_growth));
    }
}

template <class Key>
void HashTable<Key>::checkSlot(std::int32_t slot) const {
    if (slot < 1 || slot > m_recordCount || m_buckets.empty()) { // empty once cleared
        throw Error(ErrorCode::SubscriptOutOfRange);
    }
}

template <class Key>
const typename Key::Record& HashTable<Key>::slot(std::int32_t slot) const {
    static const Record blank;
    checkSlot(slot);
    return m_records.has(slot) ? m_records[slot] : blank;
}

template <class Key>
void HashTable<Key>::putSlot(std::int32_t slot, Record record) {
    checkSlot(slot);
    if (!m_records.has(slot)) {
        m_records.resize(slot);
    }
    m_records[slot] = std::move(record);
}

template <class Key>
void HashTable<Key>::Add(std::int32_t h1, Record record) {
    const std::size_t bucket = bucketOf(h1);
    const std::int32_t slot = m_nodes.Alloc();
    Cover(slot);
    if (!m_keys.has(slot)) {
        m_nextslot.resize(slot);
        m_keys.resize(slot);
    }
    m_nextslot[slot] = m_buckets[bucket];
    m_buckets[bucket] = slot;
    m_keys[slot] = h1;
    putSlot(slot, std::move(record));
}

template <class Key>
std::int32_t HashTable<Key>::findSlot(std::string_view key) const {
    std::int32_t slot = m_buckets[bucketOf(hashOf(key))];
    while (slot != 0 && !Key::equals(m_records[slot], key)) {
        slot = m_nextslot[slot];
    }
    return slot;
}

template <class Key>
void HashTable<Key>::Delete(std::int32_t h1) {
    const std::size_t bucket = bucketOf(h1);
    std::int32_t previous = 0;
    std::int32_t slot = m_buckets[bucket];
    // The first-stage hash alone decides: of two keys that share it, the nearer to the head of the chain goes.
    while (slot != 0 && m_keys[slot] != h1) {
        previous = slot;
        slot = m_nextslot[slot];
    }
    if (slot == 0) {
        // Both kinds of table tell the same words, with the schedules' name in them; it is meant.
        throw Error(hashErrorBase + 1, "Key not found: cHashSC.Delete ");
    }
    if (previous != 0) {
        m_nextslot[previous] = m_nextslot[slot];
    } else {
        m_buckets[bucket] = m_nextslot[slot];
    }
    m_nodes.Free(slot);
    m_records[slot] = Record();
}

template <class Key>
void HashTable<Key>::ClearArrays() noexcept {
    m_records.clear();
    m_keys.clear();
    m_nextslot.clear();
    m_buckets.clear();
}

template <class Key>
void HashFront<Key>::Init() {
    m_initialised = true;
    m_table.reset(); // the old records go before the new arrays come
    m_table = std::make_unique<HashTable<Key>>();
    m_table->Init(hashBuckets, Key::capacity, hashGrowth);
}

template <class Key>
void HashFront<Key>::HashClear() noexcept {
    m_initialised = false;
    if (m_table) {
        m_table->ClearArrays();
    }
}

template <class Key>
void HashFront<Key>::ensure() {
    if (!m_initialised) {
        Init();
    }
}

template <class Key>
void HashFront<Key>::HashAdd(Record record) {
    ensure();
    const std::int32_t h1 = m_table->hashOf(Key::text(record));
    m_table->Add(h1, std::move(record));
}

template <class Key>
void HashFront<Key>::Cover(std::int32_t slot) {
    ensure();
    m_table->Cover(slot);
}

template <class Key>
const typename HashFront<Key>::Record* HashFront<Key>::findInPlace(std::string_view key) const {
    if (!m_initialised) {
        return nullptr;
    }
    const std::int32_t slot = m_table->findSlot(trim(key));
    return slot == 0 ? nullptr : &m_table->slot(slot);
}

template <class Key>
typename HashFront<Key>::Record HashFront<Key>::HashFind(std::string_view key) {
    ensure();
    const std::int32_t slot = m_table->findSlot(trim(key));
    if (slot == 0) {
        Record miss;
        Key::markMiss(miss);
        return miss;
    }
    Record hit = m_table->slot(slot);
    Key::markHit(hit, slot);
    return hit;
}

template <class Key>
void HashFront<Key>::HashPutSlot(std::int32_t slot, Record record) {
    if (!m_table) {
        throw Error(ErrorCode::SubscriptOutOfRange);
    }
    m_table->putSlot(slot, std::move(record));
}

template <class Key>
void HashFront<Key>::HashDelete(std::string_view key) {
    ensure();
    m_table->Delete(m_table->hashOf(trim(key)));
}

template class HashTable<ScheduleKey>;
template class HashTable<AirportKey>;
template class HashFront<ScheduleKey>;
template class HashFront<AirportKey>;

} // namespace vantor
