#include "platform/qt/text.h"

namespace vxd::qt {
namespace {

// The UTF-8 bytes of the character that begins at `index`, and the UTF-16 units it takes.
struct Character {
    int bytes = 0;
    int units = 0;
};

Character CharacterAt(const QString& text, int index, LineEnd lineEnd) {
    const char16_t unit = text.at(index).unicode();
    if (unit == u'\n')
        return {lineEnd == LineEnd::kCrLf ? 2 : 1, 1};
    if (unit < 0x80)
        return {1, 1};
    if (unit < 0x800)
        return {2, 1};
    const bool pair = QChar::isHighSurrogate(unit) && index + 1 < text.size() &&
                      text.at(index + 1).isLowSurrogate();
    return pair ? Character{4, 2} : Character{3, 1};
}

}  // namespace

QString ToQt(const std::string& text, LineEnd lineEnd) {
    QString converted = QString::fromStdString(text);
    if (lineEnd == LineEnd::kCrLf)
        converted.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return converted;
}

std::string FromQt(const QString& text, LineEnd lineEnd) {
    if (lineEnd == LineEnd::kLf)
        return text.toStdString();
    QString converted = text;
    converted.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return converted.toStdString();
}

int ToQtPosition(const QString& text, int bytes, LineEnd lineEnd) {
    int index = 0;
    for (int passed = 0; index < text.size() && passed < bytes;) {
        const Character character = CharacterAt(text, index, lineEnd);
        passed += character.bytes;
        index += character.units;
    }
    return index;
}

int FromQtPosition(const QString& text, int position, LineEnd lineEnd) {
    int bytes = 0;
    for (int index = 0; index < text.size() && index < position;) {
        const Character character = CharacterAt(text, index, lineEnd);
        bytes += character.bytes;
        index += character.units;
    }
    return bytes;
}

}  // namespace vxd::qt
