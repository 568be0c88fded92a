#include "dbwin/form.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <string_view>

#include "dbwin/severity.h"
#include "dbwin/utf8.h"

namespace dbwin {
namespace {

constexpr char kReplacement[] = "\xEF\xBF\xBD";  // U+FFFD
constexpr char kPlain[] = "\x1B[0m";
constexpr char kDim[] = "\x1B[2m";
constexpr char kLostColour[] = "\x1B[1;35m";

// By step, from none on.
constexpr auto kColours = std::to_array<const char*>(
    {"", "\x1B[1;31m", "\x1B[33m", "", "\x1B[36m", "\x1B[34m", "\x1B[2m", "\x1B[2m"});

template <typename... Values>
void Append(std::string& output, const char* format, Values... values) {
    std::array<char, 160> text{};
    const int length = std::snprintf(text.data(), text.size(), format, values...);
    output.append(text.data(), static_cast<std::size_t>(std::max(length, 0)));
}

// Of a line's time: the seconds on the clock here, looked up once a second.
struct Clock {
    std::time_t seconds = -1;
    std::tm parts{};

    void Show(std::time_t now) {
        if (now == seconds) {
            return;
        }
        seconds = now;
#ifdef _WIN32
        localtime_s(&parts, &now);
#else
        localtime_r(&now, &parts);
#endif
    }
};

void AppendTime(std::string& output, const char* day, std::chrono::system_clock::time_point time) {
    static thread_local Clock clock;
    const auto since = std::chrono::floor<std::chrono::milliseconds>(time.time_since_epoch());
    clock.Show(static_cast<std::time_t>(since.count() / 1000));
    const std::tm& at = clock.parts;
    if (*day != '\0') {
        Append(output, day, at.tm_year + 1900, at.tm_mon + 1, at.tm_mday);
    }
    Append(output, "%02d:%02d:%02d.%03d", at.tm_hour, at.tm_min, at.tm_sec,
           static_cast<int>(since.count() % 1000));
}

void AppendCell(std::string& output, std::string_view text, std::size_t width) {
    output += text;
    output.append(width - std::min(width, text.size()), ' ');
    output += "  ";
}

bool IsControl(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value < 0x20 || value == 0x7F;
}

// The characters from U+0080 to U+009F act on a terminal too.
bool IsLateControl(std::string_view character) {
    return character.size() == 2 && character[0] == '\xC2' &&
           static_cast<unsigned char>(character[1]) < 0xA0;
}

void AppendHarmless(std::string& output, std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        if (length == 0 || IsLateControl(character) ||
            (IsControl(character[0]) && character[0] != '\t')) {
            for (const char byte : character) {
                Append(output, "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
            }
        } else {
            output += character;
        }
        text.remove_prefix(character.size());
    }
}

std::string_view WithoutLineEnd(std::string_view text) {
    if (text.ends_with('\n')) {
        text.remove_suffix(1);
    }
    if (text.ends_with('\r')) {
        text.remove_suffix(1);
    }
    return text;
}

void AppendTextLine(std::string& output, bool colours, const DebugLine& line,
                    const std::optional<TracePrefix>& prefix) {
    const Step step = prefix ? StepOf(prefix->severity) : 0;
    std::string_view rest = WithoutLineEnd(prefix ? prefix->text : std::string_view(line.text));
    bool isLast = false;
    while (!isLast) {
        const std::size_t end = rest.find('\n');
        isLast = end == std::string_view::npos;
        output += colours ? kDim : "";
        AppendTime(output, "", line.received);
        if (prefix) {
            Append(output, " %3u", prefix->milliseconds);
        } else {
            output += "    ";
        }
        Append(output, " %7u  ", line.processId);
        output += colours ? kPlain : "";
        output += colours ? kColours[step] : "";
        AppendCell(output, step == 0 ? std::string_view() : NameOf(step), 6);
        output += colours ? kPlain : "";
        std::string source;
        AppendHarmless(source, prefix ? prefix->source : std::string_view());
        AppendCell(output, source, 8);
        AppendHarmless(output, WithoutLineEnd(rest.substr(0, end)));
        output += '\n';
        rest.remove_prefix(isLast ? rest.size() : end + 1);
    }
}

void AppendLostText(std::string& output, bool colours, const DebugLine& line) {
    output += colours ? kDim : "";
    AppendTime(output, "", line.received);
    Append(output, "     %7u  ", line.processId);
    output += colours ? kPlain : "";
    output += colours ? kLostColour : "";
    Append(output, "*** %u line%s lost here", line.lost, line.lost == 1 ? "" : "s");
    output += colours ? kPlain : "";
    output += '\n';
}

void AppendQuoted(std::string& output, std::string_view text) {
    output += '"';
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        if (length == 0) {
            output += kReplacement;
        } else if (character[0] == '"' || character[0] == '\\') {
            (output += '\\') += character;
        } else if (IsControl(character[0])) {
            Append(output, "\\u%04X", static_cast<unsigned>(character[0]));
        } else if (IsLateControl(character)) {
            Append(output, "\\u%04X",
                   static_cast<unsigned>(static_cast<unsigned char>(character[1])));
        } else {
            output += character;
        }
        text.remove_prefix(character.size());
    }
    output += '"';
}

void AppendJson(std::string& output, const DebugLine& line,
                const std::optional<TracePrefix>& prefix) {
    output += "{\"time\":\"";
    AppendTime(output, "%04d-%02d-%02dT", line.received);
    Append(output, "\",\"process\":%u", line.processId);
    if (line.lost != 0) {
        Append(output, ",\"lost\":%u}\n", line.lost);
        return;
    }
    if (prefix) {
        Append(output, ",\"severity\":%u,\"level\":\"%s\",\"source\":", prefix->severity,
               std::string(NameOf(StepOf(prefix->severity))).c_str());
        AppendQuoted(output, prefix->source);
        Append(output, ",\"milliseconds\":%u,\"prefixProcess\":\"%02X\"", prefix->milliseconds,
               prefix->process);
    }
    output += ",\"text\":";
    const std::string_view text =
        WithoutLineEnd(prefix ? prefix->text : std::string_view(line.text));
    AppendQuoted(output, text);
    if (!IsUtf8(text)) {
        output += ",\"bytes\":\"";
        for (const char byte : text) {
            Append(output, "%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        }
        output += '"';
    }
    output += "}\n";
}

}  // namespace

void AppendLine(std::string& output, Form form, const DebugLine& line,
                const std::optional<TracePrefix>& prefix) {
    if (form == Form::kJson) {
        AppendJson(output, line, prefix);
    } else if (line.lost != 0) {
        AppendLostText(output, form == Form::kColouredText, line);
    } else {
        AppendTextLine(output, form == Form::kColouredText, line, prefix);
    }
}

}  // namespace dbwin
