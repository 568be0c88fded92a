// Reads the little-endian data that compiled resources are made of.
#pragma once

#include "platform/core/resource_name.h"
#include "platform/core/utf16.h"

namespace vxd {

// From front to back. Reading past the end gives zeros and empty texts
// from there on, and Failed() tells.
class Reader {
  public:
    explicit Reader(Bytes data) : data_(data) {}

    bool Failed() const { return failed_; }
    bool AtEnd() const { return position_ == data_.size(); }

    std::uint8_t Byte() { return static_cast<std::uint8_t>(Number(1)); }
    std::uint16_t Word() { return static_cast<std::uint16_t>(Number(2)); }
    std::uint32_t Dword() { return Number(4); }
    int SignedWord() { return static_cast<std::int16_t>(Word()); }
    std::int32_t SignedDword() { return static_cast<std::int32_t>(Dword()); }

    Bytes Take(std::size_t size) {
        if (failed_ || size > data_.size() - position_) {
            failed_ = true;
            return {};
        }
        const Bytes taken = data_.subspan(position_, size);
        position_ += size;
        return taken;
    }

    // Goes on at the next multiple of four bytes from the start.
    void Align() { Take((4 - position_ % 4) % 4); }

    std::string Text() {
        std::u16string text;
        for (char16_t unit = Word(); unit != 0; unit = Word())
            text.push_back(unit);
        return Utf8FromUtf16(text);
    }

    ResourceName Name() {
        constexpr std::uint16_t kNumberFollows = 0xFFFF;
        Reader ahead = *this;
        if (ahead.Word() != kNumberFollows)
            return Text();
        Word();
        return Word();
    }

  private:
    std::uint32_t Number(std::size_t size) {
        std::uint32_t number = 0;
        unsigned shift = 0;
        for (const std::byte byte : Take(size)) {
            number |= std::to_integer<std::uint32_t>(byte) << shift;
            shift += 8;
        }
        return number;
    }

    Bytes data_;
    std::size_t position_ = 0;
    bool failed_ = false;
};

}  // namespace vxd
