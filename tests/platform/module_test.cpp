// Loading libraries, and the memory and clock that come with them.
#include <cstring>

#include "platform/win32.h"
#include "tests/kit/test.h"

namespace {

TEST(ModuleTest, ALibraryIsFoundByItsNameWithAndWithoutExtension) {
    const HMODULE library = LoadLibraryA("PAPI.DLL");
    ASSERT_NE(library, nullptr);
    EXPECT_NE(GetProcAddress(library, "vdapi_Initialize"), nullptr);
    EXPECT_EQ(GetProcAddress(library, "GetOutputMode"), nullptr);
    EXPECT_EQ(LoadLibraryA("PAPI"), library);
    EXPECT_EQ(GetModuleHandleA("PAPI.dll"), library);
    EXPECT_TRUE(FreeLibrary(library));
    EXPECT_NE(GetProcAddress(library, "vdapi_Initialize"), nullptr);
    EXPECT_TRUE(FreeLibrary(library));
}

TEST(ModuleTest, AMissingLibraryIsNone) {
    const UINT mode = SetErrorMode(SEM_NOOPENFILEERRORBOX);
    EXPECT_EQ(LoadLibraryA("VXDMISSING.DLL"), nullptr);
    EXPECT_EQ(GetModuleHandleA("VXDMISSING.DLL"), nullptr);
    EXPECT_EQ(SetErrorMode(mode), UINT{SEM_NOOPENFILEERRORBOX});
}

TEST(MemoryTest, ABlockLiesExactlyWhereItWasWantedOrNowhere) {
    constexpr std::size_t kSize = 0x20000;
    constexpr DWORD kType = MEM_RESERVE | MEM_COMMIT;
    unsigned char* block = nullptr;
    std::uintptr_t address = 0x20000000;
    for (; block == nullptr && address < 0x60000000; address += 0x10000) {
        block = static_cast<unsigned char*>(
            VirtualAlloc(reinterpret_cast<void*>(address), kSize, kType, PAGE_READWRITE));
    }
    ASSERT_EQ(reinterpret_cast<std::uintptr_t>(block), address - 0x10000);
    EXPECT_EQ(block[kSize - 1], 0);
    std::memset(block, 0xA5, kSize);

    EXPECT_EQ(VirtualAlloc(block + 0x10000, 0x1000, kType, PAGE_READWRITE), nullptr);
    EXPECT_EQ(block[0x10000], 0xA5);
    EXPECT_FALSE(VirtualFree(block, kSize, MEM_RELEASE));
    EXPECT_TRUE(VirtualFree(block, 0, MEM_RELEASE));
    EXPECT_EQ(VirtualAlloc(block, kSize, kType, PAGE_READWRITE), block);
    EXPECT_TRUE(VirtualFree(block, 0, MEM_RELEASE));
}

}  // namespace
