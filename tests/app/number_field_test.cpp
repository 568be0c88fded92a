// Numbers as they stand in fields.
#include "services/number_field.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

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

}  // namespace
