// Texts and positions in them on both sides of the seam: the core counts bytes of UTF-8, Qt counts
// units of UTF-16.
#pragma once

#include <QString>
#include <string>

namespace vxd::qt {

// How the core ends the lines of a text. Qt's own line end is LF.
enum class LineEnd { kLf, kCrLf };

QString ToQt(const std::string& text, LineEnd lineEnd = LineEnd::kLf);
std::string FromQt(const QString& text, LineEnd lineEnd = LineEnd::kLf);

// The place in Qt's text that lies `bytes` bytes into the core's; the end if the text is shorter.
int ToQtPosition(const QString& text, int bytes, LineEnd lineEnd = LineEnd::kLf);
int FromQtPosition(const QString& text, int position, LineEnd lineEnd = LineEnd::kLf);

}  // namespace vxd::qt
