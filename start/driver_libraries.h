// Whether the driver libraries that the loader finds have every operation of their interface.
#pragma once

#include <string>

// Loads PAPI and KORA_DLL32, for good, and looks for each operation that driver/papi.h and
// driver/kora_dll32.h declare. Gives what is wrong, by library and operation, in words for the
// engineer; an empty text when nothing is.
std::string FaultsOfDriverLibraries();
