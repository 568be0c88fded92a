// How a driver that is a library is opened, spoken to and closed.

#include "tests/platform/plain_window.h"

namespace {

// The driver's library, which stays loaded, so that what it has written down can be asked for.
class Recorder {
  public:
    Recorder()
        : library_(LoadLibraryA("VXDRECORDER.DLL")),
          takeTold_(reinterpret_cast<const char*(WINAPI*)()>(
              reinterpret_cast<void*>(GetProcAddress(library_, "TakeTold")))) {}
    ~Recorder() { FreeLibrary(library_); }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    std::string TakeTold() const { return takeTold_(); }

  private:
    HMODULE library_;
    const char*(WINAPI* takeTold_)();
};

PROGRAM_TEST(InstallableDriver, IsToldOfEachOpeningAndEnabledForAllOfThem) {
    const Recorder recorder;
    const HDRVR first = OpenDriver(L"VXDRECORDER.DLL", nullptr, 7);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(recorder.TakeTold(), "load 0 0; enable 0 0; open 0 0; open 0 7; ");
    const HDRVR second = OpenDriver(L"VXDRECORDER", nullptr, 8);
    EXPECT_NE(second, first);
    EXPECT_EQ(recorder.TakeTold(), "open 0 8; ");
    EXPECT_NE(SendDriverMessage(first, DRV_USER, 0, 0), SendDriverMessage(second, DRV_USER, 0, 0));
    EXPECT_EQ(SendDriverMessage(second, DRV_USER + 0x1E, 5, 4), 5004);
    EXPECT_TRUE(CloseDriver(first, 3, 4));
    EXPECT_EQ(recorder.TakeTold(), "close 3 4; ");
    EXPECT_EQ(SendDriverMessage(first, DRV_USER + 1, 5, 4), 0);
    EXPECT_FALSE(CloseDriver(first, 0, 0));
    EXPECT_TRUE(CloseDriver(second, 0, 0));
    EXPECT_EQ(recorder.TakeTold(), "close 0 0; close 0 0; disable 0 0; free 0 0; ");
}

PROGRAM_TEST(InstallableDriver, ThatIsMissingOrRefusesIsNotOpened) {
    const Recorder recorder;
    EXPECT_EQ(OpenDriver(L"VXDMISSING.DLL", nullptr, 0), nullptr);
    EXPECT_EQ(OpenDriver(L"PAPI.DLL", nullptr, 0), nullptr) << "a library, but no driver";
    EXPECT_EQ(OpenDriver(L"VXDRECORDER.DLL", nullptr, 13), nullptr);
    EXPECT_EQ(SendDriverMessage(nullptr, DRV_USER, 0, 0), 0);
}

}  // namespace
