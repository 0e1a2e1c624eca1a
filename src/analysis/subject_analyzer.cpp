// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/subject_analyzer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include <opencv2/imgproc.hpp>

#include "analysis/backdrop_difference.h"
#include "analysis/head_protector.h"
#include "analysis/lab_colors.h"
#include "imaging/mat_view.h"
#include "vision/picture_region.h"

namespace morva::SubjectAnalyzer {

namespace {

/// What lies further than this from the expected backdrop, in units of L*a*b*, is something else.
constexpr float somethingElse = 10;
/// The same in middle distances of the backdrop itself, where that is uneven.
constexpr float somethingElseFactor = 2.5F;
/// Middle distance from it above which the backdrop is busy: studio backdrops have at most 2.5,
/// rooms and trees 4 to 12.
constexpr float busyDifference = 5;
// In face units.
constexpr double outlineMargin = 0.08;  // not looked at as backdrop: hair and soft edges
constexpr double shortestProp = 0.15;   // beyond the outline; less is a soft edge or a shadow
constexpr double smallestProp = 0.02;   // square face units
constexpr double longestProp = 3.5;     // beyond the outline; more is furniture
constexpr double innerGap = 0.1;        // half a stripe that is bridged
constexpr double holdingGap = 0.06;     // between the outline and what is held
// Shares of a side of the photo along which furniture and scenery meet it.
constexpr double broadContact = 0.3;
constexpr double cornerContact = 0.1;  // of two sides
constexpr double wholeBottom = 0.95;

constexpr const char* touchedNote = "Another person touches the child";
constexpr const char* hiddenNote = "Too little backdrop is seen to tell held things from it";
constexpr const char* busyNote = "The backdrop is too busy to tell held things from it";
constexpr const char* mergedNote = "Something behind the child cannot be told from a held thing";

/// The photo and its masks at working size.
struct Scene {
    cv::Mat lab;
    cv::Mat own;
    cv::Mat others;
    /// Persons' parts that hang on nobody's face.
    cv::Mat loose;
    double unit = 0;  // face unit in working pixels

