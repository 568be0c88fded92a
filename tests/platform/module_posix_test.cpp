// Library names where the file system tells capitals from small letters.
#include "platform/win32.h"
#include "tests/platform/temporary_folder.h"

namespace {

TEST(ModulePosixTest, TheLowerCaseSpellingIsTriedLast) {
    const HMODULE layer = LoadLibraryA("VxdPlatform.Dll");
    ASSERT_NE(layer, nullptr);
    EXPECT_NE(GetProcAddress(layer, "LoadLibraryA"), nullptr);
    EXPECT_TRUE(FreeLibrary(layer));
}

TEST(ModulePosixTest, ANameWithAFolderIsLookedForThereAlone) {
    const TemporaryFolder folder;
    EXPECT_EQ(LoadLibraryA((folder / "VXDPLATFORM.DLL").c_str()), nullptr);
    WriteBytes(folder / "libdamaged.so", "no library");
    EXPECT_EQ(LoadLibraryA((folder / "damaged").c_str()), nullptr);
}

}  // namespace
