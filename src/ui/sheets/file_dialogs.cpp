// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/file_dialogs.h"

#include <QFile>
#include <QFileDialog>

#include "ui/widgets/words.h"

namespace morva {

namespace {

/// One that asks, answers and goes.
QFileDialog* dialogFor(QWidget* window, const FileDialogs::Question& question,
                       const FileDialogs::Answer& answer) {
    auto* dialog = new QFileDialog(window, question.title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    if (!question.accept.isEmpty()) dialog->setLabelText(QFileDialog::Accept, question.accept);
    if (!question.filter.isEmpty()) dialog->setNameFilter(question.filter);
    QObject::connect(dialog, &QFileDialog::fileSelected, window, [answer](const QString& file) {
        answer(QFile::encodeName(file).toStdString());
    });
    return dialog;
}

}  // namespace

FileDialogs FileDialogs::native(QWidget* window) {
    return {.folder =
                [window](const Question& question, const Answer& answer) {
                    QFileDialog* dialog = dialogFor(window, question, answer);
                    dialog->setFileMode(QFileDialog::Directory);
                    dialog->setOption(QFileDialog::ShowDirsOnly);
                    if (!question.proposed.empty())
                        dialog->setDirectory(pathText(question.proposed));
                    dialog->open();
                },
            .fileToOpen =
                [window](const Question& question, const Answer& answer) {
                    QFileDialog* dialog = dialogFor(window, question, answer);
                    dialog->setFileMode(QFileDialog::ExistingFile);
                    if (!question.proposed.empty())
                        dialog->setDirectory(pathText(question.proposed));
                    dialog->open();
                },
            .fileToSave =
                [window](const Question& question, const Answer& answer) {
                    QFileDialog* dialog = dialogFor(window, question, answer);
                    dialog->setAcceptMode(QFileDialog::AcceptSave);
                    dialog->setFileMode(QFileDialog::AnyFile);
                    dialog->selectFile(pathText(question.proposed));
                    dialog->open();
                }};
}

}  // namespace morva