    int pixels(double units) const {
        return std::max(1, static_cast<int>(std::lround(units * unit)));
    }
};

/// What lies within `radius` of `mask`; the distance map costs the same for every radius.
cv::Mat within(const cv::Mat& mask, double radius) {
    cv::Mat distances;
    cv::distanceTransform(~mask, distances, cv::DIST_L2, cv::DIST_MASK_3);
    return distances <= radius;
}

cv::Mat reduced(const Mask& mask, cv::Size size) {
    cv::Mat result;
    cv::resize(viewOf(mask), result, size, 0, 0, cv::INTER_AREA);
    return result >= HeadProtector::personThreshold;
}

Scene sceneOf(const AnalysisImage& image, const MainPerson& child, const Mask& persons,
              const FaceGeometry& face) {
    Scene scene;
    const Picture reducedPicture = smallCopy(image.image, workingSide);
    const cv::Size size(reducedPicture.width(), reducedPicture.height());
    cv::Mat small;
    viewOf(reducedPicture).convertTo(small, CV_32F, 1.0 / 255);
    scene.lab = labColors(small);
    scene.own = reduced(child.mask, size);
    scene.others = reduced(child.others, size) & ~scene.own;
    scene.loose = reduced(persons, size) & ~scene.own & ~scene.others;
    scene.unit = face.faceUnit() * size.width / image.sourceSize.width;
    return scene;
}

/// Whether a region meets the photo's sides as furniture and walls do. Below, a child's own body
/// and clothes meet it too.
bool isScenery(const cv::Mat& region) {
    const auto contact = [](const cv::Mat& line) {
        return static_cast<double>(cv::countNonZero(line)) / static_cast<double>(line.total());
    };
    const std::array sides{contact(region.row(0)), contact(region.col(0)),
                           contact(region.col(region.cols - 1))};
    return std::ranges::max(sides) > broadContact ||
           std::ranges::count_if(sides, [](double c) { return c > cornerContact; }) > 1 ||
           contact(region.row(region.rows - 1)) > wholeBottom;
}

struct Props {
    cv::Mat mask;
    /// Scenery hangs together with the child.
    bool merged = false;
};

/// Of everything that is no backdrop: what hangs on the child and reaches beyond its soft edge.
Props propsIn(const Scene& scene, const cv::Mat& foreign) {
    Props props{cv::Mat::zeros(scene.own.size(), CV_8UC1)};
    cv::Mat labels;
    cv::Mat stats;
    cv::Mat centers;
    const int count = cv::connectedComponentsWithStats(foreign, labels, stats, centers, 8, CV_32S);
    cv::Mat fromChild;
    cv::distanceTransform(~scene.own, fromChild, cv::DIST_L2, cv::DIST_MASK_3);
    const cv::Mat holding = fromChild <= scene.pixels(holdingGap);
    for (int label = 1; label < count; ++label) {
        if (stats.at<int>(label, cv::CC_STAT_AREA) < smallestProp * scene.unit * scene.unit)
            continue;
        const cv::Mat region = labels == label;
        // Legs below a board hang on it and are still the child's.
        const cv::Mat things = region & ~scene.loose;
        double reach = 0;
        cv::minMaxLoc(fromChild, nullptr, &reach, nullptr, nullptr, things);
        if (reach < shortestProp * scene.unit || cv::countNonZero(region & holding) == 0) continue;
        const bool scenery = isScenery(things) || reach > longestProp * scene.unit;
        if (scenery)
            props.merged = true;
        else
            props.mask |= region;
    }
    return props;
}

/// The middle one of the backdrop's own distances from what is expected.
float middleDifference(const cv::Mat& difference, const cv::Mat& backdrop) {
    std::vector<float> values;
    for (int y = 0; y < difference.rows; ++y) {
        for (int x = 0; x < difference.cols; ++x) {
            if (backdrop.at<std::uint8_t>(y, x) != 0) values.push_back(difference.at<float>(y, x));
        }
    }
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

cv::Mat foreignTo(const Scene& scene, const cv::Mat& difference, float middle) {
    const float limit = std::max(somethingElse, somethingElseFactor * middle);
    cv::Mat foreign = (difference > limit) & ~scene.own & ~within(scene.others, 2);
    cv::morphologyEx(foreign, foreign, cv::MORPH_OPEN,
                     cv::getStructuringElement(cv::MORPH_RECT, {2, 2}));
    foreign |= scene.loose;
    // A thing is one although some of it has the backdrop's colour, and meets what it hides part
    // of.
    const int gap = scene.pixels(innerGap);
    foreign = ~within(~within(foreign, gap), gap);
    foreign &= ~scene.own;
    return foreign;
}

Rect boundsOf(const cv::Mat& mask, Size source) {
    const cv::Rect box = cv::boundingRect(mask);
    const double kx = source.width / mask.cols;
    const double ky = source.height / mask.rows;
    return {box.x * kx, box.y * ky, box.width * kx, box.height * ky};
}

double reachBeyond(const Rect& outline, const Rect& whole) {
    return std::max({outline.x - whole.x, outline.y - whole.y, whole.maxX() - outline.maxX(),
                     whole.maxY() - outline.maxY()});
}

}  // namespace

std::optional<SubjectContent> subject(const AnalysisImage& image, const MainPerson& child,
                                      const Mask& persons, const FaceGeometry& face,
                                      const std::optional<std::vector<double>>& backdrop) {
    const cv::Mat outline = viewOf(child.mask) >= HeadProtector::personThreshold;
    if (cv::countNonZero(outline) == 0 || !(face.faceUnit() > 0)) return std::nullopt;
    const Scene scene = sceneOf(image, child, persons, face);
    const cv::Mat behind =
        ~within(scene.own | scene.others | scene.loose, scene.pixels(outlineMargin));
    const cv::Mat difference = backdropDifference(scene.lab, behind, backdrop);

    Props props;
    SubjectContent content;
    content.reliable = false;
    if (difference.empty()) {
        content.note = hiddenNote;
    } else {
        const float middle = middleDifference(difference, behind);
        props = propsIn(scene, foreignTo(scene, difference, middle));
        if (child.touched)
            content.note = touchedNote;
        else if (middle > busyDifference)
            content.note = busyNote;
        else if (props.merged)
            content.note = mergedNote;
        else
            content.reliable = true;
    }
    Mask whole = child.mask.copy();
    if (content.reliable) {
        cv::Mat held;
        cv::resize(props.mask, held, outline.size(), 0, 0, cv::INTER_NEAREST);
        viewOf(whole).setTo(255, held);
    }
    const Rect own = boundsOf(outline, image.sourceSize);
    content.bounds = boundsOf(viewOf(whole) >= HeadProtector::personThreshold, image.sourceSize);
    content.propReach = std::max(0.0, reachBeyond(own, content.bounds)) / face.faceUnit();
    content.edges = HeadProtector::edgeContact(whole);
    return content;
}

}  // namespace morva::SubjectAnalyzer
