// SPDX-License-Identifier: GPL-3.0-or-later
// A run divided among processes leaves what an undivided one leaves, byte for byte.
#include <chrono>

#include "base/uuid.h"
#include "shard_fixture.h"

namespace morva {

namespace {

TEST_F(Sharded, leavesWhatAnUndividedRunLeaves) {
    addShoot();
    const fs::path whole = prepared("whole");
    const Ended undivided = run(line(whole, ""));
    ASSERT_EQ(undivided.code, 1) << undivided.err;
    EXPECT_THAT(undivided.err, HasSubstr("8 photos: 7 written"));
    const auto expected = written(whole);
    EXPECT_THAT(expected.at("Morva Export Report.csv"), HasSubstr("skipped: Could not read"));

    const fs::path parts = prepared("parts");
    EXPECT_EQ(merged(parts).code, 3) << "there are none yet";
    // Seven at once, one of them twice; some have no photo.
    std::vector<pid_t> running;
    for (const char* shard : {"1/6", "2/6", "3/6", "3/6", "4/6", "5/6", "6/6"})
        running.push_back(start(line(parts, shard)));
    for (const pid_t each : running) EXPECT_LE(waited(each).code, 1);
    EXPECT_EQ(merged(parts).code, 0);
    EXPECT_EQ(written(parts), expected);
    EXPECT_EQ(merged(parts).code, 0) << "again";
    EXPECT_EQ(written(parts), expected);

    // A shard that was killed where a file has a name from the start leaves it; one at work has
    // one.
    const fs::path abandoned = parts / (".morva-" + Uuid::random().text());
    const fs::path atWork = parts / "b" / (".morva-" + Uuid::random().text());
    for (const fs::path& draft : {abandoned, atWork})
        ASSERT_TRUE(writeFileAtomically(draft, "half"));
    fs::last_write_time(abandoned, fs::file_time_type::clock::now() - std::chrono::hours(2));
    EXPECT_EQ(merged(parts).code, 0);
    EXPECT_FALSE(fs::exists(abandoned));
    EXPECT_TRUE(fs::remove(atWork));

    add("late.jpg", 400, "13:00:00", 0);
    run(line(parts, "2/6"));
    const Ended mixed = merged(parts);
    EXPECT_EQ(mixed.code, 3);
    EXPECT_THAT(mixed.err, HasSubstr("other photos"));
    EXPECT_EQ(written(parts).at("Morva Export Report.csv"), expected.at("Morva Export Report.csv"));
}

}  // namespace

}  // namespace morva
