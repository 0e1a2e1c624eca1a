// SPDX-License-Identifier: GPL-3.0-or-later
// How a run is divided, and how its reports become one again; no photo is opened.
#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "app/app_test_support.h"
#include "cli/report_part.h"
#include "cli/shard.h"

namespace morva {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// Three photos of each child, and who they belong to.
struct School {
    std::vector<fs::path> paths;
    std::vector<std::vector<std::size_t>> groups;

    explicit School(int children) {
        for (int i = 0; i < 3 * children; ++i) paths.push_back("IMG_" + std::to_string(i) + ".jpg");
        for (std::size_t i = 0; i < paths.size(); i += 3) groups.push_back({i, i + 1, i + 2});
    }

    /// The number of the shard of each photo.
    std::map<fs::path, int> owners(int count) const {
        std::map<fs::path, int> owners;
        for (int number = 1; number <= count; ++number)
            for (const std::size_t photo : Shard{number, count}.photosOf(paths, groups))
                EXPECT_TRUE(owners.emplace(paths[photo], number).second) << paths[photo];
        return owners;
    }
};

TEST(Shard, readsWhatAPersonTypes) {
    EXPECT_EQ(Shard::parse("2/4"), (Shard{2, 4}));
    EXPECT_EQ(Shard::parse("9999/9999"), (Shard{9999, 9999}));
    for (const char* wrong : {"", "2", "/", "0/4", "5/4", "-1/4", "1/-4", "1/10000", "1/4 ", "a/4",
                              "1/4/4", "99999999999/99999999999"})
        EXPECT_FALSE(Shard::parse(wrong)) << wrong;
}

TEST(Shard, everyPhotoHasOneWithTheOthersOfItsChild) {
    School school(400);
    const auto owners = school.owners(4);
    EXPECT_EQ(owners.size(), school.paths.size());
    std::map<int, int> shares;
    for (const auto& group : school.groups) {
        ++shares[owners.at(school.paths[group[0]])];
        for (const std::size_t photo : group)
            EXPECT_EQ(owners.at(school.paths[photo]), owners.at(school.paths[group[0]]));
    }
    for (const auto& [number, children] : shares) EXPECT_NEAR(children, 100, 30) << number;
}

TEST(Shard, dependsNeitherOnTheOrderNorOnOtherPhotos) {
    School school(50);
    const auto owners = school.owners(5);
    std::ranges::shuffle(school.groups, std::mt19937(1));
    for (auto& group : school.groups) std::ranges::reverse(group);
    EXPECT_EQ(school.owners(5), owners);
    school.paths.push_back("a latecomer.jpg");
    school.groups.push_back({school.paths.size() - 1});
    auto later = school.owners(5);
    EXPECT_EQ(later.erase("a latecomer.jpg"), 1);
    EXPECT_EQ(later, owners);
}

class PartsOfReports : public testing::Test {
protected:
    /// As a shard of two writes it; photos with even places belong to the second.
    ReportPart part(int number) const {
        ReportPart part{.shard = {number, 2}, .run = "5f3a", .header = {}, .rows = {}};
        part.add(0, "file,why\n");
        for (const auto& [place, row] : rows)
            if (place % 2 == static_cast<std::size_t>(number % 2))
                part.add(place, "file,why\n" + row);
        return part;
    }
    void write(const ReportPart& part) const {
        ASSERT_TRUE(writeFileAtomically(ReportParts::fileOf(report, part.shard), part.text()));
    }
    std::string whyNot() const {
        const auto joined = ReportParts::joinedIn(home.path());
        return joined ? "" : joined.error().message;
    }

    TemporaryFolder home;
    const fs::path report = home.path() / "Class 3 of 4.b of 1.csv";
    /// Rows as the writers of reports make them: quotes, commas and line breaks in a cell.
    const std::map<std::size_t, std::string> rows{{1, "\"a, \"\"b\"\".jpg\",\"\"\n"},
                                                  {2, "plain.jpg,no\n"},
                                                  {9, "\"two\n9,lines.jpg\",(part 1\n"},
                                                  {10, "z.jpg,\n"}};
};

TEST_F(PartsOfReports, becomeTheReportOfTheWholeRun) {
    write(part(2));
    write(part(1));
    ASSERT_TRUE(writeFileAtomically(home.path() / "Parents 1 of 2.csv", "name,phone\n"));
    const auto joined = ReportParts::joinedIn(home.path());
    ASSERT_TRUE(joined) << joined.error().message;
    std::string whole = "file,why\n";
    for (const auto& [place, row] : rows) whole += row;
    EXPECT_EQ(*joined, (std::map<fs::path, std::string>{{report, whole}}));
}

TEST_F(PartsOfReports, areRefusedUnlessAllAreOfOneRun) {
    EXPECT_THAT(whyNot(), HasSubstr("no parts"));
    write(part(2));
    EXPECT_THAT(whyNot(), HasSubstr("Class 3 of 4.b of 1 1 of 2.csv is missing"));
    ReportPart other = part(1);
    other.run = "77";
    write(other);
    EXPECT_THAT(whyNot(), HasSubstr("other photos, presets or options"));
    other = part(1);
    other.rows[2] = "plain.jpg,no";
    write(other);
    EXPECT_THAT(whyNot(), HasSubstr("tell of the same photo"));
    write(part(1));
    EXPECT_EQ(whyNot(), "");

    const fs::path file = ReportParts::fileOf(report, {1, 2});
    const std::string whole = *readFile(file);
    for (const std::size_t cut : {whole.size() - 1, whole.size() / 2, std::size_t{12}}) {
        ASSERT_TRUE(writeFileAtomically(file, whole.substr(0, cut)));
        EXPECT_THAT(whyNot(), HasSubstr("is not whole")) << cut;
    }
    write(part(1));
    other = part(1);
    other.shard.count = 3;
    write(other);
    EXPECT_THAT(whyNot(), HasSubstr("2 shards and from one of 3"));
}

}  // namespace

}  // namespace morva
