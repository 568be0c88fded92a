#include "platform/core/edited_text.h"

#include <algorithm>

#include "platform/core/text.h"

namespace vxd {
namespace {

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

EditedText Rebased(const std::string& before, const std::string& after, const std::string& now) {
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t same = 0;
    while (same < shorter && before[same] == after[same]) {
        ++same;
    }
    same = std::min(WholeCharacters(before, same), WholeCharacters(after, same));
    std::size_t behind = 0;
    while (behind < shorter - same &&
           before[before.size() - 1 - behind] == after[after.size() - 1 - behind]) {
        ++behind;
    }
    while (behind > 0 && IsContinuation(after[after.size() - behind])) {
        --behind;
    }
    const std::string inserted = after.substr(same, after.size() - same - behind);
    const std::size_t removed = before.size() - same - behind;
    const std::size_t from = WholeCharacters(now, std::min(same, now.size()));
    const std::size_t to = WholeCharacters(now, std::min(from + removed, now.size()));
    EditedText edited{now, static_cast<int>(from + inserted.size())};
    edited.text.replace(from, to - from, inserted);
    return edited;
}

}  // namespace vxd
