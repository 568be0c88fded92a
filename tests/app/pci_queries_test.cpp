// What the PCI queries tell.
#include "board/control.h"
#include "tests/app/traced_utility.h"
#include "tests/kit/dialog.h"

namespace {

struct Query {
    UINT command;
    const char* name;
    const char* answer;
    const char* afterFailure;
};

constexpr Query kQueries[] = {
    {IDM_PCI_BIOS_PRESENT, "TALVERO_DBG_PCI_OP_BIOS_PRST",
     ": H/W mechanism 1, I/F version 0x210, Last PCI bus 0x1\n",
     ": H/W mechanism 0, I/F version 0x00, Last PCI bus 0x0\n"},
    {IDM_PCI_FIND_DEVICE, "TALVERO_DBG_PCI_OP_FINDDEV", ": BusNumber 0x01, Dev&Func 0x48\n",
     ": BusNumber 0x00, Dev&Func 0x00\n"},
    {IDM_PCI_FIND_CLASS_CODE, "TALVERO_DBG_PCI_OP_FIND_CLS_CODE",
     ": BusNumber 0x01, Dev&Func 0x48\n", ": BusNumber 0x00, Dev&Func 0x00\n"},
    {IDM_PCI_READ_CONFIG_SPACE, "TALVERO_DBG_PCI_OP_RD_CNFG_SPACE",
     ": PCI_READ_CONFIG_BYTE: 0x61\n", ": PCI_READ_CONFIG_BYTE: 0x00\n"},
};

TEST(PciQueries, TraceWhatTheBusAnswersAndZerosWhereItFails) {
    TracedUtility utility;
    for (const Query& query : kQueries) {
        utility->Command(query.command);
        EXPECT_EQ(utility.NextTrace(), std::string(query.name) + query.answer);
        board::FailOnce(query.name, VXD_ERR_BIOS);
        utility->Command(query.command);
        kit::MeetBox("VxD Test - Warning",
                     "vdapi_Debug: " + std::string(query.name) + ": \nVXD_ERR_BIOS");
        EXPECT_EQ(utility.NextTrace(), std::string(query.name) + query.afterFailure);
    }
}

TEST(PciQueries, TraceConfigurationSpaceInTheWidthInWhichItWasRead) {
    TracedUtility utility;
    for (const auto& [access, answer] : {std::pair{9, "PCI_READ_CONFIG_WORD: 0x1061\n"},
                                         std::pair{10, "PCI_READ_CONFIG_DWORD: 0x00011061\n"},
                                         std::pair{11, "Invalid command\n"}}) {
        board::SetPciAccess(static_cast<uint8_t>(access));
        utility->Command(IDM_PCI_READ_CONFIG_SPACE);
        if (access == 11) {
            kit::MeetBox("VxD Test - Warning",
                         "vdapi_Debug: TALVERO_DBG_PCI_OP_RD_CNFG_SPACE: \nVXD_INVALID_PARAMETER");
        }
        EXPECT_EQ(utility.NextTrace(), std::string("TALVERO_DBG_PCI_OP_RD_CNFG_SPACE: ") + answer);
    }
}

}  // namespace
