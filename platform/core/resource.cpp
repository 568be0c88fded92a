#include "platform/core/resource.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "platform/core/resource_reader.h"
#include "platform/core/resource_registry.h"
#include "platform/core/text.h"

namespace vxd {
namespace {

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
    if (const auto* number = std::get_if<std::uint16_t>(&title); number != nullptr) {
        control.titleNumber = *number;
    } else {
        control.title = std::get<std::string>(title);
    }
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

}  // namespace vxd
