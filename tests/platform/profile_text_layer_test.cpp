// Where the layer's profile text keeps more than Win32 promises.
#include "platform/core/profile_text.h"
#include "tests/kit/test.h"

namespace vxd {
namespace {

TEST(ProfileTextTest, AChangeTouchesNothingButTheValue) {
    struct Case {
        const char* before;
        const char* value;
        const char* after;
    };
    const auto cases = std::to_array<Case>({
        {"[s]\nk=  \nx=1", "new", "[s]\nk=  new\nx=1"},
        {"[s]\nk=\"old\"\n", "old", "[s]\nk=old\n"},
        // Headers that never end and those that comments show are none.
        {"[s\nk=1\n;[s]\n", "new", "[s\nk=1\n;[s]\n[s]\r\nk=new\r\n"},
        // A UTF-8 mark doesn't hide the first line.
        {"\xEF\xBB\xBF[s]\nk=old\n", "new", "\xEF\xBB\xBF[s]\nk=new\n"},
        // No value adds lines of its own.
        {"[s]\nk=old\n", "new\r\n[t]\r\n", "[s]\nk=new\n"},
    });
    for (const Case& c : cases)
        EXPECT_EQ(SetProfileValue(c.before, "s", "k", c.value), c.after) << c.before;
}

TEST(ProfileTextTest, NothingChangesWhereTheTextSaysSoAlready) {
    const std::string_view text = "[s]\n K = v\nk=2\n";
    EXPECT_EQ(SetProfileValue(text, "S", " k ", "v"), std::nullopt);
    EXPECT_EQ(DeleteProfileKey(text, "s", "missing"), std::nullopt);
    EXPECT_EQ(DeleteProfileKey(text, "missing", "k"), std::nullopt);
    EXPECT_EQ(DeleteProfileSection(text, "missing"), std::nullopt);
}

TEST(ProfileTextTest, TheFirstOfEqualsIsDeletedWithAllThatItHolds) {
    EXPECT_EQ(DeleteProfileKey("[s]\n;c\nk=1\r\nk=2\n", "s", "k"), "[s]\n;c\nk=2\n");
    EXPECT_EQ(DeleteProfileSection("top\n[s]\n;c\n\na=1\n[t]\n[s]\nb=2", "s"),
              "top\n[t]\n[s]\nb=2");
    EXPECT_EQ(DeleteProfileSection("[t]\na=1\n[s]\nb=2", "s"), "[t]\na=1\n");
}

}  // namespace
}  // namespace vxd
