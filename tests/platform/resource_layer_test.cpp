// The readers of compiled resources, on bytes made by hand and on the program's own resources.
#include "platform/core/resource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <list>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/core/resource_registry.h"
#include "platform/core/utf16.h"
#include "platform/win32.h"
#include "res/resource.h"

namespace vxd {
namespace {

// Bytes in the order in which resource compilers write them.
class Data {
  public:
    Data& Byte(unsigned value) { return Append(value, 1); }
    Data& Word(unsigned value) { return Append(value, 2); }
    Data& Dword(std::uint32_t value) { return Append(value, 4); }
    Data& Number(unsigned value) { return Word(0xFFFF).Word(value); }
    Data& Place(int x, int y, int width, int height) {
        for (const int value : {x, y, width, height})
            Word(static_cast<std::uint16_t>(value));
        return *this;
    }
    Data& Text(std::u16string_view text) {
        for (const char16_t unit : text)
            Word(unit);
        return Word(0);
    }
    Data& Add(const Data& data) {
        bytes_.insert(bytes_.end(), data.bytes_.begin(), data.bytes_.end());
        return *this;
    }
    Data& Align() {
        while (bytes_.size() % 4 != 0)
            Byte(0);
        return *this;
    }
    // An entry of a .res file; type and name are numbers or texts.
    Data& Entry(const Data& type, const Data& name, const Data& data) {
        Data header;
        header.Add(type).Add(name).Align().Dword(0).Dword(0).Dword(0).Dword(0);
        Dword(static_cast<std::uint32_t>(data.bytes_.size()));
        Dword(static_cast<std::uint32_t>(8 + header.bytes_.size()));
        return Add(header).Add(data).Align();
    }

    const std::vector<std::byte>& Get() const { return bytes_; }

  private:
    Data& Append(std::uint32_t value, int size) {
        for (int i = 0; i < size; ++i)
            bytes_.push_back(static_cast<std::byte>(value >> (8 * i)));
        return *this;
    }

