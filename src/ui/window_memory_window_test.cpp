// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <fstream>

#include <QTest>

#include "app/app_test_support.h"
#include "ui/raise_request.h"
#include "ui/window_memory.h"

namespace morva {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::SizeIs;

TEST(WindowMemory, anotherProgramFindsThePlaceAtOnce) {
    const TemporaryFolder home;
    // As a file name may be: not UTF-8.
    const WindowMemory::Place place{.job = Uuid::random(),
                                    .item = "Klasse 3b/\xe4\xff.jpg",
                                    .mode = ViewMode::inspect,
                                    .filter = StatusFilter::review,
                                    .tab = RightTab::photo};
    WindowMemory memory(home.path());
    memory.remember(place);
    // No closing in between: a crash does not close either.
    EXPECT_EQ(WindowMemory(home.path()).place(), place);
}

TEST(WindowMemory, nonsenseInTheFileIsNoPlace) {
    const TemporaryFolder home;
    std::ofstream(home.path() / "window.ini")
        << "[place]\njob=3b\nmode=17\nfilter=-2\ntab=x\n[look]\ncontrast=9\n";
    const WindowMemory memory(home.path());
    EXPECT_EQ(memory.place(), WindowMemory::Place());
    EXPECT_EQ(memory.look().contrast, Contrast::ordinary);
}

TEST(WindowMemory, theLatestFolderComesFirstAndOnce) {
    const TemporaryFolder home;
    WindowMemory memory(home.path());
    for (int i = 0; i < 14; ++i) memory.used({"/shoots/" + std::to_string(i % 12), i, 1.0 * i});
    const auto recent = WindowMemory(home.path()).recent();
    ASSERT_THAT(recent, SizeIs(10));
    EXPECT_EQ(recent[0].folder, "/shoots/1");
    EXPECT_EQ(recent[0].photos, 13);
    EXPECT_EQ(recent[2].folder, "/shoots/11");
}

TEST(RaiseRequest, theRunningProgramIsGivenTheFolder) {
    const TemporaryFolder home;
    RaiseListener listener(home.path());
    std::vector<std::optional<std::filesystem::path>> asked;
    QObject::connect(&listener, &RaiseListener::raiseWanted,
                     [&](const auto& folder) { asked.push_back(folder); });
    bool taken = false;
    std::thread second([&] {
        taken = askToRaise(home.path(), "/shoots/3b \xe4") && askToRaise(home.path(), std::nullopt);
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.size() == 2; }));
    second.join();
    EXPECT_TRUE(taken);
    EXPECT_THAT(asked, ElementsAre(std::filesystem::path("/shoots/3b \xe4"), std::nullopt));
}

TEST(RaiseRequest, aSecondStartGoesOnWhenNobodyAnswers) {
    const TemporaryFolder home;
    std::filesystem::create_directory(home.path() / "Requests");
    EXPECT_FALSE(askToRaise(home.path(), "/shoots/3b", std::chrono::milliseconds(60)));
    EXPECT_TRUE(std::filesystem::is_empty(home.path() / "Requests"));
}

}  // namespace
}  // namespace morva
