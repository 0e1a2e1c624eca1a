// SPDX-License-Identifier: GPL-3.0-or-later
// The program with a window: folders and options in, the window on screen.
#include <optional>

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QLocale>

#include "app/app_state.h"
#include "model/jobs/job_lock.h"
#include "ui/desktop_contrast.h"
#include "ui/language.h"
#include "ui/main_window.h"
#include "ui/raise_request.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/theme.h"

namespace morva {

namespace {

std::filesystem::path pathOf(const QString& text) { return QFile::encodeName(text).toStdString(); }

struct Options {
    Folders folders = Folders::standard();
    std::optional<std::filesystem::path> folder;
};

Options read(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("main", "Crops school portraits, a folder at a time."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(
        "folder", QCoreApplication::translate("main", "A folder of portraits."), "[folder]");
    const QCommandLineOption data(
        "data-dir", QCoreApplication::translate("main", "Where jobs and presets are kept."),
        "folder");
    const QCommandLineOption cache(
        "cache-dir",
        QCoreApplication::translate("main", "Where measurements and thumbnails are kept."),
        "folder");
    parser.addOptions({data, cache});
    parser.process(application);
    Options options;
    if (parser.isSet(data)) options.folders.data = pathOf(parser.value(data));
    if (parser.isSet(cache)) options.folders.cache = pathOf(parser.value(cache));
    if (!parser.positionalArguments().isEmpty())
        options.folder = std::filesystem::absolute(pathOf(parser.positionalArguments().front()));
    return options;
}

/// True when the program runs already and has come to the front.
bool runsAlready(const Options& options) {
    return !JobLock::tryAcquire(options.folders.data) &&
           askToRaise(options.folders.data, options.folder);
}

int run(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Morva"));
    QApplication::setApplicationVersion(QStringLiteral(MORVA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.morva.Morva"));
    installLanguage(application, QLocale());
    const Options options = read(application);
    if (runsAlready(options)) return 0;

    applyTheme(application,
               WindowMemory(options.folders.data).look().contrast.value_or(Contrast::ordinary));
    QApplication::setWindowIcon(applicationIcon());
    AppState state(AppServices::real(options.folders));
    MainWindow window(state);
    RaiseListener listener(options.folders.data);
    QObject::connect(&listener, &RaiseListener::raiseWanted, &window, &MainWindow::comeToFront);
    const DesktopContrast desktop;
    QObject::connect(&desktop, &DesktopContrast::told, &window, &MainWindow::followContrast);
    window.show();
    state.start();
    window.restorePlace();
    if (options.folder) state.openFolder(*options.folder);
    return QApplication::exec();
}

}  // namespace

}  // namespace morva

int main(int argc, char** argv) { return morva::run(argc, argv); }