    std::vector<std::byte> bytes_;
};

Data Number(unsigned value) {
    return Data().Number(value);
}

std::vector<std::byte> ExtendedDialog(unsigned editClass = 0x81) {
    Data data;
    data.Word(1).Word(0xFFFF).Dword(0).Dword(0x200).Dword(WS_POPUP | DS_SETFONT).Word(2);
    data.Place(-5, 6, 186, 221).Word(0).Word(0).Text(u"Title");
    data.Word(8).Word(700).Byte(1).Byte(1).Text(u"MS Shell Dlg");
    data.Align().Dword(0).Dword(0).Dword(WS_CHILD | ES_READONLY).Place(7, 8, 50, 14);
    data.Dword(0xFFFFFFFF).Number(editClass).Text(u"&Name").Word(3).Byte(1).Byte(2).Byte(3);
    data.Align().Dword(0).Dword(0).Dword(WS_CHILD | SS_ICON).Place(60, 8, 20, 20);
    data.Dword(1016).Text(u"STATIC").Number(101).Word(0);
    return data.Get();
}

std::vector<std::byte> ClassicDialog() {
    Data data;
    data.Dword(WS_POPUP).Dword(0x200).Word(2).Place(0, 0, 100, 50);
    data.Number(3).Text(u"OwnClass").Text(u"Old");
    data.Align().Dword(WS_CHILD | BS_DEFPUSHBUTTON).Dword(4).Place(1, 2, 3, 4).Word(0xFFFF);
    data.Number(0x80).Text(u"OK").Word(0);
    data.Align().Dword(WS_CHILD).Dword(0).Place(5, 6, 7, 8).Word(12);
    data.Text(u"VxDChart").Text(u"").Word(0);
    return data.Get();
}

std::vector<std::byte> SmallMenu() {
    Data data;
    data.Word(0).Word(2).Word(0);  // two more bytes of header
    data.Word(0x10).Text(u"&File");
    data.Word(MF_GRAYED).Word(40001).Text(u"&Open");
    data.Word(0).Word(0).Text(u"");
    data.Word(0x80 | MF_CHECKED).Word(65535).Text(u"&486");
    data.Word(0x80).Word(40002).Text(u"&Help");
    return data.Get();
}

std::vector<std::byte> NestedMenu(int levels) {
    Data data;
    data.Word(0).Word(0);
    for (int i = 1; i < levels; ++i)
        data.Word(0x10 | 0x80).Text(u"");
    return data.Word(0x80).Word(1).Text(u"bottom").Get();
}

std::vector<std::byte> IconImage() {
    Data data;
    data.Dword(40).Dword(2).Dword(4).Word(1).Word(32).Dword(0);
    data.Dword(0).Dword(0).Dword(0).Dword(0).Dword(0);
    data.Dword(0xFF000003).Dword(0x80000004).Dword(0xFF0A0B0C).Dword(0x00000002);
    return data.Get();
}

// The head of a bitmap, up to its palette or its pixels.
Data BitmapHead(int width, int height, unsigned bits, unsigned paletteSize) {
    Data data;
    data.Dword(40).Dword(static_cast<std::uint32_t>(width));
    data.Dword(static_cast<std::uint32_t>(height)).Word(1).Word(bits).Dword(0);
    return data.Dword(0).Dword(0).Dword(0).Dword(paletteSize).Dword(0);
}

// Two rows of two pixels, the lower one first.
std::vector<std::byte> TrueColourBitmap() {
    Data data = BitmapHead(2, 2, 24, 0);
    data.Dword(0x04030201).Dword(0x0605).Dword(0x0A090807).Dword(0x0C0B);
    return data.Get();
}

// Three pixels in one row, by a palette of three colours.
std::vector<std::byte> PaletteBitmap(unsigned lastPixel) {
    Data data = BitmapHead(3, -1, 4, 3);
    data.Dword(0x00111213).Dword(0x00212223).Dword(0x00313233);
    return data.Byte(0x21).Byte(lastPixel << 4).Byte(0).Byte(0).Get();
}

std::vector<std::byte> IconGroup(const std::vector<std::array<unsigned, 3>>& images) {
    Data data;
    data.Word(0).Word(1).Word(static_cast<unsigned>(images.size()));
    for (const auto& [side, bits, id] : images)
        data.Byte(side).Byte(side).Byte(0).Byte(0).Word(1).Word(bits).Dword(0).Word(id);
    return data.Get();
}

std::string Describe(const DialogTemplate& dialog) {
    std::ostringstream out;
    const auto describe = [&out](const auto& each) {
        out << each.x << ',' << each.y << ' ' << each.width << 'x' << each.height << std::hex << ' '
            << each.style << ' ' << each.exStyle << std::dec << " '" << each.title << "'";
    };
    describe(dialog);
    if (const auto& font = dialog.font)
        out << ' ' << font->pointSize << ' ' << font->weight << ' ' << font->italic << ' '
            << font->face;
    for (const DialogControl& control : dialog.controls) {
        out << '\n' << control.className << ' ' << control.id << ' ';
        describe(control);
        out << ' ' << control.titleNumber;
    }
    return out.str();
}

TEST(DialogTemplates, AreReadWholeInBothFormats) {
    const auto extended = ParseDialog(ExtendedDialog());
    ASSERT_TRUE(extended);
    EXPECT_EQ(Describe(*extended),
              "-5,6 186x221 80000040 200 'Title' 8 700 1 MS Shell Dlg\n"
              "Edit -1 7,8 50x14 40000800 0 '&Name' 0\n"
              "Static 1016 60,8 20x20 40000003 0 '' 101");
    const auto classic = ParseDialog(ClassicDialog());
    ASSERT_TRUE(classic);
    EXPECT_EQ(Describe(*classic),
              "0,0 100x50 80000000 200 'Old'\n"
              "Button 65535 1,2 3x4 40000001 4 'OK' 0\n"
              "VxDChart 12 5,6 7x8 40000000 0 '' 0");
    for (const unsigned number : {0x7Fu, 0x86u})
        EXPECT_FALSE(ParseDialog(ExtendedDialog(number))) << "no class has the number " << number;
}

void ForEachItem(const std::vector<MenuTemplateItem>& items,
                 const std::function<void(const MenuTemplateItem&)>& visit) {
    for (const MenuTemplateItem& item : items) {
        visit(item);
        ForEachItem(item.children, visit);
    }
}

TEST(MenuTemplates, PopupsSeparatorsAndStatesAreRead) {
    const auto menu = ParseMenu(SmallMenu());
    ASSERT_TRUE(menu);
    std::ostringstream read;
    ForEachItem(menu->items, [&read](const MenuTemplateItem& item) {
        read << item.id << '/' << item.flags << (item.separator ? "-" : item.text);
        if (item.popup)
            read << '(' << item.children.size() << ')';
        read << ' ';
    });
    EXPECT_EQ(read.str(), "0/0&File(3) 40001/1&Open 0/0- 65535/8&486 40002/0&Help ");
}

TEST(MenuTemplates, NestingHasALimit) {
    EXPECT_TRUE(ParseMenu(NestedMenu(kMaxMenuDepth)));
    EXPECT_FALSE(ParseMenu(NestedMenu(kMaxMenuDepth + 1)));
    EXPECT_FALSE(ParseMenu(NestedMenu(1'000'000)));
}

TEST(ResourceTexts, BecomeUtf8AndHalvesOfPairsStandAlone) {
    const std::vector<std::pair<std::u16string, std::string>> texts = {
        {u"A\u00E9\u20AC", "A\xC3\xA9\xE2\x82\xAC"},
        {{0xD83D, 0xDE00}, "\xF0\x9F\x98\x80"},
        {{0xDBFF, 0xDFFF}, "\xF4\x8F\xBF\xBF"},
        {{0xD83D, u'x'}, "\xED\xA0\xBDx"},
        {{0xDE00, 0xD83D}, "\xED\xB8\x80\xED\xA0\xBD"},
        {{0xD83D, 0xD83D, 0xDE00}, "\xED\xA0\xBD\xF0\x9F\x98\x80"},
    };
    for (const auto& [utf16, utf8] : texts)
        EXPECT_EQ(Utf8FromUtf16(utf16), utf8);
}

TEST(Icons, TheImageNearestInSizeIsChosen) {
    const auto group = IconGroup({{{16, 32, 1}}, {{32, 32, 2}}, {{48, 32, 3}}, {{24, 8, 4}}});
    const std::map<int, int> chosen = {{1, 1},  {16, 1}, {20, 1}, {24, 2},
                                       {32, 2}, {40, 3}, {48, 3}, {200, 3}};
    for (const auto& [size, id] : chosen)
        EXPECT_EQ(ChooseIconImage(group, size), id) << size;
    EXPECT_EQ(ChooseIconImage(IconGroup({{{48, 32, 3}}, {{0, 32, 5}}}), 256), 5)
        << "a stored width of 0 is 256";
    EXPECT_FALSE(ChooseIconImage(IconGroup({{{32, 8, 1}}}), 32)) << "no image with 32 bits";
}

TEST(Icons, ImagesAreTurnedUpright) {
    const auto image = ParseIconImage(IconImage());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width, 2);
    EXPECT_EQ(image->height, 2);
    const std::vector<std::uint32_t> topRowFirst = {0xFF0A0B0C, 0x00000002, 0xFF000003, 0x80000004};
    EXPECT_EQ(image->data, topRowFirst);
}

TEST(Bitmaps, BecomeOpaquePixelsTheUpperRowFirst) {
    const auto trueColour = ParseBitmap(TrueColourBitmap());
    ASSERT_TRUE(trueColour);
    EXPECT_EQ(trueColour->width, 2);
    EXPECT_EQ(trueColour->data,
              (std::vector<std::uint32_t>{0xFF090807, 0xFF0C0B0A, 0xFF030201, 0xFF060504}));
    const auto palette = ParseBitmap(PaletteBitmap(0));
    ASSERT_TRUE(palette);
    EXPECT_EQ(palette->height, 1);
    EXPECT_EQ(palette->data, (std::vector<std::uint32_t>{0xFF313233, 0xFF212223, 0xFF111213}));
    const auto beyond = ParseBitmap(PaletteBitmap(3));
    ASSERT_TRUE(beyond);
    EXPECT_EQ(beyond->data.back(), 0xFF000000u) << "a number beyond the palette is black";
    EXPECT_FALSE(ParseBitmap(BitmapHead(0x7FFFFFFF, 0x7FFFFFFF, 32, 0).Get()));
    EXPECT_FALSE(ParseBitmap(BitmapHead(1, 1, 16, 0).Dword(0).Get())) << "no format of ours";
}

std::vector<std::byte> Cut(const std::vector<std::byte>& data, std::size_t size) {
    return {data.begin(), data.begin() + static_cast<std::ptrdiff_t>(size)};
}

// The bytes with one of them changed: each of them, in each of its bits and in all.
void ForEachDamage(const std::vector<std::byte>& data,
                   const std::function<void(const std::vector<std::byte>&)>& visit) {
    constexpr std::array kFlips = {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80, 0xFF};
    for (std::size_t i = 0; i < data.size(); ++i) {
        for (const int flip : kFlips) {
            std::vector<std::byte> damaged = data;
            damaged[i] ^= static_cast<std::byte>(flip);
            visit(damaged);
        }
    }
}

using CountParts = std::function<std::optional<std::size_t>(Bytes)>;

template <typename Parse, typename Member>
CountParts PartsOf(Parse parse, Member parts) {
    return [=](Bytes data) {
        const auto read = parse(data);
        return read ? std::optional(std::invoke(parts, *read).size()) : std::nullopt;
    };
}

TEST(DamagedResources, AreRefusedWhereTheyAreCutShortAndHarmlessWhereAByteIsWrong) {
    constexpr std::size_t kLeastBytesOfAPart = 4;
    const auto readGroup = [](Bytes data) {
        return ChooseIconImage(data, 16) ? std::optional<std::size_t>(1) : std::nullopt;
    };
    const std::vector<std::pair<std::vector<std::byte>, CountParts>> resources = {
        {ExtendedDialog(), PartsOf(ParseDialog, &DialogTemplate::controls)},
        {ClassicDialog(), PartsOf(ParseDialog, &DialogTemplate::controls)},
        {SmallMenu(), PartsOf(ParseMenu, &MenuTemplate::items)},
        {IconImage(), PartsOf(ParseIconImage, &Pixels::data)},
        {TrueColourBitmap(), PartsOf(ParseBitmap, &Pixels::data)},
        {PaletteBitmap(2), PartsOf(ParseBitmap, &Pixels::data)},
        {IconGroup({{{16, 32, 1}}, {{32, 32, 2}}}), readGroup}};
    for (const auto& [whole, read] : resources) {
        ASSERT_TRUE(read(whole));
        for (std::size_t size = 0; size < whole.size(); ++size)
            EXPECT_FALSE(read(Cut(whole, size))) << size << " of " << whole.size();
        ForEachDamage(whole, [&read = read](const std::vector<std::byte>& damaged) {
            EXPECT_LE(read(damaged).value_or(0) * kLeastBytesOfAPart, damaged.size());
        });
    }
}

// Attached bytes stay for the whole run.
void Attach(std::vector<std::byte> data) {
    static std::list<std::vector<std::byte>> kept;
    kept.push_back(std::move(data));
    AttachResources(kept.back().data(), kept.back().size());
}

// The first byte of a resource; 0 for one that there isn't.
unsigned Found(const ResourceName& type, const ResourceName& name) {
    const Bytes data = FindResource(type, name);
    return data.empty() ? 0 : std::to_integer<unsigned>(data.front());
}

constexpr std::uint16_t kOwnType = 300;
constexpr std::uint16_t kCutType = 301;

TEST(ResourceFiles, EntriesAreFoundByNumberAndByNameInAnyCase) {
    Attach(Data()
               .Entry(Number(0), Number(0), {})
               .Entry(Number(kOwnType), Number(1), Data().Dword(11))
               .Entry(Number(kOwnType), Number(2), Data().Byte(7))
               .Entry(Data().Text(u"CHART"), Data().Text(u"MAIN"), Data().Dword(22))
               .Entry(Number(kOwnType), Number(1), Data().Dword(33))
               .Get());
    EXPECT_EQ(Found(kOwnType, std::uint16_t{1}), 11u);
    EXPECT_EQ(FindResource(kOwnType, std::uint16_t{2}).size(), 1u);
    EXPECT_EQ(Found("Chart", NameOf("main")), 22u);
    EXPECT_EQ(Found("Chart", std::uint16_t{1}), 0u);
    EXPECT_EQ(Found(kOwnType, "1"), 0u);
    EXPECT_EQ(Found(kOwnType, std::uint16_t{3}), 0u);
    EXPECT_EQ(NameOf(MAKEINTRESOURCEA(4044)), ResourceName(std::uint16_t{4044}));
    EXPECT_EQ(NameOf(nullptr), ResourceName(std::uint16_t{0}));
}

TEST(ResourceFiles, WhatStandsBeforeTheDamageIsFound) {
    const std::vector<std::byte> file =
        Data()
            .Entry(Number(0), Number(0), {})
            .Entry(Data().Text(u"CUT"), Data().Text(u"A"), Data().Byte(1))
            .Entry(Number(kCutType), Number(2), Data().Dword(2))
            .Get();
    for (std::size_t size = 0; size < file.size(); ++size) {
        Attach(Cut(file, size));
        EXPECT_EQ(Found(kCutType, std::uint16_t{2}), 0u) << size;
        EXPECT_LE(Found("CUT", "A"), 1u) << size;
    }
    EXPECT_EQ(Found("CUT", "A"), 1u);
    ForEachDamage(file, Attach);
    EXPECT_EQ(Found("NOWHERE", "TO BE FOUND"), 0u);
}

// The program's own resources.

TEST(OwnMenus, OfferEachCommandOnceAndLeaveNoEntryEmpty) {
    struct Bar {
        std::uint16_t id;
        std::size_t entries;
        std::set<int> twice;
        int checked;
        int grayed;
    };
    // The resets of the board's JADE chip stand under two headings of the older board's menu.
    for (const Bar& bar : {Bar{IDR_MENU_OLDER, 24, {IDM_JADE_RESET}, 4, 26},
                           Bar{IDR_MENU_NEWER, 14, {}, 0, 0}, Bar{IDR_MENU_CONTEXT, 1, {}, 0, 0}}) {
        const auto menu = ParseMenu(FindResource(kResourceMenu, bar.id));
        ASSERT_TRUE(menu) << bar.id;
        EXPECT_EQ(menu->items.size(), bar.entries) << bar.id;
        std::set<int> seen;
        std::set<int> twice;
        int checked = 0;
        int grayed = 0;
        ForEachItem(menu->items, [&](const MenuTemplateItem& item) {
            EXPECT_NE(item.separator, !item.text.empty());
            EXPECT_EQ(item.popup, !item.children.empty()) << item.text;
            EXPECT_EQ(item.popup || item.separator, item.id == 0) << item.text;
            if (item.id != 0 && !seen.insert(item.id).second)
                twice.insert(item.id);
            checked += (item.flags & MF_CHECKED) != 0;
            grayed += (item.flags & MF_GRAYED) != 0;
        });
        EXPECT_EQ(twice, bar.twice);
        EXPECT_EQ(checked, bar.checked) << bar.id;
        EXPECT_EQ(grayed, bar.grayed) << bar.id;
        // What switches the bars is on neither of them; what every bar needs is on both.
        const bool isBar = bar.id != IDR_MENU_CONTEXT;
        for (const int command : {IDM_MENU_OLDER, IDM_MENU_NEWER})
            EXPECT_NE(seen.contains(command), isBar) << command;
        for (const int command : {IDM_FILE_EXIT, IDM_HELP_ABOUT, IDM_HELP_ALWAYS_ON_TOP})
            EXPECT_EQ(seen.contains(command), isBar) << command;
    }
}

bool Overlap(const Rect& a, const Rect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

TEST(OwnDialogs, KeepTheirControlsInsideAndApart) {
    constexpr int kMargin = 7;
    constexpr int kGroupLine = 4;        // below the top, in the middle of the caption
    constexpr int kComboBoxHeight = 14;  // a template gives the height with the list dropped down
    constexpr std::uint16_t kBehindAllNumbers = 5000;
    int dialogs = 0;
    for (std::uint16_t id = 1; id < kBehindAllNumbers; ++id) {
        const Bytes data = FindResource(kResourceDialog, id);
        if (data.empty())
            continue;
        const auto dialog = ParseDialog(data);
        ASSERT_TRUE(dialog) << id;
        ++dialogs;
        std::set<int> ids;
        std::vector<Rect> taken;
        for (const DialogControl& control : dialog->controls) {
            SCOPED_TRACE(dialog->title + ": " + std::to_string(control.id) + " " + control.title);
            EXPECT_TRUE(control.id == -1 || ids.insert(control.id).second);
            const int height = control.className == "ComboBox" ? kComboBoxHeight : control.height;
            const Rect rect = {control.x, control.y, control.width, height};
            const bool isGroup =
                control.className == "Button" && (control.style & BS_TYPEMASK) == BS_GROUPBOX;
            EXPECT_GE(rect.x, kMargin);
            EXPECT_GE(rect.y + (isGroup ? kGroupLine : 0), kMargin);
            EXPECT_LE(rect.x + rect.width, dialog->width - kMargin);
            EXPECT_LE(rect.y + rect.height, dialog->height - kMargin);
            if (isGroup)
                continue;
            for (const Rect& other : taken)
                EXPECT_FALSE(Overlap(rect, other));
            taken.push_back(rect);
        }
    }
    EXPECT_GE(dialogs, 28) << "the numbers end too early";
}

TEST(OwnDialogs, ResponsesToARawCommandAreForReadingAlone) {
    const auto dialog = ParseDialog(FindResource(kResourceDialog, std::uint16_t{IDD_RAW_COMMAND}));
    ASSERT_TRUE(dialog);
    for (const DialogControl& control : dialog->controls) {
        const bool isReadOnly = control.className == "Edit" && (control.style & ES_READONLY) != 0;
        const bool isResponse =
            control.id >= IDC_RAW_RESPONSE_1 && control.id <= IDC_RAW_RESPONSE_3;
        EXPECT_EQ(isReadOnly, isResponse) << control.id;
    }
}

TEST(OwnIcon, HasThreeSizesThatCanBeRead) {
    for (const int size : {16, 32, 48}) {
        const auto icon = FindIcon(std::uint16_t{IDI_APP}, size);
        ASSERT_TRUE(icon) << size;
        EXPECT_EQ(icon->width, size);
        EXPECT_EQ(icon->height, size);
        const auto middle = static_cast<std::size_t>(size * size / 2 + size / 2);
        EXPECT_EQ(icon->data[0] >> 24, 0u) << "its corners are clear";
        EXPECT_EQ(icon->data[middle] >> 24, 0xFFu) << "its middle is not";
    }
}

}  // namespace
}  // namespace vxd
