// SPDX-License-Identifier: GPL-3.0-or-later
#include <fstream>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "imaging/encode.h"
#include "model/presets/preset_library.h"
#include "ui/sheets/backdrop_lists.h"
#include "ui/sheets/backdrop_sheet.h"
#include "ui/sheets/backdrop_view.h"
#include "ui/sheets/example_list.h"
#include "ui/sheets/sheet_test_support.h"

namespace morva {

namespace {

/// How many cells stand in the first row.
int columnsOf(const QListView& list) {
    int columns = 0;
    const auto top = [&](int row) { return list.visualRect(list.model()->index(row, 0)).y(); };
    while (columns < list.model()->rowCount() && top(columns) == top(0)) ++columns;
    return columns;
}

/// A photo of one colour.
void writeImage(const fs::path& file, int width, int height, std::uint8_t value) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) std::fill_n(picture.row(y), picture.rowBytes(), value);
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << *encodeJpeg(picture, 0.9, 72);
}

class Teaching : public SheetTest {
protected:
    /// The first photos answer one print, the others another; with a little spread.
    void start(int count, int shown) {
        services.featurePrint = [shown](const fs::path& file) -> Result<std::vector<float>> {
            const int number = std::stoi(file.stem().string());
            const float spread = static_cast<float>(number % 5) * 0.01F;
            return number <= shown ? std::vector<float>{1 + spread, 0, 0.5F}
                                   : std::vector<float>{0, 1 + spread, 0.5F};
        };
        state = cropped(count);
        sheets = std::make_unique<SheetSet>(*state, &window, dialogs);
        state->poses().begin();
    }
    ExampleList& photos() const { return *window.findChild<ExampleList*>(); }

    FileDialogs dialogs;
    std::unique_ptr<AppState> state;
    std::unique_ptr<SheetSet> sheets;
};

class Backdrops : public SheetTest {
protected:
    Backdrops() {
        scripted["1.jpg"] = smallPortrait();
        scripted["2.jpg"] = smallPortrait();
        for (const char* name : {"1.jpg", "2.jpg"}) writeImage(photos / name, 400, 500, 90);
        writeImage(plates / "grey.jpg", 80, 100, 160);
        writeImage(plates / "night.jpg", 80, 100, 20);
        services.cutterFor = [this](const fs::path&, const ImageAnalysis&, const auto&) {
            return std::make_unique<HalfCutter>(cuts);
        };
        state = started();
        import(*state);
        crop(*state);
        state->select(item(*state, 0).id);
    }

    /// Takes the lower half of every photo for the child.
    class HalfCutter final : public ChildCutter {
    public:
        explicit HalfCutter(std::atomic<int>& cuts) : cuts_(cuts) {}
        Result<std::optional<CutOut>> cutOut(DecodedRegion& photo) const override {
            ++cuts_;
            CutOut half{.alpha = Mask(photo.pixels.width(), photo.pixels.height()),
                        .feetLine = std::nullopt};
            for (int y = 0; y < half.alpha.height(); ++y)
                std::fill_n(half.alpha.row(y), half.alpha.rowBytes(),
                            static_cast<std::uint8_t>(2 * y > half.alpha.height() ? 255 : 0));
            return half;
        }

    private:
        std::atomic<int>& cuts_;
    };

    const BackdropView& view() const { return window.findChild<BackdropSheet*>()->view(); }
    const CropPreset& headshot() const { return *state->preset(PresetLibrary::headshotID()); }

    const fs::path plates = home.path() / "data" / "Backdrops";
    std::atomic<int> cuts{0};
    std::unique_ptr<AppState> state;
    std::unique_ptr<SheetSet> sheets;
};

}  // namespace

TEST_F(Teaching, ticksTrainsAndKeepsByTheKeyboardAlone) {
    start(24, 8);
    ASSERT_TRUE(photos().hasFocus());
    EXPECT_EQ(columnsOf(photos()), 6);
    for (int i = 0; i < 8; ++i) {
        press(Qt::Key_Space);
        press(Qt::Key_Right);
    }
    EXPECT_EQ(state->poses().examples().size(), 8U);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    press(Qt::Key_Space);
    EXPECT_EQ(state->poses().examples().size(), 7U);
    press(Qt::Key_Space);

    auto* name = find<QLineEdit>("Name");
    ASSERT_TRUE(tabTo(name));
    press(Qt::Key_Return);
    EXPECT_FALSE(state->poses().isBusy());
    EXPECT_FALSE(state->poses().error().empty());
    QTest::keyClicks(name, "arms crossed");
    press(Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return state->poses().outcome().has_value(); }));
    const auto* keep = find<QPushButton>("Keep This Pose");
    ASSERT_TRUE(keep);
    EXPECT_TRUE(find<QPushButton>("Train Again"));
    shoot(window, "pose");
    EXPECT_EQ(focused(), keep);
    press(Qt::Key_Return);
    EXPECT_FALSE(top());
    EXPECT_EQ(state->poses().taught().size(), 1U);
    finish(*state);

    // It is in the list from now on, until it is removed by a button that asks once.
    state->poses().begin();
    ASSERT_TRUE(waitFor([&] { return find<QPushButton>("Remove the pose") != nullptr; }));
    auto* remove = find<QPushButton>("Remove the pose");
    ASSERT_TRUE(tabTo(remove));
    press(Qt::Key_Space);
    EXPECT_EQ(state->poses().taught().size(), 1U);
    press(Qt::Key_Space);
    EXPECT_TRUE(state->poses().taught().empty());
    finish(*state);
    press(Qt::Key_Escape);
    EXPECT_FALSE(state->poses().isShown());
    EXPECT_EQ(focused(), &field);
}

