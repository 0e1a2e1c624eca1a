// SPDX-License-Identifier: GPL-3.0-or-later
#include "crop/subject_grouping.h"

#include <algorithm>

namespace morva::SubjectGrouping {

namespace {

struct SizedPhoto {
    std::size_t index;
    double unit;
};

bool isTimed(const ImageAnalysis* photo) { return photo && photo->captureTime; }

void appendTimeGroups(std::vector<Group>& all, Analyses photos, const Group& indices,
                      double gapSeconds) {
    Group timed;
    std::ranges::copy_if(indices, std::back_inserter(timed),
                         [&](std::size_t i) { return isTimed(photos[i]); });
    const auto time = [&](std::size_t i) { return *photos[i]->captureTime; };
    std::ranges::stable_sort(timed, {}, time);
    for (std::size_t i = 0; i < timed.size(); ++i) {
        const bool joins = i > 0 && time(timed[i]) - time(timed[i - 1]) <= gapSeconds;
        if (!joins) all.emplace_back();
        all.back().push_back(timed[i]);
    }
    for (const std::size_t i : indices)
        if (!isTimed(photos[i])) all.push_back({i});
}

/// The photos of a group that take part, smallest face first.
std::vector<SizedPhoto> bySize(const Group& group, Analyses photos,
                               const std::function<bool(std::size_t)>& isEligible) {
    std::vector<SizedPhoto> sized;
    for (const std::size_t i : group) {
        const FaceGeometry* face = photos[i] ? photos[i]->primary() : nullptr;
        if (face && isEligible(i)) sized.push_back({i, face->faceUnit()});
    }
    std::ranges::stable_sort(sized, {}, &SizedPhoto::unit);
    return sized;
}

/// The first of the longest runs of faces within the tolerance.
std::span<const SizedPhoto> longestRun(std::span<const SizedPhoto> sorted) {
    std::span<const SizedPhoto> longest;
    std::size_t end = 0;
    for (std::size_t start = 0; start < sorted.size(); ++start) {
        const double largest = sorted[start].unit * (1 + steadyTolerance);
        while (end < sorted.size() && sorted[end].unit <= largest) ++end;
        if (end - start > longest.size()) longest = sorted.subspan(start, end - start);
    }
    return longest;
}

double medianUnit(std::span<const SizedPhoto> sorted) {
    const std::size_t middle = sorted.size() / 2;
    if (sorted.size() % 2 == 1) return sorted[middle].unit;
    return (sorted[middle - 1].unit + sorted[middle].unit) / 2;
}

}  // namespace

std::string cameraKey(const std::filesystem::path& photo) {
    const std::string name = photo.stem().string();
    const std::size_t last = name.find_last_not_of("0123456789");
    return last == std::string::npos ? name : name.substr(0, last + 1);
}

std::vector<Group> groups(Analyses photos, std::span<const std::string> cameras,
                          double gapSeconds) {
    const bool named = cameras.size() == photos.size();
    std::map<std::string, Group> byCamera;
    for (std::size_t i = 0; i < photos.size(); ++i)
        byCamera[named ? cameras[i] : std::string()].push_back(i);
    std::vector<Group> all;
    for (const auto& [camera, indices] : byCamera)
        appendTimeGroups(all, photos, indices, gapSeconds);
    return all;
}

std::vector<int> groupNumbers(Analyses photos, std::span<const std::string> cameras) {
    std::vector<int> numbers(photos.size(), 0);
    int number = 0;
    for (const Group& group : groups(photos, cameras)) {
        for (const std::size_t index : group) numbers[index] = number;
        ++number;
    }
    return numbers;
}

std::map<std::size_t, double> steadyFaceUnits(Analyses photos, std::span<const std::string> cameras,
                                              double gapSeconds,
                                              const std::function<bool(std::size_t)>& isEligible) {
    std::map<std::size_t, double> shared;
    for (const Group& group : groups(photos, cameras, gapSeconds)) {
        std::vector<SizedPhoto> rest = bySize(group, photos, isEligible);
        while (true) {
            const auto run = longestRun(rest);
            if (run.size() < 2) break;
            const double unit = medianUnit(run);
            for (const SizedPhoto& photo : run) shared[photo.index] = unit;
            const auto first = rest.begin() + (run.data() - rest.data());
            rest.erase(first, first + static_cast<std::ptrdiff_t>(run.size()));
        }
    }
    return shared;
}

}  // namespace morva::SubjectGrouping
