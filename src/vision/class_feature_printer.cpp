// SPDX-License-Identifier: GPL-3.0-or-later
#include "vision/class_feature_printer.h"

#include <array>
#include <cmath>
#include <span>

#include "vision/class_model.h"
#include "vision/picture_region.h"

namespace morva {

namespace {

constexpr std::size_t channels = 192;

/// What leaves the first and the last of the network's four attention blocks, the places where it
/// has seen the whole picture. Both together tell poses apart a little better than either.
std::array<InnerLayer, 2> printedLayers() {
    return {InnerLayer{{1, channels, 16, 16}, 7}, InnerLayer{{1, channels, 16, 16}, 26}};
}

/// To length 1, so that both layers weigh the same in a distance.
void normalise(std::span<float> layer) {
    double squares = 0;
    for (const float value : layer) squares += static_cast<double>(value) * value;
    if (squares <= 0) return;
    const auto factor = static_cast<float>(1 / std::sqrt(squares));
    for (float& value : layer) value *= factor;
}

}  // namespace

ClassFeaturePrinter::ClassFeaturePrinter(std::shared_ptr<InferenceEngine> engine,
                                         std::filesystem::path models)
    : engine_(std::move(engine)), models_(std::move(models)) {}

const Result<std::shared_ptr<const InferenceModel>>& ClassFeaturePrinter::network() const {
    std::call_once(compiledOnce_, [this] {
        network_ = InferenceModel::loadInner(*engine_, models_ / ClassModel::file, printedLayers());
    });
    return network_;
}

Result<std::vector<float>> ClassFeaturePrinter::print(const Picture& picture) const {
    const auto& model = network();
    if (!model) return tl::unexpected(model.error());
    auto session = (*model)->session();
    if (!session) return tl::unexpected(session.error());
    const Rect whole{0, 0, static_cast<double>(picture.width()),
                     static_cast<double>(picture.height())};
    sampleStretched(picture, whole, ClassModel::side, ClassModel::range, session->input());
    if (auto done = session->infer(); !done) return tl::unexpected(done.error());
    const auto output = session->output(printedLayers().size() * channels);
    if (output.empty()) return failure("The feature print has an unexpected size.");
    std::vector<float> print(output.begin(), output.end());
    for (std::size_t from = 0; from < print.size(); from += channels)
        normalise(std::span(print).subspan(from, channels));
    return print;
}

}  // namespace morva
