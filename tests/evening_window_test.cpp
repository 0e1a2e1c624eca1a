// SPDX-License-Identifier: GPL-3.0-or-later
// A photographer's evening in the real window with the real models: import, crop, review by
// keyboard, a change of preset, export, reports.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <QPushButton>
#include <QTest>

#include "app/state_test_support.h"
#include "demo_photos.h"
#include "output/export_report.h"
#include "ui/actions.h"
#include "ui/main_window.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/sheet.h"
#include "ui/widgets/window_test_support.h"

namespace morva {
namespace {

using testing::HasSubstr;

/// Real portraits where they are at hand, else a shoot made of the sample.
void writeShoot(const fs::path& folder) {
    const char* data = std::getenv("MORVA_TEST_DATA");
    const fs::path portraits = fs::path(data ? data : "") / "portraits";
    if (!fs::exists(portraits)) return DemoPhotos::write(std::getenv("MORVA_SAMPLE"), folder, 8);
    fs::create_directories(folder);
    for (const char* name : {"kid-girl-red-bow.jpg", "pif-alex-dalessio.jpg", "us-brad-little.jpg",
                             "woman-straw-hat.jpg", "kid-girl-drawing.jpg", "noface-desk.jpg"})
        fs::copy_file(portraits / name, folder / name);
}

std::string contentOf(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

TEST(Evening, fromAFolderToFinishedCropsByKeyboard) {
    const TemporaryFolder home;
    const fs::path folder = home.path() / "3b";
    writeShoot(folder);
    AppState state(AppServices::real({home.path() / "data", home.path() / "cache"}));
    state.start();
    MainWindow window(state);
    bringUp(window);
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers held = {}) {
        pressKey(window, key, held);
    };
    const auto finish = [&] {
        ASSERT_TRUE(waitFor([&] { return !state.isBusy(); }, std::chrono::seconds(180)));
    };
    const auto isApproved = [&](const std::string& id) {
        const WorkingJob& job = *state.selectedJob();
        return job.item(*job.indexOf(id)).approved;
    };

    state.openFolder(folder);
    finish();
    press(Qt::Key_R, Qt::ControlModifier);
    finish();
    const WorkingJob& job = *state.selectedJob();
    ASSERT_EQ(job.count(ItemStatus::pending), 0);
    const int toReview = job.count(ItemStatus::review);
    ASSERT_GT(toReview, 0);

    // Every doubtful photo is looked at; the first is adjusted, and one approval is taken back.
    press(Qt::Key_D, Qt::ControlModifier);
    ASSERT_EQ(state.mode(), ViewMode::inspect);
    ASSERT_EQ(state.filter(), StatusFilter::review);
    const std::string first = *state.selectedItemID();
    press(Qt::Key_Up, Qt::ShiftModifier);
    press(Qt::Key_Minus);
    press(Qt::Key_Comma, Qt::ShiftModifier);
    const ManualAdjustment adjusted = job.item(*job.indexOf(first)).adjustment;
    EXPECT_DOUBLE_EQ(adjusted.dy, -0.02);
    EXPECT_DOUBLE_EQ(adjusted.scale, 1.01);
    EXPECT_DOUBLE_EQ(adjusted.rotation, -1);
    press(Qt::Key_Return);
    EXPECT_TRUE(isApproved(first));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(isApproved(first));
    for (int i = 0; i < toReview; ++i) press(Qt::Key_Return);
    EXPECT_EQ(job.count(ItemStatus::review), 0);
    press(Qt::Key_G);
    state.setFilter(StatusFilter::all);

    // A larger face for everyone; approved crops keep what was approved.
    CropPreset preset = *state.preset(job.job().presetID);
    preset.faceScale *= 1.1;
    state.updatePreset(preset);

    press(Qt::Key_E, Qt::ControlModifier);
    Sheet* sheet = Sheet::openIn(&window);
    ASSERT_TRUE(sheet);
    const int planned = state.exports().plan().value_or(ExportPlan{}).candidates();
    EXPECT_GE(planned, toReview);
    ASSERT_EQ(state.exports().destination(), home.path() / "3b Cropped");
    const auto mayExport = [&] {
        return std::ranges::any_of(sheet->findChildren<QPushButton*>(), [](QPushButton* button) {
            return lookOf(button) == ButtonLook::primary && button->isEnabled();
        });
    };
    ASSERT_TRUE(waitFor(mayExport)) << "the plan is made when it can be";
    press(Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return !Sheet::openIn(&window); }));
    finish();
    ASSERT_FALSE(state.alert()) << state.alert()->message;

    const fs::path result = home.path() / "3b Cropped";
    int files = 0;
    for (const auto& entry : fs::directory_iterator(result))
        files += entry.path().extension() == ".jpg";
    EXPECT_EQ(files, planned);
    EXPECT_THAT(contentOf(result / ExportReport::fileName), HasSubstr("hand adjusted"));
    EXPECT_TRUE(window.actions().action(Act::openResultFolder)->isEnabled());
    window.close();
}

}  // namespace
}  // namespace morva
