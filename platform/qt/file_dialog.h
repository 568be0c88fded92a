// The desktop's dialog for opening a file.
#pragma once

#include <memory>

#include "platform/qt/report.h"
#include "platform/screen.h"

class QFileDialog;
class QWidget;

namespace vxd::qt {

// Shows the dialog over `owner`, which may be null; what is chosen in it is reported.
std::unique_ptr<QFileDialog> ShowFileDialog(const FileQuestion& question, QWidget* owner,
                                            Report& report);

}  // namespace vxd::qt
