#include "commands/chip_commands.h"

#include <algorithm>
#include <string>

#include "commands/chip_command_tables.h"
#include "services/application.h"
#include "services/diagnostics.h"

namespace {

void Send(HWND window, const char* name, uint32_t number, chip::FixedBlock block) {
    void* const sent = block.size != 0 ? block.slots.data() : nullptr;
    ReportFailure(window, CodeOf(vdapi_Debug(number, block.size, sent)),
                  (std::string("vdapi_Debug: ") + name).c_str());
}

void Run(HWND window, const chip::DebugCommand& command) {
    Send(window, command.name, command.number, {});
}

void Run(HWND window, const chip::FixedCommand& command) {
    Send(window, command.name, command.number, command.block);
}

void Run(HWND window, const chip::ChoiceCommand& command) {
    if (command.choose(AppInstance, window) == 1)
        Send(window, command.name, command.number, {sizeof(Slot), {command.chosen()}});
}

void Run(HWND window, const chip::Operation& operation) {
    ReportFailure(window, CodeOf(operation.call()), operation.name);
}

void Run(HWND window, const chip::OperationWithArgument& operation) {
    ReportFailure(window, CodeOf(operation.call(operation.argument)), operation.name);
}

void Run(HWND window, const chip::UnsupportedCommand& command) {
    ShowMessage(window, MessageKind::kWarning, command.text, "Not supported");
}

// Whether the command stands in the table.
template <typename Table>
bool RunFrom(const Table& table, HWND window, uint32_t command) {
    const auto found = std::ranges::find(table, command, &Table::value_type::id);
    if (found == table.end())
        return false;
    Run(window, *found);
    return true;
}

}  // namespace

void RunChipCommand(HWND window, uint32_t command) {
    RunFrom(chip::kDebugCommands, window, command) ||
        RunFrom(chip::kFixedCommands, window, command) ||
        RunFrom(chip::kChoiceCommands, window, command) ||
        RunFrom(chip::kOperations, window, command) ||
        RunFrom(chip::kOperationsWithArgument, window, command) ||
        RunFrom(chip::kUnsupportedCommands, window, command);
}
