#include "platform/qt/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QStringList>
#include <string>

#include "platform/qt/text.h"

namespace vxd::qt {
namespace {

// Qt takes a type as one text, the patterns in brackets behind the name.
QStringList FiltersOf(const FileQuestion& question) {
    QStringList filters;
    for (const FileQuestion::Type& type : question.types) {
        QStringList patterns;
        for (const std::string& pattern : type.patterns) {
            patterns += ToQt(pattern);
        }
        filters += ToQt(type.name) + QLatin1String(" (") + patterns.join(QLatin1Char(' ')) +
                   QLatin1Char(')');
    }
    return filters;
}

std::string ChosenIn(const QFileDialog& dialog) {
    const QStringList files = dialog.selectedFiles();
    return files.isEmpty() ? std::string() : FromQt(QDir::toNativeSeparators(files.front()));
}

}  // namespace

std::unique_ptr<QFileDialog> ShowFileDialog(const FileQuestion& question, QWidget* owner,
                                            Report& report) {
    auto dialog = std::make_unique<QFileDialog>(owner, ToQt(question.title));
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    // The names tell already what the patterns are.
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    if (!question.types.empty()) {
        dialog->setNameFilters(FiltersOf(question));
    }
    if (!question.folder.empty() && QDir(ToQt(question.folder)).exists()) {
        dialog->setDirectory(ToQt(question.folder));
    }
    QFileDialog* const shown = dialog.get();
    QObject::connect(shown, &QFileDialog::finished, shown, [shown, &report](int result) {
        report(input::FileChosen,
               result == QFileDialog::Accepted ? ChosenIn(*shown) : std::string());
    });
    dialog->open();
    return dialog;
}

}  // namespace vxd::qt
