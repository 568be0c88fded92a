#include "platform/core/resource.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "platform/core/resource_registry.h"
#include "platform/core/text.h"
#include "platform/core/utf16.h"

namespace vxd {
namespace {

// Reads little-endian data from front to back. Reading past the end gives zeros and empty texts
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

// Attaching happens in constructors that run before main, in any order.
std::vector<Bytes>& AttachedFiles() {
    static std::vector<Bytes> files;
    return files;
}

bool SameName(const ResourceName& a, const ResourceName& b) {
    const auto* left = std::get_if<std::string>(&a);
    const auto* right = std::get_if<std::string>(&b);
    return left != nullptr && right != nullptr ? EqualIgnoringCase(*left, *right) : a == b;
}

struct Entry {
    ResourceName type;
    ResourceName name;
    Bytes data;
};

std::optional<Entry> NextEntry(Reader& file) {
    constexpr std::size_t kSizesLength = 8;
    const std::size_t dataSize = file.Dword();
    const std::size_t headerSize = file.Dword();
    if (file.Failed() || headerSize < kSizesLength)
        return std::nullopt;
    Reader header(file.Take(headerSize - kSizesLength));
    Entry entry;
    entry.type = header.Name();
    entry.name = header.Name();
    entry.data = file.Take(dataSize);
    if (header.Failed() || file.Failed())
        return std::nullopt;
    // The last entry need not be filled up.
    if (!file.AtEnd())
        file.Align();
    return entry;
}

Bytes FindIn(Bytes file, const ResourceName& type, const ResourceName& name) {
    Reader reader(file);
    while (const auto entry = NextEntry(reader)) {
        if (SameName(entry->type, type) && SameName(entry->name, name))
            return entry->data;
    }
    return {};
}

std::vector<MenuTemplateItem> ReadMenuLevel(Reader& reader, int depth, bool& damaged) {
    constexpr std::uint16_t kPopup = 0x0010;
    constexpr std::uint16_t kLast = 0x0080;
    constexpr std::uint16_t kSeparator = 0x0800;
    std::vector<MenuTemplateItem> items;
    if (depth > kMaxMenuDepth) {
        damaged = true;
        return items;
    }
    for (bool last = false; !last;) {
        MenuTemplateItem item;
        const std::uint16_t flags = reader.Word();
        last = (flags & kLast) != 0;
        item.popup = (flags & kPopup) != 0;
        item.flags = static_cast<std::uint16_t>(flags & ~(kPopup | kLast | kSeparator));
        if (!item.popup)
            item.id = reader.Word();
        item.text = reader.Text();
        item.separator =
            !item.popup && item.text.empty() && (item.id == 0 || (flags & kSeparator) != 0);
        if (reader.Failed()) {
            damaged = true;
            return items;
        }
        if (item.popup)
            item.children = ReadMenuLevel(reader, depth + 1, damaged);
        if (damaged)
            return items;
        items.push_back(std::move(item));
    }
    return items;
}

// The system classes, in the order of their numbers.
constexpr std::uint16_t kFirstSystemClass = 0x80;
constexpr std::array<const char*, 6> kSystemClasses = {"Button",  "Edit",      "Static",
                                                       "ListBox", "ScrollBar", "ComboBox"};

std::optional<std::string> ClassName(const ResourceName& name) {
    if (const auto* number = std::get_if<std::uint16_t>(&name); number != nullptr) {
        if (*number < kFirstSystemClass || *number >= kFirstSystemClass + kSystemClasses.size())
            return std::nullopt;
        return kSystemClasses[*number - kFirstSystemClass];
    }
    const auto& text = std::get<std::string>(name);
    const auto* found =
        std::find_if(kSystemClasses.begin(), kSystemClasses.end(),
                     [&text](const char* known) { return EqualIgnoringCase(known, text); });
    return found != kSystemClasses.end() ? *found : text;
}

// Reads what a dialog and each of its controls have in common.
template <typename Template>
void ReadPlace(Reader& reader, Template& place) {
    place.x = reader.SignedWord();
    place.y = reader.SignedWord();
    place.width = reader.SignedWord();
    place.height = reader.SignedWord();
}

std::optional<DialogControl> ReadDialogControl(Reader& reader, bool extended) {
    DialogControl control;
    reader.Align();
    if (extended) {
        reader.Dword();  // help number
        control.exStyle = reader.Dword();
        control.style = reader.Dword();
    } else {
        control.style = reader.Dword();
        control.exStyle = reader.Dword();
    }
    ReadPlace(reader, control);
    control.id = extended ? reader.SignedDword() : reader.Word();
    const auto className = ClassName(reader.Name());
    const ResourceName title = reader.Name();
    reader.Take(reader.Word());  // creation data
    if (reader.Failed() || !className)
        return std::nullopt;
    control.className = *className;
    if (const auto* number = std::get_if<std::uint16_t>(&title); number != nullptr)
        control.titleNumber = *number;
    else
        control.title = std::get<std::string>(title);
    return control;
}

DialogFont ReadDialogFont(Reader& reader, bool extended) {
    DialogFont font;
    font.pointSize = reader.Word();
    if (extended) {
        font.weight = reader.Word();
        font.italic = reader.Byte() != 0;
        reader.Byte();  // character set: texts are UTF-16 anyway
    }
    font.face = reader.Text();
    return font;
}

}  // namespace

void AttachResources(const void* data, std::size_t size) {
    AttachedFiles().emplace_back(static_cast<const std::byte*>(data), size);
}

ResourceName NameOf(const char* name) {
    const auto number = reinterpret_cast<std::uintptr_t>(name);
    if (number <= 0xFFFF)
        return static_cast<std::uint16_t>(number);
    return name;
}

Bytes FindResource(const ResourceName& type, const ResourceName& name) {
    for (const Bytes file : AttachedFiles()) {
        if (const Bytes data = FindIn(file, type, name); !data.empty())
            return data;
    }
    return {};
}

std::optional<MenuTemplate> ParseMenu(Bytes data) {
    Reader reader(data);
    const std::uint16_t version = reader.Word();
    reader.Take(reader.Word());  // the rest of the header
    bool damaged = reader.Failed() || version != 0;
    MenuTemplate menu;
    if (!damaged)
        menu.items = ReadMenuLevel(reader, 1, damaged);
    return damaged ? std::nullopt : std::optional(std::move(menu));
}

std::optional<DialogTemplate> ParseDialog(Bytes data) {
    constexpr std::uint32_t kHasFont = 0x40;         // DS_SETFONT
    constexpr std::uint32_t kExtended = 0xFFFF0001;  // version and signature
    Reader reader(data);
    DialogTemplate dialog;
    dialog.style = reader.Dword();
    const bool extended = dialog.style == kExtended;
    if (extended) {
        reader.Dword();  // help number
        dialog.exStyle = reader.Dword();
        dialog.style = reader.Dword();
    } else {
        dialog.exStyle = reader.Dword();
    }
    const std::uint16_t count = reader.Word();
    ReadPlace(reader, dialog);
    reader.Name();  // menu
    reader.Name();  // window class
    dialog.title = reader.Text();
    if ((dialog.style & kHasFont) != 0)
        dialog.font = ReadDialogFont(reader, extended);
    if (reader.Failed())
        return std::nullopt;
    for (int i = 0; i < count; ++i) {
        auto control = ReadDialogControl(reader, extended);
        if (!control)
            return std::nullopt;
        dialog.controls.push_back(*std::move(control));
    }
    return dialog;
}

std::optional<std::uint16_t> ChooseIconImage(Bytes group, int size) {
    constexpr std::uint16_t kIconGroup = 1;
    Reader reader(group);
    reader.Word();  // reserved
    if (reader.Word() != kIconGroup)
        return std::nullopt;
    std::optional<std::uint16_t> best;
    int bestWidth = 0;
    const std::uint16_t count = reader.Word();
    for (int i = 0; i < count && !reader.Failed(); ++i) {
        const std::uint8_t storedWidth = reader.Byte();
        const int width = storedWidth != 0 ? storedWidth : 256;
        reader.Take(5);  // height, number of colours, reserved, planes
        const std::uint16_t bitsPerPixel = reader.Word();
        reader.Dword();  // number of bytes
        const std::uint16_t id = reader.Word();
        const int distance = std::abs(width - size);
        const int bestDistance = std::abs(bestWidth - size);
        if (bitsPerPixel == 32 &&
            (!best || distance < bestDistance || (distance == bestDistance && width > bestWidth))) {
            best = id;
            bestWidth = width;
        }
    }
    return reader.Failed() ? std::nullopt : best;
}

std::optional<Pixels> ParseIconImage(Bytes data) {
    constexpr std::uint32_t kHeaderSize = 40;
    constexpr std::int32_t kMaxSide = 256;
    Reader reader(data);
    const std::uint32_t headerSize = reader.Dword();
    const std::int32_t width = reader.SignedDword();
    const std::int32_t doubleHeight = reader.SignedDword();  // of the pixels and of the mask
    const std::uint16_t planes = reader.Word();
    const std::uint16_t bitsPerPixel = reader.Word();
    const std::uint32_t compression = reader.Dword();
    reader.Take(20);  // image size, resolution, palette
    if (reader.Failed() || headerSize != kHeaderSize || planes != 1 || bitsPerPixel != 32 ||
        compression != 0)
        return std::nullopt;
    const std::int32_t height = doubleHeight / 2;
    if (width < 1 || width > kMaxSide || height < 1 || height > kMaxSide)
        return std::nullopt;

    Pixels pixels{width, height, {}};
    const auto rowLength = static_cast<std::size_t>(width);
    pixels.data.resize(rowLength * static_cast<std::size_t>(height));
    // The bottom row comes first. A little-endian B, G, R, A is 0xAARRGGBB.
    for (auto row = pixels.data.end(); row != pixels.data.begin();) {
        row -= width;
        std::generate_n(row, rowLength, [&reader] { return reader.Dword(); });
    }
    return reader.Failed() ? std::nullopt : std::optional(std::move(pixels));
}

std::optional<Pixels> FindIcon(const ResourceName& name, int size) {
    const auto image = ChooseIconImage(FindResource(kResourceGroupIcon, name), size);
    return image ? ParseIconImage(FindResource(kResourceIcon, *image)) : std::nullopt;
}

}  // namespace vxd
