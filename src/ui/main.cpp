// SPDX-License-Identifier: GPL-3.0-or-later
// The program with a window: folders and options in, the window on screen.
#include <QApplication>
#include <QCommandLineParser>

#include "app/app_state.h"
#include "ui/main_window.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/theme.h"

namespace morva {

namespace {

std::filesystem::path pathOf(const QString& text) { return text.toStdString(); }

int run(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Morva"));
    QApplication::setWindowIcon(applicationIcon());
    applyTheme(application, Contrast::ordinary);

    QCommandLineParser options;
    options.addPositionalArgument("folder", "Folder of portraits to open.", "[folder]");
    options.addOption({"data-dir", "Folder of jobs and presets.", "folder"});
    options.addOption({"cache-dir", "Folder of measurements and thumbnails.", "folder"});
    options.addHelpOption();
    options.process(application);

    Folders folders = Folders::standard();
    if (options.isSet("data-dir")) folders.data = pathOf(options.value("data-dir"));
    if (options.isSet("cache-dir")) folders.cache = pathOf(options.value("cache-dir"));
    AppState state(AppServices::real(folders));
    MainWindow window(state);
    window.resize(1440, 900);
    window.show();
    state.start();
    const QStringList wanted = options.positionalArguments();
    if (!wanted.isEmpty()) state.openFolder(pathOf(wanted.front()));
    return QApplication::exec();
}

}  // namespace

}  // namespace morva

int main(int argc, char** argv) { return morva::run(argc, argv); }