TEST_F(Teaching, clicksTickAndTheTickedStandAlone) {
    start(12, 4);
    const auto click = [&](int row) {
        const QRect cell = photos().visualRect(photos().model()->index(row, 0));
        QTest::mouseClick(photos().viewport(), Qt::LeftButton, {}, cell.center());
    };
    click(2);
    click(4);
    click(2);
    EXPECT_EQ(state->poses().examples(), (std::set<std::string>{item(*state, 4).id}));
    ASSERT_TRUE(tabTo(find<QPushButton>("All photos")));
    press(Qt::Key_Right);
    EXPECT_TRUE(find<QPushButton>("Ticked")->isChecked());
    EXPECT_EQ(photos().model()->rowCount(), 1);
}

TEST_F(Teaching, packsComeAndGoThroughDialogs) {
    fs::path saved;
    dialogs.fileToSave = [&](const FileDialogs::Question& question,
                             const FileDialogs::Answer& answer) {
        EXPECT_EQ(question.title, "Save a pose pack");
        EXPECT_EQ(question.proposed, "Morva poses.json");
        saved = home.path() / "pack.json";
        answer(saved);
    };
    dialogs.fileToOpen = [&](const FileDialogs::Question&, const FileDialogs::Answer& answer) {
        answer(home.path() / "none.json");
    };
    start(24, 8);
    for (std::size_t i = 0; i < 8; ++i) state->poses().toggleExample(item(*state, i).id);
    state->poses().setName("arms crossed");
    state->poses().train();
    ASSERT_TRUE(waitFor([&] { return state->poses().outcome().has_value(); }));
    state->poses().keep();
    finish(*state);
    state->poses().begin();
    auto* save = find<QPushButton>("Save as a pose pack…");
    ASSERT_TRUE(waitFor([&] { return save->isEnabled(); }));
    ASSERT_TRUE(tabTo(save));
    press(Qt::Key_Space);
    EXPECT_TRUE(fs::exists(saved));
    auto* add = find<QPushButton>("Add a pose pack…");
    ASSERT_TRUE(tabTo(add));
    press(Qt::Key_Space);
    EXPECT_EQ(alertText(*state), "Not a pose pack: none.json does not contain any poses.");
    EXPECT_EQ(QApplication::focusWidget(), add);
}

TEST_F(Backdrops, chooseAPlateByTheKeyboardAndShowThePhotoOnIt) {
    sheets = std::make_unique<SheetSet>(*state, &window, FileDialogs{});
    state->backdrops().begin();
    ASSERT_TRUE(waitFor([&] { return state->backdrops().isListed(); }));
    ASSERT_TRUE(waitFor([&] { return view().isComplete() && cuts == 1; }));
    auto* list = window.findChild<PlateList*>();
    ASSERT_TRUE(tabTo(list));
    EXPECT_EQ(columnsOf(*list), 3);
    EXPECT_EQ(list->currentIndex().row(), 1);  // after the generated one
    press(Qt::Key_Right);
    EXPECT_EQ(state->backdrops().choice(PresetLibrary::headshotID()).plate, plates / "night.jpg");
    EXPECT_FALSE(view().isComplete());
    ASSERT_TRUE(waitFor([&] { return view().isComplete(); }));
    EXPECT_EQ(cuts, 1);  // another backdrop does not cut the child out again
    shoot(window, "backdrops");

    auto* feet = find<QPushButton>("Yes, feet show");
    ASSERT_TRUE(tabTo(feet));
    press(Qt::Key_Space);
    EXPECT_EQ(state->backdrops().showsFeet(), true);
    ASSERT_TRUE(tabTo(list));
    press(Qt::Key_Escape);
    EXPECT_FALSE(top());
    EXPECT_EQ(headshot().exportSettings.backdrop, BackdropMode::repeatEdges);
    EXPECT_EQ(focused(), &field);
}

TEST_F(Backdrops, areGivenToThePresets) {
    FileDialogs dialogs;
    dialogs.fileToOpen = [&](const FileDialogs::Question&, const FileDialogs::Answer& answer) {
        answer(plates.parent_path() / "own.jpg");
    };
    writeImage(plates.parent_path() / "own.jpg", 80, 100, 200);
    sheets = std::make_unique<SheetSet>(*state, &window, dialogs);
    state->backdrops().begin();
    ASSERT_TRUE(waitFor([&] { return state->backdrops().isListed(); }));
    auto* choose = find<QPushButton>("Choose…");
    ASSERT_TRUE(tabTo(choose));
    press(Qt::Key_Space);
    ASSERT_TRUE(waitFor([&] { return state->backdrops().plates().size() == 3; }));
    ASSERT_TRUE(tabTo(find<QPushButton>("Use These Backdrops")));
    press(Qt::Key_Return);
    EXPECT_FALSE(top());
    EXPECT_EQ(headshot().exportSettings.backdrop, BackdropMode::replace);
    EXPECT_EQ(headshot().exportSettings.plateURL, plates.parent_path() / "own.jpg");

    // Unticked, the crop type keeps its photos' own backdrops.
    state->backdrops().begin();
    ASSERT_TRUE(waitFor([&] { return state->backdrops().isListed(); }));
    auto* types = find<BackdropTypeList>("Crop types of this job");
    ASSERT_TRUE(tabTo(types));
    press(Qt::Key_Space);
    press(Qt::Key_Return);
    EXPECT_FALSE(top());
    EXPECT_EQ(headshot().exportSettings.backdrop, BackdropMode::keep);
}

}  // namespace morva
