// SPDX-License-Identifier: GPL-3.0-or-later
// Picks the preset of each photo from an ordered list of rules; the first match wins. Called for
// whole batches, because stars and retakes of one photo speak for others. Pure.
#pragma once

#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "crop/crop_rule.h"
#include "crop/subject_grouping.h"
#include "model/presets/crop_preset.h"

namespace morva {

/// What a batch as a whole says about each of its photos.
struct RuleContext {
    bool ratingsInUse = false;
    /// The rated siblings by index, for each number of stars that a rule asks for.
    std::map<int, std::set<std::size_t>> retakes;
};

namespace CropRules {

/// From this rating on of any photo, the photographer chooses crop types by stars. One star or two
/// may be no more than sorting out.
inline constexpr int leastDeliberateStars = 3;
/// The closest that knees still fit into the frame: above this face unit over photo height a
/// default rule sees a headshot.
inline constexpr double defaultCloseUp = 0.12;

bool ratingsInUse(Analyses photos);

/// The photos taken along with one of at least this many stars: in its group, with a face of its
/// size within the tolerance, for a change of size within seconds is another pose. The rated photos
/// themselves count.
std::set<std::size_t> ratedSiblings(Analyses photos, std::span<const std::string> cameras,
                                    int stars, double gapSeconds, double tolerance);

/// What the rules given need to know about the batch. `cameras` as for `SubjectGrouping::groups`.
RuleContext context(Analyses photos, std::span<const std::string> cameras,
                    std::span<const CropRule> rules);

/// The first enabled rule that matches the photo at `index` of the batch; null when none does.
const CropRule* match(const ImageAnalysis& photo, std::size_t index,
                      std::span<const CropRule> rules, const RuleContext& context);

/// The preset of that rule, else `fallback`.
Uuid presetID(const ImageAnalysis& photo, std::size_t index, std::span<const CropRule> rules,
              const Uuid& fallback, const RuleContext& context);

/// Replaces the rule of the same identity. A new rule goes before the first rule that is less
/// deliberate, where it can win: stars before labels, labels before learned poses, these before
/// what is seen in every photo, and "everything else" last.
void put(std::vector<CropRule>& rules, const CropRule& rule);

/// Starting rules for a library. Stars come first, most stars first, because a rule takes that many
/// stars or more; each number of stars selects the preset that writes it. Then the frames taken
/// along with a rated one, and what is seen in the photo, where the built-in preset for it is in
/// the library. The same library gives the same rules with the same identities.
std::vector<CropRule> defaults(std::span<const CropPreset> library);

}  // namespace CropRules

}  // namespace morva
