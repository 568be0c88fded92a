// The readers of compiled resources, on bytes made by hand and on the program's own resources.
#include "platform/core/resource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/resource_registry.h"
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
    Data& Align() {
        while (bytes_.size() % 4 != 0)
            Byte(0);
        return *this;
    }
    // An entry of a .res file; the name is a number.
    Data& Entry(unsigned type, unsigned name, const std::vector<std::byte>& data) {
        Dword(static_cast<std::uint32_t>(data.size())).Dword(0x20).Number(type).Number(name);
        Dword(0).Word(0).Word(0).Dword(0).Dword(0);
        bytes_.insert(bytes_.end(), data.begin(), data.end());
        return Align();
    }
    Data& NamedEntry(std::u16string_view type, std::u16string_view name, std::uint32_t value) {
        const std::size_t start = bytes_.size();
        Dword(4).Dword(0).Text(type).Text(name).Align();
        Dword(0).Word(0).Word(0).Dword(0).Dword(0);
        bytes_[start + 4] = static_cast<std::byte>(bytes_.size() - start);
        return Dword(value);
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

std::vector<std::byte> ExtendedDialog() {
    Data data;
    data.Word(1).Word(0xFFFF).Dword(0).Dword(0x200).Dword(WS_POPUP | DS_SETFONT).Word(2);
    data.Place(-5, 6, 186, 221).Word(0).Word(0).Text(u"Title");
    data.Word(8).Word(700).Byte(1).Byte(1).Text(u"MS Shell Dlg");
    data.Align().Dword(0).Dword(0).Dword(WS_CHILD | ES_READONLY).Place(7, 8, 50, 14);
    data.Dword(0xFFFFFFFF).Number(0x81).Text(u"&Name").Word(3).Byte(1).Byte(2).Byte(3);
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
    data.Word(0x80).Word(1).Text(u"bottom");
    return data.Get();
}

std::vector<std::byte> IconImage() {
    Data data;
    data.Dword(40).Dword(2).Dword(4).Word(1).Word(32).Dword(0);
    data.Dword(0).Dword(0).Dword(0).Dword(0).Dword(0);
    data.Dword(0xFF000003).Dword(0x80000004).Dword(0xFF0A0B0C).Dword(0x00000002);
    return data.Get();
}

std::vector<std::byte> IconGroup(const std::vector<std::array<unsigned, 3>>& images) {
    Data data;
    data.Word(0).Word(1).Word(static_cast<unsigned>(images.size()));
    for (const auto& [side, bits, id] : images)
        data.Byte(side).Byte(side).Byte(0).Byte(0).Word(1).Word(bits).Dword(0).Word(id);
    return data.Get();
}

std::vector<std::byte> Cut(const std::vector<std::byte>& data, std::size_t size) {
    return {data.begin(), data.begin() + static_cast<std::ptrdiff_t>(size)};
}

// The bytes with one of them changed, for each of them and several changes.
void ForEachDamage(const std::vector<std::byte>& data,
                   const std::function<void(const std::vector<std::byte>&)>& visit) {
    for (std::size_t i = 0; i < data.size(); ++i) {
        for (const unsigned flip : {0x01u, 0x10u, 0x80u, 0xFFu}) {
            std::vector<std::byte> damaged = data;
            damaged[i] ^= static_cast<std::byte>(flip);
            visit(damaged);
        }
    }
}

// Attached bytes stay for the whole run.
Bytes Attach(std::vector<std::byte> data) {
    static std::list<std::vector<std::byte>> kept;
    kept.push_back(std::move(data));
    AttachResources(kept.back().data(), kept.back().size());
    return kept.back();
}

std::uint32_t FirstDword(Bytes data) {
    std::uint32_t value = 0;
    if (data.size() == sizeof value)
        std::memcpy(&value, data.data(), sizeof value);
    return value;
}

TEST(DialogTemplates, ExtendedOnesAreReadWhole) {
    const auto dialog = ParseDialog(ExtendedDialog());
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->style, WS_POPUP | DS_SETFONT);
    EXPECT_EQ(dialog->exStyle, 0x200u);
    EXPECT_EQ(dialog->x, -5);
    EXPECT_EQ(dialog->height, 221);
    EXPECT_EQ(dialog->title, "Title");
    ASSERT_TRUE(dialog->font);
    EXPECT_EQ(dialog->font->pointSize, 8);
    EXPECT_EQ(dialog->font->weight, 700);
    EXPECT_TRUE(dialog->font->italic);
    EXPECT_EQ(dialog->font->face, "MS Shell Dlg");

    ASSERT_EQ(dialog->controls.size(), 2u);
    const DialogControl& edit = dialog->controls[0];
    EXPECT_EQ(edit.className, "Edit");
    EXPECT_EQ(edit.title, "&Name");
    EXPECT_EQ(edit.id, -1);
    EXPECT_EQ(edit.style, static_cast<std::uint32_t>(WS_CHILD | ES_READONLY));
    EXPECT_EQ(edit.width, 50);
    const DialogControl& icon = dialog->controls[1];
    EXPECT_EQ(icon.className, "Static") << "a system class is known however it is spelled";
    EXPECT_EQ(icon.titleNumber, 101);
    EXPECT_EQ(icon.id, 1016) << "a control follows creation data of odd length";
}

