#include "tests/app/received_calls.h"

#include <cstdio>

namespace {

std::string Hex(uint32_t value, int digits) {
    char text[9];
    std::snprintf(text, sizeof text, "%0*X", digits, value);
    return text;
}

std::string Written(const board::Argument& argument) {
    switch (argument.kind) {
        case board::Argument::Kind::kText:
            return '"' + argument.text + '"';
        case board::Argument::Kind::kAddress:
            return argument.value != 0 ? "address" : "null";
        default:
            return Hex(argument.value, 1);
    }
}

bool IsLike(const std::string& expected, const std::string& received) {
    std::istringstream expectedWords(expected);
    std::istringstream receivedWords(received);
    std::string expectedWord;
    std::string receivedWord;
    while (expectedWords >> expectedWord) {
        if (!(receivedWords >> receivedWord))
            return false;
        if (expectedWord == "*" ? receivedWord == "00000000" : receivedWord != expectedWord)
            return false;
    }
    return !(receivedWords >> receivedWord);
}

}  // namespace

std::string Written(const board::Call& call) {
    std::string text = call.operation + '(';
    for (const board::Argument& argument : call.arguments)
        text += (&argument == &call.arguments.front() ? "" : ", ") + Written(argument);
    text += ')';
    for (std::size_t byte = 0; byte < call.block.size(); ++byte)
        text += (byte % 4 == 0 ? " " : "") + Hex(call.block[byte], 2);
    return text;
}

std::string WordText(uint32_t value) {
    std::string text;
    for (int shift = 0; shift < 32; shift += 8)
        text += Hex(value >> shift & 0xFF, 2);
    return text;
}

std::vector<std::string> ReceivedCalls() {
    std::vector<std::string> calls;
    for (const board::Call& call : board::Calls())
        calls.push_back(Written(call));
    return calls;
}

void ExpectCalls(const std::vector<std::string>& expected,
                 const std::vector<std::string>& received) {
    bool alike = expected.size() == received.size();
    for (std::size_t call = 0; alike && call < expected.size(); ++call)
        alike = IsLike(expected[call], received[call]);
    EXPECT_TRUE(alike) << "expected " << testing::PrintToString(expected) << "\nreceived "
                       << testing::PrintToString(received);
}
