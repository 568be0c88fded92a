// What the debug viewer makes of its command line and of lines.
#include "dbwin/filter.h"
#include "dbwin/form.h"
#include "dbwin/options.h"
#include "dbwin/severity.h"
#include "dbwin/trace_line.h"
#include "tests/kit/test.h"

namespace {

using dbwin::Form;

dbwin::Options Read(const std::vector<const char*>& arguments, std::string* error = nullptr) {
    std::string ignored;
    return dbwin::ReadOptions(arguments, error != nullptr ? *error : ignored);
}

// What a line looks like behind the time of day at which it came.
std::string Shown(Form form, const std::string& text) {
    const DebugLine line{4711, text, 0, {}};
    std::string output;
    dbwin::AppendLine(output, form, line, dbwin::ReadPrefix(line.text));
    const std::size_t time = output.find(".000");
    return time == std::string::npos ? output : output.substr(time + 4);
}

TEST(DbwinPrefix, IsTakenApartAndNothingElseIsTakenForOne) {
    const auto prefix = dbwin::ReadPrefix("  7* A: [50]JADE:\t a: b\n");
    ASSERT_TRUE(prefix);
    EXPECT_EQ(std::tuple(prefix->milliseconds, prefix->process, prefix->severity, prefix->source,
                         prefix->text),
              std::tuple(7u, 0x0Au, 50u, std::string_view("JADE"), std::string_view("a: b\n")));
    EXPECT_EQ(dbwin::ReadPrefix("999*FF: [1]KORATST:\t ")->text, "");
    for (const char* other :
         {"", "7*A: [5]X:\t t", "1000*FF: [1]X:\t t", "999*100: [1]X:\t t", "  7* G: [1]X:\t t",
          "  7* A: [-1]X:\t t", "  7* A: [1]X: t", "   7* A: [1]X:\t t", "*** THE FOLLOWING ***\n",
          "  7* A: [99999999999]X:\t t"}) {
        EXPECT_FALSE(dbwin::ReadPrefix(other)) << other;
    }
}

TEST(DbwinForm, ShowsALineOnOneRowThatActsOnNoTerminal) {
    EXPECT_EQ(Shown(Form::kText, "412*3F: [20]KORATST:\t 100 % \xC3\xA9 \"x\"\n"),
              " 412    4711  warn    KORATST   100 % \xC3\xA9 \"x\"\n");
    EXPECT_EQ(Shown(Form::kText, "plain\x1B[2J \xE9\xC2\x9B\t.\r\n"),
              "        4711                    plain\\x1B[2J \\xE9\\xC2\\x9B\t.\n");
    EXPECT_NE(Shown(Form::kText, "one\ntwo\n").find("4711                    two\n"),
              std::string::npos);
    const std::string lengthy(600, 'x');
    EXPECT_NE(Shown(Form::kText, lengthy).find(lengthy + "\n"), std::string::npos);
    const std::string coloured = Shown(Form::kColouredText, "412*3F: [1]X:\t bad\n");
    EXPECT_TRUE(coloured.ends_with("\x1B[1;31merror   \x1B[0mX         bad\n")) << coloured;
}

TEST(DbwinForm, WritesJsonThatIsUtf8AndLosesNoByte) {
    EXPECT_EQ(Shown(Form::kJson, "412*3F: [20]KO\"R:\t a\\b\x01\xC2\x9B\n"),
              "\",\"process\":4711,\"severity\":20,\"level\":\"warn\",\"source\":\"KO\\\"R\","
              "\"milliseconds\":412,\"prefixProcess\":\"3F\",\"text\":\"a\\\\b\\u0001\\u009B\"}\n");
    // An overlong slash, half of a pair of surrogates, a character cut off.
    EXPECT_EQ(Shown(Form::kJson, "\xC0\xAF \xED\xA0\x80 \xE2\x82"),
              "\",\"process\":4711,\"text\":\"\xEF\xBF\xBD\xEF\xBF\xBD "
              "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD \xEF\xBF\xBD\xEF\xBF\xBD\","
              "\"bytes\":\"C0AF20EDA08020E282\"}\n");
    std::string lost;
    dbwin::AppendLine(lost, Form::kJson, {5, {}, 17, {}}, std::nullopt);
    EXPECT_TRUE(lost.ends_with("\",\"process\":5,\"lost\":17}\n")) << lost;
}

TEST(DbwinFilter, TakesWhatEachKindTakesInAndNoneLeavesOut) {
    struct Case {
        std::vector<const char*> arguments;
        std::string taken;  // of the lines below
    };
    const std::vector<DebugLine> lines = {{1, "412*3F: [1]KORATST:\t first\n", 0, {}},
                                          {1, "412*3F: [20]JADE:\t Second\n", 0, {}},
                                          {2, "412*3F: [70]JADE:\t third\n", 0, {}},
                                          {3, "no prefix\n", 0, {}}};
    for (const Case& each :
         {Case{{}, "1234"}, Case{{"-s", "error,TRACE1-7"}, "13"}, Case{{"--severity=none"}, "4"},
          Case{{"-S", "1-2"}, "34"}, Case{{"-p", "1,3"}, "124"}, Case{{"-P", "1"}, "34"},
          Case{{"-m", "JADE.*second"}, ""},
          Case{{"-i", "-m", "jade.*second", "-m", "prefix$"}, "24"},
          Case{{"-M", "ird$", "-M", "^no"}, "12"},
          Case{{"-p", "1", "-S", "error", "-m", "JADE"}, "2"}}) {
        std::string error;
        const dbwin::Options options = Read(each.arguments, &error);
        const dbwin::Filter filter(options.selection, options.ignoresCase, error);
        EXPECT_EQ(error, "");
        std::string taken;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (filter.Takes(lines[i], dbwin::ReadPrefix(lines[i].text))) {
                taken += std::to_string(i + 1);
            }
        }
        EXPECT_EQ(taken, each.taken) << (each.arguments.empty() ? "" : each.arguments.back());
    }
    std::string error;
    const dbwin::Filter broken(Read({"-m", "(", "-m", "x"}).selection, false, error);
    EXPECT_TRUE(error.starts_with("\"(\" is no regular expression")) << error;
}

TEST(DbwinOptions, NameTheMistake) {
    const auto mistakeIn = [](const std::vector<const char*>& arguments) {
        std::string error;
        Read(arguments, &error);
        return error;
    };
    EXPECT_EQ(mistakeIn({"--sverity", "1"}), "unknown option --sverity");
    EXPECT_EQ(mistakeIn({"vxdtest"}), "\"vxdtest\": a command stands behind \"--\"");
    EXPECT_EQ(mistakeIn({"-o"}), "-o lacks its value");
    EXPECT_EQ(mistakeIn({"--json=1"}), "--json takes no value");
    EXPECT_EQ(mistakeIn({"-s", "3-1"}), "\"3-1\" is no value of -s");
    EXPECT_EQ(mistakeIn({"-p", "1,x"}), "\"1,x\" is no value of -p");
    EXPECT_EQ(mistakeIn({"--colour=sometimes"}), "\"sometimes\" is no value of --colour");
    EXPECT_EQ(mistakeIn({"-j", "--"}), "no command behind \"--\"");
    const dbwin::Options fine = Read({"-q", "-o", "f", "--", "a", "--json", "--"});
    EXPECT_EQ(fine.command, (std::vector<std::string>{"a", "--json", "--"}));
    EXPECT_EQ(fine.file, "f");
}

}  // namespace
