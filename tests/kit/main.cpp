#include "tests/kit/user_interface.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return kit::RunTests();
}
