# Writes a C++ source that holds the bytes of a compiled resource file (INPUT) and registers them
# at program start (OUTPUT). Run as a script.
file(READ "${INPUT}" bytes HEX)
string(REGEX REPLACE "(................................)" "\\1\n    " bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE "${OUTPUT}" "#include \"platform/core/resource_registry.h\"

namespace {

alignas(4) constexpr unsigned char kResources[] = {
    ${bytes}
};

const struct Registration {
    Registration() { vxd::AttachResources(kResources, sizeof kResources); }
} registration;

}  // namespace
")
