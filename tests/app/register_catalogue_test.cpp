// The register catalogues: what the ids' structure says of them as a whole.
#include <bit>

#include "regs/arcofi_catalogue.h"
#include "regs/auxdev_catalogue.h"
#include "regs/camera_catalogue.h"
#include "regs/isac_catalogue.h"
#include "regs/saec_catalogue.h"
#include "regs/vpic_catalogue.h"
#include "tests/kit/test.h"
#include "video/encoder_catalogue.h"

namespace {

template <typename Rows>
bool HasId(const Rows& rows, uint32_t id) {
    return std::any_of(rows.begin(), rows.end(), [id](const auto& row) { return row.id == id; });
}

// A catalogue has so many rows, each with a name of its own; of how many rows the name is not
// `width` characters long.
template <typename Rows>
std::ptrdiff_t ExpectRows(const Rows& rows, std::size_t count, std::size_t width) {
    EXPECT_EQ(rows.size(), count);
    std::set<std::string> names;
    for (const auto& row : rows) {
        const std::string name = row.name.Text();
        EXPECT_LE(name.size(), 39u) << name;
        EXPECT_NE(name.find_first_not_of(' '), std::string::npos);
        names.insert(name);
    }
    EXPECT_EQ(names.size(), count);
    return std::count_if(rows.begin(), rows.end(), [width](const auto& row) {
        return std::string_view(row.name.Text()).size() != width;
    });
}

TEST(RegisterCatalogue, EveryRowIsThereOnceAndPaddedToItsCataloguesWidth) {
    EXPECT_EQ(ExpectRows(arcofi::kPorts, 68, 31), 0);
    EXPECT_EQ(ExpectRows(arcofi::kCoefficients, 16, 29), 0);
    EXPECT_EQ(ExpectRows(vpic::kPorts, 105, 27), 0);
    EXPECT_EQ(ExpectRows(vpic::kBits, 55, 28), 1) << "PCI_MST_HOST_DMA_ON_FIFO_EMPTY is longer";
    EXPECT_EQ(ExpectRows(isac::kBits, 82, 22), 0);
    EXPECT_EQ(ExpectRows(saec::kRegisters, 137, 25), 0);
    EXPECT_EQ(ExpectRows(camera::kDigital, 11, 28), 0);
    EXPECT_EQ(ExpectRows(camera::kAnalog, 15, 28), 0);
    EXPECT_EQ(ExpectRows(encoder::kFields, 41, 28), 0);
    // As long as they are.
    ExpectRows(isac::kRegisters, 41, 0);
    ExpectRows(auxdev::kFields, 16, 0);
    ExpectRows(auxdev::kFeatures, 42, 0);
}

TEST(RegisterCatalogue, ArcofiFieldsLieWhereTheirPositionSaysInARegisterThatIsListed) {
    int elsewhere = 0;
    for (const RegisterRow& row : arcofi::kPorts) {
        if (row.id <= 0xFFFF)
            continue;
        EXPECT_TRUE(HasId(arcofi::kPorts, row.id & 0xFFFF)) << row.name.Text();
        const uint32_t mask = row.id >> 16 & 0xFF;
        ASSERT_NE(mask, 0u);
        if (static_cast<uint32_t>(std::countr_zero(mask)) != row.id >> 24) {
            EXPECT_EQ(row.id, 0x051E021Eu) << "only TMR_TEST_MODE says another position";
            ++elsewhere;
        }
    }
    EXPECT_EQ(elsewhere, 1);
}

TEST(RegisterCatalogue, CoefficientCommandsAreNumberedInOrderWith4Or8Bytes) {
    uint32_t code = 0x20;
    for (const RegisterRow& row : arcofi::kCoefficients) {
        EXPECT_EQ(row.id & 0xFF, code++) << row.name.Text();
        EXPECT_TRUE(row.id >> 8 == 5 || row.id >> 8 == 9) << row.name.Text();
    }
}

TEST(RegisterCatalogue, VpicBitsAreBits1To16OfPortsThatAreListed) {
    for (const RegisterRow& row : vpic::kBits) {
        constexpr uint32_t kNumber = 0x03E00000;
        EXPECT_TRUE(HasId(vpic::kPorts, row.id & ~kNumber)) << row.name.Text();
        const uint32_t number = (row.id & kNumber) >> 21;
        EXPECT_TRUE(number >= 1 && number <= 16) << row.name.Text();
    }
}

TEST(RegisterCatalogue, IsacAddressesRiseThroughTheReadableAndThenTheWriteOnlyRegisters) {
    int falls = 0;
    uint32_t last = 0;
    int unpadded = 0;
    for (const RegisterRow& row : isac::kRegisters) {
        const uint32_t address = row.id & 0xFF;
        falls += row.id != isac::kRegisters.front().id && address <= last;
        last = address;
        const std::string_view name = row.name.Text();
        EXPECT_EQ(name.find(" - "), 5u) << name;
        unpadded += !name.ends_with(' ');
    }
    EXPECT_EQ(falls, 1);
    EXPECT_EQ(unpadded, 4) << "all others have one blank behind them";
}

TEST(RegisterCatalogue, IsacBitsAreSingleBitsOfTheRegisterThatTheirNameBeginsWith) {
    for (const RegisterRow& row : isac::kBits) {
        EXPECT_TRUE(std::has_single_bit(row.id >> 16)) << row.name.Text();
        const auto holder =
            std::find_if(isac::kRegisters.begin(), isac::kRegisters.end(),
                         [&row](const RegisterRow& each) { return each.id == (row.id & 0xFFFF); });
        ASSERT_NE(holder, isac::kRegisters.end()) << row.name.Text();
        const std::string_view bit = row.name.Text();
        const std::string_view name = holder->name.Text();
        EXPECT_EQ(bit.substr(0, bit.find('_')), name.substr(0, name.find(' ')));
    }
}

TEST(RegisterCatalogue, SaecAddressesRiseAndOnlyTheConfigurationIsBytes) {
    uint32_t last = 0;
    for (const saec::Register& row : saec::kRegisters) {
        const bool configuration = row.id >> 16 == 1;
        EXPECT_EQ(row.width == saec::kByte, configuration) << row.name.Text();
        if (row.id >> 16 != 2)
            continue;
        EXPECT_TRUE(row.id > last) << row.name.Text();
        last = row.id;
    }
    EXPECT_EQ(last, 0x200ADu);
}

TEST(RegisterCatalogue, AuxiliaryDeviceFieldsStandInTheOrderOfTheirNumbers) {
    for (uint32_t row = 0; row < auxdev::kFields.size(); ++row)
        EXPECT_EQ(auxdev::kFields[row].id, row);
}

}  // namespace
