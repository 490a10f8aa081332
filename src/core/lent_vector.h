// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The legs' memory: a load takes it in large pieces and lends it to the records.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace vantor {

/// A vector of plain items that may stand in memory lent by a LendingPool. A copy has memory of its own; what is lent
/// is read and changed in place, and left behind when more room is needed.
template <class T>
class LentVector {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

  public:
    LentVector() noexcept = default;
    /// Stands on `size` items from `items` on, which must outlive it and are nobody else's.
    LentVector(T* items, std::size_t size) noexcept : m_items(items), m_size(static_cast<std::uint32_t>(size)) {}
    LentVector(const LentVector& other) { *this = other; }
    LentVector(LentVector&& other) noexcept
        : m_items(std::exchange(other.m_items, nullptr)), m_size(std::exchange(other.m_size, 0)),
          m_room(std::exchange(other.m_room, 0)) {}
    LentVector& operator=(const LentVector& other) {
        if (this != &other) {
            m_size = 0;
            reserve(other.m_size);
            std::uninitialized_copy_n(other.m_items, other.m_size, m_items);
            m_size = other.m_size;
        }
        return *this;
    }
    LentVector& operator=(LentVector&& other) noexcept {
        std::swap(m_items, other.m_items);
        std::swap(m_size, other.m_size);
        std::swap(m_room, other.m_room);
        return *this;
    }
    ~LentVector() { release(); }

    [[nodiscard]] std::size_t size() const noexcept { return m_size; }
    [[nodiscard]] const T* data() const noexcept { return m_items; }
    [[nodiscard]] T* data() noexcept { return m_items; }
    [[nodiscard]] const T& operator[](std::size_t at) const noexcept { return m_items[at]; }
    [[nodiscard]] T& operator[](std::size_t at) noexcept { return m_items[at]; }
    [[nodiscard]] const T* begin() const noexcept { return m_items; }
    [[nodiscard]] const T* end() const noexcept { return m_items + m_size; }
    [[nodiscard]] T* begin() noexcept { return m_items; }
    [[nodiscard]] T* end() noexcept { return m_items + m_size; }

    void clear() noexcept { m_size = 0; }
    void reserve(std::size_t room) {
        if (room > m_room) {
            T* const items = std::allocator<T>().allocate(room);
            std::uninitialized_copy_n(m_items, m_size, items);
            release();
            m_items = items;
            m_room = static_cast<std::uint32_t>(room);
        }
    }
    void resize(std::size_t size) {
        if (size > m_size) {
            reserve(size);
            std::uninitialized_fill_n(m_items + m_size, size - m_size, T());
        }
        m_size = static_cast<std::uint32_t>(size);
    }
    void push_back(T item) { insert(end(), item); }
    void insert(const T* before, T item) {
        const std::ptrdiff_t at = before - m_items;
        if (m_size >= m_room) {
            reserve(std::max<std::size_t>(4, std::size_t{2} * m_size));
        }
        std::construct_at(end(), item);
        ++m_size;
        std::rotate(m_items + at, end() - 1, end());
    }
    void erase(const T* item) {
        std::copy(item + 1, std::as_const(*this).end(), m_items + (item - m_items));
        --m_size;
    }

    friend bool operator==(const LentVector& a, const LentVector& b) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

  private:
    void release() noexcept {
        if (m_room != 0) {
            std::allocator<T>().deallocate(m_items, m_room);
        }
    }

    T* m_items = nullptr;
    std::uint32_t m_size = 0;
    std::uint32_t m_room = 0; // items that our own memory has room for; 0 for lent memory and for none
};

/// Memory for the items of many LentVectors, given back as a whole.
template <class T>
class LendingPool {
  public:
    /// Blank items from the next free one on. They are lent once `take` says so; the next call gives them again.
    [[nodiscard]] T* room(std::size_t count) {
        if (m_free < count) {
            constexpr std::size_t pieceSize = std::size_t{1} << 20U; // bytes
            m_free = std::max(count, pieceSize / sizeof(T));
            m_pieces.emplace_back(std::make_unique_for_overwrite<std::byte[]>(m_free * sizeof(T)));
            m_next = reinterpret_cast<T*>(m_pieces.back().get());
        }
        std::uninitialized_fill_n(m_next, count, T());
        return m_next;
    }
    void take(std::size_t count) noexcept {
        m_next += count;
        m_free -= count;
    }
    /// Takes all memory back. No vector may stand on it any more.
    void clear() noexcept { *this = LendingPool(); }

  private:
    std::vector<std::unique_ptr<std::byte[]>> m_pieces;
    T* m_next = nullptr; // in the last piece
    std::size_t m_free = 0;
};

} // namespace vantor
