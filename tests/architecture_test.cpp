// SPDX-License-Identifier: GPL-3.0-or-later
// Holds docs/architecture.md against what CMake links and what the sources include.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

struct Room {
    std::string name;
    std::string folder;
    int level = 0;
    Names links;
};

const fs::path project = MORVA_PROJECT;

std::vector<std::string> linesOf(const fs::path& file) {
    std::ifstream stream(file);
    EXPECT_TRUE(stream) << file;
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::vector<std::string> cells(const std::string& line) {
    std::vector<std::string> found;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, '|');) {
        cell.erase(std::remove(cell.begin(), cell.end(), '`'), cell.end());
        const auto first = cell.find_first_not_of(' ');
        const auto last = cell.find_last_not_of(' ');
        found.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
    }
    return found;
}

Names namesIn(const std::string& text) {
    Names names;
    static const std::regex word("[a-z_]+");
    for (std::sregex_iterator at(text.begin(), text.end(), word), end; at != end; ++at)
        names.insert(at->str());
    return names;
}

/// The rows of the level table, from the top: | level | room | folder | holds | links | ...
std::vector<Room> documentedRooms() {
    std::vector<Room> rooms;
    for (const std::string& line : linesOf(project / "docs/architecture.md")) {
        if (!std::regex_search(line, std::regex(R"(^\| *\d+ *\|)"))) continue;
        const std::vector<std::string> row = cells(line);
        rooms.push_back({row.at(2), row.at(3), std::stoi(row.at(1)), namesIn(row.at(5))});
    }
    return rooms;
}

/// The targets as CMake configured them: room|folder|links.
std::vector<Room> linkedRooms() {
    std::vector<Room> rooms;
    for (const std::string& line : linesOf(MORVA_LINK_GRAPH)) {
        const std::vector<std::string> row = cells(line);
        rooms.push_back({row.at(0), row.at(1), 0, namesIn(row.size() > 2 ? row[2] : "")});
    }
    return rooms;
}

std::map<std::string, Room> byName(const std::vector<Room>& rooms) {
    std::map<std::string, Room> map;
    for (const Room& room : rooms) map[room.name] = room;
    return map;
}

/// The room itself and all that it links, directly or not.
Names reachable(const std::string& name, const std::map<std::string, Room>& rooms) {
    Names found{name};
    for (const std::string& link : rooms.at(name).links) found.merge(reachable(link, rooms));
    return found;
}

/// The room whose folder is the longest that `header` begins with; empty for a library's header.
std::string roomOf(const std::string& header, const std::vector<Room>& rooms) {
    const Room* best = nullptr;
    for (const Room& room : rooms) {
        if (("src/" + header).starts_with(room.folder + "/") &&
            (!best || room.folder.size() > best->folder.size()))
            best = &room;
    }
    return best ? best->name : "";
}

TEST(Architecture, documentListsTheRoomsAndLinksOfTheBuild) {
    const auto documented = byName(documentedRooms());
    const auto linked = byName(linkedRooms());
    ASSERT_FALSE(linked.empty());
    for (const auto& [name, room] : linked) {
        ASSERT_TRUE(documented.contains(name)) << name << " is missing in docs/architecture.md";
        EXPECT_EQ(documented.at(name).folder, room.folder);
        EXPECT_EQ(documented.at(name).links, room.links) << "links of " << name;
    }
    for (const auto& [name, room] : documented) EXPECT_TRUE(linked.contains(name)) << name;
}

TEST(Architecture, roomsLinkOnlyWhatStandsAboveThem) {
    std::map<std::string, int> above;
    int level = 0;
    for (const Room& room : documentedRooms()) {
        EXPECT_GE(room.level, level) << room.name << " stands out of order";
        level = room.level;
        for (const std::string& link : room.links) {
            ASSERT_TRUE(above.contains(link)) << room.name << " links " << link;
            EXPECT_LT(above[link], room.level) << room.name << " links its own level: " << link;
        }
        above[room.name] = room.level;
    }
}

TEST(Architecture, sourcesIncludeOnlyLinkedRooms) {
    const std::vector<Room> rooms = linkedRooms();
    const auto named = byName(rooms);
    const std::regex include(R"re(^#include "([^"]+)")re");
    for (const Room& room : rooms) {
        const Names allowed = reachable(room.name, named);
        for (const auto& entry : fs::directory_iterator(project / room.folder)) {
            const std::string file = entry.path().filename().string();
            const bool source = file.ends_with(".h") || file.ends_with(".cpp");
            if (!source || file.ends_with("_test.cpp")) continue;  // a test may reach further
            for (const std::string& line : linesOf(entry.path())) {
                std::smatch match;
                if (!std::regex_search(line, match, include)) continue;
                const std::string from = roomOf(match[1], rooms);
                EXPECT_TRUE(from.empty() || allowed.contains(from))
                    << fs::relative(entry.path(), project) << " includes " << match[1];
            }
        }
    }
}

}  // namespace
