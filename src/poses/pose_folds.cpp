// SPDX-License-Identifier: GPL-3.0-or-later
#include "poses/pose_folds.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>

namespace morva {

namespace {

constexpr int fewestFolds = 2;
constexpr int mostFolds = 5;

struct Group {
    int examples = 0;
    std::vector<std::size_t> photos;
};

/// In the order of their first photos.
class Groups {
public:
    void add(std::size_t photo, bool isExample, const std::optional<std::vector<int>>& numbers,
             std::size_t place) {
        Group& group = numbers && place < numbers->size() ? numbered((*numbers)[place]) : fresh();
        group.photos.push_back(photo);
        group.examples += isExample;
    }

    std::vector<Group> all;

private:
    Group& fresh() { return all.emplace_back(); }
    Group& numbered(int number) {
        const auto [known, isNew] = known_.try_emplace(number, all.size());
        return isNew ? fresh() : all[known->second];
    }

    std::map<int, std::size_t> known_;
};

struct Fold {
    int examples = 0;
    std::size_t photos = 0;
};

}  // namespace

PoseFolds PoseFolds::dealt(int examples, int others,
                           const std::optional<std::vector<int>>& exampleGroups,
                           const std::optional<std::vector<int>>& otherGroups) {
    const auto exampleCount = static_cast<std::size_t>(examples);
    const auto otherCount = static_cast<std::size_t>(others);
    Groups groups;
    for (std::size_t i = 0; i < exampleCount; ++i) groups.add(i, true, exampleGroups, i);
    for (std::size_t i = 0; i < otherCount; ++i)
        groups.add(exampleCount + i, false, otherGroups, i);
    std::ranges::stable_sort(groups.all, [](const Group& a, const Group& b) {
        return std::tuple(a.examples, a.photos.size()) > std::tuple(b.examples, b.photos.size());
    });

    PoseFolds deal{std::clamp(static_cast<int>(groups.all.size()), fewestFolds, mostFolds),
                   std::vector<int>(exampleCount + otherCount, 0)};
    std::vector<Fold> folds(static_cast<std::size_t>(deal.count));
    for (const Group& group : groups.all) {
        const auto emptiest = std::ranges::min_element(folds, {}, [&](const Fold& fold) {
            return std::tuple(group.examples > 0 ? fold.examples : 0, fold.photos);
        });
        emptiest->examples += group.examples;
        emptiest->photos += group.photos.size();
        for (const std::size_t photo : group.photos)
            deal.foldOf[photo] = static_cast<int>(emptiest - folds.begin());
    }
    return deal;
}

}  // namespace morva
