#pragma once
// ByteCursor: a bounded reader over bytes that a file handed us. Every read
// checks what remains first and fails without moving when the bytes are not
// there, so a length field that lies can never take a reader past the end.
//
// The cursor does not own the bytes; they must outlive it. Positions and
// sizes are in bytes from the start of the span.

#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/byte_order.h"

namespace zelvor {

class ByteCursor {
public:
    explicit ByteCursor(std::span<const std::byte> bytes) : m_bytes(bytes) {}

    std::size_t Size() const { return m_bytes.size(); }
    std::size_t Position() const { return m_pos; }
    std::size_t Remaining() const { return m_bytes.size() - m_pos; }
    bool AtEnd() const { return m_pos >= m_bytes.size(); }

    // Moves to an absolute position; false (and no move) beyond the end.
    bool Seek(std::size_t pos) {
        if (pos > m_bytes.size())
            return false;
        m_pos = pos;
        return true;
    }
    // Moves forward n bytes; false (and no move) when fewer remain.
    bool Skip(std::size_t n) {
        if (n > Remaining())
            return false;
        m_pos += n;
        return true;
    }
    // The next n bytes, consumed; false (and no move) when fewer remain.
    bool Take(std::size_t n, std::span<const std::byte>& out) {
        if (n > Remaining())
            return false;
        out = m_bytes.subspan(m_pos, n);
        m_pos += n;
        return true;
    }
    // Everything from the current position on, not consumed.
    std::span<const std::byte> Rest() const { return m_bytes.subspan(m_pos); }

    bool ReadU8(std::uint8_t& out) { return ReadLe(out, 1); }
    bool ReadU16Le(std::uint16_t& out) { return ReadLe(out, 2); }
    bool ReadU32Le(std::uint32_t& out) { return ReadLe(out, 4); }
    bool ReadU64Le(std::uint64_t& out) { return ReadLe(out, 8); }

private:
    template <typename T> bool ReadLe(T& out, std::size_t width) {
        if (width > Remaining())
            return false;
        T value = 0;
        for (std::size_t i = 0; i < width; ++i)
            value |= static_cast<T>(static_cast<T>(m_bytes[m_pos + i]) << (8 * i));
        out = value;
        m_pos += width;
        return true;
    }

    std::span<const std::byte> m_bytes;
    std::size_t m_pos = 0;
};

} // namespace zelvor
