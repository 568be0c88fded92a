// Compiled resources: finding them in the attached .res files, and reading menus, dialog templates,
// icons and bitmaps.
//
// Nothing in the data is trusted: every length and offset is checked against the end of the bytes
// given. Where they are damaged a reader gives nothing, and never part of a resource. Texts become
// UTF-8.
//
// Threads: the readers keep no state. FindResource may be called from any thread once the program
// has started.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "platform/core/resource_name.h"
#include "platform/screen.h"

namespace vxd {

inline constexpr std::uint16_t kResourceBitmap = 2;
inline constexpr std::uint16_t kResourceIcon = 3;
inline constexpr std::uint16_t kResourceMenu = 4;
inline constexpr std::uint16_t kResourceDialog = 5;
inline constexpr std::uint16_t kResourceGroupIcon = 14;

// The name that a Win32 function was given: a text, or a number made with MAKEINTRESOURCE. Null is
// the number 0, which names no resource.
ResourceName NameOf(const char* name);

// The bytes of a resource; empty where there is none. Of several with this type and name the one
// attached first counts. In a damaged file what comes before the damage is found.
Bytes FindResource(const ResourceName& type, const ResourceName& name);

struct MenuTemplateItem {
    std::string text;
    std::uint16_t id = 0;     // of a command
    std::uint16_t flags = 0;  // MF_GRAYED, MF_DISABLED, MF_CHECKED
    bool separator = false;
    bool popup = false;
    std::vector<MenuTemplateItem> children;  // of a popup
};

struct MenuTemplate {
    std::vector<MenuTemplateItem> items;
};

// Reads a menu. Popups nested deeper than kMaxMenuDepth levels are refused.
inline constexpr int kMaxMenuDepth = 16;
std::optional<MenuTemplate> ParseMenu(Bytes data);

struct DialogFont {
    std::uint16_t pointSize = 0;
    std::uint16_t weight = 0;  // 0: the usual one
    bool italic = false;
    std::string face;
};

struct DialogControl {
    std::uint32_t style = 0;
    std::uint32_t exStyle = 0;
    int x = 0;  // place and size in dialog units
    int y = 0;
    int width = 0;
    int height = 0;
    std::int32_t id = 0;  // a classic template has 16 bits: its -1 is 65535
    std::string className;
    std::string title;
    std::uint16_t titleNumber = 0;  // the icon that a static shows; 0 where the title is a text
};

struct DialogTemplate {
    std::uint32_t style = 0;
    std::uint32_t exStyle = 0;
    int x = 0;  // place and size in dialog units
    int y = 0;
    int width = 0;
    int height = 0;
    std::string title;
    std::optional<DialogFont> font;
    std::vector<DialogControl> controls;
};

// Reads a dialog template, classic or extended. The six system classes come under the names
// "Button", "Edit", "Static", "ListBox", "ScrollBar" and "ComboBox", however the template spells
// or numbers them. A menu or a window class of the dialog's own, help numbers and the controls'
// creation data are passed over.
std::optional<DialogTemplate> ParseDialog(Bytes data);

// The number of the kResourceIcon resource that shows an icon best at `size` pixels a side: the
// nearest in size, the larger of two equally near. Only images of 32 bits a pixel are looked at.
std::optional<std::uint16_t> ChooseIconImage(Bytes group, int size);
// Reads one image of an icon: an uncompressed bitmap of 32 bits a pixel, at most 256 a side.
std::optional<Pixels> ParseIconImage(Bytes data);
// Both in one: what a kResourceGroupIcon resource shows at about `size` pixels a side.
std::optional<Pixels> FindIcon(const ResourceName& name, int size);

// Reads an uncompressed bitmap of 1, 4, 8, 24 or 32 bits a pixel. All its pixels are opaque.
std::optional<Pixels> ParseBitmap(Bytes data);

}  // namespace vxd