TEST(DialogTemplates, ClassicOnesAreReadWhole) {
    const auto dialog = ParseDialog(ClassicDialog());
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->style, WS_POPUP);
    EXPECT_EQ(dialog->exStyle, 0x200u);
    EXPECT_EQ(dialog->title, "Old") << "a menu and a class before the title are passed over";
    EXPECT_FALSE(dialog->font);
    ASSERT_EQ(dialog->controls.size(), 2u);
    EXPECT_EQ(dialog->controls[0].className, "Button");
    EXPECT_EQ(dialog->controls[0].style, static_cast<std::uint32_t>(WS_CHILD | BS_DEFPUSHBUTTON));
    EXPECT_EQ(dialog->controls[0].exStyle, 4u);
    EXPECT_EQ(dialog->controls[0].id, 65535);
    EXPECT_EQ(dialog->controls[1].className, "VxDChart");
    EXPECT_EQ(dialog->controls[1].id, 12);
}

TEST(DialogTemplates, AnUnknownClassNumberIsRefused) {
    for (const unsigned number : {0u, 0x7Fu, 0x86u, 0xFFFFu}) {
        Data data;
        data.Dword(WS_POPUP).Dword(0).Word(1).Place(0, 0, 10, 10).Word(0).Word(0).Text(u"");
        data.Align().Dword(WS_CHILD).Dword(0).Place(0, 0, 1, 1).Word(1);
        data.Number(number).Text(u"").Word(0);
        EXPECT_FALSE(ParseDialog(data.Get())) << number;
    }
}

