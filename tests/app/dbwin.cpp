// A debug viewer's library as far as programs that write to the viewer see it.
namespace {

int outputMode = 1;

}  // namespace

extern "C" {

int GetOutputMode() {
    return outputMode;
}

void SetOutputMode(int mode) {
    outputMode = mode;
}
}
