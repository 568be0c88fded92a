// Numbers as they stand in fields.
#include "services/number_field.h"
#include "tests/kit/test.h"

namespace {

TEST(NumberField, EachFormTakesWhatATextBeginsWith) {
    for (const auto& [text, anyBase, decimal, unsignedDecimal] : {
             std::tuple{"", 0u, 0, 0u},
             std::tuple{"x7", 0u, 0, 0u},
             std::tuple{" 17,5", 17u, 17, 17u},
             std::tuple{"017", 15u, 17, 17u},
             std::tuple{"08", 0u, 8, 8u},
             std::tuple{"0X1fg", 0x1Fu, 0, 0u},
             std::tuple{"0b11", 0u, 0, 0u},
             std::tuple{"-3", 0xFFFFFFFDu, -3, 0u},
             std::tuple{"4294967295", 0xFFFFFFFFu, 0x7FFFFFFF, 0xFFFFFFFFu},
             std::tuple{"99999999999999999999", 0xFFFFFFFFu, 0x7FFFFFFF, 0xFFFFFFFFu},
         }) {
        EXPECT_EQ(ParseAnyBase(text), anyBase) << text;
        EXPECT_EQ(ParseDecimal(text), decimal) << text;
        EXPECT_EQ(ParseUnsignedDecimal(text), unsignedDecimal) << text;
    }
}

TEST(NumberField, ATextWithoutADigitIsNoNumber) {
    for (const char* text : {"", " ", "x7", "-", "+-5", "0x", "-0x", "0xg", "0x 1"}) {
        EXPECT_EQ(FindNumber(text), std::nullopt) << text;
    }
    for (const auto& [text, number] :
         {std::pair{"0", 0u}, std::pair{"0x0x", 0u}, std::pair{"08", 0u}, std::pair{" 017", 15u},
          std::pair{"0X1F", 0x1Fu}, std::pair{"17h", 17u}, std::pair{"-1", 0xFFFFFFFFu}}) {
        EXPECT_EQ(FindNumber(text), number) << text;
    }
}

}  // namespace
