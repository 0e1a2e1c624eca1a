// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include "poses/pose_trainer.h"

namespace morva::PoseTrainer {

namespace {

/// Below this many examples an unsure pose is for want of examples.
constexpr int fewExamples = 10;

std::string inAHundred(double share) { return std::to_string(std::lround(100 * share)); }

}  // namespace

std::string TrainingError::message() const {
    switch (reason) {
        case Reason::tooFewExamples:
            return "Tick at least " + std::to_string(need) + " photos of this pose (" +
                   std::to_string(have) + " so far).";
        case Reason::tooFewCounterExamples:
            return "This needs at least " + std::to_string(need) +
                   " other photos in the job to compare against (" + std::to_string(have) +
                   " so far).";
        case Reason::featuresDisagree:
            return "Those photos could not be measured the same way. Re-run Crop Photos and try "
                   "again.";
        case Reason::noSignal:
            break;
    }
    return "Morva could not tell this pose apart from the rest of the job. Try ticking more "
           "examples of it.";
}

std::string verdict(double precision, double recall, int positives) {
    const std::string learnedFrom = std::to_string(positives) + " photos";
    const std::string missed = inAHundred(1 - recall);
    const std::string wrong = inAHundred(1 - precision);
    if (precision >= 0.9 && recall >= 0.9) {
        return "Learned cleanly from " + learnedFrom +
               ". It should find this pose on its own from now on.";
    }
    if (precision >= 0.8 && recall >= 0.7) {
        return "Learned from " + learnedFrom + ". Expect it to miss about " + missed +
               " in 100 and to need a correction on about " + wrong +
               " in 100 — worth checking the first job.";
    }
    if (positives < fewExamples) {
        return "Learned from only " + learnedFrom +
               ", so it is still unsure. Tick more examples of this pose to sharpen it.";
    }
    return "This pose looks a lot like the rest of the job — it would get about " + wrong +
           " in 100 wrong. Consider ticking more examples, or telling the crop types apart by "
           "hand.";
}

}  // namespace morva::PoseTrainer
