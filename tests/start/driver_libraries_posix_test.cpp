// The program's start with driver libraries that are missing or lack something. It runs on the
// screen without a display, which ends the program with the text of a box that nobody answers.
#include <sys/wait.h>

#include <cstdio>
#include <fstream>

#include "tests/platform/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

// What the program says as it ends, and that it does not come to show its window.
std::string Start(const fs::path& program, const std::string& libraries) {
    const TemporaryFolder settings;
    const std::string command = "XDG_CONFIG_HOME=" + settings.Path().string() +
                                " LD_LIBRARY_PATH=" + libraries + " '" + program.string() +
                                "' 0 2>&1";
    FILE* const output = popen(command.c_str(), "r");
    std::string text;
    for (int c = 0; (c = std::fgetc(output)) != EOF;)
        text += static_cast<char>(c);
    text += pclose(output) == 0 ? "\n(started)" : "\n(failed)";
    return text;
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(DriverLibraries, AreTakenAsTheLoaderFindsThem) {
    const std::string text = Start(START_PROGRAM, "");
    EXPECT_TRUE(Contains(text, "(started)")) << text;
}

TEST(DriverLibraries, ThatLackAnOperationAreNamedWithItAtTheStart) {
    const std::string text = Start(START_PROGRAM, LACKING_FOLDER);
    EXPECT_TRUE(Contains(text, "(failed)")) << text;
    EXPECT_TRUE(Contains(text, "The driver library PAPI lacks the operation vdapi_JADE_Reset"))
        << text;
    EXPECT_FALSE(Contains(text, "KORA_DLL32")) << text;
}

// The simulated one must not take a board's place unseen.
TEST(DriverLibraries, ThatAreInFrontAndCannotBeLoadedAreNamedAtTheStart) {
    const TemporaryFolder folder;
    std::ofstream(folder / "libPAPI.so") << "no library";
    const std::string text = Start(START_PROGRAM, folder.Path().string());
    EXPECT_TRUE(Contains(text, "(failed)")) << text;
    EXPECT_TRUE(Contains(text, "The driver library PAPI is missing or cannot be loaded")) << text;
}

TEST(DriverLibraries, ThatAreMissingAreNamedAtTheStart) {
    const TemporaryFolder folder;
    const fs::path program(START_PROGRAM);
    for (const auto& entry : fs::directory_iterator(program.parent_path())) {
        const std::string name = entry.path().filename().string();
        const bool isDriver = name == "libPAPI.so" || name == "libKORA_DLL32.so";
        if ((entry.path() == program || name.ends_with(".so")) && !isDriver)
            fs::copy(entry.path(), folder / name);
    }
    const std::string text = Start(folder / program.filename().string(), "");
    EXPECT_TRUE(Contains(text, "(failed)")) << text;
    EXPECT_TRUE(Contains(text, "The driver library PAPI is missing")) << text;
    EXPECT_TRUE(Contains(text, "The driver library KORA_DLL32 is missing")) << text;
}

}  // namespace
