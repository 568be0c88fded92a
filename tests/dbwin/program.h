// The debug viewer as a program of its own.
#pragma once

#include "platform/win32.h"
#include "tests/kit/process.h"
#include "tests/platform/temporary_folder.h"

// On a debug output of the test's own, where the system lets it have one.
class DbwinProgram : public testing::Test {
  protected:
    DbwinProgram() { SetEnvironmentVariableA("XDG_RUNTIME_DIR", folder_.Path().string().c_str()); }

    void Begin(const std::vector<std::string>& arguments, const std::string& input = "") {
        viewer_ = std::make_unique<kit::Process>(
            kit::ProgramBeside("dbwin"), arguments,
            kit::Streams{input, folder_ / "lines", folder_ / "messages"});
    }

    void BeginAndWait(const std::vector<std::string>& arguments, const std::string& input = "") {
        Begin(arguments, input);
        ASSERT_TRUE(kit::WaitFor([] { return FindWindowA("DBWin", nullptr) != nullptr; }));
    }

    // Starts it on its own and gives its exit code.
    int Run(const std::vector<std::string>& arguments) {
        Begin(arguments);
        return viewer_->ExitCode();
    }

    int End() {
        viewer_->AskForEnd();
        return viewer_->ExitCode();
    }

    std::string Lines() const { return ReadText("lines"); }
    std::string Messages() const { return ReadText("messages"); }
    std::string Log() const { return ReadText("log"); }

    TemporaryFolder folder_;
    std::unique_ptr<kit::Process> viewer_;

  private:
    // With line ends as they are here.
    std::string ReadText(const char* name) const {
        std::string text = ReadBytes(folder_ / name);
        std::erase(text, '\r');
        return text;
    }
};
