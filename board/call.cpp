#include "board/call.h"

#include <cstdio>

namespace board {
namespace {

std::string Hexadecimal(const char* format, unsigned value) {
    char text[16];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string Describe(const Argument& argument) {
    switch (argument.kind) {
        case Argument::Kind::kText:
            return '"' + argument.text + '"';
        case Argument::Kind::kAddress:
            return argument.value ? "address" : "none";
        case Argument::Kind::kValue:
            break;
    }
    return Hexadecimal("0x%X", argument.value);
}

}  // namespace

std::vector<uint8_t> BytesAt(const void* address, size_t size) {
    const auto* bytes = static_cast<const uint8_t*>(address);
    return bytes ? std::vector<uint8_t>(bytes, bytes + size) : std::vector<uint8_t>();
}

std::string Describe(const Call& call) {
    std::string line = call.operation + '(';
    const char* separator = "";
    for (const Argument& argument : call.arguments) {
        line += separator + Describe(argument);
        separator = ", ";
    }
    line += ')';
    if (!call.command.empty()) {
        line += ' ' + call.command;
    }
    if (!call.block.empty()) {
        separator = " [";
        for (const uint8_t value : call.block) {
            line += separator + Hexadecimal("%02X", value);
            separator = " ";
        }
        line += ']';
    }
    return line + " = " + std::to_string(call.result);
}

}  // namespace board