TEST(MenuTemplates, PopupsSeparatorsAndStatesAreRead) {
    const auto menu = ParseMenu(SmallMenu());
    ASSERT_TRUE(menu);
    ASSERT_EQ(menu->items.size(), 2u);
    const MenuTemplateItem& file = menu->items[0];
    EXPECT_TRUE(file.popup);
    EXPECT_EQ(file.text, "&File");
    ASSERT_EQ(file.children.size(), 3u);
    EXPECT_EQ(file.children[0].id, 40001);
    EXPECT_EQ(file.children[0].flags, MF_GRAYED);
    EXPECT_FALSE(file.children[0].separator);
    EXPECT_TRUE(file.children[1].separator);
    EXPECT_EQ(file.children[2].id, 65535);
    EXPECT_EQ(file.children[2].flags, MF_CHECKED);
    EXPECT_EQ(menu->items[1].text, "&Help");
    EXPECT_FALSE(menu->items[1].popup);
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
    for (const auto& [utf16, utf8] : texts) {
        Data data;
        data.Word(0).Word(0).Word(0x80).Word(1).Text(utf16);
        const auto menu = ParseMenu(data.Get());
        ASSERT_TRUE(menu);
        EXPECT_EQ(menu->items[0].text, utf8);
    }
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

TEST(DamagedResources, AnythingCutShortIsRefused) {
    const auto refusesEveryCut = [](const std::vector<std::byte>& whole, const auto& parse) {
        ASSERT_TRUE(parse(whole));
        for (std::size_t size = 0; size < whole.size(); ++size)
            EXPECT_FALSE(parse(Cut(whole, size))) << size << " of " << whole.size();
    };
    refusesEveryCut(ExtendedDialog(), ParseDialog);
    refusesEveryCut(ClassicDialog(), ParseDialog);
    refusesEveryCut(SmallMenu(), ParseMenu);
    refusesEveryCut(IconImage(), ParseIconImage);
    refusesEveryCut(IconGroup({{{16, 32, 1}}, {{32, 32, 2}}}),
                    [](Bytes data) { return ChooseIconImage(data, 16); });
}

// What a damaged resource reads as is open; it must stay within its bytes, which the sanitizers
// watch, and within reason.
TEST(DamagedResources, AWrongByteAnywhereIsHarmless) {
    for (const auto& dialog : {ExtendedDialog(), ClassicDialog()}) {
        ForEachDamage(dialog, [](const auto& damaged) {
            if (const auto read = ParseDialog(damaged)) {
                EXPECT_LE(read->controls.size(), damaged.size());
            }
        });
    }
    ForEachDamage(SmallMenu(), [](const auto& damaged) {
        if (const auto read = ParseMenu(damaged)) {
            EXPECT_LE(read->items.size(), damaged.size());
        }
    });
    ForEachDamage(IconImage(), [](const auto& damaged) {
        if (const auto read = ParseIconImage(damaged)) {
            EXPECT_LE(read->data.size() * 4, damaged.size());
        }
    });
}

TEST(ResourceFiles, EntriesAreFoundByNumberAndByNameInAnyCase) {
    Attach(Data()
               .Entry(0, 0, {})
               .Entry(300, 1, Data().Dword(11).Get())
               .Entry(300, 2, Data().Byte(7).Get())
               .NamedEntry(u"CHART", u"MAIN", 22)
               .Entry(300, 1, Data().Dword(33).Get())
               .Get());
    EXPECT_EQ(FirstDword(FindResource(std::uint16_t{300}, std::uint16_t{1})), 11u);
    EXPECT_EQ(FindResource(std::uint16_t{300}, std::uint16_t{2}).size(), 1u);
    EXPECT_EQ(FirstDword(FindResource("Chart", NameOf("main"))), 22u);
    EXPECT_TRUE(FindResource("Chart", std::uint16_t{1}).empty());
    EXPECT_TRUE(FindResource(std::uint16_t{300}, "1").empty());
    EXPECT_TRUE(FindResource(std::uint16_t{300}, std::uint16_t{3}).empty());
    EXPECT_EQ(NameOf(MAKEINTRESOURCEA(4044)), ResourceName(std::uint16_t{4044}));
    EXPECT_EQ(NameOf(nullptr), ResourceName(std::uint16_t{0}));
}

TEST(ResourceFiles, WhatStandsBeforeTheDamageIsFound) {
    const std::vector<std::byte> file = Data()
                                            .Entry(0, 0, {})
                                            .NamedEntry(u"CUT", u"A", 1)
                                            .Entry(301, 2, Data().Dword(2).Get())
                                            .Get();
    const ResourceName type = std::uint16_t{301};
    for (std::size_t size = 0; size < file.size(); ++size) {
        const Bytes attached = Attach(Cut(file, size));
        EXPECT_TRUE(FindResource(type, std::uint16_t{2}).empty()) << size;
        const Bytes before = FindResource("CUT", "A");
        EXPECT_TRUE(before.empty() || FirstDword(before) == 1) << size << attached.size();
    }
    EXPECT_EQ(FirstDword(FindResource("CUT", "A")), 1u);
    ForEachDamage(file, [](const auto& damaged) { Attach(damaged); });
    EXPECT_TRUE(FindResource("NOWHERE", "TO BE FOUND").empty());
}

// The program's own resources.

MenuTemplate OwnMenu(std::uint16_t id) {
    auto menu = ParseMenu(FindResource(kResourceMenu, id));
    EXPECT_TRUE(menu) << id;
    return menu.value_or(MenuTemplate());
}

DialogTemplate OwnDialog(std::uint16_t id) {
    auto dialog = ParseDialog(FindResource(kResourceDialog, id));
    EXPECT_TRUE(dialog) << id;
    return dialog.value_or(DialogTemplate());
}

void ForEachItem(const std::vector<MenuTemplateItem>& items,
                 const std::function<void(const MenuTemplateItem&)>& visit) {
    for (const MenuTemplateItem& item : items) {
        visit(item);
        ForEachItem(item.children, visit);
    }
}

const DialogControl* ControlOf(const DialogTemplate& dialog, int id) {
    const auto found =
        std::find_if(dialog.controls.begin(), dialog.controls.end(),
                     [id](const DialogControl& control) { return control.id == id; });
    return found != dialog.controls.end() ? &*found : nullptr;
}

TEST(OwnMenus, HaveTheirWholeBarAndNoEmptyEntries) {
    const MenuTemplate older = OwnMenu(IDR_MENU_OLDER);
    const MenuTemplate newer = OwnMenu(IDR_MENU_NEWER);
    EXPECT_EQ(older.items.size(), 24u);
    EXPECT_EQ(newer.items.size(), 14u);
    for (const MenuTemplate* menu : {&older, &newer}) {
        ForEachItem(menu->items, [](const MenuTemplateItem& item) {
            EXPECT_NE(item.separator, !item.text.empty());
            EXPECT_EQ(item.popup, !item.children.empty()) << item.text;
            EXPECT_EQ(item.popup || item.separator, item.id == 0) << item.text;
        });
    }
}

TEST(OwnMenus, OfferEachCommandOnceAndOnlyKnownStates) {
    // The resets of the board's JADE chip stand under two headings of the older board's menu.
    const std::map<std::uint16_t, std::set<int>> repeated = {{IDR_MENU_OLDER, {IDM_JADE_RESET}},
                                                             {IDR_MENU_NEWER, {}}};
    for (const auto& [id, expected] : repeated) {
        std::set<int> seen;
        std::set<int> twice;
        int checked = 0;
        int grayed = 0;
        ForEachItem(OwnMenu(id).items, [&](const MenuTemplateItem& item) {
            if (item.id != 0 && !seen.insert(item.id).second)
                twice.insert(item.id);
            checked += (item.flags & MF_CHECKED) != 0;
            grayed += (item.flags & MF_GRAYED) != 0;
        });
        EXPECT_EQ(twice, expected);
        EXPECT_EQ(checked, id == IDR_MENU_OLDER ? 4 : 0);
        EXPECT_EQ(grayed, id == IDR_MENU_OLDER ? 26 : 0);
        for (const int command : {IDM_FILE_EXIT, IDM_HELP_ABOUT, IDM_HELP_ALWAYS_ON_TOP})
            EXPECT_TRUE(seen.contains(command)) << command;
    }
}

TEST(OwnMenus, TheContextMenuOffersBothBoardsUnderCommandsOfItsOwn) {
    const MenuTemplate context = OwnMenu(IDR_MENU_CONTEXT);
    ASSERT_EQ(context.items.size(), 1u);
    std::set<int> offered;
    for (const MenuTemplateItem& item : context.items[0].children)
        offered.insert(item.id);
    EXPECT_EQ(offered, (std::set<int>{IDM_MENU_OLDER, IDM_MENU_NEWER}));
    for (const std::uint16_t id : {IDR_MENU_OLDER, IDR_MENU_NEWER}) {
        ForEachItem(OwnMenu(id).items, [&offered](const MenuTemplateItem& item) {
            EXPECT_FALSE(offered.contains(item.id)) << item.text;
        });
    }
}

TEST(OwnDialogs, KeepTheirControlsInsideAndApart) {
    constexpr int kMargin = 7;
    constexpr int kComboBoxHeight = 14;  // a template gives the height with the list dropped down
    for (const std::uint16_t id : {IDD_ABOUT, IDD_RAW_COMMAND}) {
        const DialogTemplate dialog = OwnDialog(id);
        std::set<int> ids;
        std::vector<Rect> taken;
        for (const DialogControl& control : dialog.controls) {
            EXPECT_TRUE(control.id == -1 || ids.insert(control.id).second) << control.id;
            const bool isComboBox = control.className == "ComboBox";
            const Rect rect = {control.x, control.y, control.width,
                               isComboBox ? kComboBoxHeight : control.height};
            EXPECT_GE(rect.x, kMargin) << control.title;
            EXPECT_GE(rect.y, kMargin) << control.title;
            EXPECT_LE(rect.x + rect.width, dialog.width - kMargin) << control.title;
            EXPECT_LE(rect.y + rect.height, dialog.height - kMargin) << control.title;
            const bool isGroupBox =
                control.className == "Button" && (control.style & BS_TYPEMASK) == BS_GROUPBOX;
            if (isGroupBox)
                continue;
            for (const Rect& other : taken) {
                EXPECT_TRUE(rect.x >= other.x + other.width || other.x >= rect.x + rect.width ||
                            rect.y >= other.y + other.height || other.y >= rect.y + rect.height)
                    << "dialog " << id << ", control " << control.id << " " << control.title;
            }
            taken.push_back(rect);
        }
    }
}

TEST(OwnDialogs, SendRawCommandStartsAsItsProcedureExpects) {
    const DialogTemplate dialog = OwnDialog(IDD_RAW_COMMAND);
    for (const int id : {IDC_RAW_COMMAND_LIST, IDC_RAW_AUDIO_PARAM_LIST}) {
        const DialogControl* list = ControlOf(dialog, id);
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->style & CBS_DROPDOWNLIST, static_cast<std::uint32_t>(CBS_DROPDOWNLIST));
        EXPECT_EQ(list->style & CBS_SORT, 0u) << "rows keep the order they are added in";
        EXPECT_EQ((list->style & WS_DISABLED) != 0, id == IDC_RAW_AUDIO_PARAM_LIST);
    }
    for (const int id : {IDC_RAW_COMMAND, IDC_RAW_PARAM_1, IDC_RAW_PARAM_2, IDC_RAW_PARAM_3,
                         IDC_RAW_RESPONSE_1, IDC_RAW_RESPONSE_2, IDC_RAW_RESPONSE_3}) {
        const DialogControl* edit = ControlOf(dialog, id);
        ASSERT_NE(edit, nullptr) << id;
        EXPECT_EQ(edit->className, "Edit");
        EXPECT_EQ((edit->style & ES_READONLY) != 0, id >= IDC_RAW_RESPONSE_1) << id;
    }
    const DialogControl* send = ControlOf(dialog, IDC_RAW_SEND);
    ASSERT_NE(send, nullptr);
    EXPECT_EQ(send->style & BS_TYPEMASK, static_cast<std::uint32_t>(BS_DEFPUSHBUTTON));
    ASSERT_NE(ControlOf(dialog, IDOK), nullptr);
    EXPECT_EQ(ControlOf(dialog, IDOK)->title, "&Close");
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
