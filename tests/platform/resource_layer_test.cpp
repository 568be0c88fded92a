// The program's own resources: what no test that opens one menu or dialog would see.
#include "platform/core/resource.h"

#include "platform/core/resource_registry.h"
#include "platform/win32.h"
#include "res/resource.h"
#include "tests/kit/test.h"

namespace vxd {
namespace {

void ForEachItem(const std::vector<MenuTemplateItem>& items,
                 const std::function<void(const MenuTemplateItem&)>& visit) {
    for (const MenuTemplateItem& item : items) {
        visit(item);
        ForEachItem(item.children, visit);
    }
}

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
        const auto at = [&](int x, int y) {
            return icon->data[static_cast<std::size_t>(y * size + x)];
        };
        EXPECT_EQ(at(0, 0) >> 24, 0u) << "its corners are clear";
        EXPECT_EQ(at(size / 2, size / 2) >> 24, 0xFFu) << "its middle is not";
        EXPECT_GT(at(size / 4, size / 4), at(size / 4, size * 3 / 4)) << "its light is from above";
    }
}

}  // namespace
}  // namespace vxd
